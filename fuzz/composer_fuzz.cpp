#include <cstdint>
#include <filesystem>
#include <string>

#include "install/CloudComposer.h"
#include "platform/FileSystem.h"
#include "platform/bitmap_file.h"
#include "settings/Choice.h"
#include "settings/Folders.h"
#include "support.h"

using fuzz::Require;

/// A byte of choices, then any bytes as the colour and as the alpha bitmap of the cloud inputs: the
/// sheets are laid or not, and now and then the fast texture is made of them whole.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kTextureBytes = 74 + 256 * 256 * 4;
  constexpr unsigned kWhole = 0xF0;
  auto input = std::as_bytes(std::span(data, size));
  const unsigned choices = fuzz::TakeByte(input);
  const std::filesystem::path color = fuzz::Simulator().Program("Sets/input.bmp");
  const std::filesystem::path alpha = fuzz::Simulator().Program("Sets/input_a.bmp");
  const std::filesystem::path output = fuzz::Simulator().Program("TempBitmaps/cumulus01.bmp");
  const fuzz::Bytes first = fuzz::TakePart(input);
  fuzz::Put(color, first);
  fuzz::Put(alpha, input);
  const nimbrel::Folders folders = fuzz::Simulator().folders();
  platform::FileSystem files(nimbrel::kTemporaryPrefix);
  nimbrel::CloudComposer composer(folders, files);
  for (std::size_t slot = 0; slot < 3; ++slot) {
    // Some slots get the two the wrong way round.
    const bool swapped = (choices >> slot & 1U) != 0;
    composer.PrepareCloudInput(slot, (swapped ? alpha : color).string(),
                               (swapped ? color : alpha).string());
  }
  if ((choices & kWhole) == kWhole) {
    std::filesystem::remove(output);
    composer.ComposeCumulus({.dxt = false, .fast = true});
    Require(!std::filesystem::exists(output) ||
            std::filesystem::file_size(output) == kTextureBytes);
  } else if (platform::DecodeBitmapFile(first) || platform::DecodeBitmapFile(input)) {
    // Without any bitmap there is nothing to lay, and the empty sheets take most of the time.
    composer.ComposeColorSheet(nimbrel::CumulusLayout[1]);
    composer.ComposeAlphaSheet(nimbrel::CumulusLayout[1]);
  }
  return 0;
}
