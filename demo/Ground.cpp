#include "Ground.h"

#include "Noise.h"

namespace demo {

namespace {

template <typename Paint>
Texture Fill(int side, Paint paint) {
  Canvas canvas(side, side);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      canvas.color[canvas.Place(x, y)] = paint(F(x) / F(side), F(y) / F(side));
    }
  }
  return Encode(canvas);
}

}  // namespace

Texture PaintRunway(int side) {
  return Fill(side, [](float u, float v) {
    const float stain = Fbm(u * 8.0F, v * 8.0F, {8, 8}, 5, 61);
    const float tyres = std::exp(-std::abs(std::abs(u - 0.5F) - 0.16F) * 22.0F) *
                        (0.5F + Fbm(u * 20.0F, v * 2.0F, {20, 2}, 3, 62));
    const bool line = std::abs(u - 0.5F) < 0.018F && v > 0.2F && v < 0.8F;
    const bool seam = std::abs(v - 0.5F) < 0.006F || v < 0.006F;
    const float grey = 0.22F + 0.06F * stain - 0.08F * tyres - (seam ? 0.08F : 0.0F);
    return line ? Color{0.78F, 0.78F, 0.74F} : Color{grey, grey, grey * 0.97F};
  });
}

Texture PaintGrass(int side) {
  return Fill(side, [](float u, float v) {
    const float patch = Fbm(u * 4.0F, v * 4.0F, {4, 4}, 3, 63);
    const float blade = Fbm(u * 32.0F, v * 32.0F, {32, 32}, 2, 64);
    return Mix(Color{0.05F, 0.10F, 0.025F}, Color{0.15F, 0.19F, 0.06F},
               Clamp01(0.5F + 0.6F * patch + 0.5F * blade));
  });
}

Texture PaintRoof(int side) {
  return Fill(side, [](float u, float v) {
    constexpr float kRows = 12.0F;
    const int row = static_cast<int>(v * kRows);
    const float down = v * kRows - F(row);
    const float across = u * 16.0F + (row % 2 == 0 ? 0.0F : 0.5F);
    const float round = std::abs(across - F(Floor(across)) - 0.5F);
    const float tone = 0.7F + 0.3F * Perlin(F(Floor(across)) * 0.7F, F(row) * 0.7F, {64, 64}, 65);
    return Color{0.36F, 0.12F, 0.065F} * (tone * (0.45F + 0.55F * down) * (1.1F - 0.9F * round));
  });
}

}  // namespace demo
