// The copying stages of an install, with the progress dialog drawn, beside "cp -r" of the same
// files to the same places: 11 sets of 40 files of 1 MiB, the two taking turns, with the sources in
// memory and then read from the disk. Gives the ratios of the medians and of the least times: on a
// busy machine the least ones tell more.
//
// usage: install_bench [folder to work in]

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "figures.h"
#include "install/CopyFailures.h"
#include "install/mod_CopyFiles.h"
#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "shell/frm_Msg.h"
#include "toolkit/forms.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

constexpr int kFiles = 40;
constexpr std::size_t kFileBytes = std::size_t{1} << 20;
constexpr int kRounds = 9;
constexpr double kMostRatio = 1.15;
constexpr std::size_t kWaterSets = 2;  // the first two go to the water's own folder
const std::vector<std::string> kSets{"Sets/base",           "Sets/environment",   "Sets/waves",
                                     "Sets/sunrise",        "Sets/day",           "Sets/sunset",
                                     "Sets/night",          "Sets/cirrus",        "Data/Clouds/Cld",
                                     "Data/Clouds/cumulus", "Data/Clouds/stratus"};

fs::path root;
fs::path program;

void WriteSets() {
  std::string bytes(kFileBytes, '\0');
  unsigned state = 1;
  for (const std::string& set : kSets) {
    fs::create_directories(program / set);
    for (int i = 0; i < kFiles; ++i) {
      for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24);
      }
      const std::string name = fs::path(set).filename().string() + std::to_string(i) + ".bmp";
      std::ofstream(program / set / name, std::ios::binary) << bytes;
    }
  }
}

void SetOption(std::int16_t family, std::int16_t group, std::size_t set) {
  CatalogueTable& table = Catalogue.Tables[static_cast<std::size_t>(family)];
  if (table.Empty()) {
    table.Create(kMostGroups, 0);
  }
  table.Cell(group, 0)->Textures = kSets[set];
}

void FillCatalogue() {
  for (std::int16_t i = 0; i < 3; ++i) {
    SetOption(kWater, i, static_cast<std::size_t>(i));
  }
  for (std::int16_t i = 0; i < 4; ++i) {
    SetOption(kSky, i, static_cast<std::size_t>(3 + i));
  }
  SetOption(kCloud, 3, 7);
  Catalogue.DestinationWater = "Water";
  Catalogue.DestinationWaves = Catalogue.SkyDestination = Catalogue.DestinationCirrus = "Texture";
}

void InstallSets() {
  CopyWaterSet(0, 0, 0, 20);
  CopyWaterSet(1, 0, 20, 24);
  CopyWavesSet(0);
  CopySkySet(0, 0, 25, 42);
  CopySkySet(1, 0, 42, 52);
  CopySkySet(2, 0, 52, 69);
  CopySkySet(3, 0, 69, 73);
  CopyCirrusSet(0, 74, 79);
  CopyCldFolder(79, 86);
  CopyCumulusFolder(86, 91);
  CopyStratusFolder(91, 94);
}

void RunCp(std::size_t first, std::size_t last, const char* destination) {
  std::vector<std::string> words{"cp", "-r"};
  words.reserve(3 + last - first);
  for (std::size_t i = first; i < last; ++i) {
    words.push_back((program / kSets[i] / ".").string());
  }
  words.push_back((root / destination).string());
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) {
    arguments.push_back(word.data());
  }
  arguments.push_back(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    execvp("cp", arguments.data());
    _exit(127);
  }
  int status = -1;
  if (waitpid(child, &status, 0) != child || status != 0) {
    std::fprintf(stderr, "cp failed\n");
    std::exit(1);
  }
}

void CopyWithCp() {
  RunCp(0, kWaterSets, "Water");
  RunCp(kWaterSets, kSets.size(), "Texture");
}

/// Out of the page cache: all of it when the system lets us, else the sources.
const char* DropCaches() {
  sync();
  if (std::ofstream all("/proc/sys/vm/drop_caches"); all && (all << "3" << std::flush)) {
    return "all caches dropped";
  }
  for (const auto& entry : fs::recursive_directory_iterator(program)) {
    const int file = open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
    posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
    close(file);
  }
  return "sources dropped by advice";
}

/// Whether the medians keep to the bound.
bool Compare(const std::string& name, bool cold) {
  std::vector<double> ours;
  std::vector<double> theirs;
  const char* how = "sources in memory";
  const auto prepare = [&] { cold ? static_cast<void>(how = DropCaches()) : sync(); };
  for (int round = 0; round < kRounds; ++round) {
    prepare();
    theirs.push_back(bench::Milliseconds(CopyWithCp));
    prepare();
    ours.push_back(bench::Milliseconds(InstallSets));
  }
  std::fprintf(stderr, "%s: %s\n", name.c_str(), how);
  const bool held = bench::Report({"Copying 11 sets of 40 MiB, " + name, bench::Median(ours),
                                   bench::Median(theirs), "for cp -r", kMostRatio});
  bench::Report({"The least of " + std::to_string(kRounds) + " times, " + name,
                 *std::min_element(ours.begin(), ours.end()),
                 *std::min_element(theirs.begin(), theirs.end()), "for cp -r"});
  return held;
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const toolkit::Application application(argc, argv);
  const bench::WorkFolder folder(argc > 1 ? argv[1] : "");
  root = folder.path();
  program = root / "Modules" / "Nimbrel";
  fs::create_directories(root / "Water");
  fs::create_directories(root / "Texture");
  WriteSets();
  platform::SetApplicationFolder(program.string());
  SimulatorRoot = program.string() + "\\..\\..\\";
  FillCatalogue();
  ShowMessage("Progress", "Copying", "Copying", false, false, true);
  CopyWithCp();  // both find old files in place
  const bool warm = Compare("warm", false);
  const bool cold = Compare("cold", true);
  HideMessage();
  ReleaseMessageForm();  // while the toolkit stands
  std::fprintf(stderr, "%zu files could not be put in place\n", CopyFailures.size());
  return warm && cold && CopyFailures.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
