// What the pages with long lists cost, inside the real window: 1,000 favourites listed and shown
// beside a bare loop that reads the same files; a randomizer page of 4 x 1,000 options opened
// beside one of 4 x 100; a click on a row of such a page while the other pages hold 1,000 options
// in each group beside the same click while they hold 10. Fails if a bound is passed.

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
#include "history/FavoriteStore.h"
#include "settings/SettingsRecord.h"
#include "shell/Pages.h"
#include "shell/State.h"
#include "shell/mod_Favorites.h"
#include "shell/mod_Misc.h"
#include "shell/pages/ConstraintPage.h"
#include "shell/pages/frm_Favorite.h"
#include "shell/pages/frm_Main.h"
#include "shell/painting/Pictures.h"
#include "toolkit/forms.h"

namespace nimbrel {
namespace {

constexpr int kRounds = 21;
constexpr int kFavorites = 1000;
constexpr double kMaxListRatio = 3;
constexpr double kMaxOpenRatio = 12;
/// Equal except for what the machine does meanwhile.
constexpr double kMaxClickRatio = 1.2;

std::vector<std::string> WriteFavorites(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  std::vector<std::string> files;
  for (int i = 0; i < kFavorites; ++i) {
    const std::string number = std::to_string(i * 7919 % kFavorites);
    FavoriteRecord favorite{"Evening " + number, "What " + number + " is good for", {}};
    favorite.Settings.choice.option[Group::kSolid] = static_cast<std::int16_t>(i % 10);
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

bool FavoritesHold() {
  const auto files = WriteFavorites(ui.folders.program + "/Favorites");
  OpenPage("favorite");
  toolkit::DoEvents();
  std::vector<double> ours;
  std::vector<double> bare;
  for (int round = 0; round < kRounds; ++round) {
    bare.push_back(bench::Milliseconds([&files] { ReadBare(files); }));
    ours.push_back(bench::Milliseconds([] {
      ListFavorites();
      toolkit::DoEvents();
    }));
  }
  if (Loaded(ui.forms.favorites).lst_Favorites.ListCount() != kFavorites) {
    std::fprintf(stderr, "favourites are missing\n");
    return false;
  }
  return bench::Report({"1,000 favourites listed and shown", bench::Median(ours),
                        bench::Median(bare), "for a bare loop over the files", kMaxListRatio});
}

void FillFamily(Family family, int options) {
  for (const GroupFacts& facts : GroupsOf(family)) {
    auto& rows = ui.catalogue.options[facts.group];
    rows.assign(static_cast<std::size_t>(options), {});
    for (int option = 0; option < options; ++option) {
      rows[static_cast<std::size_t>(option)].Title =
          "Clouds " + std::to_string(option * 7919 % options) + " over the coast";
    }
  }
}

void LeaveRandomizer() {
  ShowMainPage();
  ui.forms.constraints = {};
  toolkit::DoEvents();
}

double TimeOpening(int options) {
  LeaveRandomizer();
  FillFamily(Family::kCloud, options);
  return bench::Milliseconds([] {
    OpenPage("randomizer_cloud");
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
                        bench::Median(small), "for 4 x 100 options", kMaxOpenRatio});
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
void TimeClicks(int options_elsewhere, std::vector<double>& times) {
  LeaveRandomizer();
  FillFamily(Family::kCloud, 100);
  for (const Family family : {Family::kSky, Family::kWater}) {
    FillFamily(family, options_elsewhere);
    Loaded(ui.forms.constraints[family], family);
  }
  OpenPage("randomizer_cloud");
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
                        kMaxClickRatio});
}

}  // namespace

bool PagesHold() {
  RefreshMainPage();
  Loaded(ui.forms.main).form.Show();
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
    nimbrel::ui.folders.program = folder.path().string();
    nimbrel::ui.pictures =
        std::make_shared<nimbrel::Pictures>(nimbrel::ui.catalogue, nimbrel::ui.folders);
    held = nimbrel::PagesHold();
  }
  _exit(held ? EXIT_SUCCESS : EXIT_FAILURE);  // the windows would outlive the toolkit
}
