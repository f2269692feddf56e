// What the pages with long lists cost, inside the real window: 1,000 favourites listed and shown
// beside a bare loop that reads the same files; a randomizer page of 4 x 1,000 options opened
// beside one of 4 x 100; a click on a row of such a page while the other pages hold 1,000 options
// in each group beside the same click while they hold 10. Ends with failure when a bound is passed.

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QListWidget>
#include <QMouseEvent>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "figures.h"
#include "history/frm_Favorite.h"
#include "history/mod_Favorites.h"
#include "platform/system.h"
#include "randomizer/frm_RandomizerConstraints.h"
#include "settings/Catalogue.h"
#include "settings/mod_Main.h"
#include "shell/Pages.h"
#include "shell/RefreshMainPage.h"
#include "shell/frm_Main.h"
#include "toolkit/forms.h"

// What the shell asks of the layer above it.
[[noreturn]] void nimbrel::ShutDownProgram() { std::_Exit(EXIT_FAILURE); }

namespace nimbrel {
namespace {

constexpr int kRounds = 21;
constexpr int kFavorites = 1000;
constexpr double kMostListRatio = 3;
constexpr double kMostOpenRatio = 12;
/// Equal but for what the machine does beside it.
constexpr double kMostClickRatio = 1.2;

std::vector<std::string> WriteFavorites(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  std::vector<std::string> files;
  for (int i = 0; i < kFavorites; ++i) {
    const std::string number = std::to_string(i * 7919 % kFavorites);
    FavoriteRecord favorite{"Evening " + number, "What " + number + " is good for", {}};
    favorite.Settings.Solid = static_cast<std::int16_t>(i % 10);
    const auto bytes = EncodeFavorite(favorite);
    files.push_back((folder / ("Evening_" + number + ".nbf")).string());
    std::ofstream(files.back(), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), kFavoriteBytes);
  }
  return files;
}

void ReadBare(const std::vector<std::string>& files) {
  std::array<char, kFavoriteBytes> bytes{};
  for (const std::string& name : files) {
    const int file = open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (read(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
      std::fprintf(stderr, "%s was not read\n", name.c_str());
    }
    close(file);
  }
}

/// The other pages stay loaded; this one alone is in the main window.
void Show(toolkit::Form& form, const char* name) {
  ShowPage(form);
  CurrentPage = name;
  toolkit::DoEvents();
}

bool FavoritesHold() {
  const auto files = WriteFavorites(platform::ApplicationFolder() + "/Favorites");
  Show(FavoritePage().form, "frm_Favorite");
  std::vector<double> ours;
  std::vector<double> bare;
  for (int round = 0; round < kRounds; ++round) {
    bare.push_back(bench::Milliseconds([&files] { ReadBare(files); }));
    ours.push_back(bench::Milliseconds([] {
      ListFavorites();
      toolkit::DoEvents();
    }));
  }
  if (FavoritePage().lst_Favorites.ListCount() != kFavorites) {
    std::fprintf(stderr, "favourites are missing\n");
    return false;
  }
  return bench::Report({"1,000 favourites listed and shown", bench::Median(ours),
                        bench::Median(bare), "for a bare loop over the files", kMostListRatio});
}

void FillFamily(std::int16_t family, std::int16_t options) {
  const auto highest = static_cast<std::int16_t>(options - 1);
  CatalogueTable& table = Catalogue.Tables[static_cast<std::size_t>(family)];
  table.Create(kMostGroups, highest);
  for (const OptionGroup& group : kOptionGroups) {
    if (group.family == family) {
      Catalogue
          .HighestIndex[static_cast<std::size_t>(family)][static_cast<std::size_t>(group.index)] =
          highest;
      for (std::int16_t option = 0; option < options; ++option) {
        table.Cell(group.index, option)->Title =
            "Clouds " + std::to_string(option * 7919 % options) + " over the coast";
      }
    }
  }
}

void LeaveRandomizer() {
  HidePage(CurrentPage);
  CurrentPage = "frm_Main";
  for (const std::int16_t family : {kCloud, kSky, kWater}) {
    ReleaseRandomizerPage(family);
  }
  toolkit::DoEvents();
}

double TimeOpening(std::int16_t options) {
  LeaveRandomizer();
  FillFamily(kCloud, options);
  return bench::Milliseconds([] {
    OpenRandomizerTab(RandomizerTab::kCloudsTab);
    toolkit::DoEvents();
  });
}

bool OpeningHolds() {
  std::vector<double> small;
  std::vector<double> large;
  for (int round = 0; round < kRounds; ++round) {
    small.push_back(TimeOpening(100));
    large.push_back(TimeOpening(1000));
  }
  return bench::Report({"A randomizer page of 4 x 1,000 options opened", bench::Median(large),
                        bench::Median(small), "for 4 x 100 options", kMostOpenRatio});
}

QListWidget& ListWidget(const char* name) {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->objectName() == QLatin1String(name)) {
      return *static_cast<QListWidget*>(widget);
    }
  }
  std::fprintf(stderr, "no list %s\n", name);
  std::_Exit(EXIT_FAILURE);
}

void SendMouse(QWidget& widget, QEvent::Type type, Qt::MouseButtons held, const QPoint& at) {
  QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, {});
  QApplication::sendEvent(&widget, &event);
}

/// A click on the third row of the first list, with the page painted anew.
double TimeClick(QListWidget& list) {
  const QPoint place = list.visualItemRect(list.item(2)).center();
  return bench::Milliseconds([&] {
    SendMouse(*list.viewport(), QEvent::MouseButtonPress, Qt::LeftButton, place);
    SendMouse(*list.viewport(), QEvent::MouseButtonRelease, Qt::NoButton, place);
    toolkit::DoEvents();
  });
}

/// On a cloud page of 4 x 100 options.
void TimeClicks(std::int16_t options_elsewhere, std::vector<double>& times) {
  LeaveRandomizer();
  FillFamily(kCloud, 100);
  for (const std::int16_t family : {kSky, kWater}) {
    FillFamily(family, options_elsewhere);
    RandomizerPage(family);
  }
  OpenRandomizerTab(RandomizerTab::kCloudsTab);
  toolkit::DoEvents();
  QListWidget& list = ListWidget("lst_Solid");
  TimeClick(list);
  for (int click = 0; click < kRounds; ++click) {
    const Qt::CheckState before = list.item(2)->checkState();
    times.push_back(TimeClick(list));
    if (list.item(2)->checkState() == before) {
      std::fprintf(stderr, "a click was lost\n");
    }
  }
}

bool ClicksHold() {
  std::vector<double> few;
  std::vector<double> many;
  for (int round = 0; round < kRounds / 3; ++round) {
    TimeClicks(10, few);
    TimeClicks(1000, many);
  }
  return bench::Report({"A click on a row, other pages with 1,000 options in each group",
                        bench::Median(many), bench::Median(few), "with 10 options",
                        kMostClickRatio});
}

}  // namespace

bool PagesHold() {
  RefreshMainPage();
  MainForm().form.Show();
  toolkit::DoEvents();
  const bool favorites = FavoritesHold();
  const bool opening = OpeningHolds();
  const bool clicks = ClicksHold();
  return favorites && opening && clicks;
}

}  // namespace nimbrel

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const toolkit::Application application(argc, argv);
  bool held = false;
  {
    const bench::WorkFolder folder;
    platform::SetApplicationFolder(folder.path().string());
    held = nimbrel::PagesHold();
  }
  _exit(held ? EXIT_SUCCESS : EXIT_FAILURE);  // the windows would outlive the toolkit
}
