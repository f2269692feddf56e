#include <cstdint>
#include <string>

#include "install/mod_CloudComposer.h"
#include "platform/bitmap_file.h"
#include "support.h"

using fuzz::Require;

/// A byte of choices, then any bytes as the colour and as the alpha bitmap of the cloud inputs: the
/// sheets are laid or not, and now and then the fast texture is made of them whole.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kTextureBytes = 74 + 256 * 256 * 4;
  constexpr unsigned kWhole = 0xF0;
  auto input = std::as_bytes(std::span(data, size));
  const unsigned choices = fuzz::TakeByte(input);
  const std::filesystem::path color = fuzz::Program("Sets/input.bmp");
  const std::filesystem::path alpha = fuzz::Program("Sets/input_a.bmp");
  const std::filesystem::path output = fuzz::Program("TempBitmaps/cumulus01.bmp");
  const fuzz::Bytes first = fuzz::TakePart(input);
  fuzz::Put(color, first);
  fuzz::Put(alpha, input);
  for (std::int16_t slot = 0; slot < 3; ++slot) {
    // Some slots get the two the wrong way round.
    const bool swapped = (choices >> static_cast<unsigned>(slot) & 1U) != 0;
    nimbrel::PrepareCloudInput(slot, (swapped ? alpha : color).string(),
                               (swapped ? color : alpha).string());
  }
  if ((choices & kWhole) != kWhole) {
    // Without any bitmap there is nothing to lay, and the empty sheets take most of the time.
    if (platform::DecodeBitmapFile(first) || platform::DecodeBitmapFile(input)) {
      nimbrel::ComposeColorSheet(1);
      nimbrel::ComposeAlphaSheet(1);
    }
    nimbrel::ReleaseSheets();
    return 0;
  }
  std::filesystem::remove(output);
  nimbrel::ComposeCumulus(1, 0);
  Require(!std::filesystem::exists(output) || std::filesystem::file_size(output) == kTextureBytes);
  return 0;
}
