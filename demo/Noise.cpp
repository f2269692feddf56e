#include "Noise.h"

#include <array>
#include <cstddef>
#include <utility>

#include "Vec.h"

namespace demo {

namespace {

std::uint32_t Scramble(int x, int y, int z, std::uint32_t seed) {
  std::uint32_t h = static_cast<std::uint32_t>(x) * 0x9E3779B1U ^
                    static_cast<std::uint32_t>(y) * 0x85EBCA77U ^
                    static_cast<std::uint32_t>(z) * 0x27D4EB2FU ^ (seed + 1U) * 0xC2B2AE3DU;
  h = (h ^ (h >> 15U)) * 0x2C1B3C6DU;
  h = (h ^ (h >> 12U)) * 0x297A2D39U;
  return h ^ (h >> 15U);
}

float Fraction(std::uint32_t bits) { return static_cast<float>(bits & 1023U) / 1023.0F; }

constexpr float Fade(float t) { return t * t * t * (t * (t * 6.0F - 15.0F) + 10.0F); }

constexpr int Wrap(int value, int period) {
  const int rest = value % period;
  return rest < 0 ? rest + period : rest;
}

/// A corner's part: the distance of the point along one of eight directions.
float Corner(std::uint32_t hash, float dx, float dy) {
  constexpr std::array<std::pair<float, float>, 8> kDirections{{{1, 0},
                                                                {-1, 0},
                                                                {0, 1},
                                                                {0, -1},
                                                                {.7071F, .7071F},
                                                                {-.7071F, .7071F},
                                                                {.7071F, -.7071F},
                                                                {-.7071F, -.7071F}}};
  const auto& [gx, gy] = kDirections[(hash >> 9U) & 7U];
  return gx * dx + gy * dy;
}

using Field = float (*)(float, float, float, int, std::uint32_t);

float PerlinCube(float x, float y, float z, int period, std::uint32_t seed) {
  const int x0 = Floor(x);
  const int y0 = Floor(y);
  const int z0 = Floor(z);
  const auto at = [&](int i, int j, int k) {
    const std::uint32_t h =
        Scramble(Wrap(x0 + i, period), Wrap(y0 + j, period), Wrap(z0 + k, period), seed);
    const Vec3 slope{Fraction(h) - 0.5F, Fraction(h >> 10U) - 0.5F, Fraction(h >> 20U) - 0.5F};
    return Dot(slope, {x - F(x0 + i), y - F(y0 + j), z - F(z0 + k)});
  };
  const float tx = Fade(x - F(x0));
  const float ty = Fade(y - F(y0));
  const auto layer = [&](int k) {
    return Mix(Mix(at(0, 0, k), at(1, 0, k), tx), Mix(at(0, 1, k), at(1, 1, k), tx), ty);
  };
  return 3.0F * Mix(layer(0), layer(1), Fade(z - F(z0)));
}

/// 1 minus the distance to the nearest point, with one random point in each cell.
float WorleyCube(float x, float y, float z, int period, std::uint32_t seed) {
  const int x0 = Floor(x);
  const int y0 = Floor(y);
  const int z0 = Floor(z);
  float nearest = 4.0F;
  for (int n = 0; n < 27; ++n) {
    const int i = x0 + n % 3 - 1;
    const int j = y0 + n / 3 % 3 - 1;
    const int k = z0 + n / 9 - 1;
    const std::uint32_t h = Scramble(Wrap(i, period), Wrap(j, period), Wrap(k, period), seed);
    const Vec3 to{F(i) + Fraction(h) - x, F(j) + Fraction(h >> 10U) - y,
                  F(k) + Fraction(h >> 20U) - z};
    nearest = std::min(nearest, Dot(to, to));
  }
  return Clamp01(1.0F - std::sqrt(nearest));
}

NoiseVolume MakeVolume(Field field, int octaves, int cells, float rest, std::uint32_t seed) {
  constexpr int kSide = NoiseVolume::kSide;
  std::vector<float> values(static_cast<std::size_t>(kSide) * kSide * kSide, 0.0F);
  float weight = rest;
  for (int octave = 0; octave < octaves; ++octave) {
    const int period = cells << octave;
    const float scale = F(period) / F(kSide);
    for (std::size_t i = 0; i < values.size(); ++i) {
      const int n = static_cast<int>(i);
      values[i] += weight * field(F(n % kSide) * scale, F(n / kSide % kSide) * scale,
                                  F(n / kSide / kSide) * scale, period,
                                  seed + static_cast<std::uint32_t>(octave));
    }
    weight *= 0.5F;
  }
  return NoiseVolume(std::move(values));
}

}  // namespace

float Perlin(float x, float y, const Period& period, std::uint32_t seed) {
  const int x0 = Floor(x);
  const int y0 = Floor(y);
  const float dx = x - F(x0);
  const float dy = y - F(y0);
  const auto at = [&](int i, int j) {
    return Corner(Scramble(Wrap(x0 + i, period.x), Wrap(y0 + j, period.y), 0, seed), dx - F(i),
                  dy - F(j));
  };
  const float tx = Fade(dx);
  return 1.5F * Mix(Mix(at(0, 0), at(1, 0), tx), Mix(at(0, 1), at(1, 1), tx), Fade(dy));
}

float Fbm(float x, float y, const Period& period, int octaves, std::uint32_t seed) {
  float sum = 0.0F;
  float weight = 0.5F;
  for (int octave = 0; octave < octaves; ++octave) {
    const float scale = F(1 << octave);
    sum += weight * Perlin(x * scale, y * scale, {period.x << octave, period.y << octave},
                           seed + static_cast<std::uint32_t>(octave));
    weight *= 0.5F;
  }
  return sum;
}

float NoiseVolume::At(float x, float y, float z) const {
  constexpr int kMask = kSide - 1;
  const float fx = x * F(kSide);
  const float fy = y * F(kSide);
  const float fz = z * F(kSide);
  const int x0 = Floor(fx);
  const int y0 = Floor(fy);
  const int z0 = Floor(fz);
  const auto at = [&](int i, int j, int k) {
    const int place =
        (((z0 + k) & kMask) * kSide + ((y0 + j) & kMask)) * kSide + ((x0 + i) & kMask);
    return values_[static_cast<std::size_t>(place)];
  };
  const float tx = fx - F(x0);
  const float ty = fy - F(y0);
  const auto layer = [&](int k) {
    return Mix(Mix(at(0, 0, k), at(1, 0, k), tx), Mix(at(0, 1, k), at(1, 1, k), tx), ty);
  };
  return Mix(layer(0), layer(1), fz - F(z0));
}

const NoiseVolume& Billows() {
  static const NoiseVolume volume = MakeVolume(WorleyCube, 3, 4, 0.57F, 11);
  return volume;
}

const NoiseVolume& Vapour() {
  static const NoiseVolume volume = MakeVolume(PerlinCube, 4, 4, 0.53F, 23);
  return volume;
}

}  // namespace demo
