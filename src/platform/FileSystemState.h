#pragma once

#include <string>

#include "platform/FolderListings.h"

namespace platform {

/// What a FileSystem keeps between calls.
struct FileSystemState {
  std::string temporary_prefix;
  unsigned long temporaries = 0;  ///< names given so far
  FolderListings listings;
};

}  // namespace platform
