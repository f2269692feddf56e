#pragma once

#include <functional>
#include <vector>

namespace demo {

/// Runs all jobs, which must not depend on each other, on as many threads as the machine has. After
/// the last job it rethrows the exception of the first job that failed.
void DoAll(const std::vector<std::function<void()>>& jobs);

}  // namespace demo
