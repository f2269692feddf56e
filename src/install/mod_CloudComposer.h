#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace nimbrel {

/// One rectangle of the cumulus sheet: which input it comes from (0 solid, 1 stratus, 2 wispy), and
/// where it lies on input and sheet alike, pixels, right and bottom exclusive.
struct CumulusCell {
  std::int16_t input;
  std::int16_t left;
  std::int16_t top;
  std::int16_t right;
  std::int16_t bottom;
};

struct CumulusSheet {
  std::int16_t width;
  std::int16_t height;
  std::array<CumulusCell, 6> cells;
};

/// The mosaic by size index: 0 the large sheet, 1 the fast one.
extern const std::array<CumulusSheet, 2> CumulusLayout;

/// Loads the colour and the alpha bitmap of an input (0 to 2) into its slots, in place of what they
/// held. Throws RunTimeFailure when the folder for temporary bitmaps can't be made.
void PrepareCloudInput(std::int16_t input, std::string_view color_path,
                       std::string_view alpha_path);

/// Lays both sheets and merges them into TempBitmaps\cumulus01.bmp, DXT3 when `compression` is 1,
/// else 32-bit. A failed step ends it quietly, and an older cumulus01.bmp stays.
void ComposeCumulus(std::int16_t size_index, std::int16_t compression);

bool ComposeColorSheet(std::int16_t size_index);
bool ComposeAlphaSheet(std::int16_t size_index);
/// Frees the two work sheets.
void ReleaseSheets();

}  // namespace nimbrel
