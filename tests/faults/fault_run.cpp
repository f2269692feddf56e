/// The fault harness. It runs the program's own code on a small simulator, pressing its buttons,
/// and strikes at every call that touches a file:
///
///   test_faults [--kill N] [--fail N] [SCENARIO...]
///
/// ends the process at every N-th file-changing call, then again half-way through every N-th
/// writing one, and makes every N-th call fail, once and from there on; 0 leaves a part out.
/// Without arguments it is all scenarios, N = 1. What must hold:
///
///  - Killed: every file of simulator and program is whole, the old or the new one, and none is
///    lost. Nothing but the program's own temporary names is left over.
///  - Failing: the same, no crash, an end within a minute, and when the simulator did not get all
///    of an install, a message of kind "Exclamation" that counts the files, or "Error".
///  - After both: the next start works, doing the same once more brings what an undisturbed run
///    brings, without a complaint, and no temporary file survives it.
///
/// It can't see what a loss of power would show: a left-out flush changes nothing for a killed
/// process.

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QFontMetrics>
#include <QTimer>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <set>
#include <vector>

#include "FaultWorld.h"
#include "Faults.h"
#include "history/frm_AddFavorite.h"
#include "history/frm_Favorite.h"
#include "platform/forms.h"
#include "platform/random.h"
#include "platform/system.h"
#include "randomizer/frm_RandomizerConstraints.h"
#include "settings/Selection.h"
#include "settings/SettingsRecord.h"
#include "settings/mod_Main.h"
#include "shell/MainSwitches.h"
#include "shell/ShellWorld.h"
#include "shell/frm_Main.h"

namespace fs = std::filesystem;
using faults::Deed;
using namespace nimbrel;

namespace {

// ---- What the user does. False: the program showed nothing to do it with.

bool Install() {
  for (auto& family : CurrentSelection) {
    family.fill(1);
  }
  Switches().chk_Sun.SetValue(1);
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
  platform::ComboBox& history = MainForm().combo_History;
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

struct Scenario {
  const char* name;
  bool (*act)();
  std::size_t changes;  ///< files that an undisturbed run leaves changed
  bool installs;
  bool from_start;  ///< calls count from the program's start, not from the user's first press
};
constexpr Scenario kScenarios[] = {
    {"install", Install, 18, true, true},
    {"randomize", Randomize, 19, true, false},
    {"history", LoadOldestAndInstall, 19, true, false},
    {"favorite_new", [] { return SaveFavoriteAs("New"); }, 1, false, false},
    {"favorite_over", [] { return SaveFavoriteAs("Taken"); }, 1, false, false},
    {"favorite_delete", DeleteFavorites, 1, false, false},
    {"exit", Exit, 1, false, false},
};

// ---- One run in a process of its own.

struct Shared {
  faults::Seen seen;
  char kinds[64];  ///< first letters of the kinds of sound that the messages made
  char last_text[1000];
};
Shared* g_shared = nullptr;
fs::path g_base;

fs::path Simulator() { return g_base / "sim"; }

void HearSound(std::string_view alias) {
  const std::size_t length = std::strlen(g_shared->kinds);
  if (length + 1 < sizeof g_shared->kinds) {
    g_shared->kinds[length] = alias.substr(std::strlen("System")).front();
  }
}
bool WasShown(char kind) { return std::strchr(g_shared->kinds, kind) != nullptr; }
constexpr char kExclamation = 'E';
constexpr char kError = 'A';  // its sound is SystemAsterisk

std::uint64_t NextSeed() {
  static std::uint64_t seed = 0;
  return ++seed;
}

[[noreturn]] void PlayScenario(const Scenario& scenario, const faults::Plan& plan) {
  constexpr unsigned kMostSeconds = 60;
  alarm(kMostSeconds);
  const int log = ::open((g_base / "log").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  dup2(log, STDERR_FILENO);
  dup2(log, STDOUT_FILENO);
  platform::SetApplicationFolder((Simulator() / kProgramFolder).string());
  platform::SetClock([] { return 39087.5; });
  platform::SetSeedSource(NextSeed);
  platform::SetSoundListener(HearSound);
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
    answers.texts.back().copy(g_shared->last_text, sizeof g_shared->last_text - 1);
  }
  _exit(done ? 0 : 3);
}

int Run(const Scenario& scenario, const faults::Plan& plan) {
  *g_shared = {};
  std::cout.flush();
  const pid_t child = fork();
  if (child == 0) {
    PlayScenario(scenario, plan);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

// ---- What must hold afterwards.

int g_faults_found = 0;

void Complain(const std::string& what) {
  constexpr int kMostShown = 30;
  if (++g_faults_found <= kMostShown) {
    std::cout << "  WRONG: " << what << "\n    struck: " << g_shared->seen.struck
              << "\n    messages: " << g_shared->kinds << ' ' << g_shared->last_text << '\n';
  }
}

class Checker {
 public:
  Checker(const Scenario& scenario, Tree old_tree);

  void Restore() const;
  void AfterKill(int status) const;
  void AfterFailure(int status, bool deletes_may_fail) const;
  /// Once more, undisturbed.
  void AfterRepair() const;

 private:
  bool IsKnown(const std::string& path, const std::string& bytes) const;
  void EverythingWhole(const Tree& tree, bool temporaries) const;
  void UserWasTold(const Tree& tree) const;

  const Scenario& scenario_;
  Tree old_;
  Tree new_;
};

bool IsTemporary(const std::string& path) { return path.find("~nimbrel-") != std::string::npos; }
bool IsProgram(const std::string& path) { return path.starts_with(kProgramFolder); }

/// The flags are written key by key, and one that can't be is skipped. Each is one digit.
bool IsMixture(const std::string& bytes, const std::string& a, const std::string& b) {
  std::size_t i = 0;
  while (i < std::min({bytes.size(), a.size(), b.size()}) &&
         (bytes[i] == a[i] || bytes[i] == b[i])) {
    ++i;
  }
  return i == bytes.size() && i == a.size() && i == b.size();
}

Checker::Checker(const Scenario& scenario, Tree old_tree)
    : scenario_(scenario), old_(std::move(old_tree)) {
  Restore();
  const int status = Run(scenario, {});
  new_ = ReadTree(Simulator());
  std::size_t changes = 0;
  bool left_over = false;
  for (const auto& [path, bytes] : new_) {
    left_over = left_over || (scenario.installs && IsTemporary(path));
    changes += old_.contains(path) && old_.at(path) == bytes ? 0U : 1U;
  }
  for (const auto& [path, bytes] : old_) {
    changes += new_.contains(path) || IsTemporary(path) ? 0U : 1U;
  }
  if (!WIFEXITED(status) || changes != scenario.changes || left_over || WasShown(kError) ||
      WasShown(kExclamation)) {
    Complain("the undisturbed run changed " + std::to_string(changes) + " files");
  }
}

void Checker::Restore() const {
  fs::remove_all(Simulator());
  fs::copy(g_base / "old", Simulator(), fs::copy_options::recursive);
  // Files as young as the clock's tick would be read again and again, more often on a quick machine
  // than on a slow one, and the points would not be the same.
  constexpr useconds_t kSettles = 100'000;
  usleep(kSettles);
}

bool Checker::IsKnown(const std::string& path, const std::string& bytes) const {
  const auto was = old_.find(path);
  const auto is = new_.find(path);
  if ((was != old_.end() && was->second == bytes) || (is != new_.end() && is->second == bytes)) {
    return true;
  }
  if (path == kInformation) {
    return IsMixture(bytes, was->second, is->second);
  }
  // What the composer makes, of the length that it says: the sheets, gone at the end of a whole
  // run, and a texture without an input that the system would not read, which goes nowhere then.
  std::uint32_t length = 0;
  const bool composed = path.find("/TEMPBITMAPS/") != std::string::npos && bytes.size() > 6;
  return composed && (std::memcpy(&length, bytes.data() + 2, 4), length == bytes.size());
}

void Checker::EverythingWhole(const Tree& tree, bool temporaries) const {
  for (const auto& [path, bytes] : tree) {
    if (IsTemporary(path) ? !temporaries && !old_.contains(path) : !IsKnown(path, bytes)) {
      Complain("torn or strange: " + path + " of " + std::to_string(bytes.size()) + " bytes");
    }
  }
  for (const auto& [path, bytes] : old_) {
    if (!tree.contains(path) && new_.contains(path)) {
      Complain("lost: " + path);
    }
  }
}

void Checker::AfterKill(int status) const {
  if (!WIFSIGNALED(status) || WTERMSIG(status) != SIGKILL) {
    Complain("not killed, status " + std::to_string(status));
  }
  EverythingWhole(ReadTree(Simulator()), true);
}

/// The history tells whether the install began. One that did not begin has changed nothing, and
/// leaves the button as it was.
void Checker::UserWasTold(const Tree& tree) const {
  const std::string history(kHistory);
  const auto behind = std::count_if(new_.begin(), new_.end(), [&tree](const auto& file) {
    return !IsProgram(file.first) &&
           (!tree.contains(file.first) || tree.at(file.first) != file.second);
  });
  if (!scenario_.installs || WasShown(kError) || tree.at(history) == old_.at(history)) {
    return;
  }
  const std::string text = g_shared->last_text;
  const long told = !WasShown(kExclamation)    ? 0
                    : text.starts_with("One ") ? 1
                                               : std::strtol(text.c_str(), nullptr, 10);
  // A folder that could not be read to its end counts as one, whatever it holds.
  const bool names_folder = text.find("\\ could") != std::string::npos;
  if ((told == 0 && behind > 0) || (told > behind && !names_folder)) {
    Complain(std::to_string(behind) + " files not in place, " + std::to_string(told) + " told");
  }
}

void Checker::AfterFailure(int status, bool deletes_may_fail) const {
  const Tree tree = ReadTree(Simulator());
  EverythingWhole(tree, deletes_may_fail);
  if (!WIFEXITED(status)) {
    Complain("ended by signal " + std::to_string(WTERMSIG(status)));
    std::cout << ReadText(g_base / "log");
  } else if (WEXITSTATUS(status) == 1 && !WasShown(kError)) {
    Complain("a start that failed in silence");
  } else {
    UserWasTold(tree);
  }
}

void Checker::AfterRepair() const {
  char struck[sizeof g_shared->seen.struck];
  std::memcpy(struck, g_shared->seen.struck, sizeof struck);
  const int status = Run(scenario_, {});
  std::memcpy(g_shared->seen.struck, struck, sizeof struck);
  Tree tree = ReadTree(Simulator());
  const std::string history(kHistory);
  const std::string entries = tree[history];
  if (!entries.starts_with(old_.at(history)) || entries.size() % kRecordBytes != 0 ||
      entries.size() > old_.at(history).size() + 2 * kRecordBytes) {
    Complain("the history lost entries");
  }
  tree[history] = new_.at(history);
  if (!WIFEXITED(status) || WasShown(kError) || WasShown(kExclamation)) {
    Complain("the next run ended with status " + std::to_string(status));
  }
  for (const auto& [path, bytes] : new_) {
    if (!tree.contains(path) || tree.at(path) != bytes) {
      Complain("not repaired: " + path);
    }
  }
  for (const auto& [path, bytes] : tree) {
    if (!new_.contains(path)) {
      Complain("left over: " + path);
    }
  }
}

// ---- Every point of a scenario.

struct Failure {
  const char* name;
  int error;
  unsigned calls;  ///< that can come to it
};
constexpr Failure kFailures[] = {
    {"no space", ENOSPC, faults::kChanges & ~(faults::kDelete | faults::kMode)},
    {"no permission", EACCES,
     faults::kOpenNew | faults::kMakeFolder | faults::kRename | faults::kDelete | faults::kMode},
    {"input/output error", EIO, faults::kChanges | faults::kOpenOld | faults::kRead},
    {"too many open files", EMFILE, faults::kOpenNew | faults::kOpenOld},
};

/// Strikes at every `stride`-th point, and says how many of them there are.
template <typename Check>
void StrikeAll(const Checker& checker, const Scenario& scenario, const char* what,
               faults::Plan plan, long stride, Check check) {
  if (stride <= 0) {
    return;
  }
  checker.Restore();
  Run(scenario, plan);
  const long calls = g_shared->seen.calls;
  long points = 0;
  for (plan.strike = 1 + (std::min(stride, calls) - 1) / 2; plan.strike <= calls;
       plan.strike += stride) {
    checker.Restore();
    check(Run(scenario, plan));
    checker.AfterRepair();
    ++points;
  }
  std::cout << scenario.name << ": " << what << ": " << points << " of " << calls << " points"
            << std::endl;
}

void Harass(const Scenario& scenario, const Tree& old_tree, long kill, long fail) {
  const Checker checker(scenario, old_tree);
  const auto killed = [&](int status) { checker.AfterKill(status); };
  StrikeAll(checker, scenario, "killed", {.calls = faults::kChanges}, kill, killed);
  StrikeAll(checker, scenario, "killed half-way",
            {.calls = faults::kSpends, .deed = Deed::kKillHalfWay}, kill, killed);
  for (const Failure& failure : kFailures) {
    const auto failed = [&](int status) {
      checker.AfterFailure(status, (failure.calls & faults::kDelete) != 0);
    };
    faults::Plan plan{.calls = failure.calls, .deed = Deed::kFail, .error = failure.error};
    StrikeAll(checker, scenario, failure.name, plan, fail, failed);
    plan.deed = Deed::kFailFromThere;
    StrikeAll(checker, scenario, (std::string(failure.name) + " from there on").c_str(), plan, fail,
              failed);
  }
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  long kill = 1;
  long fail = 1;
  std::set<std::string> names;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if ((argument == "--kill" || argument == "--fail") && i + 1 < argc) {
      (argument == "--kill" ? kill : fail) = std::strtol(argv[++i], nullptr, 10);
    } else {
      names.insert(argument);
    }
  }
  const TempFolder base;
  g_base = base.path();
  g_shared = static_cast<Shared*>(
      mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
  MakeOldSimulator(g_base / "old");
  // Made once: each run is a copy of this process, which itself runs no events and has one thread.
  const platform::Application application(argc, argv);
  QFontMetrics(QFont("Verdana")).horizontalAdvance('x');
  const Tree old_tree = ReadTree(g_base / "old");
  for (const Scenario& scenario : kScenarios) {
    if (names.empty() || names.contains(scenario.name)) {
      Harass(scenario, old_tree, kill, fail);
    }
  }
  std::cout << (g_faults_found == 0 ? "All well." : "WRONG: " + std::to_string(g_faults_found))
            << '\n';
  return g_faults_found == 0 ? 0 : 1;
}
