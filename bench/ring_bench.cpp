// What the rings cost: a frame of the cloud ring (four pictures of 400 by 300 scaled into their
// slots, with shadows and outlines) beside a bare loop of the same four scaled draws; a whole turn
// of the cloud and of the water ring, from the button's release to the final picture, beside its
// waits; and what 1,000 turns leave behind, or as many as the argument says. Ends with failure when
// a bound is passed.

#include <fcntl.h>
#include <malloc.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "figures.h"
#include "settings/Catalogue.h"
#include "settings/Selection.h"
#include "settings/mod_Main.h"
#include "shell/Pages.h"
#include "shell/RefreshMainPage.h"
#include "shell/RingActions.h"
#include "shell/RingPage.h"
#include "shell/frm_Main.h"
#include "shell/mod_GDIP_Rings.h"
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

// What the shell asks of the layer above it.
[[noreturn]] void nimbrel::ShutDownProgram() { std::_Exit(EXIT_FAILURE); }

namespace {

using nimbrel::TurnDirection;

constexpr int kFrameRounds = 200;
constexpr int kTurnRounds = 20;
constexpr int kManyTurns = 1000;
constexpr double kMostFrame = 6.0;  // milliseconds
constexpr double kMostFrameRatio = 1.5;
constexpr double kMostTurnRatio = 1.10;
constexpr double kWaits = 5 * 25.0;  // milliseconds
constexpr std::array<int, 4> kSlots{5, 10, 15, 0};

QImage MakePicture(int group) {
  QImage picture(400, 300, QImage::Format_RGB32);
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      picture.setPixel(x, y, qRgb((x * 7 + group * 50) & 255, (y * 5) & 255, (x * y / 16) & 255));
    }
  }
  return picture;
}

std::vector<QImage> FillCatalogue(const std::filesystem::path& folder) {
  std::vector<QImage> pictures;
  for (const auto& [family, groups] : {std::pair{nimbrel::kCloud, 4}, {nimbrel::kWater, 3}}) {
    auto& table = nimbrel::Catalogue.Tables[static_cast<std::size_t>(family)];
    table.Create(static_cast<std::size_t>(groups), 0);
    for (int group = 0; group < groups; ++group) {
      const auto file = folder / ("picture" + std::to_string(group) + ".bmp");
      MakePicture(group).save(QString::fromStdString(file.string()));
      toolkit::GdipLoadImageFromFile(file.string(),
                                     table.Cell(static_cast<std::int16_t>(group), 0)->Preview);
      pictures.emplace_back(QString::fromStdString(file.string()));
    }
  }
  pictures.resize(4);
  return pictures;
}

void DrawOurFrame(nimbrel::RingPage& page) {
  for (std::int16_t group = 0; group < 4; ++group) {
    nimbrel::DrawRingPicture(page, kSlots[static_cast<std::size_t>(group)], {group, 0});
  }
}

void DrawBareFrame(QImage& surface, const std::vector<QImage>& pictures) {
  QPainter painter(&surface);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  for (std::size_t group = 0; group < pictures.size(); ++group) {
    const auto& slot = nimbrel::CloudOrbit[static_cast<std::size_t>(kSlots[group])];
    painter.drawImage(QRect(slot.left, slot.top, slot.width, slot.height), pictures[group]);
  }
}

bool FramesHold(nimbrel::RingPage& page, const std::vector<QImage>& pictures) {
  QImage surface(596, 450, QImage::Format_RGB32);
  std::vector<double> ours;
  std::vector<double> bare;
  for (int round = 0; round < kFrameRounds; ++round) {
    ours.push_back(bench::Milliseconds([&page] { DrawOurFrame(page); }));
    bare.push_back(bench::Milliseconds([&] { DrawBareFrame(surface, pictures); }));
  }
  const double frame = bench::Median(ours);
  const bool quick = bench::Report({"A cloud ring frame", frame, kMostFrame, "allowed", 1});
  return bench::Report({"A cloud ring frame", frame, bench::Median(bare),
                        "for the same four scaled draws", kMostFrameRatio}) &&
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
  return bench::Report({figure, bench::Median(turns), kWaits, "of waits in it", kMostTurnRatio});
}

bool NothingStays(int turns) {
  nimbrel::TurnCloudRing(TurnDirection::kClockwise);
  const std::size_t held = mallinfo2().uordblks;
  const long opened = opened_files;
  for (int turn = 0; turn < turns; ++turn) {
    nimbrel::TurnCloudRing(turn % 2 == 0 ? TurnDirection::kClockwise
                                         : TurnDirection::kCounterclockwise);
  }
  const auto grown = static_cast<long>(mallinfo2().uordblks) - static_cast<long>(held);
  std::fprintf(stderr, "%d turns: %ld files opened, %ld bytes more held\n", turns,
               opened_files - opened, grown);
  return opened_files == opened && grown < 64L * 1024;
}

bool RingsHold(int turns) {
  const bench::WorkFolder folder;
  const std::vector<QImage> pictures = FillCatalogue(folder.path());
  nimbrel::DispatchClick = nimbrel::RunClick;
  nimbrel::RefreshMainPage();
  nimbrel::MainForm().form.Show();
  nimbrel::ShowPage(nimbrel::WaterPage().form);
  nimbrel::DrawWaterPage();
  const bool water = TurnsHold("A turn of the water ring", "frm_Water", nimbrel::WaterFrontGroup);
  nimbrel::RingPage& page = nimbrel::CloudPage();
  nimbrel::ShowPage(page.form);
  nimbrel::DrawCloudPage();
  const bool counts = opened_files > 0;  // else the count of turns would prove nothing
  const bool frames = FramesHold(page, pictures);
  const bool cloud = TurnsHold("A turn of the cloud ring", "frm_3d", nimbrel::CloudFrontGroup);
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
