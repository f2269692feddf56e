#include "CloudSheets.h"

#include "Random.h"

namespace demo {

namespace {

// The cells have the layout that the composer gives the simulator's sheet.
constexpr std::array kSolidCells{SheetCell{256, 256, 256, 256}, SheetCell{0, 384, 256, 128},
                                 SheetCell{384, 0, 128, 128}};
constexpr std::array kStratusCells{SheetCell{0, 0, 256, 128}, SheetCell{256, 0, 128, 128}};
constexpr std::array kWispyCells{SheetCell{0, 128, 256, 256}, SheetCell{256, 128, 256, 128}};

/// Sun from the upper left before the cloud; behind it for a bright rim.
const Vec3 kFrontLight = Normalize({-0.55F, 0.75F, -0.45F});
const Vec3 kSideLight = Normalize({-0.80F, 0.55F, -0.15F});
const Vec3 kBackLight = Normalize({-0.40F, 0.60F, 0.65F});

constexpr Color kSun{0.78F, 0.75F, 0.70F};
constexpr Color kSky{0.20F, 0.25F, 0.33F};
constexpr Color kEarth{0.05F, 0.05F, 0.045F};

// base flat billow cells wisp stretch softness density | light
const std::array kSolid{
    CloudRecipe{
        Form::kHeap,
        {0.20F, 1.0F, 0.15F, 7.0F, 0.03F, 1.0F, 0.035F, 46, kFrontLight, kSun, kSky, kEarth}},
    CloudRecipe{Form::kTower,
                {0.14F, 1.0F, 0.14F, 8.0F, 0.04F, 1.0F, 0.025F, 80, kSideLight, kSun * 1.1F,
                 kSky * 0.8F, kEarth}},
    CloudRecipe{Form::kHeap,
                {0.20F,
                 1.0F,
                 0.10F,
                 5.0F,
                 0.05F,
                 1.0F,
                 0.10F,
                 26,
                 kFrontLight,
                 {0.82F, 0.74F, 0.64F},
                 {0.25F, 0.26F, 0.30F},
                 {0.06F, 0.05F, 0.045F}}},
    CloudRecipe{Form::kHeap,
                {0.24F,
                 1.25F,
                 0.17F,
                 9.0F,
                 0.06F,
                 1.2F,
                 0.045F,
                 36,
                 kFrontLight,
                 {0.86F, 0.79F, 0.66F},
                 {0.17F, 0.24F, 0.36F},
                 {0.07F, 0.06F, 0.05F}}},
    CloudRecipe{Form::kTower,
                {0.10F,
                 1.0F,
                 0.18F,
                 7.0F,
                 0.09F,
                 1.1F,
                 0.03F,
                 120,
                 kSideLight,
                 kSun * 0.75F,
                 {0.10F, 0.12F, 0.16F},
                 {0.02F, 0.02F, 0.02F}}},
    CloudRecipe{Form::kHeap,
                {0.18F,
                 1.0F,
                 0.16F,
                 7.5F,
                 0.04F,
                 1.0F,
                 0.03F,
                 60,
                 kBackLight,
                 {0.90F, 0.60F, 0.36F},
                 {0.17F, 0.19F, 0.31F},
                 {0.04F, 0.03F, 0.04F}}},
    CloudRecipe{
        Form::kHeap,
        {0.22F, 1.3F, 0.19F, 8.0F, 0.13F, 1.6F, 0.05F, 34, kFrontLight, kSun, kSky, kEarth}},
    CloudRecipe{
        Form::kHeap,
        {0.15F, 1.0F, 0.08F, 4.0F, 0.02F, 1.0F, 0.08F, 30, kFrontLight, kSun * 0.9F, kSky, kEarth}},
};
const std::array kStratus{
    CloudRecipe{Form::kLayer,
                {-1.0F, 3.0F, 0.16F, 3.0F, 0.10F, 3.0F, 0.22F, 2.2F, kFrontLight, kSun, kSky * 1.2F,
                 kEarth}},
    CloudRecipe{Form::kLayer,
                {0.30F, 2.4F, 0.12F, 4.0F, 0.06F, 2.5F, 0.12F, 40, kFrontLight, kSun * 0.5F,
                 kSky * 0.85F, kEarth}},
    CloudRecipe{Form::kLayer,
                {0.34F, 2.2F, 0.22F, 6.0F, 0.10F, 2.0F, 0.08F, 26, kSideLight, kSun, kSky, kEarth}},
    CloudRecipe{Form::kRoll,
                {0.26F, 1.7F, 0.14F, 4.0F, 0.05F, 1.8F, 0.16F, 18, kFrontLight, kSun * 0.95F,
                 kSky * 1.2F, kEarth * 2.0F}},
    CloudRecipe{Form::kLayer,
                {-1.0F, 3.6F, 0.26F, 5.0F, 0.20F, 6.0F, 0.22F, 1.1F, kBackLight, kSun, kSky * 1.1F,
                 kEarth}},
    CloudRecipe{Form::kRoll,
                {-1.0F, 1.4F, 0.18F, 7.0F, 0.03F, 1.0F, 0.06F, 22, kSideLight, kSun, kSky, kEarth}},
    CloudRecipe{
        Form::kLayer,
        {0.3F, 2.0F, 0.06F, 3.0F, 0.03F, 2.0F, 0.12F, 16, kFrontLight, kSun * 0.8F, kSky, kEarth}},
};
const std::array kWispy{
    CloudRecipe{
        Form::kShred,
        {-1.0F, 1.6F, 0.30F, 7.0F, 0.24F, 2.6F, 0.22F, 10, kFrontLight, kSun, kSky * 1.2F, kEarth}},
    CloudRecipe{Form::kShred,
                {-1.0F, 1.8F, 0.34F, 6.0F, 0.42F, 3.6F, 0.12F, 16, kSideLight, kSun, kSky, kEarth}},
    CloudRecipe{
        Form::kShred,
        {-1.0F, 1.0F, 0.16F, 8.0F, 0.05F, 1.0F, 0.06F, 22, kFrontLight, kSun, kSky, kEarth}},
    CloudRecipe{Form::kShred,
                {-1.0F, 1.2F, 0.22F, 4.0F, 0.16F, 1.6F, 0.34F, 9, kFrontLight, kSun * 0.9F,
                 kSky * 1.1F, kEarth}},
    CloudRecipe{Form::kShred,
                {-1.0F,
                 1.3F,
                 0.28F,
                 7.0F,
                 0.18F,
                 1.8F,
                 0.10F,
                 14,
                 kBackLight,
                 {0.62F, 0.50F, 0.38F},
                 kSky,
                 kEarth}},
    CloudRecipe{Form::kShred,
                {-1.0F, 1.2F, 0.32F, 10.0F, 0.12F, 1.2F, 0.16F, 11, kFrontLight, kSun, kSky * 1.2F,
                 kEarth}},
    CloudRecipe{
        Form::kShred,
        {-1.0F, 1.2F, 0.10F, 4.0F, 0.06F, 1.5F, 0.2F, 8, kFrontLight, kSun * 0.9F, kSky, kEarth}},
};

using Blobs = std::vector<Blob>;

/// Adds smaller heads on the upper side of the present ones.
void AddHeads(Blobs& blobs, Random& random, int count, float low, float high) {
  const std::size_t parents = blobs.size();
  for (int i = 0; i < count; ++i) {
    const Blob& parent = blobs[random.Next() % parents];
    const float turn = random.Between(-2.1F, 2.1F);
    const float lean = random.Between(-0.9F, 0.35F);
    const Vec3 out = Normalize({std::sin(turn), std::abs(std::cos(turn)) + 0.1F, lean});
    blobs.push_back(
        {parent.centre + out * (parent.radius * 0.85F), parent.radius * random.Between(low, high)});
  }
}

/// A row of balls on the base, highest in the middle third.
Blobs Heap(Random& random, float base, float aspect) {
  Blobs blobs;
  const float peak = aspect * random.Between(0.40F, 0.60F);
  const int count = static_cast<int>(5.0F * aspect) + 2;
  for (int i = 0; i < count; ++i) {
    const float x = aspect * Mix(0.17F, 0.83F, (F(i) + random.Unit() * 0.7F) / F(count));
    const float near = 1.0F - std::min(1.0F, std::abs(x - peak) / (0.36F * aspect));
    const float radius = Mix(0.09F, 0.21F, near) * random.Between(0.85F, 1.1F);
    blobs.push_back({{x, base + radius * random.Between(0.2F, 0.6F) + 0.15F * near,
                      random.Between(-0.05F, 0.05F)},
                     radius});
  }
  AddHeads(blobs, random, count * 4, 0.35F, 0.7F);
  return blobs;
}

/// Balls piled up to the upper edge, each a little to one side of the one below.
Blobs Tower(Random& random, float base, float aspect) {
  Blobs blobs = Heap(random, base, aspect);
  float x = aspect * random.Between(0.40F, 0.55F);
  float y = base + 0.18F;
  float radius = 0.185F;
  while (y + radius < 0.90F) {
    blobs.push_back(
        {{std::clamp(x, radius + 0.1F, aspect - radius - 0.1F), y, random.Between(-0.04F, 0.04F)},
         radius});
    y += radius * random.Between(0.45F, 0.7F);
    x += random.Between(-0.05F, 0.08F);
    radius *= random.Between(0.90F, 0.99F);
  }
  AddHeads(blobs, random, 16, 0.35F, 0.6F);
  return blobs;
}

/// A row of flat balls over the whole width, thinner to both ends.
Blobs Layer(Random& random, float middle, float aspect) {
  Blobs blobs;
  const int count = static_cast<int>(11.0F * aspect);
  for (int i = 0; i < count; ++i) {
    const float x = Mix(0.22F, aspect - 0.22F, (F(i) + random.Unit()) / F(count));
    const float edge = Slope(0.1F, 0.5F, std::min(x, aspect - x));
    blobs.push_back({{x, middle + random.Between(-0.05F, 0.06F), random.Between(-0.10F, 0.10F)},
                     random.Between(0.20F, 0.34F) * (0.45F + 0.55F * edge)});
  }
  return blobs;
}

/// Heads side by side with clefts between them.
Blobs Roll(Random& random, float middle, float aspect) {
  Blobs blobs;
  const int rolls = static_cast<int>(3.0F * aspect) + 1;
  for (int i = 0; i < rolls * 3; ++i) {
    const float x = aspect * Mix(0.18F, 0.82F, (F(i % rolls) + 0.5F) / F(rolls));
    blobs.push_back({{x + random.Between(-0.07F, 0.07F), middle + random.Between(-0.04F, 0.07F),
                      random.Between(-0.12F, 0.12F)},
                     random.Between(0.11F, 0.21F)});
  }
  return blobs;
}

/// Loose pieces round the middle, larger towards it.
Blobs Shred(Random& random, float aspect) {
  Blobs blobs;
  for (int i = 0; i < static_cast<int>(14.0F * aspect); ++i) {
    const float out = std::sqrt(random.Unit());
    const float turn = random.Between(0.0F, 2.0F * kPi);
    blobs.push_back({{aspect * (0.5F + 0.30F * out * std::cos(turn)),
                      0.5F + 0.26F * out * std::sin(turn), random.Between(-0.12F, 0.12F)},
                     random.Between(0.09F, 0.20F) * (1.15F - 0.5F * out)});
  }
  return blobs;
}

Blobs MakeBlobs(const CloudRecipe& recipe, float aspect, std::uint32_t seed) {
  Random random(seed);
  switch (recipe.form) {
    case Form::kHeap:
      return Heap(random, recipe.look.base, aspect);
    case Form::kTower:
      return Tower(random, recipe.look.base, aspect);
    case Form::kLayer:
      return Layer(random, 0.46F, aspect);
    case Form::kRoll:
      return Roll(random, 0.45F, aspect);
    default:
      return Shred(random, aspect);
  }
}

}  // namespace

std::span<const CloudRecipe> CloudRecipes(CloudGroup group) {
  switch (group) {
    case CloudGroup::kSolid:
      return kSolid;
    case CloudGroup::kStratus:
      return kStratus;
    default:
      return kWispy;
  }
}

std::span<const SheetCell> CloudCells(CloudGroup group) {
  switch (group) {
    case CloudGroup::kSolid:
      return kSolidCells;
    case CloudGroup::kStratus:
      return kStratusCells;
    default:
      return kWispyCells;
  }
}

Canvas PaintPuff(const CloudRecipe& recipe, int side, std::uint32_t seed) {
  return RenderCloud(MakeBlobs(recipe, 1.0F, seed), recipe.look, side, side, seed);
}

Canvas PaintSheet(CloudGroup group, const CloudRecipe& recipe, std::uint32_t seed) {
  Canvas sheet(512, 512);
  std::fill(sheet.color.begin(), sheet.color.end(),
            recipe.look.skylight + recipe.look.sunlight * 0.5F);
  std::fill(sheet.alpha.begin(), sheet.alpha.end(), 0.0F);
  std::uint32_t number = seed * 16U;
  for (const SheetCell& cell : CloudCells(group)) {
    const Blobs blobs = MakeBlobs(recipe, F(cell.width) / F(cell.height), ++number);
    const Canvas cloud = RenderCloud(blobs, recipe.look, cell.width, cell.height, number);
    for (int y = 0; y < cell.height; ++y) {
      const auto from = static_cast<std::ptrdiff_t>(cloud.Place(0, y));
      const auto to = static_cast<std::ptrdiff_t>(sheet.Place(cell.left, cell.top + y));
      std::copy_n(cloud.color.begin() + from, cell.width, sheet.color.begin() + to);
      std::copy_n(cloud.alpha.begin() + from, cell.width, sheet.alpha.begin() + to);
    }
  }
  return sheet;
}

}  // namespace demo
