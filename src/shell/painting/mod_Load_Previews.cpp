#include "shell/painting/mod_Load_Previews.h"

#include <cstdint>
#include <string>

#include "shell/State.h"
#include "shell/painting/Pictures.h"

namespace nimbrel {

using namespace toolkit;

namespace {

constexpr ARGB kOpaqueWhite = 0xFFFFFFFF;
constexpr unsigned char kOpaque = 255;

void KeyWhite(const GpImage& image) {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  GdipGetImageHeight(image, height);
  GdipGetImageWidth(image, width);
  for (int y = 0; y < static_cast<int>(height); ++y) {
    for (int x = 0; x < static_cast<int>(width); ++x) {
      ARGB color = 0;
      GdipBitmapGetPixel(image, x, y, color);
      GdipBitmapSetPixel(image, x, y, KeyWhitePixel(color, kOpaque));
    }
  }
}

}  // namespace

void LoadSkyMinis() {
  const std::string stem = ui.folders.program + R"(\Media\Screen Shots\sky_mini_)";
  int number = 0;
  for (GpImage& mini : ui.pictures->SkyMini) {
    GdipLoadImageFromFile(stem + std::to_string(number++) + ".bmp", mini);
    KeyWhite(mini);
  }
}

ARGB KeyWhitePixel(ARGB color, unsigned char alpha) {
  if (color == kOpaqueWhite) {
    return color & 0x00FFFFFFU;
  }
  return (color & 0x00FFFFFFU) | (static_cast<ARGB>(alpha) << 24U);
}

}  // namespace nimbrel
