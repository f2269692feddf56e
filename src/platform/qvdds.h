#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

class FileSystem;

inline constexpr std::int32_t kFormatDXT3 = 12;
inline constexpr std::int32_t kFormat32Bit = 17;

/// Merges a 24-bit colour BMP and an 8-bit alpha BMP of one size into the simulator's extended
/// bitmap: alpha is the grey of the alpha sheet's colour table entry. Writes `output` as one safe
/// replacement. 1 on success; 0, with `output` untouched, if a sheet is missing, malformed or of
/// another depth, if the sizes differ or (DXT3) are not multiples of 4, or if the format is
/// another. The two flags belong to the published call; every caller passes -1 and they have no
/// effect.
std::int32_t BMPScompressBMP(std::string_view color_sheet, std::string_view alpha_sheet,
                             std::int32_t format, std::int16_t flag1, std::int16_t flag2,
                             std::string_view output, FileSystem& files);

}  // namespace platform
