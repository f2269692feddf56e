// The catalogue readers and the write-back of the inhibit flags on 11 groups of 100 and of 1000
// options without pictures. Ten times the options may cost at most twelve times the time.

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "figures.h"
#include "platform/forms.h"
#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "settings/mod_ReadConfiguration.h"
#include "settings/mod_WriteConfiguration.h"

namespace nimbrel {
namespace {

constexpr int kRounds = 7;
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
  double read;
  double write;
};

/// Each round on a file written anew, so that it is read from the file and not from memory of it.
Times Measure(int options) {
  std::vector<double> reads;
  std::vector<double> writes;
  for (int round = 0; round < kRounds; ++round) {
    std::ofstream(platform::ApplicationFolder() + kFile, std::ios::binary)
        << CatalogueText(options) << "; " << round << "\r\n";
    reads.push_back(bench::Milliseconds(Read));
    FlipFlags();
    writes.push_back(bench::Milliseconds(WriteInhibitFlags));
  }
  return {bench::Median(reads), bench::Median(writes)};
}

int RunBench() {
  const Times small = Measure(100);
  const Times large = Measure(1000);
  const bool read = bench::Report({"Reading a catalogue of 11 groups of 1,000 options", large.read,
                                   small.read, "for 100 options", kMostRatio});
  const bool write = bench::Report({"Writing the flags of 11 groups of 1,000 options", large.write,
                                    small.write, "for 100 options", kMostRatio});
  return read && write ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace nimbrel

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const platform::Application application(argc, argv);
  const bench::WorkFolder folder;
  platform::SetApplicationFolder(folder.path().string());
  return nimbrel::RunBench();
}
