#pragma once

#include <cstdint>
#include <string_view>

namespace nimbrel {

/// Merges the two saved sheets into the output file, then frees the work sheets and deletes the
/// sheets' files, whether it worked or not. Bare names of working files; `format` is 12 for DXT3,
/// 17 for 32-bit. `flag` goes through to the texture library twice, as -1 for true.
void CompressCumulus(std::string_view color_name, std::string_view alpha_name,
                     std::string_view output_name, bool flag, std::int32_t format);

}  // namespace nimbrel
