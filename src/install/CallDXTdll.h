#pragma once

#include <cstdint>
#include <string_view>

#include "platform/FileStatus.h"

namespace platform {
class FileSystem;
}

namespace nimbrel {

struct Folders;

/// Merges the two saved sheets into the output file and deletes the sheets' files, whether the
/// merge works or not; kOther if it does not. Bare names of working files; `format` is 12 for DXT3,
/// 17 for 32-bit. `flag` is passed to the texture library twice, as -1 for true.
platform::FileStatus CompressCumulus(const Folders& folders, platform::FileSystem& files,
                                     std::string_view color_name, std::string_view alpha_name,
                                     std::string_view output_name, bool flag, std::int32_t format);

}  // namespace nimbrel
