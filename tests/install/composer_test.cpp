#include <gtest/gtest.h>

#include <array>
#include <string>

#include "install/Install.h"
#include "support/BmpFile.h"
#include "support/QuietProgress.h"
#include "support/World.h"

namespace fs = std::filesystem;
using namespace nimbrel;
using platform::FileStatus;

namespace {

/// Which input each sixteenth of a sheet comes from, row by row.
constexpr std::string_view kMosaic = "1110222222000000";
constexpr std::array<const char*, 3> kInputs{"solid", "stratus", "wispy"};

int InputAt(int side, int x, int y) {
  const int sixteenth = y * 4 / side * 4 + x * 4 / side;
  return kMosaic.at(static_cast<std::size_t>(sixteenth)) - '0';
}

/// Each input has a colour of its own, shaded by place so that a shifted cell shows.
std::uint32_t InputColor(int input, int x, int y) {
  const auto place = static_cast<std::uint32_t>((x / 2 + y / 4) % 128);
  return place | static_cast<std::uint32_t>(60 * (input + 1)) << 16U;
}

std::uint32_t InputAlpha(int input, int x, int y) {
  return static_cast<std::uint32_t>((x + 2 * y + 40 * input) % 256);
}

/// A program with the three cloud inputs in both sizes, those of stratus and wispy with their
/// colour tables upside down, and a simulator with an old texture.
struct CloudWorld : World {
  CloudWorld() {
    for (int input = 0; input < 3; ++input) {
      const auto color = [=](int x, int y) { return InputColor(input, x, y); };
      const auto alpha = [=](int x, int y) { return InputAlpha(input, x, y); };
      for (const auto& [side, suffix] : {std::pair(512, ""), std::pair(256, "_Fast")}) {
        WriteText(Input(input, suffix), ColorBmp(side, side, color).Bytes());
        WriteText(Input(input, std::string("_a") + suffix),
                  GreyBmp(side, side, input != 0, alpha).Bytes());
      }
    }
    WriteText(Simulator("Texture/cumulus01.bmp"), "old");
  }

  fs::path Input(int input, const std::string& suffix) const {
    const std::string name = kInputs.at(static_cast<std::size_t>(input));
    return Program("Sets/" + name + ".0" + suffix + ".bmp");
  }
  fs::path Temp(const std::string& name) const { return Program("TempBitmaps/" + name); }

  Report Run(bool fast = true, bool dxt = false) const {
    QuietProgress progress;
    return Install({}, {.dxt = dxt, .fast = fast}, catalogue, folders(), progress);
  }
  std::string Texture() const { return ReadText(Simulator("Texture/cumulus01.bmp")); }

  Catalogue catalogue = Load(InformationText(1));
};

/// The pixels of a 32-bit texture, those of one input empty.
std::string Pixels(int side, int missing) {
  std::string pixels;
  for (int y = side - 1; y >= 0; --y) {
    for (int x = 0; x < side; ++x) {
      const int input = InputAt(side, x, y);
      const std::uint32_t pixel = InputColor(input, x, y) | InputAlpha(input, x, y) << 24U;
      BmpFile::Put(pixels, input == missing ? 0 : pixel, 4);
    }
  }
  return pixels;
}

TEST(CloudComposer, EachCellComesFromItsInput) {
  const CloudWorld world;
  for (const int side : {512, 256}) {
    EXPECT_TRUE(world.Run(side == 256).Whole());
    EXPECT_TRUE(world.Texture().substr(74) == Pixels(side, -1)) << side;
  }
  EXPECT_EQ((Tree{{"cumulus01.bmp", world.Texture()}}), Files(world.Temp("")));
  EXPECT_TRUE(world.Run(true, true).Whole());
  EXPECT_EQ(74U + 256 * 256, world.Texture().size());
  EXPECT_EQ("DXT3", world.Texture().substr(30, 4));
  fs::remove(world.Input(1, "_Fast"));
  EXPECT_TRUE(world.Run().Whole());
  EXPECT_TRUE(world.Texture().substr(74) == Pixels(256, 1)) << "a missing stratus";
}

TEST(CloudComposer, SavesTheColourSheetAsABitmap) {
  const CloudWorld world;
  fs::remove(world.Input(0, "_a"));
  world.Run(false);
  const auto color = [](int x, int y) { return InputColor(InputAt(512, x, y), x, y); };
  std::string expected = ColorBmp(512, 512, color).Bytes();
  expected.replace(34, 4, std::string("\0\0\xC", 3) + '\0');  // the bytes of the pixels
  EXPECT_TRUE(expected == ReadText(world.Temp("cumulus01_c.bmp")));
}

void LoseColorTable(CloudWorld& world) {
  fs::remove(world.Input(0, "_a_Fast"));
  fs::copy(world.Input(0, "_Fast"), world.Input(0, "_a_Fast"));
}
void SpoilColor(CloudWorld& world) { WriteText(world.Input(0, "_Fast"), "no picture"); }
void ClearCatalogue(CloudWorld& world) {
  fs::copy(world.Input(0, "_Fast"), world.Program("_Fast.bmp"));
  fs::copy(world.Input(0, "_a_Fast"), world.Program("_a_Fast.bmp"));
  world.catalogue.options[Group::kSolid].clear();
}
void MoveOutside(CloudWorld& world) {
  fs::copy(world.Input(0, "_Fast"), world.Simulator("x_Fast.bmp"));
  fs::copy(world.Input(0, "_a_Fast"), world.Simulator("x_a_Fast.bmp"));
  world.catalogue.options[Group::kSolid][0].Textures = "..\\..\\x";
}
void BlockSheet(CloudWorld& world) { fs::create_directories(world.Temp("cumulus01_c.bmp")); }

TEST(CloudComposer, WithoutATextureThatOfAnEarlierRunServes) {
  for (const auto& spoil : {LoseColorTable, SpoilColor, ClearCatalogue, MoveOutside, BlockSheet}) {
    CloudWorld world;
    spoil(world);
    const Report report = world.Run();
    EXPECT_EQ("No cumulus cloud texture could be made, so Flight Simulator keeps the one it has.",
              report.error);
    EXPECT_TRUE(report.failures.empty() && !report.Whole());
    EXPECT_EQ("old", world.Texture());
    WriteText(world.Temp("cumulus01.bmp"), "earlier");
    EXPECT_TRUE(world.Run().Whole());
    EXPECT_EQ("earlier", world.Texture());
  }
  const CloudWorld world;
  WriteText(world.Program("TempBitmaps"), "a file in the folder's place");
  EXPECT_EQ("The folder for temporary bitmaps could not be made.", world.Run().error);
}

TEST(CloudComposer, AfterAReadOrWriteErrorTheSimulatorKeepsItsOwn) {
  const CloudWorld world;
  WriteText(world.Temp("cumulus01.bmp"), "earlier");
  const OrdinaryUser user(world.Simulator(".."));
  for (const fs::path& path : {world.Input(1, "_Fast"), world.Input(2, "_a_Fast"),
                               world.Program("Sets"), world.Program("TempBitmaps")}) {
    const fs::perms before = fs::status(path).permissions();
    fs::permissions(path, fs::perms::none);
    const Report report = world.Run();
    fs::permissions(path, before);
    ASSERT_FALSE(report.failures.empty()) << path;
    EXPECT_EQ("Texture\\cumulus01.bmp", report.failures.back().file);
    EXPECT_EQ(FileStatus::kNoPermission, report.failures.back().status);
    EXPECT_EQ("old", world.Texture());
  }
}

}  // namespace
