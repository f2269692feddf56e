#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/gdi.h"

namespace nimbrel {

/// ApplicationFolder + "\TempBitmaps": the composer's own working files, gone or replaced by the
/// next run.
std::string TempBitmapsFolder();
/// The path of a working file by its bare name; blanks round the name go.
std::string TempBitmapFile(std::string_view name);

/// Why the system would not read or write a file of the composer, the first time it would not; kOk
/// while it did. A file that is missing, or no picture, is no such trouble. Cleared by who begins a
/// texture, set through NoteSheet.
extern platform::FileStatus SheetTrouble;
void NoteSheet(platform::FileStatus status);

/// A cloud input of one side. An empty handle says that there is no such object; the context's own
/// bitmap says whether one is selected.
struct InputSlot {
  platform::HDC dc;
  platform::HBITMAP bitmap;
};

/// The sheet of one side. `pixels` has no filler at the ends of rows, which fits widths of whole
/// 4-byte rows only, as the composer's are.
struct WorkSheet {
  platform::HDC dc;
  platform::HBITMAP bitmap;
  platform::BitmapInfo info;
  std::vector<std::uint8_t> pixels;
};

/// A rectangle of an input and the place it takes on the sheet, pixels.
struct CellCopy {
  std::int16_t x, y, width, height;
  std::int16_t source_x, source_y, source_width, source_height;
};

/// What the colour side and the alpha side of the composer have in common: the operations of both
/// are these, and each side holds one.
class BitmapFunctions {
 public:
  static constexpr std::size_t kInputs = 3;

  bool Load(std::int16_t slot, std::string_view path);
  bool Create(std::uint16_t bit_count, std::int16_t width, std::int16_t height);
  /// Gives the sheet the colour table of input 0. False when either has none: the sheet would be
  /// black all over, which in an alpha sheet makes every cloud invisible.
  bool TakeColorTable();
  bool Blit(std::int16_t slot, const CellCopy& cell);
  /// Writes the sheet as a BMP file of this name among the working files, whole or not at all.
  bool Save(std::string_view name);
  void ReleaseInput(std::int16_t slot);
  void ReleaseSheet();

 private:
  InputSlot* Slot(std::int16_t slot);

  std::array<InputSlot, kInputs> slots_;
  WorkSheet sheet_;
};

}  // namespace nimbrel
