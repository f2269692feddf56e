// The program in one process for as long as a user would take years for: installs, ring turns and
// page changes by presses on its real buttons, on a screen that nobody sees and a small simulator
// of its own. Holds resident memory, open handles and the toolkit's widgets at the end of each kind
// of work against those after a tenth of it. Ends with failure when they grow.
//
// usage: soak [INSTALLS TURNS PAGES]     2000 10000 10000 unless told; at least 100 of each, or
// none
//
// A turn waits 25 ms between frames. The waits are answered here: a sleep returns at once and sets
// the process's clock forward instead, so that nothing but the waiting is left out.

#include <malloc.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

#include "figures.h"
#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/mod_Main.h"
#include "shell/frm_Main.h"
#include "shell/frm_Msg.h"
#include "support/BmpFile.h"
#include "toolkit/forms.h"

namespace {

constexpr long kSecond = 1'000'000'000;
long slept = 0;  ///< nanoseconds by which the process's clocks are ahead

}  // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's are reserved names
extern "C" int nanosleep(const timespec* wanted, timespec*) {
  slept += wanted->tv_sec * kSecond + wanted->tv_nsec;
  return 0;
}

extern "C" int clock_gettime(clockid_t clock, timespec* now) noexcept {
  const auto result = static_cast<int>(syscall(SYS_clock_gettime, clock, now));
  if (clock == CLOCK_MONOTONIC || clock == CLOCK_REALTIME) {
    const long sum = now->tv_nsec + slept;
    now->tv_sec += sum / kSecond;
    now->tv_nsec = sum % kSecond;
  }
  return result;
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace {

namespace fs = std::filesystem;

constexpr double kMaxGrowth = 1.0;  // MiB

/// The form's control of that name; the process ends when there is none.
QWidget& Find(const char* form, const char* control) {
  for (QWidget* window : QApplication::allWidgets()) {
    if (window->objectName() == QLatin1String(form)) {
      if (auto* found = window->findChild<QWidget*>(QLatin1String(control))) {
        return *found;
      }
    }
  }
  std::fprintf(stderr, "no %s on %s\n", control, form);
  std::_Exit(EXIT_FAILURE);
}

void Press(const char* form, const char* button) {
  constexpr QPoint kInside{6, 6};
  auto* const strip = Find(form, button).findChild<QWidget*>("pic_BG");
  QTest::mouseClick(strip, Qt::LeftButton, {}, kInside);
  toolkit::DoEvents();
}

/// Presses the checkmark of every message, as soon as it stands.
class Answers {
 public:
  Answers() {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
    timer_.start(0);
  }
  long count() const { return count_; }

 private:
  void Answer() {
    const nimbrel::frm_Msg& dialog = nimbrel::MessageForm();
    if (!pressing_ && dialog.form.Visible() && dialog.btn_OK.Visible()) {
      pressing_ = true;
      QTimer::singleShot(0, &timer_, [this] {
        pressing_ = false;
        ++count_;
        Press("frm_Msg", "btn_OK");
      });
    }
  }

  QTimer timer_;
  bool pressing_ = false;
  long count_ = 0;
};

/// Another option, both kinds of cloud texture, both suns, and an install of it all.
void Install(long i) {
  constexpr const char* kPages[][2] = {
      {"btn_3d", "frm_3d"}, {"btn_Sky", "frm_Sky"}, {"btn_Water", "frm_Water"}};
  const auto& page = kPages[i % 3];
  Press("frm_Main", page[0]);
  Press(page[1], i / 6 % 2 == 0 ? "btn_Right" : "btn_Left");
  Press("frm_Main", "btn_Home");
  constexpr const char* kChecks[] = {"lbl_Check_DXT", "lbl_Check_Sun", "lbl_Check_Contrails"};
  QTest::mouseClick(&Find("frm_Main", kChecks[i % 3]), Qt::LeftButton, {}, {3, 3});
  const Answers answers;
  Press("frm_Main", "btn_Install");
  if (answers.count() == 0) {
    std::fprintf(stderr, "an install ended without its message\n");
    std::_Exit(EXIT_FAILURE);
  }
}

void Turn(long i) {
  constexpr const char* kPages[][2] = {
      {"btn_3d", "frm_3d"}, {"btn_Sky", "frm_Sky"}, {"btn_Water", "frm_Water"}};
  constexpr long kTurnsOfAPage = 20;
  const auto& page = kPages[i / kTurnsOfAPage % 3];
  if (i % kTurnsOfAPage == 0) {
    Press("frm_Main", page[0]);
  }
  Press(page[1], i % 4 == 3 ? "btn_CounterClockwise" : "btn_Clockwise");
}

void ChangePage(long i) {
  constexpr const char* kButtons[] = {"btn_3d",        "btn_Sky",   "btn_Home",  "btn_Randomizer",
                                      "btn_Favorites", "btn_Water", "btn_About", "btn_Home"};
  Press("frm_Main", kButtons[i % 8]);
}

struct Standing {
  double resident;  ///< MiB
  long handles;
  long widgets;
};

/// What stands once all that was given back has gone back to the system too.
Standing Measure() {
  toolkit::DoEvents();
  malloc_trim(0);
  long pages = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  const auto handles = std::distance(fs::directory_iterator("/proc/self/fd"), {});
  return {static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1U << 20U),
          static_cast<long>(handles), static_cast<long>(QApplication::allWidgets().size())};
}

/// Does the work so many times. Whether nothing has grown from its first tenth to its end.
bool Soak(const char* name, long times, void (*work)(long)) {
  if (times == 0) {
    return true;
  }
  Standing first{};
  for (long i = 0; i < times; ++i) {
    if (i == times / 10) {
      first = Measure();
    }
    work(i);
  }
  const Standing last = Measure();
  std::printf("%ld %s\tresident %.2f -> %.2f MiB\thandles %ld -> %ld\twidgets %ld -> %ld\n", times,
              name, first.resident, last.resident, first.handles, last.handles, first.widgets,
              last.widgets);
  std::fflush(stdout);
  return last.resident <= first.resident + kMaxGrowth && last.handles <= first.handles &&
         last.widgets <= first.widgets;
}

long Times(int argc, char** argv, int place, long usual) {
  return argc > place ? std::strtol(argv[place], nullptr, 10) : usual;
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const toolkit::Application application(argc, argv);
  bool flat = true;
  {
    const World world;
    world.MakeFolders();
    WritePack(world.Program(), 2);
    WriteCloudInputs(world.Program(), 2);
    world.WriteInformation(With(InformationText(2), "useLowRes=0", "useLowRes=1"));
    nimbrel::ui.folders = world.folders();
    nimbrel::StartProgram();
    toolkit::DoEvents();
    flat = Soak("page changes", Times(argc, argv, 3, 10000), ChangePage) && flat;
    flat = Soak("turns", Times(argc, argv, 2, 10000), Turn) && flat;
    flat = Soak("installs", Times(argc, argv, 1, 2000), Install) && flat;
  }
  std::printf(flat ? "flat\n" : "GROWS\n");
  std::fflush(stdout);
  // The windows stay to the end of the process, as in the program itself.
  platform::EndProcess(flat ? EXIT_SUCCESS : EXIT_FAILURE);
}
