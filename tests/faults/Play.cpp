#include "Play.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTimer>
#include <cstring>
#include <iostream>
#include <sstream>

#include "FaultWorld.h"
#include "app/mod_Main.h"
#include "setup/Command.h"
#include "shell/ShellWorld.h"
#include "shell/State.h"
#include "shell/dialogs/frm_AddFavorite.h"
#include "shell/pages/ConstraintPage.h"
#include "shell/pages/frm_Favorite.h"
#include "shell/pages/frm_Main.h"

namespace fs = std::filesystem;
using namespace nimbrel;

Shared* g_shared = nullptr;
fs::path g_base;

namespace {

bool InstallOption(std::int16_t option, bool sun) {
  ui.CurrentSelection.values.fill(option);
  Set(Loaded(ui.forms.main).chk_Sun, sun);
  Set(Loaded(ui.forms.main).chk_Contrails, true);
  Press("frm_Main", "btn_Install");
  return true;
}

void ForbidFirstOptions() {
  for (const auto& list : Loaded(ui.forms.constraints[Family::kCloud], Family::kCloud).lists) {
    list->list.SetSelected(0, false);
  }
}

bool Randomize() {
  Press("frm_Main", "btn_Randomizer");
  ForbidFirstOptions();
  Press("frm_RandomizerOverview", "btn_Randomize");
  return true;
}

bool LoadOldestAndInstall() {
  toolkit::ComboBox& history = Loaded(ui.forms.main).combo_History;
  if (history.ListCount() == 0) {
    return false;
  }
  history.SetListIndex(history.ListCount() - 1);
  Press("frm_Main", "btn_History");
  Press("frm_Main", "btn_Install");
  return true;
}

bool SaveFavoriteAs(const char* title) {
  PressAndThen("frm_Main", "btn_AddFavorite", [title] {
    frm_AddFavorite& dialog = Loaded(ui.forms.add_favorite);
    dialog.txt_Title.SetText(title);
    Press("frm_AddFavorite", "btn_Continue");
    if (dialog.form.Visible()) {
      Press("frm_AddFavorite", "btn_Cancel");
    }
  });
  return true;
}

bool DeleteFavorites() {
  Press("frm_Main", "btn_Favorites");
  Press("frm_Favorite", "btn_Delete");
  return true;
}

bool Exit() {
  ForbidFirstOptions();
  Set(Loaded(ui.forms.main).chk_DXT, true);
  Set(Loaded(ui.forms.main).chk_Fast, false);
  Press("frm_Main", "btn_Exit");
  return false;
}

constexpr unsigned kMaxSeconds = 60;

std::string g_copied;  ///< the world that copies were made of
int g_place = 0;       ///< which of them is the simulator of the run

/// Which kind a message is of, by its first letter.
char KindOf(const std::string& text) {
  const auto says = [&text](const char* part) { return text.find(part) != std::string::npos; };
  if (says("could not be put into Flight Simulator")) {
    return kExclamation;
  }
  const bool calm = says("Do you wish to continue?") || says("have been ") || says("has been ");
  return calm ? 'I' : kError;
}

void Tell(const std::string& text) {
  std::memset(g_shared->last_text, 0, sizeof g_shared->last_text);
  text.copy(g_shared->last_text, sizeof g_shared->last_text - 1);
}

/// Keeps a message where the parent process finds it, whatever happens next.
void Hear(const std::string& text) {
  const std::size_t length = std::strlen(g_shared->kinds);
  if (length + 1 < sizeof g_shared->kinds) {
    g_shared->kinds[length] = KindOf(text);
  }
  Tell(text);
}

/// Repeatable numbers, so that each run draws the same.
RandomSource Repeatable() {
  return [seed = std::uint64_t{0}]() mutable { return RandomNumber(++seed); };
}

fs::path Program() {
  const fs::path used = Simulator() / kProgramFolder;
  return fs::exists(used) ? used : Simulator() / kSetUpFolder;
}

[[noreturn]] void PlayProgram(const Scenario& scenario, const faults::Plan& plan) {
  ui.Now = [] { return 39087.5; };
  ui.random = Repeatable();
  Answers answers;
  answers.on_text = Hear;
  const auto arm = [&] { faults::Arm(Simulator().string(), plan, &g_shared->seen); };
  if (scenario.from_start) {
    arm();
  }
  ui.folders = FoldersOf(Program().string());
  StartProgram();
  arm();
  const bool done = scenario.act();
  faults::Disarm();
  _exit(done ? 0 : 3);
}

/// The pack that it puts in stands beside the simulator, and is struck at too.
[[noreturn]] void PlaySetup(const Scenario& scenario, const faults::Plan& plan) {
  const SetupSources sources{(g_base / "from/nimbrel").string(), (g_base / "from/pack").string()};
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  faults::Arm(g_base.string(), plan, &g_shared->seen);
  const int status =
      RunCommand({scenario.task, "--yes", Simulator().string()}, sources, {in, out, err});
  faults::Disarm();
  Tell(err.str());
  _exit(status);
}

/// Simulator with Nimbrel, changed by two installs, by the user, and by runs that were killed.
void UseWhatWasSetUp() {
  const Scenario steps[] = {
      {"", kBare, nullptr, 0, false, false, kPutsIn},
      {"", kBare, [] { return InstallOption(2, false); }, 0, true, false},
      {"", kBare, [] { return InstallOption(1, true); }, 0, true, false},
  };
  for (const Scenario& step : steps) {
    if (Run(step, {}) != 0) {
      std::cout << "WRONG: the worlds could not be made: " << g_shared->last_text << '\n';
      _exit(1);
    }
  }
  ChangeByHand(Simulator());
}

}  // namespace

const Scenario kAllScenarios[kScenarios] = {
    {"install", kUsed, [] { return InstallOption(1, true); }, 18, true, true},
    {"randomize", kUsed, Randomize, 20, true, false},
    {"history", kUsed, LoadOldestAndInstall, 19, true, false},
    {"favorite_new", kUsed, [] { return SaveFavoriteAs("New"); }, 1, false, false},
    {"favorite_over", kUsed, [] { return SaveFavoriteAs("Taken"); }, 1, false, false},
    {"favorite_delete", kUsed, DeleteFavorites, 1, false, false},
    {"exit", kUsed, Exit, 1, false, false},
    {"setup", kBare, nullptr, 111, false, true, kPutsIn},
    {"setup_again", kExtended, nullptr, 3, false, true, kPutsIn},
    {"restore", kInstalled, nullptr, 17, false, true, "restore"},
    {"remove", kInstalled, nullptr, 131, false, true, "remove"},
};

bool WasShown(char kind) { return std::strchr(g_shared->kinds, kind) != nullptr; }

fs::path Simulator() { return g_base / "sim" / std::to_string(g_place); }

int Run(const Scenario& scenario, const faults::Plan& plan) {
  *g_shared = {};
  std::cout.flush();
  const pid_t child = fork();
  if (child == 0) {
    alarm(kMaxSeconds);
    const int log = ::open((g_base / "log").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(log, STDERR_FILENO);
    dup2(log, STDOUT_FILENO);
    scenario.task == nullptr ? PlayProgram(scenario, plan) : PlaySetup(scenario, plan);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

void PutWorld(const char* world) {
  constexpr int kCopies = 16;
  fs::remove_all(Simulator());
  if (world == g_copied && ++g_place < kCopies) {
    return;
  }
  g_copied = world;
  fs::remove_all(Simulator().parent_path());
  fs::create_directory(Simulator().parent_path());
  for (g_place = kCopies - 1; g_place >= 0; --g_place) {
    fs::copy(g_base / world, Simulator(), fs::copy_options::recursive);
  }
  g_place = 0;
  // Files as young as the clock's tick would be read again and again, more often on a quick machine
  // than on a slow one, and the points would not be the same.
  constexpr useconds_t kSettles = 100'000;
  usleep(kSettles);
}

void MakeWorlds() {
  MakeOldSimulator(g_base / kUsed);
  MakeBareSimulator(g_base / kBare, g_base / "from");
  PutWorld(kBare);
  UseWhatWasSetUp();
  fs::copy(Simulator(), g_base / kInstalled, fs::copy_options::recursive);
  AddSet(Simulator());
  fs::rename(Simulator(), g_base / kExtended);
}
