#include "WaterColors.h"

#include "Noise.h"

namespace demo {

namespace {

const std::array kRecipes{
    WaterRecipe{{{{0.005F, 0.060F, 0.115F},
                  {0.012F, 0.125F, 0.150F},
                  {0.012F, 0.055F, 0.070F},
                  {0.030F, 0.070F, 0.065F},
                  {0.010F, 0.110F, 0.140F},
                  {0.020F, 0.065F, 0.090F}}},
                {0.050F, 0.170F, 0.160F},
                0.35F,
                0.25F,
                Shore::kIslands},
    WaterRecipe{{{{0.004F, 0.070F, 0.170F},
                  {0.020F, 0.300F, 0.340F},
                  {0.010F, 0.120F, 0.160F},
                  {0.040F, 0.150F, 0.130F},
                  {0.015F, 0.340F, 0.380F},
                  {0.020F, 0.110F, 0.160F}}},
                {0.220F, 0.560F, 0.480F},
                0.55F,
                0.10F,
                Shore::kAtoll},
    WaterRecipe{{{{0.005F, 0.055F, 0.085F},
                  {0.015F, 0.130F, 0.150F},
                  {0.008F, 0.105F, 0.120F},
                  {0.030F, 0.120F, 0.110F},
                  {0.010F, 0.150F, 0.170F},
                  {0.030F, 0.120F, 0.140F}}},
                {0.070F, 0.260F, 0.230F},
                0.30F,
                0.10F,
                Shore::kLake},
    WaterRecipe{{{{0.022F, 0.045F, 0.055F},
                  {0.045F, 0.080F, 0.075F},
                  {0.028F, 0.052F, 0.055F},
                  {0.050F, 0.060F, 0.045F},
                  {0.030F, 0.090F, 0.095F},
                  {0.035F, 0.062F, 0.072F}}},
                {0.100F, 0.125F, 0.095F},
                0.30F,
                0.40F,
                Shore::kIslands},
    WaterRecipe{{{{0.025F, 0.060F, 0.070F},
                  {0.090F, 0.100F, 0.065F},
                  {0.050F, 0.065F, 0.045F},
                  {0.115F, 0.088F, 0.048F},
                  {0.060F, 0.110F, 0.085F},
                  {0.040F, 0.070F, 0.075F}}},
                {0.190F, 0.150F, 0.085F},
                0.50F,
                0.45F,
                Shore::kRiver},
    WaterRecipe{{{{0.006F, 0.036F, 0.062F},
                  {0.012F, 0.075F, 0.095F},
                  {0.010F, 0.070F, 0.085F},
                  {0.020F, 0.070F, 0.075F},
                  {0.010F, 0.090F, 0.110F},
                  {0.010F, 0.062F, 0.088F}}},
                {0.080F, 0.230F, 0.270F},
                0.25F,
                0.15F,
                Shore::kIce},
    WaterRecipe{{{{0.020F, 0.040F, 0.070F},
                  {0.030F, 0.060F, 0.080F},
                  {0.020F, 0.045F, 0.070F},
                  {0.030F, 0.050F, 0.060F},
                  {0.020F, 0.080F, 0.100F},
                  {0.030F, 0.050F, 0.070F}}},
                {0.060F, 0.090F, 0.100F},
                0.15F,
                0.0F,
                Shore::kIslands},
};

Texture PaintKind(const WaterRecipe& recipe, std::size_t kind, int side, std::uint32_t seed) {
  const Color deep = recipe.deep[kind];
  const bool clear = kind == kCoast || kind == kTropic;
  const Color light = Mix(deep, recipe.shallow, clear ? 0.55F : 0.22F);
  Canvas canvas(side, side);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const float u = F(x) / F(side);
      const float v = F(y) / F(side);
      const float bend = 0.10F * Fbm(u * 3.0F, v * 3.0F, {3, 3}, 3, seed + 1U);
      const float patch = Fbm((u + bend) * 4.0F, (v + bend) * 4.0F, {4, 4}, 5, seed);
      const float streak = Fbm((u + bend) * 3.0F, (v - bend) * 22.0F, {3, 22}, 3, seed + 7U);
      const float share = recipe.mottle * (0.5F + 1.1F * patch) + recipe.streaks * 0.5F * streak;
      canvas.color[canvas.Place(x, y)] =
          Mix(deep, light, Clamp01(share)) * (1.0F + 0.25F * recipe.streaks * streak);
    }
  }
  return Encode(canvas);
}

}  // namespace

std::span<const WaterRecipe> WaterRecipes() { return kRecipes; }

WaterSet PaintWater(const WaterRecipe& recipe, int side, std::uint32_t seed) {
  WaterSet set;
  for (std::size_t kind = 0; kind < set.size(); ++kind) {
    set[kind] = PaintKind(recipe, kind, side, seed + static_cast<std::uint32_t>(kind) * 50U);
  }
  return set;
}

}  // namespace demo
