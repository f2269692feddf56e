#include <gtest/gtest.h>

#include <array>

#include "platform/system.h"
#include "shell/mod_Load_Previews.h"
#include "support/BmpFile.h"
#include "support/TempFolder.h"

namespace nimbrel {
namespace {

TEST(KeyWhite, TakesPureOpaqueWhiteAlone) {
  struct Row {
    toolkit::ARGB color;
    unsigned char alpha;
    toolkit::ARGB keyed;
  };
  for (const Row& row : {Row{0xFFFFFFFF, 255, 0x00FFFFFF}, Row{0xFFFEFFFF, 255, 0xFFFEFFFF},
                         Row{0xFFFFFFFE, 255, 0xFFFFFFFE}, Row{0xFEFFFFFF, 255, 0xFFFFFFFF},
                         Row{0x00102030, 255, 0xFF102030}, Row{0xFF102030, 128, 0x80102030},
                         Row{0xFFFFFFFF, 128, 0x00FFFFFF}}) {
    EXPECT_EQ(row.keyed, KeyWhitePixel(row.color, row.alpha)) << std::hex << row.color;
  }
}

TEST(SkyMinis, LoadKeyedAndPassOverMissingOnes) {
  const TempFolder folder;
  constexpr std::array<std::uint32_t, 4> kColors{0xFFFFFF, 0x123456, 0xFFFFFE, 0x000000};
  for (const int i : {0, 2, 13}) {
    WriteText(folder.path() / "Media/Screen Shots" / ("Sky_Mini_" + std::to_string(i) + ".BMP"),
              ColorBmp(2, 2, [&](int x, int y) {
                return kColors[static_cast<std::size_t>(y * 2 + x)];
              }).Bytes());
  }
  WriteText(folder.path() / "Media/Screen Shots/sky_mini_3.bmp", "no picture");
  platform::SetApplicationFolder(folder.string());
  LoadSkyMinis();
  platform::SetApplicationFolder("");
  for (std::size_t i = 0; i < SkyMini.size(); ++i) {
    EXPECT_EQ(i == 0 || i == 2 || i == 13, SkyMini[i] != nullptr) << i;
  }
  const std::array<toolkit::ARGB, 4> keyed{0x00FFFFFF, 0xFF123456, 0xFFFFFFFE, 0xFF000000};
  for (int at = 0; at < 4; ++at) {
    toolkit::ARGB color = 0;
    toolkit::GdipBitmapGetPixel(SkyMini[13], at % 2, at / 2, color);
    EXPECT_EQ(keyed[static_cast<std::size_t>(at)], color) << at;
  }
  SkyMini.fill({});
}

}  // namespace
}  // namespace nimbrel
