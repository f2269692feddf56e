#include "platform/gdiplus.h"
#include "support.h"

using fuzz::Require;

/// Any bytes as a picture of the skin or the catalogue: refused, or one whose corners can be read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::filesystem::path file = fuzz::Program("picture.bmp");
  fuzz::Put(file, std::as_bytes(std::span(data, size)));
  platform::GpImage image;
  const platform::Status status = platform::GdipLoadImageFromFile(file.string(), image);
  Require((status == platform::Status::Ok) == (image != nullptr));
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  if (image != nullptr) {
    Require(platform::GdipGetImageWidth(image, width) == platform::Status::Ok);
    Require(platform::GdipGetImageHeight(image, height) == platform::Status::Ok);
    platform::ARGB color = 0;
    Require(platform::GdipBitmapGetPixel(image, static_cast<int>(width) - 1,
                                         static_cast<int>(height) - 1,
                                         color) == platform::Status::Ok);
  }
  return 0;
}
