#include <gtest/gtest.h>

#include <array>

#include "install/Functions_24bit.h"
#include "install/Functions_8bit.h"
#include "install/mod_CloudComposer.h"
#include "platform/system.h"
#include "settings/Functions_Configuration.h"
#include "support/BmpFile.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

constexpr std::array<const char*, 3> kNames{"solid", "stratus", "wispy"};

/// Each input has a colour of its own, shaded by place so that a shifted cell shows.
std::uint32_t InputColor(int input, int x, int y) {
  const auto place = static_cast<std::uint32_t>((x / 2 + y / 4) % 128);
  return place | static_cast<std::uint32_t>(60 * (input + 1)) << 16U;
}

std::uint32_t InputAlpha(int input, int x, int y) {
  return static_cast<std::uint32_t>((x + 2 * y + 40 * input) % 256);
}

/// A program folder with three cloud inputs, those of stratus and wispy with their tables upside
/// down.
class Composer : public testing::Test {
 protected:
  Composer() { platform::SetApplicationFolder(folder_.string()); }
  ~Composer() override {
    platform::SetApplicationFolder({});
    nimbrel::ReleaseSheets();
  }

  fs::path Temp(const char* name) const { return folder_.path() / "TempBitmaps" / name; }

  void WriteInput(int input, int side) const {
    const std::string name = kNames.at(static_cast<std::size_t>(input));
    const auto color = [=](int x, int y) { return InputColor(input, x, y); };
    const auto alpha = [=](int x, int y) { return InputAlpha(input, x, y); };
    WriteText(folder_ / (name + ".bmp"), ColorBmp(side, side, color).Bytes());
    WriteText(folder_ / (name + "_a.bmp"), GreyBmp(side, side, input != 0, alpha).Bytes());
  }

  void Prepare(std::int16_t input) const {
    const std::string path = folder_.string() + "\\" + kNames.at(static_cast<std::size_t>(input));
    nimbrel::PrepareCloudInput(input, path + ".bmp", path + "_a.bmp");
  }

  void PrepareAll(int side) const {
    for (std::int16_t input = 0; input < 3; ++input) {
      WriteInput(input, side);
      Prepare(input);
    }
  }

  TempFolder folder_;
};

std::uint32_t Pixel(const std::string& texture, int side, int x, int y) {
  std::uint32_t pixel = 0;
  const auto row = static_cast<std::size_t>(side - 1 - y);
  const std::size_t index = row * static_cast<std::size_t>(side) + static_cast<std::size_t>(x);
  const std::size_t at = 74 + index * 4;
  for (std::size_t i = 4; i-- > 0;) {
    pixel = pixel << 8U | static_cast<unsigned char>(texture.at(at + i));
  }
  return pixel;
}

/// The corners of the six cells on a sheet of 16 x 16 units: left, top, right, bottom, input.
constexpr std::array<std::array<int, 5>, 6> kCells{{{0, 0, 12, 4, 1},
                                                    {12, 0, 16, 4, 0},
                                                    {0, 4, 8, 12, 2},
                                                    {8, 4, 16, 8, 2},
                                                    {0, 12, 8, 16, 0},
                                                    {8, 8, 16, 16, 0}}};

TEST_F(Composer, EachCellComesFromItsInput) {
  for (const int side : {512, 256}) {
    SCOPED_TRACE(side);
    PrepareAll(side);
    nimbrel::ComposeCumulus(side == 512 ? 0 : 1, 0);
    const std::string texture = ReadText(Temp("cumulus01.bmp"));
    ASSERT_EQ(static_cast<std::size_t>(74 + side * side * 4), texture.size());
    const int unit = side / 16;
    for (const auto& [left, top, right, bottom, input] : kCells) {
      for (const int x : {left * unit, right * unit - 1}) {
        for (const int y : {top * unit, bottom * unit - 1}) {
          EXPECT_EQ(InputColor(input, x, y) | InputAlpha(input, x, y) << 24U,
                    Pixel(texture, side, x, y))
              << x << ',' << y;
        }
      }
    }
    EXPECT_FALSE(fs::exists(Temp("cumulus01_c.bmp")));
    EXPECT_FALSE(fs::exists(Temp("cumulus01_a.bmp")));
  }
}

TEST_F(Composer, CompressionChangesTheFormatOnly) {
  PrepareAll(256);
  nimbrel::ComposeCumulus(1, 1);
  const std::string texture = ReadText(Temp("cumulus01.bmp"));
  EXPECT_EQ(74U + 256 * 256, texture.size());
  EXPECT_EQ("DXT3", texture.substr(30, 4));
}

std::string Headers(int side, std::uint32_t bits, std::size_t file_bytes, std::uint32_t offset) {
  std::string file = "BM";
  const auto extent = static_cast<std::uint32_t>(side);
  for (const std::uint32_t field :
       {static_cast<std::uint32_t>(file_bytes), 0U, offset, 40U, extent, extent, bits << 16U | 1U,
        0U, extent * extent * bits / 8, 0U, 0U, 0U, 0U}) {
    BmpFile::Put(file, field, 4);
  }
  return file;
}

TEST_F(Composer, SheetsAreSavedInTheirLayout) {
  struct Size {
    std::int16_t index;
    int side;
    std::size_t color_bytes;
    std::size_t alpha_bytes;
  };
  for (const Size& size : {Size{0, 512, 786486, 263222}, Size{1, 256, 196662, 66614}}) {
    SCOPED_TRACE(size.side);
    PrepareAll(size.side);
    ASSERT_TRUE(nimbrel::ComposeColorSheet(size.index));
    ASSERT_TRUE(nimbrel::SaveSheet24(" sheet "));
    ASSERT_TRUE(nimbrel::ComposeAlphaSheet(size.index));
    ASSERT_TRUE(nimbrel::SaveSheet8("sheet_a"));
    const std::string color = ReadText(Temp("sheet.bmp"));
    const std::string alpha = ReadText(Temp("sheet_a.bmp"));
    ASSERT_EQ(size.color_bytes, color.size());
    ASSERT_EQ(size.alpha_bytes, alpha.size());
    EXPECT_EQ(Headers(size.side, 24, size.color_bytes, 54), color.substr(0, 54));
    EXPECT_EQ(Headers(size.side, 8, size.alpha_bytes, 1078), alpha.substr(0, 54));
    EXPECT_EQ(ReadText(folder_ / "solid_a.bmp").substr(54, 1024), alpha.substr(54, 1024));
    EXPECT_EQ(static_cast<char>(InputAlpha(0, 0, size.side - 1)), alpha.at(1078)) << "bottom left";
  }
}

TEST_F(Composer, MissingStratusLeavesItsCellEmpty) {
  WriteInput(0, 256);
  WriteInput(2, 256);
  for (std::int16_t input = 0; input < 3; ++input) {
    Prepare(input);
  }
  nimbrel::ComposeCumulus(1, 0);
  const std::string texture = ReadText(Temp("cumulus01.bmp"));
  EXPECT_EQ(0U, Pixel(texture, 256, 0, 0));
  EXPECT_EQ(0U, Pixel(texture, 256, 191, 63));
  EXPECT_EQ(InputColor(0, 192, 0) | InputAlpha(0, 192, 0) << 24U, Pixel(texture, 256, 192, 0));
}

TEST_F(Composer, WithoutSolidTheOldTextureStays) {
  PrepareAll(256);
  WriteText(Temp("cumulus01.bmp"), "old");
  fs::remove(folder_ / "solid.bmp");
  Prepare(0);
  nimbrel::ComposeCumulus(1, 1);
  EXPECT_EQ("old", ReadText(Temp("cumulus01.bmp")));
  EXPECT_FALSE(fs::exists(Temp("cumulus01_c.bmp")));
}

TEST_F(Composer, WithoutAlphaTheColourSheetStaysBehind) {
  for (std::int16_t input = 0; input < 3; ++input) {
    WriteInput(input, 256);
    fs::remove(folder_ / (std::string(kNames.at(static_cast<std::size_t>(input))) + "_a.bmp"));
    Prepare(input);
  }
  nimbrel::ComposeCumulus(1, 1);
  EXPECT_TRUE(fs::exists(Temp("cumulus01_c.bmp")));
  EXPECT_FALSE(fs::exists(Temp("cumulus01.bmp")));
}

TEST_F(Composer, AnAlphaInputOfTrueColourHasNoTableToTake) {
  PrepareAll(256);
  fs::copy_file(folder_ / "solid.bmp", folder_ / "solid_a.bmp",
                fs::copy_options::overwrite_existing);
  Prepare(0);
  nimbrel::ComposeCumulus(1, 1);
  EXPECT_FALSE(fs::exists(Temp("cumulus01.bmp")));
}

TEST_F(Composer, InputsOutsideTheProgramFolderAreNotRead) {
  PrepareAll(256);
  fs::create_directory(folder_ / "program");
  platform::SetApplicationFolder((folder_ / "program").string());
  const std::string path = folder_.string() + R"(\program\..\solid)";
  nimbrel::PrepareCloudInput(0, path + ".bmp", path + "_a.bmp");
  EXPECT_FALSE(nimbrel::ComposeColorSheet(1));
}

TEST_F(Composer, WithoutAFolderForBitmapsTheRunEnds) {
  WriteText(folder_ / "TempBitmaps", "a file where the folder should be");
  EXPECT_THROW(Prepare(0), nimbrel::RunTimeFailure);
}

TEST_F(Composer, AFailedSaveEndsItQuietly) {
  PrepareAll(256);
  fs::create_directories(Temp("cumulus01_c.bmp"));
  nimbrel::ComposeCumulus(1, 1);
  EXPECT_FALSE(fs::exists(Temp("cumulus01.bmp")));
  nimbrel::ReleaseSheets();
  nimbrel::ReleaseSheets();
  EXPECT_FALSE(nimbrel::SaveSheet24("gone"));
}

TEST_F(Composer, IgnoreIsNoAlphaFile) {
  PrepareAll(256);
  EXPECT_FALSE(nimbrel::LoadBitmap8(0, "IGNORE"));
  EXPECT_TRUE(nimbrel::ComposeAlphaSheet(1)) << "the slot stays as it was";
  EXPECT_FALSE(nimbrel::LoadBitmap8(3, folder_.string() + "\\solid_a.bmp"));
  EXPECT_FALSE(nimbrel::ComposeColorSheet(2));
}

}  // namespace
