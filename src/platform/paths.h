#pragma once

#include <string>
#include <string_view>

#include "platform/Descriptor.h"
#include "platform/FileStatus.h"

namespace platform {

class FolderListings;

/// What FileSystem is made of: paths of the host.

/// The host's path of a composed one. If a folder along the path can't be listed, the path may
/// exist in another case: `unlisted` is then the reason, otherwise kOk.
std::string FindHostPath(FolderListings& listings, std::string_view path, FileStatus& unlisted);

/// The status for a path that can't be opened: `absent` if it does not exist, unless a folder that
/// could not be listed may hold it. `error` is an errno value.
FileStatus Absence(int error, FileStatus unlisted, FileStatus absent);

/// Opens a host path, links followed, and gives its real path, which is empty if the system has
/// none for it.
Descriptor OpenReal(const std::string& host, int flags, std::string& real);

/// True if a real path is the folder `root`, a composed path, or lies below it. False also if that
/// folder can't be opened: `status` is then the reason, otherwise kOk.
bool IsInRoot(FolderListings& listings, const std::string& real, std::string_view root,
              FileStatus& status);

}  // namespace platform
