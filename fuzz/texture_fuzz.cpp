#include <array>
#include <string>

#include "platform/FileSystem.h"
#include "platform/qvdds.h"
#include "support.h"

using fuzz::Require;

/// A byte for the format, then any bytes as the colour sheet and as the alpha sheet: a texture of
/// the size that its own header tells, or the old one as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::array<std::int32_t, 4> kFormats{platform::kFormatDXT3, platform::kFormat32Bit, 0,
                                                 -1};
  constexpr std::string_view kOld = "the last run's texture";
  auto input = std::as_bytes(std::span(data, size));
  const std::int32_t format = kFormats[fuzz::TakeByte(input) % kFormats.size()];
  const std::filesystem::path color = fuzz::Simulator().Program("color.bmp");
  const std::filesystem::path alpha = fuzz::Simulator().Program("alpha.bmp");
  const std::filesystem::path output = fuzz::Simulator().Program("output.bmp");
  fuzz::Put(color, fuzz::TakePart(input));
  fuzz::Put(alpha, input);
  fuzz::Put(output, std::as_bytes(std::span(kOld)));
  platform::FileSystem files("~fuzz-");
  const std::int32_t done = platform::BMPScompressBMP(color.string(), alpha.string(), format, -1,
                                                      -1, output.string(), files);
  const std::string texture = ReadText(output);
  if (done == 0) {
    Require(texture == kOld);
    return 0;
  }
  const auto number = [&texture](std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;) {
      value = value << 8U | static_cast<unsigned char>(texture.at(at + i));
    }
    return value;
  };
  const std::uint32_t pixels = number(18) * number(22);
  Require(done == 1 && texture.size() == number(2) && texture.substr(54, 4) == "FS70");
  Require(texture.size() == 74 + (format == platform::kFormatDXT3 ? pixels : pixels * 4));
  return 0;
}
