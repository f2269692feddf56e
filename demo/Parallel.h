#pragma once

#include <functional>
#include <vector>

namespace demo {

/// Does all jobs on as many threads as the machine has. They must not depend on each other. After
/// the last has ended, throws what the first that failed has thrown.
void DoAll(const std::vector<std::function<void()>>& jobs);

}  // namespace demo
