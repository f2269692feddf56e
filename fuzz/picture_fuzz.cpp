#include "support.h"
#include "toolkit/gdiplus.h"

using fuzz::Require;

/// Any bytes as a picture of the skin or the catalogue: refused, or one whose corners can be read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::filesystem::path file = fuzz::Simulator().Program("picture.bmp");
  fuzz::Put(file, std::as_bytes(std::span(data, size)));
  toolkit::GpImage image;
  const toolkit::Status status = toolkit::GdipLoadImageFromFile(file.string(), image);
  Require((status == toolkit::Status::Ok) == (image != nullptr));
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  if (image != nullptr) {
    Require(toolkit::GdipGetImageWidth(image, width) == toolkit::Status::Ok);
    Require(toolkit::GdipGetImageHeight(image, height) == toolkit::Status::Ok);
    toolkit::ARGB color = 0;
    Require(toolkit::GdipBitmapGetPixel(image, static_cast<int>(width) - 1,
                                        static_cast<int>(height) - 1,
                                        color) == toolkit::Status::Ok);
  }
  return 0;
}
