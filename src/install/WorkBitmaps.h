#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/gdi.h"

namespace platform {
class FileSystem;
}

namespace nimbrel {

struct Folders;

/// The bare name of the composed texture among the working files.
inline constexpr std::string_view kCumulusTexture = "cumulus01";

/// The composer's working files, deleted or replaced by the next run.
std::string TempBitmapsFolder(const Folders& folders);
/// The path of a working file by its bare name, which is trimmed.
std::string TempBitmapFile(const Folders& folders, std::string_view name);

/// A cloud input of one side; a handle is empty while there is no such object.
struct InputSlot {
  platform::HDC dc;
  platform::HBITMAP bitmap;
};

/// The sheet of one side. Rows of `pixels` are not padded, so a row has to be a multiple of 4 bytes
/// long, as the composer's are.
struct WorkSheet {
  platform::HDC dc;
  platform::HBITMAP bitmap;
  platform::BitmapInfo info;
  std::vector<std::uint8_t> pixels;
};

/// A rectangle of an input and its place on the sheet, pixels.
struct CellCopy {
  std::int16_t x, y, width, height;
  std::int16_t source_x, source_y, source_width, source_height;
};

/// One side of the composer, colour or alpha: its three inputs (slots 0 to 2) and its sheet.
/// Functions_24bit and Functions_8bit say what each side does with it.
class WorkBitmaps {
 public:
  static constexpr std::size_t kInputs = 3;

  /// Both have to live as long as the object.
  WorkBitmaps(const Folders& folders, platform::FileSystem& files)
      : folders_(folders), files_(files) {}

  /// kOk if the slot now holds the picture, kNoSource if there is none at `path` inside the
  /// program's folder, kNotAFile if the file is no picture, otherwise why it could not be read.
  platform::FileStatus Load(std::size_t slot, std::string_view path);
  bool Create(std::uint16_t bit_count, std::int16_t width, std::int16_t height);
  /// Gives the sheet the colour table of input 0. False if either has none: an alpha sheet of
  /// black would make every cloud invisible.
  bool TakeColorTable();
  bool Blit(std::size_t slot, const CellCopy& cell);
  /// Writes the sheet as a BMP file of this name among the working files, whole or not at all.
  platform::FileStatus Save(std::string_view name);
  void ReleaseSheet();

 private:
  const Folders& folders_;
  platform::FileSystem& files_;
  std::array<InputSlot, kInputs> slots_;
  WorkSheet sheet_;
};

}  // namespace nimbrel
