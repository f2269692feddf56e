#include "Skies.h"

#include "Night.h"
#include "Noise.h"

namespace demo {

namespace {

using enum Foreground;

//  air: molecules haze ozone forward dust | azimuth elevation exposure saturation tint low streaks
//  | view | lights: stars milky_way aurora town
// clang-format off
constexpr SkyRecipe kSunrises[] = {
    {{1.0F, 1.6F, 1.0F, 0.76F, {1, 1, 1}}, 90, 1.0F, 13, 1.3F, {0.82F, 0.97F, 1.24F}, {1.30F, 0.86F, 0.74F}, 0.5F, 80, kHills, {}},
    {{1.0F, 0.6F, 1.7F, 0.70F, {1, 0.9F, 0.95F}}, 95, -1.6F, 40, 1.25F, {0.92F, 0.92F, 1.16F}, {1.42F, 0.72F, 0.90F}, 0.45F, 86, kPeaks, {}},
    {{1.0F, 2.6F, 0.8F, 0.80F, {1, 0.95F, 0.9F}}, 88, 5.0F, 9.5F, 1.25F, {0.80F, 1.0F, 1.16F}, {1.18F, 0.92F, 0.70F}, 0.55F, 78, kSea, {}},
    {{1.0F, 0.4F, 1.2F, 0.76F, {1, 1, 1}}, 110, -3.2F, 46, 1.0F, {0.70F, 0.95F, 1.25F}, {0.82F, 0.96F, 1.16F}, 0.3F, 100, kPeaks, {}},
    {{1.0F, 7.0F, 0.7F, 0.62F, {1, 0.96F, 0.93F}}, 84, 4.5F, 17, 1.05F, {1, 1, 1}, {1.04F, 0.98F, 0.96F}, 0.15F, 94, kSea, {}},
    {{1.0F, 5.0F, 1.2F, 0.74F, {1, 0.66F, 0.58F}}, 92, 0.2F, 20, 1.3F, {0.98F, 0.88F, 1.20F}, {1.50F, 0.68F, 0.66F}, 0.9F, 84, kHills, {}},
    {{1.0F, 1.0F, 1.0F, 0.76F, {1, 1, 1}}, 90, 4.0F, 15, 0.85F, {1, 1, 1}, {1, 1, 1}, 0, 90, kHills, {}},
};
constexpr SkyRecipe kDays[] = {
    {{1.0F, 0.35F, 1.2F, 0.78F, {1, 1, 1}}, 150, 36, 12.5F, 1.3F, {0.94F, 1, 1.06F}, {1, 1, 1}, 0, 172, kHills, {}},
    {{1.0F, 3.6F, 1.0F, 0.70F, {1, 1, 1}}, 150, 38, 16, 0.95F, {1, 1, 1}, {1, 1, 1}, 0, 165, kHills, {}},
    {{1.0F, 0.9F, 1.3F, 0.78F, {1, 1, 1}}, 160, 17, 14, 0.95F, {0.96F, 1.02F, 1}, {1, 1, 1}, 0, 176, kPeaks, {}},
    {{1.0F, 3.4F, 0.9F, 0.72F, {1, 0.82F, 0.58F}}, 200, 40, 15, 1.15F, {1.0F, 1, 0.98F}, {1.16F, 0.98F, 0.76F}, 0, 186, kHills, {}},
    {{1.05F, 1.5F, 1.0F, 0.76F, {1, 1, 1}}, 140, 58, 14, 1.45F, {0.94F, 1.03F, 1.03F}, {0.98F, 1.04F, 1}, 0, 155, kSea, {}},
    {{0.62F, 0.12F, 1.3F, 0.80F, {1, 1, 1}}, 170, 39, 13, 1.3F, {1, 1, 1}, {1, 1, 1}, 0, 192, kPeaks, {}},
    {{1.0F, 0.8F, 1.0F, 0.82F, {1, 1, 1}}, 215, 30, 15, 1.15F, {1, 1.01F, 1.02F}, {1, 1, 1}, 0, 200, kSea, {}},
    {{1.0F, 2.0F, 1.0F, 0.76F, {1, 1, 1}}, 180, 45, 9, 0.8F, {1, 1, 1}, {1, 1, 1}, 0, 180, kHills, {}},
};
constexpr SkyRecipe kSunsets[] = {
    {{1.0F, 2.6F, 1.1F, 0.78F, {1, 0.84F, 0.76F}}, 270, -0.6F, 19, 1.3F, {0.90F, 0.90F, 1.18F}, {1.65F, 0.62F, 0.52F}, 0.95F, 260, kHills, {}},
    {{1.0F, 0.6F, 2.0F, 0.72F, {1, 0.9F, 1}}, 280, -3.6F, 78, 1.2F, {0.98F, 0.88F, 1.16F}, {1.42F, 0.72F, 0.98F}, 0.5F, 270, kPeaks, {}},
    {{1.0F, 3.6F, 0.8F, 0.78F, {1, 0.80F, 0.62F}}, 265, 2.4F, 12, 1.3F, {0.84F, 0.94F, 1.12F}, {1.34F, 0.82F, 0.60F}, 0.7F, 275, kSea, {}},
    {{1.0F, 3.0F, 0.4F, 0.66F, {1, 0.98F, 0.8F}}, 262, 4.5F, 10, 1.2F, {0.92F, 1, 0.94F}, {1.14F, 0.98F, 0.64F}, 1.0F, 252, kHills, {}},
    {{1.0F, 0.25F, 1.5F, 0.76F, {1, 1, 1}}, 275, -4.6F, 80, 1.15F, {0.62F, 0.90F, 1.34F}, {0.80F, 0.88F, 1.20F}, 0.2F, 266, kSea, {}},
    {{1.0F, 6.0F, 0.9F, 0.76F, {1, 0.70F, 0.44F}}, 255, 3.4F, 15, 1.25F, {1.0F, 0.95F, 0.96F}, {1.32F, 0.84F, 0.64F}, 0.2F, 264, kHills, {}},
    {{1.0F, 1.4F, 1.3F, 0.80F, {1, 0.9F, 0.9F}}, 285, 0.6F, 12, 1.3F, {0.84F, 0.90F, 1.28F}, {1.42F, 0.74F, 0.78F}, 0.8F, 276, kSea, {}},
    {{1.0F, 1.0F, 1.0F, 0.76F, {1, 1, 1}}, 270, 3.0F, 16, 0.8F, {1, 1, 1}, {1, 1, 1}, 0, 270, kHills, {}},
};
constexpr SkyRecipe kNights[] = {
    {{1.0F, 0.4F, 1.0F, 0.76F, {1, 1, 1}}, 90, 20, 0.02F, 0.8F, {0.9F, 1, 1.1F}, {0.9F, 1, 1.1F}, 0, 196, kPeaks, {1.0F, 0.3F, 0, 0}},
    {{1.0F, 1.0F, 1.0F, 0.80F, {1, 1, 1}}, 160, 28, 1.15F, 0.9F, {0.8F, 1, 1.25F}, {0.8F, 1, 1.25F}, 0, 172, kSea, {0.5F, 0, 0, 0}},
    {{1.0F, 2.0F, 1.0F, 0.76F, {1, 1, 1}}, 60, 30, 0.06F, 0.8F, {0.9F, 1, 1.1F}, {0.9F, 1, 1.1F}, 0, 225, kHills, {0.35F, 0, 0, 1.0F}},
    {{1.0F, 0.3F, 1.0F, 0.76F, {1, 1, 1}}, 180, 15, 0.10F, 0.8F, {0.85F, 1, 1.15F}, {0.85F, 1, 1.15F}, 0, 0, kPeaks, {0.8F, 0, 1.0F, 0}},
    {{1.0F, 0.6F, 1.5F, 0.76F, {1, 1, 1}}, 120, 40, 0.7F, 1.2F, {0.7F, 0.9F, 1.6F}, {0.7F, 0.9F, 1.6F}, 0, 240, kHills, {0.3F, 0, 0, 0}},
    {{1.0F, 0.2F, 1.0F, 0.76F, {1, 1, 1}}, 90, 20, 0.025F, 0.8F, {0.9F, 1, 1.15F}, {0.9F, 1, 1.15F}, 0, 221, kPeaks, {1.3F, 1.0F, 0, 0}},
    {{1.0F, 1.0F, 1.0F, 0.76F, {1, 1, 1}}, 180, 40, 0.12F, 0.5F, {0.9F, 1, 1.1F}, {0.9F, 1, 1.1F}, 0, 180, kHills, {0.2F, 0, 0, 0}},
};
// clang-format on

/// Maps unlimited light to the range of a display, like film: each channel approaches 1.
Color Develop(const SkyRecipe& recipe, const Color& light, float height) {
  const float grey = Luminance(light);
  const Color rich = Mix(Color{grey, grey, grey}, light, recipe.saturation) *
                     Mix(recipe.tint, recipe.low, std::exp(-height / 0.30F));
  const Color shown = Exp(rich * -recipe.exposure);
  const Color c{std::max(1.0F - shown.x, 0.0F), std::max(1.0F - shown.y, 0.0F),
                std::max(1.0F - shown.z, 0.0F)};
  // Light beyond the film's range loses its colour, like the core of a flame.
  const float over = 0.30F * Slope(0.72F, 1.0F, std::max(c.x, c.z));
  return Mix(c, Color{1, 1, 1} * std::max(c.x, c.z), over);
}

/// Thin clouds far away that the low sun lights from below: bright towards it, dark away from it.
Color AddStreaks(const SkyRecipe& recipe, const Atmosphere& air, const Vec3& d, const Color& sky,
                 std::uint32_t seed) {
  constexpr Period kFar{1 << 12, 1 << 12};
  const Vec3 sun = Direction(recipe.azimuth, 1.5F);
  const Vec3 across = Direction(recipe.azimuth + 100.0F, 0.0F);
  const float far = 1.0F / (d.z + 0.05F);
  const float u = Dot(d, across) * far * 0.32F + 200.0F;
  const float v = (d.x * sun.x + d.y * sun.y) * far * 0.85F + 200.0F;
  const float bend = 0.8F * Fbm(u * 0.7F, v * 0.7F, kFar, 3, seed + 3U);
  const float thick = Fbm(u + bend * 0.4F, v + bend, kFar, 6, seed);
  const float cover = Slope(0.02F, 0.36F, thick + 0.10F * recipe.streaks) *
                      Slope(0.005F, 0.07F, d.z) * Slope(0.80F, 0.30F, d.z);
  const float near = Clamp01(0.5F + 0.5F * Dot(d, sun));
  const Color glow = SkyColor(recipe, air, Normalize(sun + Vec3{0.0F, 0.0F, 0.03F}));
  const Color lit = Mix(sky * 0.62F, glow * Color{1.0F, 0.86F, 0.84F}, near * near * near * 0.85F);
  const Color dark = Mix(lit, sky * 0.50F, Slope(0.25F, 0.55F, thick));
  return Mix(sky, dark, Clamp01(recipe.streaks) * 0.85F * cover);
}

}  // namespace

std::span<const SkyRecipe> SkyRecipes(SkyPeriod period) {
  switch (period) {
    case SkyPeriod::kSunrise:
      return kSunrises;
    case SkyPeriod::kDay:
      return kDays;
    case SkyPeriod::kSunset:
      return kSunsets;
    default:
      return kNights;
  }
}

Color SkyColor(const SkyRecipe& recipe, const Atmosphere& air, const Vec3& direction) {
  return Develop(recipe, air.Radiance(direction), direction.z);
}

SkyBox PaintSky(const SkyRecipe& recipe, int side, std::uint32_t seed) {
  const Atmosphere air(recipe.air, Direction(recipe.azimuth, recipe.elevation));
  SkyFaces faces = PaintFaces(side, [&](const Vec3& direction) {
    const Color sky = SkyColor(recipe, air, direction);
    return recipe.streaks > 0.0F ? AddStreaks(recipe, air, direction, sky, seed)
                                 : sky + NightGlow(recipe.lights, direction);
  });
  AddStars(faces, recipe.lights, seed);
  return EncodeFaces(faces);
}

}  // namespace demo
