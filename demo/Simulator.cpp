#include "Simulator.h"

#include <functional>
#include <span>
#include <string>

#include "Bmp.h"
#include "Catalogue.h"
#include "Files.h"
#include "Ground.h"
#include "Parallel.h"
#include "SetFiles.h"

namespace demo {

namespace fs = std::filesystem;

namespace {

std::string ContrailEffect(const char* title, const char* life) {
  std::string text = "; ";
  text += title;
  text +=
      "\n[Library Effect]\nLifetime=5\nVersion=2.00\nRadius=-1\nPriority=0\n\n"
      "[Properties]\nLocation=3\n\n"
      "[Emitter.0]\nLifetime=0.00, 0.00\nDelay=0.00, 0.00\nBounce=0.00\nRate=20.00, 20.00\n"
      "X Emitter Velocity=0.00, 0.00\nZ Emitter Velocity=0.00, 0.00\nDrag=0.00, 0.00\n\n"
      "[Particle.0]\n; seconds, shortest and longest\nLifetime=";
  text += life;
  text +=
      "\nType=19\nX Scale=0.50, 0.60\nY Scale=0.50, 0.60\nZ Scale=0.00, 0.00\n"
      "X Scale Rate=0.30, 0.40\nY Scale Rate=0.30, 0.40\nDrag=0.00, 0.00\n"
      "Color Rate=0.00, 0.00\nFade In=0.00, 0.00\nFade Out=0.00, 0.00\n\n"
      "[ParticleAttributes.0]\nBlend Mode=2\nTexture=fx_1.bmp\nBounce=0.00\n"
      "Color Start=255, 255, 255, 40\nColor End=255, 255, 255, 0\nExtrude Length=20.00\n";
  return text;
}

/// The simulator's own cumulus sheet, composed of its own three inputs.
Texture OwnCumulus(const Library& library) {
  Texture sheet = library.clouds[0].back().fast;
  for (const auto group : {CloudGroup::kStratus, CloudGroup::kWispy}) {
    const Texture& from = library.clouds[static_cast<std::size_t>(group)].back().fast;
    for (const SheetCell& cell : CloudCells(group)) {
      for (int y = cell.top / 2; y < (cell.top + cell.height) / 2; ++y) {
        const int start = (y * sheet.width + cell.left / 2) * 4;
        std::copy_n(from.bgra.begin() + start, cell.width / 2 * 4, sheet.bgra.begin() + start);
      }
    }
  }
  return sheet;
}

/// The simulator's own sets follow the last of the catalogue's.
void WriteOwnSets(const fs::path& root, const Library& library) {
  for (std::size_t group = kCirrus; group < kGroups; ++group) {
    const bool water = group == kBase || group == kEnvironment;
    const fs::path folder = water             ? root / "Scenery/World/Texture"
                            : group == kWaves ? root / "Effects/Texture"
                                              : root / "Texture";
    WriteSet(folder, library, group, kCatalogue[group].options.size());
  }
}

void WriteOption(const fs::path& folder, const Library& library, std::size_t group,
                 std::size_t option) {
  const std::string n = std::to_string(option);
  const fs::path set = (folder / "Data" / kCatalogue[group].set).string() + n;
  if (group < kCirrus) {
    WriteSheet(set, library.clouds[group][option]);
  } else {
    WriteSet(set, library, group, option);
  }
  const std::string preview = std::string(kCatalogue[group].preview) + "_" + n + ".bmp";
  WriteBmp24(folder / "Media/Screen Shots" / preview, PaintPreview(library, group, option));
}

}  // namespace

void WriteSimulator(const fs::path& root, const Library& library) {
  const fs::path texture = root / "Texture";
  WriteOwnSets(root, library);
  WriteFixedClouds({texture, texture, texture}, true);
  WriteSuns(texture, kOwnSun);
  WriteBmp32(texture / "cumulus01.bmp", OwnCumulus(library));
  WriteBmp24(texture / "runway.bmp", PaintRunway(128));
  WriteBmp24(texture / "grass.bmp", PaintGrass(128));
  WriteBmp24(texture / "roof.bmp", PaintRoof(128));
  WriteDosText(root / "Effects/fx_contrail_s.fx", ContrailEffect("Contrail, short", "1.50,1.50"));
  WriteDosText(root / "Effects/fx_contrail_L.fx", ContrailEffect("Contrail, long", "30.50,30.50"));
}

void WriteProgramData(const fs::path& folder, const Library& library) {
  std::vector<std::function<void()>> jobs;
  for (std::size_t group = kGroups; group-- > 0;) {  // the slowest previews first
    for (std::size_t option = 0; option < kCatalogue[group].options.size(); ++option) {
      jobs.emplace_back([&, group, option] { WriteOption(folder, library, group, option); });
    }
  }
  DoAll(jobs);
  WriteInformationFile(folder / "NB_Information.cfg");
  const fs::path clouds = folder / "Data/Clouds";
  WriteFixedClouds({clouds / "Cld", clouds / "cumulus", clouds / "stratus"}, false);
  WriteSuns(folder / "Data/Sun", kReplacementSun);
  WriteBmp24(folder / "Data/Sun/sun_halo.bmp", PaintSun(kReplacementSun, 128));
  WriteSuns(folder / "Backups/TEX", kOwnSun);
  fs::create_directories(folder / "Favorites");
}

}  // namespace demo
