// What the rings cost: a frame of the cloud ring (four pictures of 400 by 300 scaled into their
// slots, with shadows and outlines) beside a bare loop of the same four scaled draws; a whole turn
// of the cloud and of the water ring, from the button's release to the final picture, beside its
// waits; and what remains of 1,000 turns, or as many as the argument says. Fails if a bound is
// passed.

#include <fcntl.h>
#include <malloc.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "figures.h"
#include "shell/Pages.h"
#include "shell/State.h"
#include "shell/dispatch.h"
#include "shell/mod_Misc.h"
#include "shell/pages/frm_Main.h"
#include "shell/painting/Pictures.h"
#include "shell/rings/RingActions.h"
#include "shell/rings/RingPage.h"
#include "shell/rings/RingPainting.h"
#include "toolkit/forms.h"

namespace {

long opened_files = 0;

}  // namespace

// Every open of the process and its libraries comes through here and is counted.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the header's are reserved
extern "C" int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, int) : 0;
  va_end(arguments);
  ++opened_files;
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

namespace {

using namespace nimbrel;

constexpr int kFrameRounds = 200;
constexpr int kTurnRounds = 20;
constexpr int kManyTurns = 1000;
constexpr double kMaxFrame = 6.0;  // milliseconds
constexpr double kMaxFrameRatio = 1.5;
constexpr double kMaxTurnRatio = 1.10;
constexpr double kWaits = 5 * 25.0;  // milliseconds

QImage MakePicture(int group) {
  QImage picture(400, 300, QImage::Format_RGB32);
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      picture.setPixel(x, y, qRgb((x * 7 + group * 50) & 255, (y * 5) & 255, (x * y / 16) & 255));
    }
  }
  return picture;
}

/// One option in each cloud and water group. The pictures of the cloud groups.
std::vector<QImage> FillCatalogue(const std::filesystem::path& folder) {
  std::vector<QImage> pictures;
  for (const GroupFacts& facts : kGroups) {
    if (facts.family != Family::kSky) {
      const auto file = folder / (std::string(facts.prefix) + ".bmp");
      MakePicture(IndexInFamily(facts.group)).save(QString::fromStdString(file.string()));
      ui.catalogue.options[facts.group].emplace_back().Preview = facts.prefix;
      pictures.emplace_back(QString::fromStdString(file.string()));
    }
  }
  ui.folders.program = folder.string();
  ui.pictures = std::make_shared<Pictures>(ui.catalogue, ui.folders);
  pictures.resize(4);
  return pictures;
}

void DrawOurFrame(RingPage& page) {
  for (const auto& [follower, slot] : kRingPlans[Family::kCloud].rest) {
    DrawRingPicture(page, slot, {GroupAt(Family::kCloud, follower), 0});
  }
}

void DrawBareFrame(QImage& surface, const std::vector<QImage>& pictures) {
  QPainter painter(&surface);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  for (const auto& [follower, slot] : kRingPlans[Family::kCloud].rest) {
    const OrbitSlot& place = CloudOrbit[static_cast<std::size_t>(slot)];
    painter.drawImage(QRect(place.left, place.top, place.width, place.height),
                      pictures[static_cast<std::size_t>(follower)]);
  }
}

bool FramesHold(RingPage& page, const std::vector<QImage>& pictures) {
  QImage surface(596, 450, QImage::Format_RGB32);
  std::vector<double> ours;
  std::vector<double> bare;
  for (int round = 0; round < kFrameRounds; ++round) {
    ours.push_back(bench::Milliseconds([&page] { DrawOurFrame(page); }));
    bare.push_back(bench::Milliseconds([&] { DrawBareFrame(surface, pictures); }));
  }
  const double frame = bench::Median(ours);
  const bool quick = bench::Report({"A cloud ring frame", frame, kMaxFrame, "allowed", 1});
  return bench::Report({"A cloud ring frame", frame, bench::Median(bare),
                        "for the same four scaled draws", kMaxFrameRatio}) &&
         quick;
}

QWidget* Button(const char* form, const char* name) {
  for (QWidget* window : QApplication::allWidgets()) {
    if (window->objectName() == form) {
      return window->findChild<QWidget*>(name)->findChild<QWidget*>("pic_BG");
    }
  }
  return nullptr;
}

/// Milliseconds from the release of the button to the end of what it does.
double Press(QWidget& button) {
  const QPointF place(20, 20);
  QMouseEvent press(QEvent::MouseButtonPress, place, button.mapToGlobal(place), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QMouseEvent release(QEvent::MouseButtonRelease, place, button.mapToGlobal(place), Qt::LeftButton,
                      Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&button, &press);
  return bench::Milliseconds([&] { QApplication::sendEvent(&button, &release); });
}

bool TurnsHold(const char* figure, const char* form, const std::int16_t& front) {
  std::vector<double> turns;
  for (int round = 0; round < kTurnRounds; ++round) {
    const std::int16_t before = front;
    turns.push_back(Press(*Button(form, "btn_Clockwise")));
    if (front == before) {
      std::fprintf(stderr, "%s did not turn\n", form);
      return false;
    }
  }
  return bench::Report({figure, bench::Median(turns), kWaits, "of waits in it", kMaxTurnRatio});
}

bool NothingStays(int turns) {
  TurnRing(Family::kCloud, TurnDirection::kClockwise);
  const std::size_t held = mallinfo2().uordblks;
  const long opened = opened_files;
  for (int turn = 0; turn < turns; ++turn) {
    TurnRing(Family::kCloud,
             turn % 2 == 0 ? TurnDirection::kClockwise : TurnDirection::kCounterclockwise);
  }
  const auto grown = static_cast<long>(mallinfo2().uordblks) - static_cast<long>(held);
  std::fprintf(stderr, "%d turns: %ld files opened, %ld bytes more held\n", turns,
               opened_files - opened, grown);
  return opened_files == opened && grown < 64L * 1024;
}

bool RingsHold(int turns) {
  const bench::WorkFolder folder;
  const std::vector<QImage> pictures = FillCatalogue(folder.path());
  ui.buttons.dispatch = RunClick;
  RefreshMainPage();
  Loaded(ui.forms.main).form.Show();
  ShowPage(RingPageOf(Family::kWater).form);
  DrawAtRest(Family::kWater);
  const bool water = TurnsHold("A turn of the water ring", "frm_Water", ui.WaterFrontGroup);
  RingPage& page = RingPageOf(Family::kCloud);
  ShowPage(page.form);
  DrawAtRest(Family::kCloud);
  const bool counts = opened_files > 0;  // else the count of turns would prove nothing
  const bool frames = FramesHold(page, pictures);
  const bool cloud = TurnsHold("A turn of the cloud ring", "frm_3d", ui.CloudFrontGroup);
  return NothingStays(turns) && frames && cloud && water && counts;
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const toolkit::Application application(argc, argv);
  const bool held = RingsHold(argc > 1 ? std::atoi(argv[1]) : kManyTurns);
  std::fflush(stdout);
  _exit(held ? EXIT_SUCCESS : EXIT_FAILURE);  // the windows would outlive the toolkit
}
