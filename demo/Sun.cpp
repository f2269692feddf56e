#include "Sun.h"

#include "Noise.h"

namespace demo {

Texture PaintSun(const SunLook& look, int side) {
  Canvas canvas(side, side);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const float dx = (F(x) + 0.5F) / F(side) * 2.0F - 1.0F;
      const float dy = (F(y) + 0.5F) / F(side) * 2.0F - 1.0F;
      const float r = std::hypot(dx, dy);
      const float turn = (std::atan2(dy, dx) / (2.0F * kPi) + 0.5F) * 24.0F;
      const float ray = 1.0F + look.rays * Fbm(turn, 0.5F, {24, 24}, 4, 5) * Slope(0.05F, 0.5F, r);
      const float edge = Slope(1.0F, 0.55F, r);
      const float wide = 0.10F * look.glow / (0.06F + r * r * 9.0F) * edge * ray;
      const float near = look.glow * std::exp(-r * 11.0F);
      const float disc = Slope(look.disc + 1.6F / F(side), look.disc - 1.6F / F(side), r);
      canvas.color[canvas.Place(x, y)] =
          look.color * (wide * 0.35F + near) + Mix(look.color, Color{1, 1, 1}, 0.6F) * disc;
    }
  }
  return Encode(canvas);
}

}  // namespace demo
