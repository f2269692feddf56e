#include "SeaSurface.h"

#include <algorithm>

#include "March.h"
#include "Noise.h"

namespace demo {

namespace {

/// The second copy of the texture: longer, turned by a little over 30 degrees, and lower.
constexpr float kLonger = 2.7F;
constexpr float kCos = 0.82F;
constexpr float kSin = 0.57F;
constexpr float kLongShare = 0.55F;
constexpr float kMainShare = 0.85F;
/// Ripples: the same texture again, so small that it only roughens.
constexpr float kShorter = 0.137F;
constexpr float kRippleShare = 0.45F;

constexpr float Part(float value) { return value - F(Floor(value)); }

}  // namespace

SeaSurface::SeaSurface(const WaveSet& waves, const Texture& reflection, const Vec3& sun,
                       bool behind)
    : side_(waves.surface.width), reflection_(reflection), sun_(sun), turn_(behind ? -1.0F : 1.0F) {
  Level first{side_, {}};
  for (std::size_t i = 0; i < waves.surface.bgra.size(); i += 4) {
    const auto byte = [&](std::size_t k) { return static_cast<float>(waves.surface.bgra[i + k]); };
    const float up = std::max(byte(0) / 127.5F - 1.0F, 0.15F);
    const float x = -(byte(2) / 127.5F - 1.0F) / up;
    const float y = -(byte(1) / 127.5F - 1.0F) / up;
    first.points.push_back({x, y, x * x + y * y, byte(3) / 255.0F});
    const float height = (static_cast<float>(waves.height.bgra[i]) / 127.5F - 1.0F) * kWaveRange;
    heights_.push_back(height);
    highest_ = std::max(highest_, height * (kMainShare + kLongShare));
  }
  levels_.push_back(std::move(first));
  while (levels_.back().side > 1) {
    const Level& large = levels_.back();
    Level small{large.side / 2, {}};
    for (int i = 0; i < small.side * small.side; ++i) {
      Slopes sum;
      for (int n = 0; n < 4; ++n) {
        const int place = (i / small.side * 2 + n / 2) * large.side + i % small.side * 2 + n % 2;
        const Slopes& s = large.points[static_cast<std::size_t>(place)];
        sum = {sum.x + s.x / 4, sum.y + s.y / 4, sum.square + s.square / 4, sum.foam + s.foam / 4};
      }
      small.points.push_back(sum);
    }
    levels_.push_back(std::move(small));
  }
}

float SeaSurface::Height(float x, float y) const {
  const auto at = [&](float u, float v) {
    const float fx = Part(u) * F(side_);
    const float fy = Part(v) * F(side_);
    const int x0 = static_cast<int>(fx) & (side_ - 1);
    const int y0 = static_cast<int>(fy) & (side_ - 1);
    const int x1 = (x0 + 1) & (side_ - 1);
    const int y1 = (y0 + 1) & (side_ - 1);
    const auto value = [&](int i, int j) {
      return heights_[static_cast<std::size_t>(j) * static_cast<std::size_t>(side_) +
                      static_cast<std::size_t>(i)];
    };
    const float tx = fx - F(x0);
    return Mix(Mix(value(x0, y0), value(x1, y0), tx), Mix(value(x0, y1), value(x1, y1), tx),
               fy - F(y0));
  };
  const float turned_x = (x * kCos + y * kSin) / (kWaveTile * kLonger);
  const float turned_y = (y * kCos - x * kSin) / (kWaveTile * kLonger);
  return kMainShare * at(x / kWaveTile, y / kWaveTile) + kLongShare * at(turned_x, turned_y);
}

SeaSurface::Slopes SeaSurface::Between(const Level& level, float u, float v) {
  const float fx = Part(u) * F(level.side);
  const float fy = Part(v) * F(level.side);
  const int x0 = std::min(static_cast<int>(fx), level.side - 1);
  const int y0 = std::min(static_cast<int>(fy), level.side - 1);
  const int x1 = (x0 + 1) % level.side;
  const int y1 = (y0 + 1) % level.side;
  const float tx = fx - F(x0);
  const float ty = fy - F(y0);
  Slopes sum;
  const auto add = [&](int x, int y, float share) {
    const Slopes& s =
        level.points[static_cast<std::size_t>(y) * static_cast<std::size_t>(level.side) +
                     static_cast<std::size_t>(x)];
    sum = {sum.x + s.x * share, sum.y + s.y * share, sum.square + s.square * share,
           sum.foam + s.foam * share};
  };
  add(x0, y0, (1 - tx) * (1 - ty));
  add(x1, y0, tx * (1 - ty));
  add(x0, y1, (1 - tx) * ty);
  add(x1, y1, tx * ty);
  return sum;
}

/// `size` in points of the texture.
SeaSurface::Slopes SeaSurface::Laid(float u, float v, float size) const {
  const float level =
      std::clamp(std::log2(std::max(size, 1.0F)), 0.0F, F(static_cast<int>(levels_.size()) - 1));
  const auto low = static_cast<std::size_t>(level);
  const std::size_t high = std::min(low + 1, levels_.size() - 1);
  const Slopes a = Between(levels_[low], u, v);
  const Slopes b = Between(levels_[high], u, v);
  const float t = level - F(static_cast<int>(low));
  return {Mix(a.x, b.x, t), Mix(a.y, b.y, t), Mix(a.square, b.square, t), Mix(a.foam, b.foam, t)};
}

SeaSurface::Slopes SeaSurface::At(float x, float y, float footprint) const {
  const float size = footprint * F(side_) / kWaveTile;
  const Slopes near = Laid(x / kWaveTile, y / kWaveTile, size);
  const float tile = kWaveTile * kLonger;
  const Slopes wide =
      Laid((x * kCos + y * kSin) / tile, (y * kCos - x * kSin) / tile, size / kLonger);
  const Slopes fine = Laid(x / (kWaveTile * kShorter), y / (kWaveTile * kShorter), size / kShorter);
  // The second copy's height is given by its share, so its slope falls with its length.
  const float part = kLongShare / kLonger;
  const auto rest = [](const Slopes& s) {
    return std::max(0.0F, s.square - s.x * s.x - s.y * s.y);
  };
  return {kMainShare * near.x + part * (wide.x * kCos - wide.y * kSin) + kRippleShare * fine.x,
          kMainShare * near.y + part * (wide.x * kSin + wide.y * kCos) + kRippleShare * fine.y,
          kMainShare * kMainShare * rest(near) + part * part * rest(wide) +
              kRippleShare * kRippleShare * rest(fine),
          std::max(near.foam, 0.5F * wide.foam)};
}

/// The mean over the directions into which slopes too small to see scatter the light.
Color SeaSurface::Mirror(const SeaPoint& point, const Slopes& slopes) const {
  constexpr std::array<Vec3, 7> kTilts{{{0, 0, 0.28F},
                                        {0.7F, 0, 0.12F},
                                        {-0.7F, 0, 0.12F},
                                        {0, 0.7F, 0.12F},
                                        {0, -0.7F, 0.12F},
                                        {0, 1.5F, 0.12F},
                                        {0, -1.5F, 0.12F}}};
  const float rough = std::sqrt(slopes.square * 0.5F);
  Color sum;
  for (const Vec3& tilt : kTilts) {
    const Vec3 up = Normalize({-slopes.x - tilt.x * rough, -slopes.y - tilt.y * rough, 1.0F});
    Vec3 out = point.ray - up * (2.0F * Dot(point.ray, up));
    out = {out.x * turn_, out.y * turn_, std::abs(out.z) + 0.01F};
    const Color light = Reflected(reflection_, Normalize(out));
    // The brightest steps represent light beyond the range of a picture.
    const float over = std::max(0.0F, Luminance(light) - 0.80F);
    sum += light * ((1.0F + 9.0F * over) * tilt.z);
  }
  return sum;
}

Color SeaSurface::Shade(const SeaPoint& point) const {
  const Slopes slopes = At(point.place.x, point.place.y, point.footprint);
  const Vec3 up = Normalize({-slopes.x, -slopes.y, 1.0F});
  const float cosine = std::max(0.03F, -Dot(point.ray, up));
  const float m = 1.0F - cosine;
  // Schlick's approximation of the Fresnel term. Rough water turns some of its faces to the eye.
  const float mirror = (0.02F + 0.98F * m * m * m * m * m) / (1.0F + 5.0F * slopes.square);
  const float lit = 0.72F + 0.38F * Dot(up, sun_);
  const float thin =
      Clamp01(point.place.z * 0.28F) * Clamp01(0.4F + 2.0F * m * (slopes.y > 0 ? 0.3F : 1.0F));
  const Color body = point.base * (1.35F * lit + 0.9F * thin);
  const Color water = body * (1.0F - mirror) + Mirror(point, slopes) * mirror;
  // Foam is a net with holes, closed only where it is fresh.
  constexpr Period kFar{1 << 14, 1 << 14};
  const float net =
      Fbm(point.place.x * 1.7F + 4000.0F, point.place.y * 1.7F + 4000.0F, kFar, 4, 17);
  const float foam = Clamp01(1.5F * slopes.foam * Slope(-0.22F, 0.30F, net + 0.4F * slopes.foam));
  return Mix(water, Color{0.80F, 0.84F, 0.86F} * (0.55F + 0.45F * Dot(up, sun_)), 0.92F * foam);
}

float SeaSurface::Meet(const Vec3& ray, float eye) const {
  constexpr float kReach = 700.0F;
  if (ray.z >= 0.0F) {
    return 0.0F;
  }
  const float level = -eye / ray.z;
  const float last = std::min(kReach, level * 3.0F);
  const float met = March(
      std::max(0.0F, (eye - highest_) / -ray.z), last,
      [&](float at) { return eye + ray.z * at - Height(ray.x * at, ray.y * at); },
      [](float at) { return std::max(0.35F, at * 0.014F); });
  return met < last ? met : level;
}

}  // namespace demo
