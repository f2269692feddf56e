// How cost grows with what there is to do: ten times the files of a set, ten times their size, ten
// times the favourites. Ends with failure when ten times the work costs more than twelve times the
// time.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "figures.h"
#include "history/FavoriteStore.h"
#include "install/CopyPlan.h"
#include "install/Report.h"
#include "install/mod_CopyFiles.h"
#include "platform/FileSystem.h"
#include "support/QuietProgress.h"
#include "support/World.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

constexpr int kRounds = 9;
constexpr int kFavoriteRounds = 51;
constexpr double kMaxRatio = 12;
constexpr int kTimes = 10;  // what the larger work is to the smaller one
constexpr std::size_t kKiB = 1024;

/// A set of wave heights.
struct Set {
  std::int16_t option;
  int files;
  std::size_t bytes;  ///< of each file
};
constexpr Set kOne{0, 10, 100 * kKiB};
constexpr Set kMore{1, 100, 100 * kKiB};
constexpr Set kLarger{2, 10, 1000 * kKiB};

/// The smaller work ten times over, so that both sides last as long and are interrupted alike.
template <class Work>
double TenfoldTenth(Work work) {
  return bench::Milliseconds([&work] {
           for (int i = 0; i < kTimes; ++i) {
             work();
           }
         }) /
         kTimes;
}

/// Copies sets of one simulator and counts what fails.
class Copying {
 public:
  Copying() : catalogue_(world_.Load(InformationText(2))) {
    world_.MakeFolders();
    for (const Set& set : {kOne, kMore, kLarger}) {
      const std::string folder = "Sets/waves." + std::to_string(set.option);
      for (int i = 0; i < set.files; ++i) {
        bench::WriteNoise(world_.Program(folder) / (std::to_string(i) + ".bmp"), set.bytes);
      }
    }
  }

  bool Holds(const char* what, const Set& large) {
    std::vector<double> ones;
    std::vector<double> larges;
    Copy(kOne);  // every round finds old files in place
    Copy(large);
    for (int round = 0; round < kRounds; ++round) {
      ones.push_back(TenfoldTenth([this] { Copy(kOne); }));
      larges.push_back(bench::Milliseconds([&] { Copy(large); }));
    }
    return bench::Report({what, bench::Median(larges), bench::Median(ones),
                          "for a set of 10 files of 100 KiB", kMaxRatio});
  }

  bool Whole() const { return report_.Whole() && report_.files > 0; }

 private:
  void Copy(const Set& set) {
    const Folders folders = world_.folders();
    platform::FileSystem files(kTemporaryPrefix);
    const CopyRoutes routes(catalogue_, folders, files);
    QuietProgress progress;
    CopyRun run{routes, folders, files, report_, progress};
    CopyWavesSet(run, set.option);
  }

  World world_;
  Catalogue catalogue_;
  Report report_;
};

void WriteFavorites(const World& world, int count) {
  world.MakeFolders();
  for (int i = 0; i < count; ++i) {
    WriteFavoriteFile(FavoritePath("Evening " + std::to_string(i), world.folders()),
                      {"Evening", "What it is good for", {}});
  }
}

/// One program with 1,000 and ten with 100 each, turn by turn: as many files on both sides, so that
/// the memory that holds them is as near.
bool FavoritesHold() {
  constexpr int kFew = 100;
  const World large;
  WriteFavorites(large, kTimes * kFew);
  const std::vector<World> small(kTimes);
  for (const World& world : small) {
    WriteFavorites(world, kFew);
  }
  std::vector<double> few;
  std::vector<double> many;
  for (int round = 0; round < kFavoriteRounds; ++round) {
    few.push_back(bench::Milliseconds([&small] {
                    for (const World& world : small) {
                      ReadFavoriteFiles(world.folders());
                    }
                  }) /
                  kTimes);
    many.push_back(bench::Milliseconds([&large] { ReadFavoriteFiles(large.folders()); }));
  }
  return bench::Report(
      {"Reading 1,000 favourites", bench::Median(many), bench::Median(few), "for 100", kMaxRatio});
}

}  // namespace

int main() {
  Copying copying;
  const bool more = copying.Holds("Copying a set of 100 files of 100 KiB", kMore);
  const bool larger = copying.Holds("Copying a set of 10 files of 1,000 KiB", kLarger);
  const bool favorites = FavoritesHold();
  if (!copying.Whole()) {
    std::fprintf(stderr, "a file could not be put in place\n");
    return EXIT_FAILURE;
  }
  return more && larger && favorites ? EXIT_SUCCESS : EXIT_FAILURE;
}
