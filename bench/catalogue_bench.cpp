// The catalogue readers and the write-back of the inhibit flags on 11 groups of 100 and of 1000
// options without pictures. Ten times the options may cost at most twelve times the time.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "figures.h"
#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "settings/mod_ReadConfiguration.h"
#include "settings/mod_WriteConfiguration.h"
#include "toolkit/forms.h"

namespace nimbrel {
namespace {

constexpr int kRounds = 9;
constexpr double kMostRatio = 12;
constexpr const char* kFile = "/NB_Information.cfg";

std::string CatalogueText(int options) {
  std::string text = "[Main]\r\nuseDXT=1\r\n";
  for (std::size_t family = 0; family < kFamilies; ++family) {
    text.append("[").append(kFamilySections[family]).append("]\r\n");
    text += "Destination=Texture\r\nsunInhibitRandomizer=0\r\ncontrailsInhibitRandomizer=0\r\n";
    for (const OptionGroup& group : kOptionGroups) {
      if (static_cast<std::size_t>(group.family) != family) {
        continue;
      }
      text += std::string(group.highest_key) + "=" + std::to_string(options - 1) + "\r\n";
      for (int option = 0; option < options; ++option) {
        const auto index = static_cast<std::int16_t>(option);
        text += RowKey(group.prefix, "Textures", index) + "=Data\\Sets\\Set\r\n";
        text += RowKey(group.prefix, "Description", index) + "=What this option looks like\r\n";
        text += RowKey(group.prefix, "Title", index) + "=An option\r\n";
        text += RowKey(group.prefix, kInhibitField, index) + "=0\r\n";
      }
    }
  }
  return text;
}

void Read() {
  LoadCumulusConfiguration();
  LoadSkyConfiguration();
  LoadWaterConfiguration();
  LoadMainConfiguration();
}

void FlipFlags() {
  for (const OptionGroup& group : kOptionGroups) {
    CatalogueTable& table = Catalogue.Tables[static_cast<std::size_t>(group.family)];
    for (std::int16_t option = 0; TextureOption* row = table.Cell(group.index, option); ++option) {
      row->InhibitRandomizer = row->InhibitRandomizer == 0 ? 1 : 0;
    }
  }
}

struct Times {
  double read = 0;
  double write = 0;
};

/// On a file written anew, so that it is read from the file and not from memory of it, and in a
/// folder that has come to rest: one that has just changed is read anew at every look.
Times Measure(int options) {
  static int files = 0;
  std::ofstream(platform::ApplicationFolder() + kFile, std::ios::binary)
      << CatalogueText(options) << "; " << ++files << "\r\n";
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  Times times;
  times.read = bench::Milliseconds(Read);
  FlipFlags();
  times.write = bench::Milliseconds(WriteInhibitFlags);
  return times;
}

/// The smaller work ten times over, so that both sides last as long and are interrupted alike.
Times MeasureTenfold(int options) {
  constexpr int kTimes = 10;
  Times mean;
  for (int i = 0; i < kTimes; ++i) {
    const Times times = Measure(options);
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
                        median(small), "for 100 options", kMostRatio});
}

int RunBench() {
  std::vector<Times> small;
  std::vector<Times> large;
  for (int round = 0; round < kRounds; ++round) {
    small.push_back(MeasureTenfold(100));
    large.push_back(Measure(1000));
  }
  const bool read = Holds("Reading a catalogue", small, large, &Times::read);
  const bool write = Holds("Writing the flags", small, large, &Times::write);
  return read && write ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace nimbrel

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const toolkit::Application application(argc, argv);
  const bench::WorkFolder folder;
  platform::SetApplicationFolder(folder.path().string());
  return nimbrel::RunBench();
}
