// How long the three catalogue readers take on a catalogue with a picture of 400 by 300 for each of
// 11 x 20 options, beside a bare loop that reads and decodes the same files. The two take turns, so
// that the machine's mood falls on both alike.

#include <QImage>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "figures.h"
#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "settings/mod_ReadConfiguration.h"
#include "toolkit/forms.h"

namespace fs = std::filesystem;

namespace nimbrel {
namespace {

constexpr std::int16_t kOptions = 20;
constexpr int kRounds = 21;
constexpr double kMostRatio = 1.3;

std::vector<std::string> picture_files;

/// A picture with detail of its own in every row, so that no two files are alike.
void MakePicture(const std::string& file, std::uint32_t seed) {
  QImage picture(400, 300, QImage::Format_RGB32);
  for (int y = 0; y < picture.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < picture.width(); ++x) {
      seed = seed * 1664525U + 1013904223U;
      row[x] = 0xFF000000U | (seed >> 8U);
    }
  }
  picture.save(QString::fromStdString(file), "BMP");
}

void WriteGroup(std::ofstream& text, const OptionGroup& group, const std::string& folder) {
  const std::string screen_shots = folder + "/Media/Screen Shots/";
  text << group.highest_key << '=' << kOptions - 1 << "\r\n";
  for (std::int16_t option = 0; option < kOptions; ++option) {
    std::string name(group.prefix);
    name += "_" + std::to_string(option);
    text << RowKey(group.prefix, "Preview", option) << "=Media\\Screen Shots\\" << name << "\r\n"
         << RowKey(group.prefix, "Textures", option) << "=Data\\Sets\\" << name << "\r\n"
         << RowKey(group.prefix, "Description", option) << "=What this option looks like\r\n"
         << RowKey(group.prefix, "Title", option) << "=An option\r\n"
         << RowKey(group.prefix, kInhibitField, option) << "=0\r\n";
    name += ".bmp";
    picture_files.push_back(screen_shots + name);
    MakePicture(picture_files.back(), static_cast<std::uint32_t>(picture_files.size()));
  }
}

void MakeCatalogue(const std::string& folder) {
  fs::create_directories(fs::path(folder) / "Media/Screen Shots");
  std::ofstream text(fs::path(folder) / "NB_Information.cfg", std::ios::binary);
  for (std::size_t family = 0; family < kFamilies; ++family) {
    text << '[' << kFamilySections[family] << "]\r\n"
         << "Destination=Texture\r\nsunInhibitRandomizer=0\r\ncontrailsInhibitRandomizer=0\r\n";
    for (const OptionGroup& group : kOptionGroups) {
      if (static_cast<std::size_t>(group.family) == family) {
        WriteGroup(text, group, folder);
      }
    }
  }
}

void ReadCatalogue() {
  LoadCumulusConfiguration();
  LoadSkyConfiguration();
  LoadWaterConfiguration();
}

bool EveryPictureLoaded() {
  return std::all_of(kOptionGroups.begin(), kOptionGroups.end(), [](const OptionGroup& group) {
    return Catalogue.At(group.family, group.index, kOptions - 1).Preview != nullptr;
  });
}

/// Each side keeps all its pictures to its end and starts without any, the readers from an
/// information file that is newer than what they may remember of it.
double TimeReaders() {
  Catalogue = {};
  fs::last_write_time(platform::ApplicationFolder() + "/NB_Information.cfg",
                      fs::file_time_type::clock::now());
  return bench::Milliseconds(ReadCatalogue);
}

double TimeBareLoop() {
  Catalogue = {};
  std::vector<QImage> pictures;
  return bench::Milliseconds([&] {
    for (const std::string& file : picture_files) {
      pictures.emplace_back(QString::fromStdString(file));
    }
  });
}

int RunBench() {
  std::vector<double> readers;
  std::vector<double> bare;
  for (int round = 0; round < kRounds; ++round) {
    bare.push_back(TimeBareLoop());
    readers.push_back(TimeReaders());
  }
  if (!EveryPictureLoaded()) {
    std::fprintf(stderr, "a picture is missing\n");
    return EXIT_FAILURE;
  }
  const bool held = bench::Report({"Reading a catalogue with 11 x 20 pictures of 400 x 300",
                                   bench::Median(readers), bench::Median(bare),
                                   "for a bare loop over the pictures", kMostRatio});
  Catalogue = {};  // while the toolkit stands
  return held ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace nimbrel

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const toolkit::Application application(argc, argv);
  const bench::WorkFolder folder;
  platform::SetApplicationFolder(folder.path().string());
  nimbrel::MakeCatalogue(folder.path().string());
  return nimbrel::RunBench();
}
