#include "FaultWorld.h"

#include <string>

#include "history/FavoriteStore.h"
#include "settings/SettingsRecord.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

constexpr const char* kLeftOver = "~nimbrel-999999999-1.tmp";

constexpr const char* kOldTextures[] = {"TEXTURE/CIRRUS",    "TEXTURE/SUNRISE",
                                        "TEXTURE/DAY",       "TEXTURE/SUNSET",
                                        "TEXTURE/NIGHT",     "TEXTURE/WAVES",
                                        "TEXTURE/SUN",       "TEXTURE/SUN6",
                                        "TEXTURE/CLD",       "TEXTURE/CUMULUS",
                                        "TEXTURE/CUMULUS01", "SCENERY/World/texture/ENVIRONMENT",
                                        "TEXTURE/STRATUS",   "SCENERY/World/texture/BASE"};
constexpr const char* kEffect = "[Particle.0]\r\nLifetime=7,7\r\n";
constexpr const char* kOtherFiles[][2] = {
    {"TEXTURE/other.bmp", "not the program's"},
    {"effects/FX_contrail_S.fx", kEffect},
    {"effects/FX_contrail_L.fx", kEffect},
    {"Addons/Nimbrel/DATA/SUN/Sun.bmp", "a sun"},
    {"Addons/Nimbrel/DATA/SUN/Sun6.bmp", "a sixth sun"},
    {"Addons/Nimbrel/DATA/Clouds/cld/cld.bmp", "cld"},
    {"Addons/Nimbrel/DATA/Clouds/Cumulus/cumulus.bmp", "cumulus"},
    {"Addons/Nimbrel/DATA/Clouds/Stratus/stratus.bmp", "stratus"},
    {"Addons/Nimbrel/backups/tex/corona1.bmp", "own corona"},
    {"Addons/Nimbrel/backups/tex/sun.bmp", "own sun"},
    {"Addons/Nimbrel/backups/tex/sun6.bmp", "own sixth sun"},
    {"Addons/Nimbrel/TEMPBITMAPS/Cumulus01.bmp", "the texture of an install before"},
};
constexpr const char* kRenamed[][2] = {
    {"Texture", "TEXTURE"},
    {"Scenery", "SCENERY"},
    {"Modules", "Addons"},
    {"Effects", "effects"},
    {"Addons/Nimbrel/Data", "Addons/Nimbrel/DATA"},
    {"Addons/Nimbrel/NB_Information.cfg", "Addons/Nimbrel/nb_information.CFG"},
};

template <typename Bytes>
std::string Text(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

void MakeOldSimulator(const fs::path& root) {
  const World world(root.parent_path());
  world.MakeFolders();
  WritePack(world.Program(), 2);
  WriteCloudInputs(world.Program(), 2);
  fs::rename(world.Simulator(), root);
  for (const auto& [from, to] : kRenamed) {
    fs::rename(root / from, root / to);
  }
  for (const std::string name : kOldTextures) {
    WriteText(root / (name + ".BMP"), "old");
  }
  for (const auto& [path, text] : kOtherFiles) {
    WriteText(root / path, text);
  }
  // More than a new file gets, so that permissions have to be set.
  fs::permissions(root / "TEXTURE/DAY.BMP", fs::perms::all & ~fs::perms::others_exec);
  const fs::path program = root / kProgramFolder;
  SettingsRecord first;
  for (const Group group :
       {Group::kSolid, Group::kWispy, Group::kCirrus, Group::kBase, Group::kDay}) {
    first.choice.option[group] = 2;
  }
  SettingsRecord second;
  second.choice.contrails = true;
  const FavoriteRecord favorite{"Taken", "an old one", first};
  WriteText(root / kHistory, Text(EncodeRecord(first)) + Text(EncodeRecord(second)));
  WriteText(program / "Favorites" / "Taken.nbf", Text(EncodeFavorite(favorite)));
  // The small sheets, uncompressed: the runs are many.
  const std::string information = ReadText(root / kInformation);
  WriteText(root / kInformation,
            With(With(information, "useDXT=1", "useDXT=0"), "useLowRes=0", "useLowRes=1"));
  for (const fs::path& folder :
       {root / "TEXTURE", root / "SCENERY/World/texture", root / "effects", program,
        program / "DATA", program / "Favorites", program / "TEMPBITMAPS"}) {
    WriteText(folder / kLeftOver, "half");
  }
}

void MakeBareSimulator(const fs::path& root, const fs::path& from) {
  MakeOldSimulator(root);
  fs::create_directory(from);
  const fs::path pack = from / "pack";
  fs::rename(root / kProgramFolder, pack);
  fs::remove_all(root / "Addons");
  fs::remove_all(pack / "Media");
  WriteText(pack / "Media/icon.bmp", "an icon");
  WriteText(from / "nimbrel", "the program");
  for (const char* file : {"TEXTURE/NIGHT.BMP", "TEXTURE/SUN6.BMP"}) {
    fs::remove(root / file);
  }
  for (const char* folder : {"TEXTURE", "SCENERY/World/texture", "effects"}) {
    fs::remove(root / folder / kLeftOver);
  }
}

void ChangeByHand(const fs::path& root) {
  fs::rename(root / "TEXTURE/DAY.BMP", root / "TEXTURE/Day.bmp");
  fs::rename(root / "TEXTURE/night.bmp", root / "TEXTURE/NIGHT.bmp");
  for (const std::string folder : {"TEXTURE", "effects", "Modules/Nimbrel/Favorites",
                                   "Modules/Nimbrel Originals/files/TEXTURE"}) {
    WriteText(root / folder / kLeftOver, "half");
  }
}

void AddSet(const fs::path& root) {
  fs::remove(root / kSetUpFolder / "Media/icon.bmp");
  WriteText(root / kSetUpFolder / "Sets/night.2/other.bmp", "the user's own");
}
