#include "Shores.h"

#include "March.h"
#include "Noise.h"

namespace demo {

namespace {

constexpr int kPoints = 640;
constexpr float kSize = 8000.0F;
constexpr float kStep = kSize / F(kPoints - 1);
constexpr float kDeep = -60.0F;
constexpr Period kFar{1 << 14, 1 << 14};

float Relief(float x, float y, int octaves, std::uint32_t seed) {
  return Fbm(x / 1000.0F + 500.0F, y / 1000.0F + 500.0F, kFar, octaves, seed);
}
float Ridges(float x, float y, std::uint32_t seed) {
  return 1.0F - std::abs(Fbm(x / 1700.0F + 500.0F, y / 1700.0F + 500.0F, kFar, 7, seed)) * 2.6F;
}
float Hump(float x, float y, float cx, float cy, float wide) {
  const float dx = (x - cx) / wide;
  const float dy = (y - cy) / wide;
  return std::exp(-dx * dx - dy * dy);
}

float Islands(float x, float y, std::uint32_t seed) {
  const float body = Hump(x, y, 900, 2300, 950) + 0.75F * Hump(x, y, -1500, 3600, 800) +
                     0.8F * Hump(x, y, 2600, 5400, 1400) + 0.55F * Hump(x, y, -500, 1350, 330);
  const float rough = 0.55F * Relief(x, y, 7, seed);
  return 260.0F * (body - 0.40F + rough) * (0.35F + 0.65F * Clamp01(body)) + 50.0F * rough * body;
}

/// A ring of reef with low islets on it round a shallow lagoon.
float Atoll(float x, float y, std::uint32_t seed) {
  const float dx = x - 150.0F;
  const float dy = (y - 2500.0F) * 0.95F;
  const float rough = Relief(x, y, 6, seed);
  const float r = std::hypot(dx, dy) * (1.0F + 0.16F * rough) / 1300.0F;
  const float ring = std::exp(-(r - 1.0F) * (r - 1.0F) / 0.012F);
  const float turn = std::atan2(dy, dx);
  const float islets = 0.5F + 0.9F * Fbm(turn * 2.2F + 500.0F, 0.5F, kFar, 4, seed + 3U);
  const float bottom =
      r < 1.0F ? -7.0F - 7.0F * (1.0F - r) + 6.0F * rough : kDeep * Slope(1.0F, 1.5F, r) - 7.0F;
  const float other = 26.0F * (Hump(x, y, 2600, 5600, 700) - 0.55F + 0.5F * rough);
  return std::max(bottom + ring * (6.0F + 11.0F * islets), std::max(other, kDeep));
}

float Lake(float x, float y, std::uint32_t seed) {
  const float bend =
      420.0F * Relief(x * 0.8F, y * 0.8F, 4, seed + 4U) + 260.0F * std::sin(y / 1500.0F);
  const float shore = (std::abs(x - bend) - 620.0F - 0.06F * y) / 1000.0F;
  const float mountains =
      std::max(0.0F, shore) * (520.0F + 760.0F * std::max(0.0F, Ridges(x, y, seed)));
  const float end =
      std::max(0.0F, (y - 4600.0F) / 1000.0F) * 420.0F * std::max(0.2F, Ridges(x, y, seed));
  return std::max(
             shore * 60.0F + mountains + 40.0F * Relief(x, y, 6, seed + 1U) * Clamp01(shore + 0.3F),
             shore < 0 ? kDeep : -1.0F) +
         end;
}

float River(float x, float y, std::uint32_t seed) {
  const float middle = 520.0F * std::sin(y / 820.0F + 0.6F) + 230.0F * Relief(0.0F, y, 3, seed);
  const float bank = (std::abs(x - middle) - 170.0F - 50.0F * Relief(x, y, 5, seed + 2U)) / 9.0F;
  const float bar = 10.0F * (Relief(x * 2.0F, y * 2.0F, 4, seed + 7U) - 0.28F);
  const float low = 9.0F + 22.0F * Relief(x, y, 6, seed + 1U) + 0.03F * std::max(0.0F, y - 3500.0F);
  return bank < 0.0F ? std::max(std::max(bank, -9.0F), bar - 3.0F)
                     : std::min(bank, std::max(low, 3.0F));
}

/// Flat floes between leads that run along the lines of a cell pattern.
float Ice(float x, float y, std::uint32_t seed) {
  const float bend = 90.0F * Relief(x * 2.0F, y * 2.0F, 4, seed);
  const float cells = Billows().At((x + bend) / 2300.0F, (y - bend) / 2300.0F, 0.37F);
  const float open = Slope(-0.25F, 0.30F, Relief(x * 0.6F, y * 0.6F, 4, seed + 9U));
  const float edge = cells - 0.47F - 0.10F * open;
  return edge > 0.0F ? 0.8F + std::min(2.0F, edge * 9.0F) : std::max(edge * 160.0F, kDeep);
}

}  // namespace

float Land::Form(float x, float y) const {
  switch (shore_) {
    case Shore::kIslands:
      return std::max(Islands(x, y, seed_), kDeep);
    case Shore::kAtoll:
      return Atoll(x, y, seed_);
    case Shore::kLake:
      return Lake(x, y, seed_);
    case Shore::kRiver:
      return River(x, y, seed_);
    default:
      return Ice(x, y, seed_);
  }
}

Land::Land(Shore shore, std::uint32_t seed) : shore_(shore), seed_(seed) {
  heights_.reserve(static_cast<std::size_t>(kPoints) * kPoints);
  for (int j = 0; j < kPoints; ++j) {
    for (int i = 0; i < kPoints; ++i) {
      heights_.push_back(Form(F(i) * kStep - kSize / 2, F(j) * kStep));
      highest_ = std::max(highest_, heights_.back());
    }
  }
}

float Land::Height(float x, float y) const {
  const float fx = std::clamp((x + kSize / 2) / kStep, 0.0F, F(kPoints) - 1.001F);
  const float fy = std::clamp(y / kStep, 0.0F, F(kPoints) - 1.001F);
  const auto i = static_cast<std::size_t>(fx);
  const auto j = static_cast<std::size_t>(fy);
  const float* at = heights_.data() + j * kPoints + i;
  const float tx = fx - std::floor(fx);
  return Mix(Mix(at[0], at[1], tx), Mix(at[kPoints], at[kPoints + 1], tx), fy - std::floor(fy));
}

Land::Hit Land::Meet(const Vec3& ray, float eye) const {
  constexpr float kReach = 30000.0F;
  // No ray meets the ground above the highest peak.
  const float clear = (eye - highest_) / std::max(-ray.z, 1e-4F);
  const float last = ray.z > 0.0F ? std::min(kSize, (highest_ - eye) / ray.z) : kSize;
  const float met = March(
      std::max(200.0F, clear), last,
      [&](float at) { return eye + ray.z * at - std::max(0.0F, Height(ray.x * at, ray.y * at)); },
      [](float at) { return std::max(7.0F, at * 0.008F); });
  if (met < last) {
    const Vec3 place{ray.x * met, ray.y * met, eye + ray.z * met};
    return {true, met, place, Height(place.x, place.y)};
  }
  const float level = ray.z < 0.0F ? -eye / ray.z : kReach;
  return {level < kReach, level, ray * level, kDeep};
}

Color Land::Shade(const Hit& hit, const Vec3& sun) const {
  constexpr float kReach = 14.0F;
  const float x = hit.place.x;
  const float y = hit.place.y;
  const Vec3 up = Normalize({Height(x - kReach, y) - Height(x + kReach, y),
                             Height(x, y - kReach) - Height(x, y + kReach), 2.0F * kReach});
  const float light =
      0.34F + 0.9F * std::max(0.0F, Dot(up, Normalize({-0.6F, sun.y * 0.2F, 0.62F})));
  if (shore_ == Shore::kIce) {
    return Color{0.70F, 0.78F, 0.86F} * light;
  }
  const float grain = Relief(x * 9.0F, y * 9.0F, 4, seed_ + 30U);
  const Color wood =
      Mix(Color{0.018F, 0.042F, 0.014F}, Color{0.055F, 0.085F, 0.026F}, Slope(-0.2F, 0.25F, grain));
  const Color sand = Color{0.46F, 0.39F, 0.27F} * (1.0F + 0.25F * grain);
  const Color rock = Color{0.17F, 0.155F, 0.14F} * (1.0F + 0.5F * grain);
  const float beach = shore_ == Shore::kAtoll ? 3.4F : 4.5F;
  Color ground = Mix(sand, wood, Slope(beach * 0.5F, beach, hit.height + 2.0F * grain));
  ground = Mix(ground, rock, Slope(0.80F, 0.62F, up.z) * Slope(5.0F, 30.0F, hit.height));
  if (shore_ == Shore::kLake) {
    ground = Mix(ground, rock, Slope(330.0F, 520.0F, hit.height + 120.0F * grain));
    ground = Mix(ground, {0.78F, 0.82F, 0.88F},
                 Slope(560.0F, 760.0F, hit.height + 160.0F * grain) * Slope(0.45F, 0.65F, up.z));
  }
  return ground * light;
}

Color Land::WaterColor(const WaterSet& water, const Vec3& place, float height) const {
  constexpr float kTile = 2600.0F;
  struct Kinds {
    WaterKind deep;
    WaterKind shallow;
    float reach;  ///< metres of depth over which one fades into the other
  };
  constexpr std::array<Kinds, 5> kKinds{{{kOcean, kCoast, 26.0F},
                                         {kOcean, kTropic, 22.0F},
                                         {kLake, kCoast, 9.0F},
                                         {kRiver, kCoast, 3.0F},
                                         {kPolar, kCoast, 12.0F}}};
  const Kinds& kinds = kKinds[static_cast<std::size_t>(shore_)];
  const float u = place.x / kTile;
  const float v = place.y / kTile;
  const Color deep = water[kinds.deep].Repeated(u, v).color;
  const Color shallow = water[kinds.shallow].Repeated(u * 2.0F, v * 2.0F).color;
  const float share = std::exp(height / kinds.reach);
  return Mix(deep, shallow * (1.0F + 0.6F * share * share), share);
}

}  // namespace demo
