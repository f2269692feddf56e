#pragma once

#include <string>

#include "platform/files.h"

namespace platform {

/// What a failed system call means to the caller of a file operation.
FileStatus StatusFromErrno(int error);

/// Asks the test's hook before a step: its errno value, or 0 to go on.
int FailureAt(const char* step, const std::string& path);

}  // namespace platform
