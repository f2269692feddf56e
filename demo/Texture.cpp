#include "Texture.h"

#include <array>

namespace demo {

namespace {

constexpr int kSteps = 4096;

/// The transfer curve of IEC 61966-2-1.
float ToDisplay(float linear) {
  return linear <= 0.0031308F ? linear * 12.92F : 1.055F * std::pow(linear, 1.0F / 2.4F) - 0.055F;
}
float ToLinear(float display) {
  return display <= 0.04045F ? display / 12.92F : std::pow((display + 0.055F) / 1.055F, 2.4F);
}

std::array<float, 256> LinearTable() {
  std::array<float, 256> table{};
  for (int i = 0; i < 256; ++i) {
    table[static_cast<std::size_t>(i)] = ToLinear(F(i) / 255.0F);
  }
  return table;
}

/// A table over the square root, where the curve is nearly straight.
std::array<float, kSteps + 1> DisplayTable() {
  std::array<float, kSteps + 1> table{};
  for (int i = 0; i <= kSteps; ++i) {
    const float root = F(i) / F(kSteps);
    table[static_cast<std::size_t>(i)] = 255.0F * ToDisplay(root * root);
  }
  return table;
}

float Display(float linear) {
  static const auto kTable = DisplayTable();
  return kTable[static_cast<std::size_t>(Floor(std::sqrt(Clamp01(linear)) * F(kSteps) + 0.5F))];
}

/// From -0.5 to 0.5: interleaved gradient noise as Jimenez published it.
float Dither(int x, int y) {
  const float inner = 0.06711056F * F(x) + 0.00583715F * F(y);
  const float outer = 52.9829189F * (inner - F(Floor(inner)));
  return outer - F(Floor(outer)) - 0.5F;
}

std::uint8_t Byte(float value) {
  return static_cast<std::uint8_t>(std::clamp(value + 0.5F, 0.0F, 255.0F));
}

template <typename Curve>
Texture EncodeBy(const Canvas& canvas, float dither, Curve curve) {
  Texture texture{canvas.width, canvas.height, std::vector<std::uint8_t>(canvas.color.size() * 4)};
  for (int y = 0; y < canvas.height; ++y) {
    for (int x = 0; x < canvas.width; ++x) {
      const std::size_t at = canvas.Place(x, y);
      const Color& c = canvas.color[at];
      const float shift = dither * Dither(x, y);
      texture.bgra[at * 4] = Byte(curve(c.z) + shift);
      texture.bgra[at * 4 + 1] = Byte(curve(c.y) + shift);
      texture.bgra[at * 4 + 2] = Byte(curve(c.x) + shift);
      texture.bgra[at * 4 + 3] = Byte(255.0F * canvas.alpha[at]);
    }
  }
  return texture;
}

Sample Mix(const Sample& a, const Sample& b, float t) {
  return {Mix(a.color, b.color, t), demo::Mix(a.alpha, b.alpha, t)};
}

}  // namespace

Canvas Halve(const Canvas& canvas) {
  Canvas half(canvas.width / 2, canvas.height / 2);
  for (int y = 0; y < half.height; ++y) {
    for (int x = 0; x < half.width; ++x) {
      Color weighted;
      Color plain;
      float alpha = 0.0F;
      for (int n = 0; n < 4; ++n) {
        const std::size_t from = canvas.Place(2 * x + n % 2, 2 * y + n / 2);
        weighted += canvas.color[from] * canvas.alpha[from];
        plain += canvas.color[from] * 0.25F;
        alpha += canvas.alpha[from];
      }
      half.color[half.Place(x, y)] = alpha > 0.0F ? weighted * (1.0F / alpha) : plain;
      half.alpha[half.Place(x, y)] = alpha * 0.25F;
    }
  }
  return half;
}

Sample Texture::At(int x, int y) const {
  static const auto kTable = LinearTable();
  const int column = std::clamp(x, 0, width - 1);
  const int row = std::clamp(y, 0, height - 1);
  const std::uint8_t* p =
      bgra.data() + (static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(column)) *
                        4;
  return {{kTable[p[2]], kTable[p[1]], kTable[p[0]]}, static_cast<float>(p[3]) / 255.0F};
}

Sample Texture::Between(float x, float y) const {
  const int x0 = Floor(x);
  const int y0 = Floor(y);
  const float tx = x - F(x0);
  return Mix(Mix(At(x0, y0), At(x0 + 1, y0), tx), Mix(At(x0, y0 + 1), At(x0 + 1, y0 + 1), tx),
             y - F(y0));
}

Sample Texture::Repeated(float u, float v) const {
  const float x = (u - F(Floor(u))) * F(width);
  const float y = (v - F(Floor(v))) * F(height);
  const int x0 = Floor(x) % width;
  const int y0 = Floor(y) % height;
  const int x1 = (x0 + 1) % width;
  const int y1 = (y0 + 1) % height;
  const float tx = x - F(Floor(x));
  return Mix(Mix(At(x0, y0), At(x1, y0), tx), Mix(At(x0, y1), At(x1, y1), tx), y - F(Floor(y)));
}

Texture Encode(const Canvas& canvas) { return EncodeBy(canvas, 1.0F, Display); }

Texture EncodePlain(const Canvas& canvas) {
  return EncodeBy(canvas, 0.0F, [](float value) { return 255.0F * Clamp01(value); });
}

}  // namespace demo
