#include "SetFiles.h"

#include <string>

#include "Bmp.h"
#include "Catalogue.h"
#include "Cirrus.h"

namespace demo {

namespace fs = std::filesystem;

namespace {

constexpr std::array<const char*, 4> kPeriodNames{"dawn", "day", "dusk", "night"};
constexpr std::array<const char*, 5> kFaceNames{"_n", "_e", "_s", "_w", "_top"};
constexpr std::array<const char*, kWaterKinds> kWaterNames{"ocean", "coast",  "lake",
                                                           "river", "tropic", "polar"};
constexpr std::array<const char*, 3> kReflectionNames{"day", "dusk", "night"};

void WriteSky(const fs::path& folder, const SkyBox& box, std::size_t period) {
  for (std::size_t i = 0; i < kFaceNames.size(); ++i) {
    const std::string name = std::string("sky_") + kPeriodNames[period] + kFaceNames[i];
    WriteBmp24(folder / (name + ".bmp"), box[i]);
  }
}

/// File names: `prefix`, one of the names, and the extension.
template <typename Set, typename Names>
void WriteNamed(const fs::path& folder, const Set& set, const char* prefix, const Names& names) {
  for (std::size_t i = 0; i < set.size(); ++i) {
    WriteBmp24(folder / (std::string(prefix) + names[i] + ".bmp"), set[i]);
  }
}

}  // namespace

void WriteSet(const fs::path& folder, const Library& library, std::size_t group,
              std::size_t option) {
  switch (group) {
    case kCirrus:
      for (std::size_t i = 0; i < library.cirrus[option].size(); ++i) {
        WriteBmp32(folder / ("cirrus_" + std::to_string(i + 1) + ".bmp"),
                   library.cirrus[option][i]);
      }
      break;
    case kBase:
      WriteNamed(folder, library.water[option], "water_", kWaterNames);
      break;
    case kEnvironment:
      WriteNamed(folder, library.reflections[option], "reflect_", kReflectionNames);
      break;
    case kWaves:
      WriteBmp32(folder / "wave_1.bmp", library.waves[option].surface);
      WriteBmp24(folder / "wave_2.bmp", library.waves[option].height);
      break;
    default:
      WriteSky(folder, library.skies[group - kSunrise][option], group - kSunrise);
  }
}

void WriteSheet(const fs::path& path, const CloudSheet& sheet) {
  const auto write = [&](const Texture& texture, const char* size) {
    WriteBmp24(path.string() + size + ".bmp", texture);
    WriteBmp8(path.string() + "_a" + size + ".bmp", texture);
  };
  write(sheet.large, "");
  write(sheet.fast, "_Fast");
}

void WriteFixedClouds(const CloudFolders& folders, bool own) {
  constexpr int kSide = 128;
  const std::uint32_t seed = own ? 90 : 80;
  const auto pick = [own](auto recipes) -> const auto& {
    return own ? recipes.back() : recipes.front();
  };
  for (std::uint32_t i = 0; i < 4; ++i) {
    const auto file = [&](const fs::path& folder, const char* name, std::uint32_t number) {
      return folder / (std::string(name) + std::to_string(number) + ".bmp");
    };
    const auto puff = [&](CloudGroup group) {
      return Encode(PaintPuff(pick(CloudRecipes(group)), kSide, seed + i));
    };
    WriteBmp32(file(folders.cld, "cld_0", i + 1),
               PaintCirrus(pick(CirrusRecipes()), kSide, seed + i));
    WriteBmp32(file(folders.cumulus, "cumulus0", i + 2), puff(CloudGroup::kSolid));
    WriteBmp32(file(folders.stratus, "stratus0", i + 1), puff(CloudGroup::kStratus));
  }
}

void WriteSuns(const fs::path& folder, const SunLook& look) {
  WriteBmp24(folder / "Corona1.bmp", PaintSun(look, 256));
  WriteBmp24(folder / "sun.bmp", PaintSun(look, 128));
  WriteBmp24(folder / "sun6.bmp", PaintSun(look, 64));
}

}  // namespace demo
