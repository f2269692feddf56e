#include "Play.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTimer>
#include <cstring>
#include <iostream>
#include <sstream>

#include "FaultWorld.h"
#include "history/frm_AddFavorite.h"
#include "history/frm_Favorite.h"
#include "platform/random.h"
#include "platform/system.h"
#include "randomizer/frm_RandomizerConstraints.h"
#include "settings/Selection.h"
#include "settings/mod_Main.h"
#include "setup/Setup.h"
#include "shell/MainSwitches.h"
#include "shell/ShellWorld.h"
#include "shell/frm_Main.h"
#include "toolkit/desktop.h"
#include "toolkit/forms.h"

namespace fs = std::filesystem;
using namespace nimbrel;

Shared* g_shared = nullptr;
fs::path g_base;

namespace {

bool InstallOption(std::int16_t option, std::int16_t sun) {
  for (auto& family : CurrentSelection) {
    family.fill(option);
  }
  Switches().chk_Sun.SetValue(sun);
  Switches().chk_Contrails.SetValue(1);
  Press("frm_Main", "btn_Install");
  return true;
}

void ForbidFirstOptions() {
  for (const auto& list : RandomizerPage(kCloud).lists) {
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
  toolkit::ComboBox& history = MainForm().combo_History;
  if (history.ListCount() == 0) {
    return false;
  }
  history.SetListIndex(history.ListCount() - 1);
  Press("frm_Main", "btn_History");
  Press("frm_Main", "btn_Install");
  return true;
}

bool SaveFavoriteAs(const char* title) {
  QTimer::singleShot(0, [title] {
    AddFavoriteForm().txt_Title.SetText(title);
    Press("frm_AddFavorite", "btn_Continue");
    if (AddFavoriteForm().form.Visible()) {
      Press("frm_AddFavorite", "btn_Cancel");
    }
  });
  Press("frm_Main", "btn_AddFavorite");
  return true;
}

bool DeleteFavorites() {
  Press("frm_Main", "btn_Favorites");
  Press("frm_Favorite", "btn_Delete");
  return true;
}

bool Exit() {
  ForbidFirstOptions();
  Switches().chk_DXT.SetValue(1);
  Switches().chk_Fast.SetValue(0);
  Press("frm_Main", "btn_Exit");
  return false;
}

constexpr unsigned kMostSeconds = 60;

std::string g_copied;  ///< the world that copies were made of
int g_place = 0;       ///< which of them is the simulator of the run

void HearSound(std::string_view alias) {
  const std::size_t length = std::strlen(g_shared->kinds);
  if (length + 1 < sizeof g_shared->kinds) {
    g_shared->kinds[length] = alias.substr(std::strlen("System")).front();
  }
}

std::uint64_t NextSeed() {
  static std::uint64_t seed = 0;
  return ++seed;
}

void Tell(const std::string& text) {
  text.copy(g_shared->last_text, sizeof g_shared->last_text - 1);
}

fs::path Program() {
  const fs::path used = Simulator() / kProgramFolder;
  return fs::exists(used) ? used : Simulator() / kSetUpFolder;
}

[[noreturn]] void PlayProgram(const Scenario& scenario, const faults::Plan& plan) {
  platform::SetApplicationFolder(Program().string());
  platform::SetClock([] { return 39087.5; });
  platform::SetSeedSource(NextSeed);
  toolkit::SetSoundListener(HearSound);
  const Answers answers;
  const auto arm = [&] { faults::Arm(Simulator().string(), plan, &g_shared->seen); };
  if (scenario.from_start) {
    arm();
  }
  StartProgram();
  arm();
  const bool done = scenario.act();
  faults::Disarm();
  if (!answers.texts.empty()) {
    Tell(answers.texts.back());
  }
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
      RunSetup({kPutsIn, scenario.task, Simulator().string()}, sources, {in, out, err});
  faults::Disarm();
  Tell(err.str());
  _exit(status);
}

/// Simulator with Nimbrel, changed by two installs, by the user, and by runs that were killed.
void UseWhatWasSetUp() {
  const Scenario steps[] = {
      {"", kBare, nullptr, 0, false, false, kPutsIn},
      {"", kBare, [] { return InstallOption(2, 0); }, 0, true, false},
      {"", kBare, [] { return InstallOption(1, 1); }, 0, true, false},
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
    {"install", kUsed, [] { return InstallOption(1, 1); }, 18, true, true},
    {"randomize", kUsed, Randomize, 19, true, false},
    {"history", kUsed, LoadOldestAndInstall, 19, true, false},
    {"favorite_new", kUsed, [] { return SaveFavoriteAs("New"); }, 1, false, false},
    {"favorite_over", kUsed, [] { return SaveFavoriteAs("Taken"); }, 1, false, false},
    {"favorite_delete", kUsed, DeleteFavorites, 1, false, false},
    {"exit", kUsed, Exit, 1, false, false},
    {"setup", kBare, nullptr, 127, false, true, kPutsIn},
    {"setup_again", kExtended, nullptr, 3, false, true, kPutsIn},
    {"restore", kInstalled, nullptr, 17, false, true, "--restore"},
    {"remove", kInstalled, nullptr, 147, false, true, "--remove"},
};

bool WasShown(char kind) { return std::strchr(g_shared->kinds, kind) != nullptr; }

fs::path Simulator() { return g_base / "sim" / std::to_string(g_place); }

int Run(const Scenario& scenario, const faults::Plan& plan) {
  *g_shared = {};
  std::cout.flush();
  const pid_t child = fork();
  if (child == 0) {
    alarm(kMostSeconds);
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
