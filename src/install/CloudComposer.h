#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "install/WorkBitmaps.h"
#include "platform/FileStatus.h"

namespace nimbrel {

struct MachineSwitches;

/// One rectangle of the cumulus sheet: its input (0 solid, 1 stratus, 2 wispy) and its place on
/// input and sheet alike, pixels, right and bottom exclusive.
struct CumulusCell {
  std::size_t input;
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

/// Composes the cumulus texture of one install from the three cloud inputs.
class CloudComposer {
 public:
  /// Both have to live as long as the object.
  CloudComposer(const Folders& folders, platform::FileSystem& files);

  /// Loads the colour and the alpha bitmap of an input (0 to 2), once for each input. kOk also if
  /// there is no such picture: its cells stay empty; otherwise why a file could not be read. Throws
  /// ActionFailed if the folder for temporary bitmaps can't be made.
  platform::FileStatus PrepareCloudInput(std::size_t input, std::string_view color_path,
                                         std::string_view alpha_path);

  /// Composes both sheets and merges them into TempBitmaps\cumulus01.bmp, of size and format of the
  /// switches. kNoSource if the inputs make no texture, otherwise why a file could not be written;
  /// an older cumulus01.bmp stays then.
  platform::FileStatus ComposeCumulus(const MachineSwitches& machine);

  bool ComposeColorSheet(const CumulusSheet& sheet);
  bool ComposeAlphaSheet(const CumulusSheet& sheet);
  /// Frees the two work sheets.
  void ReleaseSheets();

 private:
  const Folders& folders_;
  platform::FileSystem& files_;
  WorkBitmaps color_;
  WorkBitmaps alpha_;
};

}  // namespace nimbrel
