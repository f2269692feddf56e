#include "Cirrus.h"

#include "Noise.h"

namespace demo {

namespace {

constexpr CirrusRecipe kRecipes[] = {
    {14, 2, 0.16F, 0.44F, 0.80F, 0.62F, 0.0F, 0.85F, {0.94F, 0.96F, 1.0F}},
    {26, 20, 0.05F, 0.50F, 0.74F, 0.60F, 0.85F, 0.75F, {0.97F, 0.98F, 1.0F}},
    {11, 1, 0.025F, 0.42F, 0.85F, 0.66F, 0.25F, 0.80F, {0.95F, 0.97F, 1.0F}},
    {5, 2, 0.12F, 0.28F, 1.05F, 0.95F, 0.0F, 0.42F, {0.92F, 0.95F, 1.0F}},
    {18, 2, 0.22F, 0.46F, 0.78F, 0.70F, 0.15F, 0.9F, {1.0F, 0.93F, 0.84F}},
    {16, 10, 0.09F, 0.44F, 0.66F, 0.72F, 0.6F, 0.9F, {0.93F, 0.94F, 0.97F}},
    {8, 4, 0.08F, 0.46F, 0.9F, 0.6F, 0.0F, 0.5F, {0.95F, 0.95F, 0.95F}},
};

float Density(const CirrusRecipe& recipe, float u, float v, std::uint32_t seed) {
  const float bend = recipe.hook * Fbm(u * 2.0F, v * 2.0F, {2, 2}, 3, seed);
  const float drift = recipe.hook * Fbm(u * 3.0F, v * 3.0F, {3, 3}, 3, seed + 9U);
  const float across = (v + bend) * F(recipe.across);
  const float along = (u + drift * 1.5F) * F(recipe.along);
  float value = 0.5F + 0.62F * Fbm(along, across, {recipe.along, recipe.across}, 6, seed + 20U);
  const float wave = std::sin(2.0F * kPi * ((u + v + drift) * 21.0F));
  value += recipe.ripple * 0.16F * wave;
  const float field =
      0.5F + 0.8F * Fbm((u + bend) * 2.0F, (v + drift) * 2.0F, {2, 2}, 4, seed + 40U);
  const float patch = Slope(1.0F - recipe.cover - 0.22F, 1.0F - recipe.cover + 0.30F, field);
  return patch * Slope(recipe.low, recipe.high, value);
}

}  // namespace

std::span<const CirrusRecipe> CirrusRecipes() { return kRecipes; }

Texture PaintCirrus(const CirrusRecipe& recipe, int side, std::uint32_t seed) {
  Canvas canvas(side, side);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const float thick = Density(recipe, F(x) / F(side), F(y) / F(side), seed);
      const std::size_t at = canvas.Place(x, y);
      canvas.alpha[at] = recipe.opacity * (1.0F - std::exp(-1.8F * thick));
      canvas.color[at] = recipe.color * (1.0F - 0.10F * thick);
    }
  }
  return Encode(canvas);
}

}  // namespace demo
