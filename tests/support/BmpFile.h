#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// A bitmap file put together field by field, sound or not, without the code under test.
struct BmpFile {
  std::int32_t width = 1;
  std::int32_t height = 1;
  std::uint16_t planes = 1;
  std::uint16_t bits = 24;
  std::uint32_t compression = 0;
  std::uint32_t header_size = 40;
  std::uint32_t colors_used = 0;
  std::vector<std::uint32_t> words =
      {};  ///< behind the 40 bytes: masks, table entries as 0x00RRGGBB
  std::optional<std::uint32_t> pixel_offset = {};
  std::string pixels = {};  ///< rows as they lie in the file, padded

  std::string Bytes() const {
    const auto offset = static_cast<std::uint32_t>(54 + words.size() * 4);
    std::string file = "BM";
    Put(file, static_cast<std::uint32_t>(offset + pixels.size()), 4);
    Put(file, 0, 4);
    Put(file, pixel_offset.value_or(offset), 4);
    Put(file, header_size, 4);
    Put(file, static_cast<std::uint32_t>(width), 4);
    Put(file, static_cast<std::uint32_t>(height), 4);
    Put(file, planes, 2);
    Put(file, bits, 2);
    Put(file, compression, 4);
    for (const std::uint32_t field : {0U, 0U, 0U, colors_used, 0U}) {
      Put(file, field, 4);
    }
    for (const std::uint32_t word : words) {
      Put(file, word, 4);
    }
    return file + pixels;
  }

  static void Put(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i, value >>= 8U) {
      out.push_back(static_cast<char>(value & 0xFFU));
    }
  }
};

/// A 24-bit file whose pixel at (x, y from the top) is color(x, y) as 0x00RRGGBB.
template <typename Color>
BmpFile ColorBmp(int width, int height, Color color) {
  BmpFile file{.width = width, .height = height};
  for (int y = height - 1; y >= 0; --y) {
    for (int x = 0; x < width; ++x) {
      BmpFile::Put(file.pixels, color(x, y), 3);
    }
    file.pixels.append(static_cast<std::size_t>((4 - width * 3 % 4) % 4), '\0');
  }
  return file;
}

/// An 8-bit file with the grey ramp as its table, or the ramp from white to black when `inverted`;
/// its pixel at (x, y from the top) shows the grey `grey(x, y)`.
template <typename Grey>
BmpFile GreyBmp(int width, int height, bool inverted, Grey grey) {
  BmpFile file{.width = width, .height = height, .bits = 8};
  for (std::uint32_t i = 0; i < 256; ++i) {
    file.words.push_back((inverted ? 255 - i : i) * 0x010101U);
  }
  for (int y = height - 1; y >= 0; --y) {
    for (int x = 0; x < width; ++x) {
      const std::uint32_t value = grey(x, y);
      BmpFile::Put(file.pixels, inverted ? 255 - value : value, 1);
    }
    file.pixels.append(static_cast<std::size_t>((4 - width % 4) % 4), '\0');
  }
  return file;
}
