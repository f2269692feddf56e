#include "Reflections.h"

#include "Noise.h"
#include "Skies.h"

namespace demo {

namespace {

constexpr ReflectionRecipe kRecipes[] = {
    {1.00F, 0.00F, 1.6F, 0.0F, 1.0F, 1.2F, 0}, {0.85F, 0.45F, 9.0F, 0.0F, 0.4F, 0.7F, 0},
    {0.90F, 0.20F, 3.0F, 1.0F, 0.3F, 2.2F, 0}, {0.38F, 0.80F, 14.0F, 0.0F, 0.0F, 0.12F, 0},
    {0.95F, 0.10F, 4.0F, 0.3F, 0.3F, 1.6F, 2}, {1.00F, 0.15F, 4.5F, 0.2F, 0.7F, 0.95F, 1},
    {0.55F, 0.60F, 8.0F, 0.0F, 0.0F, 0.4F, 0},
};

/// The sky that is reflected at each period, and its sun.
struct ReflectedSky {
  SkyPeriod period;
  std::size_t recipe;
  float azimuth;
  float elevation;
  Color glint;
  Color cloud;
};
constexpr std::array<ReflectedSky, 3> kPeriods{{
    {SkyPeriod::kDay, 0, 0, 22, {1.0F, 0.97F, 0.90F}, {0.92F, 0.93F, 0.95F}},
    {SkyPeriod::kSunset, 6, 0, 3, {1.0F, 0.66F, 0.34F}, {0.75F, 0.42F, 0.38F}},
    {SkyPeriod::kNight, 1, 0, 24, {0.70F, 0.78F, 0.92F}, {0.10F, 0.12F, 0.17F}},
}};

/// Zenith and horizon of the sky, for a sky without any detail.
Color Blurred(const Atmosphere& air, const SkyRecipe& recipe, const Vec3& direction, float blur) {
  const float height = Mix(direction.z, 0.45F, blur * 0.8F);
  const float flat = std::hypot(direction.x, direction.y);
  const float keep = std::sqrt(std::max(0.0F, 1.0F - height * height)) / std::max(flat, 1e-3F);
  const Vec3 d = Normalize({direction.x * keep * (1.0F - 0.5F * blur),
                            direction.y * keep * (1.0F - 0.5F * blur), height + 1e-3F});
  return SkyColor(recipe, air, d);
}

float CloudCover(const Vec3& d, std::uint32_t seed) {
  const float far = 1.0F / (d.z + 0.12F);
  const float value = Fbm(d.x * far * 1.1F + 64.0F, d.y * far * 1.1F + 64.0F, {256, 256}, 5, seed);
  return Slope(0.05F, 0.30F, value) * Slope(0.03F, 0.25F, d.z);
}

Texture PaintMap(const ReflectionRecipe& recipe, const ReflectedSky& period, int side,
                 std::uint32_t seed) {
  SkyRecipe sky = SkyRecipes(period.period)[period.recipe];
  sky.azimuth = period.azimuth;
  sky.elevation = period.period == SkyPeriod::kSunset ? 3.0F : period.elevation;
  const Vec3 sun = Direction(period.azimuth, period.elevation);
  const Atmosphere air(sky.air, Direction(sky.azimuth, sky.elevation));
  Canvas canvas(side, side);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const float u = 2.0F * (F(x) + 0.5F) / F(side) - 1.0F;
      const float v = 1.0F - 2.0F * (F(y) + 0.5F) / F(side);
      const float r = std::min(1.0F, u * u + v * v);
      const Vec3 d = Normalize({2.0F * u, 2.0F * v, 1.0F - r});
      const float off = std::acos(std::clamp(Dot(d, sun), -1.0F, 1.0F)) * (180.0F / kPi);
      const float grain = 1.0F + recipe.sparkle * 2.0F *
                                     Perlin(u * 40.0F + 64.0F, v * 40.0F + 64.0F, {128, 128}, seed);
      const float image = std::exp(-off * off / (recipe.path * recipe.path)) +
                          0.25F * std::exp(-off / (2.0F * recipe.path));
      Color light = Blurred(air, sky, d, recipe.blur);
      light = Mix(light, period.cloud, 0.8F * recipe.clouds * CloudCover(d, seed));
      canvas.color[canvas.Place(x, y)] =
          light * recipe.strength + period.glint * (recipe.sun * image * std::max(grain, 0.0F));
    }
  }
  return Encode(canvas);
}

}  // namespace

std::span<const ReflectionRecipe> ReflectionRecipes() { return kRecipes; }

ReflectionSet PaintReflections(const ReflectionRecipe& recipe, int side, std::uint32_t seed) {
  ReflectionSet set;
  for (std::size_t i = 0; i < set.size(); ++i) {
    set[i] = PaintMap(recipe, kPeriods[i], side, seed);
  }
  return set;
}

Color Reflected(const Texture& map, const Vec3& direction) {
  const float z = std::max(direction.z, 0.01F);
  const float scale = 1.0F / (1.0F + z);
  const float u = (direction.x * scale + 1.0F) * 0.5F * F(map.width) - 0.5F;
  const float v = (1.0F - direction.y * scale) * 0.5F * F(map.height) - 0.5F;
  return map.Between(u, v).color;
}

Vec3 ReflectedSun(int period) {
  const ReflectedSky& p = kPeriods[static_cast<std::size_t>(period)];
  return Direction(p.azimuth, p.elevation);
}

}  // namespace demo
