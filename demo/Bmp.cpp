#include "Bmp.h"

#include <cstdint>
#include <initializer_list>
#include <span>

#include "Files.h"

namespace demo {

namespace {

using Bytes = std::vector<std::uint8_t>;

void Append(Bytes& bytes, std::initializer_list<std::uint32_t> numbers) {
  for (const std::uint32_t n : numbers) {
    for (unsigned shift = 0; shift < 32; shift += 8) {
      bytes.push_back(static_cast<std::uint8_t>(n >> shift));
    }
  }
}

/// The two headers. The caller appends the rest up to `offset`.
Bytes Head(const Texture& texture, std::uint32_t bits, std::uint32_t offset) {
  const auto width = static_cast<std::uint32_t>(texture.width);
  const auto height = static_cast<std::uint32_t>(texture.height);
  const std::uint32_t row = (width * bits / 8 + 3) / 4 * 4;
  Bytes bytes{'B', 'M'};
  bytes.reserve(offset + row * height);
  Append(bytes, {offset + row * height, 0, offset, 40, width, height, 1U | bits << 16U, 0,
                 row * height, 0, 0, 0, 0});
  return bytes;
}

/// Rows from the bottom with the chosen channels of each pixel, padded to 4 bytes.
void AppendRows(Bytes& bytes, const Texture& texture, std::size_t first, std::size_t count) {
  const auto width = static_cast<std::size_t>(texture.width);
  for (auto row = static_cast<std::size_t>(texture.height); row-- > 0;) {
    const std::size_t start = bytes.size();
    for (std::size_t x = 0; x < width; ++x) {
      const auto* pixel = texture.bgra.data() + (row * width + x) * 4 + first;
      bytes.insert(bytes.end(), pixel, pixel + count);
    }
    while ((bytes.size() - start) % 4 != 0) {
      bytes.push_back(0);
    }
  }
}

void Write(const std::filesystem::path& file, const Bytes& bytes) {
  WriteBytes(file, std::as_bytes(std::span(bytes)));
}

}  // namespace

void WriteBmp24(const std::filesystem::path& file, const Texture& texture) {
  Bytes bytes = Head(texture, 24, 54);
  AppendRows(bytes, texture, 0, 3);
  Write(file, bytes);
}

void WriteBmp8(const std::filesystem::path& file, const Texture& texture) {
  Bytes bytes = Head(texture, 8, 1078);
  for (std::uint32_t grey = 0; grey < 256; ++grey) {
    Append(bytes, {grey * 0x010101U});
  }
  AppendRows(bytes, texture, 3, 1);
  Write(file, bytes);
}

void WriteBmp32(const std::filesystem::path& file, const Texture& texture) {
  constexpr std::uint32_t kTag = 'F' | 'S' << 8 | '7' << 16 | '0' << 24;
  constexpr std::uint32_t kHasAlpha = 0x400;
  Bytes bytes = Head(texture, 32, 74);
  Append(bytes, {kTag, 20, kHasAlpha, 0, 0});
  AppendRows(bytes, texture, 0, 4);
  Write(file, bytes);
}

}  // namespace demo
