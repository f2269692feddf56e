#include "FaultWorld.h"

#include <sys/wait.h>
#include <unistd.h>

#include <vector>

#include "history/mod_Favorites.h"
#include "shell/ShellWorld.h"
#include "support/BmpFile.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

constexpr const char* kLeftOver = "~nimbrel-999999999-1.tmp";

constexpr const char* kOldTextures[] = {"CIRRUS",  "SUNRISE", "DAY",      "SUNSET", "NIGHT",
                                        "BASE",    "SUN",     "SUN6",     "CLD",    "ENVIRONMENT",
                                        "CUMULUS", "STRATUS", "CUMULUS01"};
constexpr const char* kEffect = "[Particle.0]\r\nLifetime=7,7\r\n";
constexpr const char* kOtherFiles[][2] = {
    {"TEXTURE/other.bmp", "not the program's"},
    {"WAVES/WAVES.BMP", "old"},
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
    {"Waves", "WAVES"},
    {"Effects", "effects"},
    {"Addons/Nimbrel/Data", "Addons/Nimbrel/DATA"},
    {"Addons/Nimbrel/NB_Information.cfg", "Addons/Nimbrel/nb_information.CFG"},
};

template <typename Bytes>
std::string Text(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// The sheets of the cloud inputs, small, each option in a grey of its own.
void WriteCloudInputs(const fs::path& sets) {
  unsigned grey = 0;
  for (const std::string group : {"solid", "stratus", "wispy"}) {
    for (const std::string option : {"0", "1", "2"}) {
      grey += 20;
      const auto plain = [grey](int, int) { return grey; };
      WriteText(sets / (group + option + "_Fast.bmp"), ColorBmp(256, 256, plain).Bytes());
      WriteText(sets / (group + option + "_a_Fast.bmp"), GreyBmp(256, 256, false, plain).Bytes());
    }
  }
}

std::string With(std::string text, std::string_view from, std::string_view to) {
  return text.replace(text.find(from), from.size(), to);
}

}  // namespace

Tree ReadTree(const fs::path& root) {
  Tree tree;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string path = entry.path().lexically_relative(root).string();
    if (entry.is_regular_file()) {
      tree[path] = ReadText(entry.path());
    } else {
      tree[path + "/"] = "";
    }
  }
  return tree;
}

void MakeOldSimulator(const fs::path& root) {
  // In a process of its own: what it leaves in memory is none of the runs'.
  const pid_t child = fork();
  if (child == 0) {
    const auto* world = new ShellWorld;  // left standing: its tree is taken over
    fs::rename(world->Simulator(), root);
    fs::remove(world->Simulator().parent_path());
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  for (const auto& [from, to] : kRenamed) {
    fs::rename(root / from, root / to);
  }
  for (const std::string name : kOldTextures) {
    WriteText(root / "TEXTURE" / (name + ".BMP"), "old");
  }
  for (const auto& [path, text] : kOtherFiles) {
    WriteText(root / path, text);
  }
  // More than a new file gets, so that permissions have to be set.
  fs::permissions(root / "TEXTURE/DAY.BMP", fs::perms::all & ~fs::perms::others_exec);
  const fs::path program = root / kProgramFolder;
  WriteCloudInputs(program / "Sets");
  const SettingsRecord first{.Solid = 2, .Wispy = 2, .Cirrus = 2, .Base = 2, .Day = 2};
  const FavoriteRecord favorite{"Taken", "an old one", first};
  WriteText(root / kHistory, Text(EncodeRecord(first)) + Text(EncodeRecord({.Contrails = 1})));
  WriteText(program / "Favorites" / "Taken.nbf", Text(EncodeFavorite(favorite)));
  // The small sheets, uncompressed: the runs are many.
  const std::string information = ReadText(root / kInformation);
  WriteText(root / kInformation,
            With(With(information, "useDXT=1", "useDXT=0"), "useLowRes=0", "useLowRes=1"));
  for (const fs::path& folder :
       {root / "TEXTURE", root / "WAVES", root / "effects", program, program / "DATA",
        program / "Favorites", program / "TEMPBITMAPS"}) {
    WriteText(folder / kLeftOver, "half");
  }
}

void MakeBareSimulator(const fs::path& root, const fs::path& from) {
  MakeOldSimulator(root);
  fs::create_directory(from);
  const fs::path pack = from / "pack";
  fs::rename(root / kProgramFolder, pack);
  fs::remove_all(root / "Addons");
  fs::remove_all(pack / "Media/Screen Shots");
  WriteText(pack / "Media/icon.bmp", "an icon");
  WriteText(from / "nimbrel", "the program");
  fs::create_directory(root / "SCENERY");
  for (const char* file : {"TEXTURE/NIGHT.BMP", "TEXTURE/SUN6.BMP"}) {
    fs::remove(root / file);
  }
  for (const char* folder : {"TEXTURE", "WAVES", "effects"}) {
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
  WriteText(root / kSetUpFolder / "Sets/night2/other.bmp", "the user's own");
}
