// make_seeds FOLDER: writes the binary seeds of the fuzzers, each into the folder of its name.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "history/FavoriteStore.h"
#include "settings/SettingsRecord.h"
#include "support/BmpFile.h"
#include "toolkit/region.h"

namespace fs = std::filesystem;

namespace {

constexpr int kSide = 8;

template <typename Bytes>
std::string Text(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

class Folder {
 public:
  explicit Folder(fs::path path) : path_(std::move(path)) {}
  void Put(std::string_view fuzzer, std::string_view name, const std::string& bytes) const {
    fs::create_directories(path_ / fuzzer);
    std::ofstream(path_ / fuzzer / name, std::ios::binary) << bytes;
  }

 private:
  fs::path path_;
};

std::string ColorFile() {
  return ColorBmp(kSide, kSide,
                  [](int x, int y) {
                    return static_cast<std::uint32_t>(x * 0x1F0000 + y * 0x1F00 + 0x55);
                  })
      .Bytes();
}

std::string GreyFile() {
  return GreyBmp(kSide, kSide, false,
                 [](int x, int y) { return static_cast<std::uint32_t>(x * 16 + y); })
      .Bytes();
}

/// The first part of an input with the two bytes of its length before it.
std::string Part(const std::string& bytes) {
  std::string length;
  BmpFile::Put(length, static_cast<std::uint32_t>(bytes.size()), 2);
  return length + bytes;
}

nimbrel::SettingsRecord Record(std::int16_t source) {
  nimbrel::SettingsRecord record{.Date = 38500.75, .Source = source, .choice = {}};
  record.choice.sun = true;
  std::int16_t option = 0;
  for (std::int16_t& index : record.choice.option) {
    index = option++;
  }
  return record;
}

/// Rows of 4 bits without padding.
std::string FewColorsFile() {
  return BmpFile{.width = 8,
                 .height = 1,
                 .bits = 4,
                 .words = std::vector<std::uint32_t>(16, 7),
                 .pixels = "\x12\x34\x56\x78"}
      .Bytes();
}

void PutBitmaps(const Folder& folder, std::string_view fuzzer) {
  folder.Put(fuzzer, "24", ColorFile());
  folder.Put(fuzzer, "8", GreyFile());
  folder.Put(fuzzer, "8-few",
             BmpFile{.width = 3,
                     .bits = 8,
                     .colors_used = 2,
                     .words = {0, 0xFFFFFF},
                     .pixels = std::string("\0\1\0\0", 4)}
                 .Bytes());
  folder.Put(fuzzer, "8-too-many",
             BmpFile{.bits = 8,
                     .colors_used = 257,
                     .words = std::vector<std::uint32_t>(257, 7),
                     .pixels = std::string(4, '\0')}
                 .Bytes());
  folder.Put(fuzzer, "4", FewColorsFile());
  folder.Put(fuzzer, "4-topdown",
             BmpFile{.width = 5,
                     .height = -1,
                     .bits = 4,
                     .words = std::vector<std::uint32_t>(16, 7),
                     .pixels = "\x12\x34\x50 "}
                 .Bytes());
  folder.Put(fuzzer, "1", BmpFile{.bits = 1, .words = {0, 0xFF}, .pixels = "\x80   "}.Bytes());
  folder.Put(
      fuzzer, "16-fields",
      BmpFile{
          .bits = 16, .compression = 3, .words = {0xF800, 0x07E0, 0x001F}, .pixels = "\xAA\x55  "}
          .Bytes());
  folder.Put(
      fuzzer, "32-fields",
      BmpFile{.bits = 32, .compression = 3, .words = {0xFF, 0xFF00, 0xFF0000}, .pixels = "abcd"}
          .Bytes());
}

void PutStores(const Folder& folder) {
  std::string history;
  for (std::int16_t i = 0; i < 31; ++i) {
    history += Text(nimbrel::EncodeRecord(Record(i % 3)));
    if (i == 0 || i == 30) {
      folder.Put("history", std::to_string(i + 1), history);
    }
  }
  folder.Put("history", "half", history.substr(0, 54));
  folder.Put("favorite", "whole",
             Text(nimbrel::EncodeFavorite({"Caf\u00E9 (winter)", "one\r\ntwo", Record(2)})));
  folder.Put("favorite", "case", "gIven");
  folder.Put("favorite", "path", "..\\../a:b*?\x01 " + std::string(300, 'x'));
}

void PutRegions(const Folder& folder) {
  toolkit::HRGN region = toolkit::CreateRectRgn(0, 0, 40, 30);
  folder.Put("region", "whole", Text(toolkit::GetRegionData(region)));
  for (int hole = 0; hole < 3; ++hole) {
    toolkit::CombineRgn(region, region,
                        toolkit::CreateRectRgn(hole * 9, hole * 7, hole * 9 + 5, hole * 7 + 3),
                        toolkit::RGN_DIFF);
  }
  folder.Put("region", "holes", Text(toolkit::GetRegionData(region)));
}

/// A directory of two entries for one and the same picture of 2 by 2, colours above mask.
std::string CursorFile() {
  std::string file;
  for (const std::uint32_t field : {0U, 2U, 2U}) {
    BmpFile::Put(file, field, 2);
  }
  for (int entry = 0; entry < 2; ++entry) {
    BmpFile::Put(file, 0x0202, 4);
    BmpFile::Put(file, 0x00010001, 4);
    BmpFile::Put(file, 64, 4);
    BmpFile::Put(file, 38, 4);
  }
  const std::string picture =
      BmpFile{.width = 2, .height = 4, .bits = 32, .pixels = std::string(24, '\x7F')}.Bytes();
  return file + picture.substr(14);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    return 1;
  }
  const Folder folder(argv[1]);
  PutBitmaps(folder, "bitmap");
  PutBitmaps(folder, "picture");
  PutStores(folder);
  PutRegions(folder);
  folder.Put("cursor", "two", CursorFile());
  const std::string sheets = Part(ColorFile()) + GreyFile();
  folder.Put("texture", "dxt3", '\0' + sheets);
  folder.Put("texture", "32", '\1' + sheets);
  const auto plain = [](int, int) { return 7U; };
  folder.Put("texture", "unequal",
             '\1' + Part(ColorFile()) + GreyBmp(kSide, kSide / 2, false, plain).Bytes());
  folder.Put("composer", "sheets", '\0' + sheets);
  folder.Put("composer", "swapped", '\2' + sheets);
  folder.Put("composer", "few", '\0' + Part(FewColorsFile()) + FewColorsFile());
  folder.Put("composer", "whole", '\xF0' + sheets);
  return 0;
}
