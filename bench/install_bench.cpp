// A whole install beside "cp -r" of the same files to the same places: 11 sets of 40 files of 1
// MiB, the two taking turns, with the sources in memory and then read from the disk. Gives the
// ratios of the medians and of the least times: on a busy machine the least ones tell more.
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
#include "install/Install.h"
#include "support/QuietProgress.h"
#include "support/World.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

constexpr int kFiles = 40;
constexpr std::size_t kFileBytes = std::size_t{1} << 20;
constexpr int kRounds = 9;
constexpr double kMaxRatio = 1.15;
/// The first two go to the folder of the waters, the others to Texture.
constexpr std::size_t kWaterSets = 2;
constexpr const char* kSets[] = {
    "Sets/base.0",     "Sets/environment.0",  "Sets/waves.0",        "Sets/sunrise.0",
    "Sets/day.0",      "Sets/sunset.0",       "Sets/night.0",        "Sets/cirrus.0",
    "Data/Clouds/Cld", "Data/Clouds/cumulus", "Data/Clouds/stratus",
};

class InstallBench {
 public:
  explicit InstallBench(const fs::path& folder)
      : world_(folder), catalogue_(world_.Load(InformationText(1))) {
    world_.MakeFolders();
    WriteCloudInputs(world_.Program(), 0);
    for (const char* set : kSets) {
      for (int i = 0; i < kFiles; ++i) {
        const std::string name = fs::path(set).filename().string() + std::to_string(i) + ".bmp";
        bench::WriteNoise(world_.Program(set) / name, kFileBytes);
      }
    }
    CopyWithCp();  // both find old files in place
  }

  /// True if the medians keep to the bound.
  bool Compare(const std::string& name, bool cold) {
    std::vector<double> ours;
    std::vector<double> theirs;
    for (int round = 0; round < kRounds; ++round) {
      Prepare(cold);
      theirs.push_back(bench::Milliseconds([this] { CopyWithCp(); }));
      Prepare(cold);
      ours.push_back(bench::Milliseconds([this] { InstallAll(); }));
    }
    const bool held = bench::Report({"Installing 11 sets of 40 MiB, " + name, bench::Median(ours),
                                     bench::Median(theirs), "for cp -r", kMaxRatio});
    bench::Report({"The least of " + std::to_string(kRounds) + " times, " + name,
                   *std::min_element(ours.begin(), ours.end()),
                   *std::min_element(theirs.begin(), theirs.end()), "for cp -r"});
    return held;
  }

  bool Whole() const { return whole_; }

 private:
  void InstallAll() {
    QuietProgress progress;
    const Report report =
        Install({}, {.dxt = false, .fast = true}, catalogue_, world_.folders(), progress);
    whole_ = whole_ && report.files > std::size(kSets) * kFiles;
  }

  void CopyWithCp() const {
    RunCp(0, kWaterSets, world_.Simulator("Scenery/World/texture"));
    RunCp(kWaterSets, std::size(kSets), world_.Simulator("Texture"));
  }

  void RunCp(std::size_t first, std::size_t last, const fs::path& destination) const {
    std::vector<std::string> words{"cp", "-r"};
    for (std::size_t i = first; i < last; ++i) {
      words.push_back((world_.Program(kSets[i]) / ".").string());
    }
    words.push_back(destination.string());
    std::vector<char*> arguments;
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

  /// Out of the page cache: all of it when the system lets us, else the sources.
  void Prepare(bool cold) const {
    sync();
    std::ofstream all(cold ? "/proc/sys/vm/drop_caches" : "/dev/null");
    if (all && (all << "3" << std::flush)) {
      return;
    }
    for (const auto& entry : fs::recursive_directory_iterator(world_.Program())) {
      const int file = open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
      posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
      close(file);
    }
  }

  World world_;
  Catalogue catalogue_;
  bool whole_ = true;
};

}  // namespace

int main(int argc, char** argv) {
  const bench::WorkFolder folder(argc > 1 ? argv[1] : "");
  InstallBench bench(folder.path());
  const bool warm = bench.Compare("warm", false);
  const bool cold = bench.Compare("cold", true);
  if (!bench.Whole()) {
    std::fprintf(stderr, "a file could not be put in place\n");
    return EXIT_FAILURE;
  }
  return warm && cold ? EXIT_SUCCESS : EXIT_FAILURE;
}
