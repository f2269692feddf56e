// The reader of the catalogue and the write-back of the inhibit flags on 11 groups of 100 and of
// 1000 options. Ten times the options may cost at most twelve times the time.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "figures.h"
#include "settings/Configuration.h"
#include "support/World.h"

namespace {

using nimbrel::Catalogue;

constexpr int kRounds = 9;
constexpr double kMaxRatio = 12;

struct Times {
  double read = 0;
  double write = 0;
};

/// In a folder that has come to rest: one that has just changed is listed again.
Times Measure(const World& world, int options) {
  world.WriteInformation(InformationText(options - 1));
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  Times times;
  Catalogue catalogue;
  times.read = bench::Milliseconds([&] { catalogue = nimbrel::ReadCatalogue(world.folders()); });
  for (auto& group : catalogue.options) {
    for (nimbrel::TextureOption& option : group) {
      option.InhibitRandomizer = option.InhibitRandomizer == 0 ? 1 : 0;
    }
  }
  times.write =
      bench::Milliseconds([&] { nimbrel::WriteInhibitFlags(catalogue, world.folders()); });
  return times;
}

/// The smaller work ten times over, so that both sides last as long and are interrupted alike.
Times MeasureTenfold(const World& world, int options) {
  constexpr int kTimes = 10;
  Times mean;
  for (int i = 0; i < kTimes; ++i) {
    const Times times = Measure(world, options);
    mean.read += times.read / kTimes;
    mean.write += times.write / kTimes;
  }
  return mean;
}

bool Holds(const char* what, const std::vector<Times>& small, const std::vector<Times>& large,
           double Times::*part) {
  const auto median = [part](const std::vector<Times>& rounds) {
    std::vector<double> times(rounds.size());
    std::transform(rounds.begin(), rounds.end(), times.begin(),
                   [part](const Times& round) { return round.*part; });
    return bench::Median(times);
  };
  return bench::Report({std::string(what) + " of 11 groups of 1,000 options", median(large),
                        median(small), "for 100 options", kMaxRatio});
}

}  // namespace

int main() {
  const World world;
  std::vector<Times> small;
  std::vector<Times> large;
  for (int round = 0; round < kRounds; ++round) {
    small.push_back(MeasureTenfold(world, 100));
    large.push_back(Measure(world, 1000));
  }
  const bool read = Holds("Reading a catalogue", small, large, &Times::read);
  const bool write = Holds("Writing the flags", small, large, &Times::write);
  return read && write ? EXIT_SUCCESS : EXIT_FAILURE;
}
