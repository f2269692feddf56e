// The catalogue readers and the write-back of the inhibit flags on 11 groups of 100 and of 1000
// options without pictures. Ten times the options may cost at most twelve times the time.

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/forms.h"
#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "settings/mod_Main.h"
#include "settings/mod_ReadConfiguration.h"
#include "settings/mod_WriteConfiguration.h"
#include "shell/MainSwitches.h"

namespace fs = std::filesystem;

namespace nimbrel {

MainSwitches Switches() {
  static platform::Form form("frm_Main");
  static platform::CheckBox sun(form, "chk_Sun");
  static platform::CheckBox contrails(form, "chk_Contrails");
  static platform::CheckBox dxt(form, "chk_DXT");
  static platform::CheckBox fast(form, "chk_Fast");
  return {sun, contrails, dxt, fast};
}

void ShutDownProgram() {
  std::fprintf(stderr, "the readers refused the catalogue\n");
  _exit(1);
}

namespace {

constexpr int kRounds = 7;
constexpr double kMostRatio = 12;

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

template <typename Work>
double Milliseconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
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
    std::ofstream(
        InformationFile().substr(0, InformationFile().rfind('\\')) + "/NB_Information.cfg",
        std::ios::binary)
        << CatalogueText(options) << "; " << round << "\r\n";
    reads.push_back(Milliseconds(Read));
    FlipFlags();
    writes.push_back(Milliseconds(WriteInhibitFlags));
  }
  std::sort(reads.begin(), reads.end());
  std::sort(writes.begin(), writes.end());
  return {reads[kRounds / 2], writes[kRounds / 2]};
}

bool Report(const char* name, double small, double large) {
  std::printf("%-5s 11 x 100 %8.2f ms   11 x 1000 %8.2f ms   ratio %.1f (at most %.0f)\n", name,
              small, large, large / small, kMostRatio);
  return large / small <= kMostRatio;
}

int RunBench() {
  const Times small = Measure(100);
  const Times large = Measure(1000);
  const bool read = Report("read", small.read, large.read);
  const bool write = Report("write", small.write, large.write);
  return read && write ? 0 : 1;
}

}  // namespace
}  // namespace nimbrel

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const platform::Application application(argc, argv);
  std::string folder = (fs::temp_directory_path() / "catalogue-bench-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) {
    std::perror(folder.c_str());
    return 1;
  }
  platform::SetApplicationFolder(folder);
  const int result = nimbrel::RunBench();
  fs::remove_all(folder);
  return result;
}
