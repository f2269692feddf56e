#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Vec.h"

namespace demo {

/// A picture in linear light, rows from the top, alpha from 0 to 1. A clear pixel has the colour of
/// its neighbours, so that scaling makes no dark rim.
struct Canvas {
  Canvas(int columns, int rows)
      : width(columns),
        height(rows),
        color(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)),
        alpha(color.size(), 1.0F) {}
  std::size_t Place(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
           static_cast<std::size_t>(x);
  }

  int width;
  int height;
  std::vector<Color> color;
  std::vector<float> alpha;
};

/// Half as wide and high, each pixel the mean of four by their alpha.
Canvas Halve(const Canvas& canvas);

struct Sample {
  Color color;
  float alpha;
};

/// A picture as in a file: 8 bits a channel, blue, green, red, alpha, rows from the top,
/// colours in the display's own steps (sRGB).
struct Texture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bgra;

  /// The pixel in linear light; a place outside is that of the nearest edge.
  Sample At(int x, int y) const;
  /// Between the pixels; x and y count pixels from the centre of the top left one.
  Sample Between(float x, float y) const;
  /// The same on a texture that repeats, in units of its own size.
  Sample Repeated(float u, float v) const;
};

/// Rounds to 8 bits with a fine fixed pattern that keeps slow gradients free of bands.
Texture Encode(const Canvas& canvas);
/// Rounds plain numbers from 0 to 1, such as directions, without the display's curve.
Texture EncodePlain(const Canvas& canvas);

}  // namespace demo
