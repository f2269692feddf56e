// How long the start takes for the catalogue and its pictures, one of 400 by 300 for each of 11 x
// 20 options, beside a bare loop that reads and decodes the same files. The two take turns, so that
// the machine's mood falls on both alike.

#include <QImage>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "figures.h"
#include "settings/Configuration.h"
#include "shell/painting/Pictures.h"
#include "support/World.h"
#include "toolkit/forms.h"

namespace {

using namespace nimbrel;

constexpr int kOptions = 20;
constexpr int kRounds = 21;
constexpr double kMaxRatio = 1.3;

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

std::vector<std::string> MakeCatalogue(const World& world) {
  WritePack(world.Program(), kOptions - 1);
  std::vector<std::string> pictures;
  for (const GroupFacts& group : kGroups) {
    for (int option = 0; option < kOptions; ++option) {
      const std::string name = std::string(group.prefix) + "_" + std::to_string(option) + ".bmp";
      pictures.push_back(world.Program("Media") / name);
      MakePicture(pictures.back(), static_cast<std::uint32_t>(pictures.size()));
    }
  }
  return pictures;
}

/// Each side keeps all its pictures to its end and starts without any.
double TimeStart(const World& world, bool& every_picture) {
  Catalogue catalogue;
  std::unique_ptr<Pictures> pictures;
  const double time = bench::Milliseconds([&] {
    catalogue = ReadCatalogue(world.folders());
    pictures = std::make_unique<Pictures>(catalogue, world.folders());
  });
  every_picture = std::all_of(kGroups.begin(), kGroups.end(), [&](const GroupFacts& group) {
    return pictures->Preview(group.group, kOptions - 1) != nullptr;
  });
  return time;
}

double TimeBareLoop(const std::vector<std::string>& files) {
  std::vector<QImage> pictures;
  return bench::Milliseconds([&] {
    for (const std::string& file : files) {
      pictures.emplace_back(QString::fromStdString(file));
    }
  });
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const toolkit::Application application(argc, argv);
  const World world;
  const std::vector<std::string> files = MakeCatalogue(world);
  std::vector<double> ours;
  std::vector<double> bare;
  bool every_picture = true;
  for (int round = 0; round < kRounds && every_picture; ++round) {
    bare.push_back(TimeBareLoop(files));
    ours.push_back(TimeStart(world, every_picture));
  }
  if (!every_picture) {
    std::fprintf(stderr, "a picture is missing\n");
    return EXIT_FAILURE;
  }
  return bench::Report({"Reading a catalogue with 11 x 20 pictures of 400 x 300",
                        bench::Median(ours), bench::Median(bare),
                        "for a bare loop over the pictures", kMaxRatio})
             ? EXIT_SUCCESS
             : EXIT_FAILURE;
}
