#pragma once

#include <string>
#include <string_view>

#include "platform/Descriptor.h"

namespace platform {

/// HostPath, with the errno value of a folder that could not be looked into on the way, else 0. A
/// path that then seems to lead nowhere may be there in another case.
std::string FindHostPath(std::string_view path, int& unread);

/// Opens a host path, links followed, and gives its real path, which is empty when the system has
/// none for it.
Descriptor OpenReal(const std::string& host, int flags, std::string& real);

/// Whether a real path is the folder `root`, a composed path, or lies below it. False when there is
/// no such folder, or it can't be looked at, of which `error` gets the errno value, else 0.
bool IsInRoot(const std::string& real, std::string_view root, int* error = nullptr);

}  // namespace platform
