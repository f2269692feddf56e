// How cost grows with what there is to do: ten times the files of a set, ten times their size, ten
// times the favourites. Ends with failure when ten times the work costs more than twelve times the
// time.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "figures.h"
#include "history/mod_Favorites.h"
#include "install/CopyFailures.h"
#include "install/mod_CopyFiles.h"
#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "toolkit/forms.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

constexpr int kRounds = 9;
constexpr int kFavoriteRounds = 51;
constexpr double kMostRatio = 12;
constexpr int kTimes = 10;  // what the larger work is to the smaller one
constexpr std::size_t kKiB = 1024;

/// An option of the wave heights, whose sets are copied without a progress bar.
struct Set {
  std::int16_t option;
  const char* folder;
  int files;
  std::size_t bytes;  ///< of each file
};
constexpr Set kOne{0, "One", 10, 100 * kKiB};
constexpr Set kMore{1, "More", 100, 100 * kKiB};
constexpr Set kLarger{2, "Larger", 10, 1000 * kKiB};
constexpr Set kSets[] = {kOne, kMore, kLarger};

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

void WriteSet(const Set& set) {
  const fs::path folder = fs::path(platform::ApplicationFolder()) / "Sets" / set.folder;
  fs::create_directories(folder);
  std::string bytes(set.bytes, '\0');
  unsigned state = 1;
  for (int i = 0; i < set.files; ++i) {
    for (char& byte : bytes) {
      state = state * 1664525U + 1013904223U;
      byte = static_cast<char>(state >> 24U);
    }
    std::ofstream(folder / (set.folder + std::to_string(i) + ".bmp"), std::ios::binary) << bytes;
  }
}

void FillCatalogue() {
  constexpr std::int16_t kWaves = 2;
  CatalogueTable& table = Catalogue.Tables[static_cast<std::size_t>(kWater)];
  table.Create(kWaves + 1, static_cast<std::int16_t>(std::size(kSets) - 1));
  for (const Set& set : kSets) {
    WriteSet(set);
    table.Cell(kWaves, set.option)->Textures = std::string("Sets\\") + set.folder;
  }
  Catalogue.DestinationWaves = "Waves";
}

double TimeCopy(const Set& set) {
  return bench::Milliseconds([&set] { CopyWavesSet(set.option); });
}

bool CopyingHolds(const char* what, const Set& large) {
  std::vector<double> ones;
  std::vector<double> larges;
  TimeCopy(kOne);  // every round finds old files in place
  TimeCopy(large);
  for (int round = 0; round < kRounds; ++round) {
    ones.push_back(TenfoldTenth([] { TimeCopy(kOne); }));
    larges.push_back(TimeCopy(large));
  }
  return bench::Report({what, bench::Median(larges), bench::Median(ones),
                        "for a set of 10 files of 100 KiB", kMostRatio});
}

void WriteFavorites(const fs::path& program, int count) {
  fs::create_directories(program / "Favorites");
  for (int i = 0; i < count; ++i) {
    const auto bytes = EncodeFavorite({"Evening " + std::to_string(i), "What it is good for", {}});
    std::ofstream(program / "Favorites" / (std::to_string(i) + ".nbf"), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), kFavoriteBytes);
  }
}

/// Of the programs in these folders, one after the other.
double TimeFavorites(const std::vector<fs::path>& programs) {
  return bench::Milliseconds([&programs] {
    for (const fs::path& program : programs) {
      platform::SetApplicationFolder(program.string());
      ReadFavorites();
    }
  });
}

/// One program with 1,000 and ten with 100 each, turn by turn: as many files on both sides, so that
/// the memory that holds them is as near.
bool FavoritesHold(const fs::path& root) {
  constexpr int kFew = 100;
  const std::vector<fs::path> large{root / "Many"};
  WriteFavorites(large.front(), kTimes * kFew);
  std::vector<fs::path> small;
  for (int i = 0; i < kTimes; ++i) {
    small.push_back(root / ("Few" + std::to_string(i)));
    WriteFavorites(small.back(), kFew);
  }
  std::vector<double> few;
  std::vector<double> many;
  for (int round = 0; round < kFavoriteRounds; ++round) {
    few.push_back(TimeFavorites(small) / kTimes);
    many.push_back(TimeFavorites(large));
  }
  return bench::Report(
      {"Reading 1,000 favourites", bench::Median(many), bench::Median(few), "for 100", kMostRatio});
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const toolkit::Application application(argc, argv);
  const bench::WorkFolder folder;
  platform::SetApplicationFolder((folder.path() / "Modules/Nimbrel").string());
  SimulatorRoot = platform::ApplicationFolder() + "\\..\\..\\";
  fs::create_directories(folder.path() / "Waves");
  FillCatalogue();
  const bool more = CopyingHolds("Copying a set of 100 files of 100 KiB", kMore);
  const bool larger = CopyingHolds("Copying a set of 10 files of 1,000 KiB", kLarger);
  const bool favorites = FavoritesHold(folder.path());
  if (!fs::exists(folder.path() / "Waves/Larger9.bmp")) {
    std::fprintf(stderr, "nothing was copied\n");
    return EXIT_FAILURE;
  }
  if (!CopyFailures.empty()) {
    std::fprintf(stderr, "%zu files could not be put in place\n", CopyFailures.size());
    return EXIT_FAILURE;
  }
  return more && larger && favorites ? EXIT_SUCCESS : EXIT_FAILURE;
}
