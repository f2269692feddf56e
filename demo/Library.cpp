#include "Library.h"

#include "Catalogue.h"
#include "Cirrus.h"
#include "CloudPreviews.h"
#include "Parallel.h"
#include "SeaPreviews.h"
#include "SkyPreviews.h"
#include "Sun.h"

namespace demo {

namespace {

using Jobs = std::vector<std::function<void()>>;

constexpr int kWaterSide = 256;
constexpr int kBaseSide = 128;

/// A job for each recipe, which fills the recipe's place of the result.
template <typename Set, typename Recipe, typename Paint>
void Add(Jobs& jobs, std::vector<Set>& sets, std::span<const Recipe> recipes, Paint paint) {
  sets.resize(recipes.size());
  for (std::size_t i = 0; i < recipes.size(); ++i) {
    jobs.emplace_back([&set = sets[i], &recipe = recipes[i], paint, i] {
      set = paint(recipe, static_cast<std::uint32_t>(i));
    });
  }
}

CirrusSet PaintCirrusSet(const CirrusRecipe& recipe, std::uint32_t number) {
  CirrusSet set;
  for (std::uint32_t i = 0; i < set.size(); ++i) {
    set[i] = PaintCirrus(recipe, kWaterSide, 400 + number * 8 + i);
  }
  return set;
}

/// Stars need finer textures than the slow colours of the day.
int SkySide(SkyPeriod period) { return period == SkyPeriod::kNight ? 256 : 128; }

constexpr std::array kPeriods{SkyPeriod::kSunrise, SkyPeriod::kDay, SkyPeriod::kSunset,
                              SkyPeriod::kNight};
constexpr std::array kCloudGroups{CloudGroup::kSolid, CloudGroup::kStratus, CloudGroup::kWispy};

std::uint32_t Seed(std::size_t group, std::uint32_t number) {
  return static_cast<std::uint32_t>(group) * 10U + number;
}

void AddSkies(Jobs& jobs, Library& library) {
  for (std::size_t i = 0; i < kPeriods.size(); ++i) {
    Add(jobs, library.skies[i], SkyRecipes(kPeriods[i]),
        [side = SkySide(kPeriods[i])](const SkyRecipe& recipe, std::uint32_t n) {
          return PaintSky(recipe, side, 100 + n);
        });
  }
}

void AddClouds(Jobs& jobs, Library& library) {
  for (std::size_t i = 0; i < kCloudGroups.size(); ++i) {
    Add(jobs, library.clouds[i], CloudRecipes(kCloudGroups[i]),
        [group = kCloudGroups[i], i](const CloudRecipe& recipe, std::uint32_t n) {
          const Canvas sheet = PaintSheet(group, recipe, Seed(i, n));
          return CloudSheet{Encode(sheet), Encode(Halve(sheet))};
        });
  }
}

void AddWater(Jobs& jobs, Library& library) {
  Add(jobs, library.water, WaterRecipes(), [](const WaterRecipe& recipe, std::uint32_t n) {
    return PaintWater(recipe, kBaseSide, 5 + n);
  });
  Add(jobs, library.reflections, ReflectionRecipes(),
      [](const ReflectionRecipe& recipe, std::uint32_t) {
        return PaintReflections(recipe, kWaterSide, 5);
      });
  Add(jobs, library.waves, WaveRecipes(), [](const WaveRecipe& recipe, std::uint32_t n) {
    return PaintWaves(recipe, kWaterSide, 7 + n);
  });
}

/// The sky that belongs to a reflection map: of its period, turned so that its sun is in the north.
struct Backdrop {
  SkyPeriod period;
  std::size_t option;
};
constexpr std::array<Backdrop, 3> kBackdrops{
    {{SkyPeriod::kDay, 0}, {SkyPeriod::kSunset, 6}, {SkyPeriod::kNight, 1}}};

/// How much of the day's light falls into the water.
constexpr std::array kLight{1.0F, 0.30F, 0.05F};

SeaTextures Sea(const Library& library, std::size_t water, std::size_t reflection,
                std::size_t waves, int period) {
  const auto at = static_cast<std::size_t>(period);
  const Backdrop& back = kBackdrops[at];
  const auto sky = static_cast<std::size_t>(back.period);
  return {library.waves[waves],
          library.reflections[reflection][at],
          library.water[water],
          library.skies[sky][back.option],
          SkyRecipes(back.period)[back.option].azimuth,
          ReflectedSun(period),
          kLight[at],
          false};
}

Texture PaintSkyPreview(const Library& library, SkyPeriod period, std::size_t option) {
  const bool night = period == SkyPeriod::kNight;
  const Texture sun = PaintSun(night ? kMoon : kReplacementSun, night ? 128 : 256);
  const auto number = static_cast<std::uint32_t>(option);
  return PreviewSky(library.skies[static_cast<std::size_t>(period)][option],
                    SkyRecipes(period)[option], sun,
                    7 * number + static_cast<std::uint32_t>(period));
}

Texture PaintCirrusPreview(const Library& library, std::size_t option) {
  constexpr std::size_t kEvening = 4;
  return option == kEvening ? PreviewCirrus(library.cirrus[option], library.skies[2][2], 265.0F)
                            : PreviewCirrus(library.cirrus[option], library.skies[1][0], 20.0F);
}

Texture PaintShorePreview(const Library& library, std::size_t option) {
  SeaTextures textures = Sea(library, option, 0, 1, 0);
  textures.sky_turn += 150.0F;  // the sun behind the eye
  textures.sun = Direction(210.0F, 40.0F);
  textures.behind = true;
  return PreviewShore(textures, WaterRecipes()[option].shore,
                      3 + static_cast<std::uint32_t>(option));
}

}  // namespace

Library PaintLibrary() {
  Library library;
  Jobs jobs;
  AddClouds(jobs, library);
  Add(jobs, library.cirrus, CirrusRecipes(), PaintCirrusSet);
  AddSkies(jobs, library);
  AddWater(jobs, library);
  DoAll(jobs);
  return library;
}

Texture PaintPreview(const Library& library, std::size_t group, std::size_t option) {
  constexpr std::size_t kEveningGold = 5;
  const SkyBox& day = library.skies[1][0];
  const auto number = static_cast<std::uint32_t>(option);
  switch (group) {
    case kSolid:
    case kStratus:
      return PreviewClouds(kCloudGroups[group], library.clouds[group][option].large,
                           group == kSolid && option == kEveningGold ? library.skies[2][6] : day,
                           50 + Seed(group, number));
    case kWispy:
      return PreviewWisps(library.clouds[kWispy][option].large, library.clouds[kSolid][0].large,
                          day, 10 + number);
    case kCirrus:
      return PaintCirrusPreview(library, option);
    case kBase:
      return PaintShorePreview(library, option);
    case kEnvironment: {
      const int period = ReflectionRecipes()[option].period;
      return PreviewSea(Sea(library, 0, option, 1, period), 22.0F, 0.0F);
    }
    case kWaves:
      return PreviewSea(Sea(library, 0, 1, option, 0), 5.0F, 20.0F);
    default:
      return PaintSkyPreview(library, kPeriods[group - kSunrise], option);
  }
}

}  // namespace demo
