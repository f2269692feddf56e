#include "Checker.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "platform/text.h"
#include "settings/SettingsRecord.h"
#include "support/TempFolder.h"

using namespace nimbrel;

namespace {

int g_faults_found = 0;

void Complain(const std::string& what) {
  constexpr int kMaxShown = 30;
  if (++g_faults_found <= kMaxShown) {
    std::cout << "  WRONG: " << what << "\n    struck: " << g_shared->seen.struck
              << "\n    messages: " << g_shared->kinds << ' ' << g_shared->last_text << '\n';
  }
}

bool IsTemporary(const std::string& path) { return path.find("~nimbrel-") != std::string::npos; }
bool IsProgram(const std::string& path) {
  return path.starts_with(kProgramFolder) || path.starts_with(kModules);
}
bool Holds(const Tree& tree, const std::string& path, const std::string& bytes) {
  const auto found = tree.find(path);
  return found != tree.end() && found->second == bytes;
}

/// The flags are written key by key, and one that can't be is skipped. Each is one digit.
bool IsMixture(const std::string& bytes, const std::string& a, const std::string& b) {
  std::size_t i = 0;
  while (i < std::min({bytes.size(), a.size(), b.size()}) &&
         (bytes[i] == a[i] || bytes[i] == b[i])) {
    ++i;
  }
  return i == bytes.size() && i == a.size() && i == b.size();
}

Tree OutsideModules(Tree tree) {
  std::erase_if(tree, [](const auto& file) { return file.first.starts_with(kModules); });
  return tree;
}

/// The first path that only one of them has, or that they have differently; empty for none.
std::string Difference(const Tree& tree, const Tree& wanted) {
  for (const auto& [path, bytes] : wanted) {
    if (!Holds(tree, path, bytes)) {
      return "not there: " + path;
    }
  }
  for (const auto& [path, bytes] : tree) {
    if (!wanted.contains(path)) {
      return "left over: " + path;
    }
  }
  return {};
}

}  // namespace

int FaultsFound() { return g_faults_found; }

Checker::Checker(const Scenario& scenario) : scenario_(scenario), origin_(Files(g_base / kBare)) {
  Restore();
  old_ = Files(Simulator());
  const int status = Run(scenario, {});
  new_ = Files(Simulator());
  std::size_t changes = 0;
  bool left_over = false;
  for (const auto& [path, bytes] : new_) {
    left_over = left_over || (scenario.installs && IsTemporary(path));
    changes += Holds(old_, path, bytes) ? 0U : 1U;
  }
  for (const auto& [path, bytes] : old_) {
    changes += new_.contains(path) || IsTemporary(path) ? 0U : 1U;
  }
  if (!WIFEXITED(status) || changes != scenario.changes || left_over || WasShown(kError) ||
      WasShown(kExclamation)) {
    Complain("the undisturbed run changed " + std::to_string(changes) + " files");
  }
  if (scenario.task != nullptr) {
    ExpectOriginals();
  }
}

/// A restore and a removal undo every install, and a setup changes nothing of the simulator.
void Checker::ExpectOriginals() {
  const std::string_view task = scenario_.task;
  const Tree& wanted = task == kPutsIn ? old_ : origin_;
  const std::string difference = task == "remove"
                                     ? Difference(new_, wanted)
                                     : Difference(OutsideModules(new_), OutsideModules(wanted));
  if (!difference.empty()) {
    Complain("the undisturbed run left the simulator changed, " + difference);
  }
  const Tree& keeping = old_.contains(kProgramSetUp) ? old_ : new_;
  for (const auto& [path, bytes] : keeping) {
    if (path.starts_with(kStore) && !IsTemporary(path)) {
      store_.insert(path);
    }
    // Whole it is anyway; it must not change into another whole one either.
    if (path.starts_with(kStored) && new_.contains(path) && new_.at(path) != bytes) {
      Complain("the undisturbed run replaced " + path);
    }
  }
}

bool Checker::IsKnown(const std::string& path, const std::string& bytes) const {
  if (Holds(old_, path, bytes) || Holds(new_, path, bytes)) {
    return true;
  }
  // A restore gives the content back first and then the letter case of the name.
  if (old_.contains(path) && std::any_of(new_.begin(), new_.end(), [&](const auto& file) {
        return file.second == bytes && platform::SameName(file.first, path);
      })) {
    return true;
  }
  if (path == kInformation) {
    return IsMixture(bytes, old_.at(path), new_.at(path));
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
  OriginalsAreKept(tree);
}

/// While the program stands there, an install may begin, and while anything is not as it was, a
/// restore may be wanted.
void Checker::OriginalsAreKept(const Tree& tree) const {
  const bool needed = tree.contains(kProgramSetUp) ||
                      std::any_of(origin_.begin(), origin_.end(), [&tree](const auto& file) {
                        return !Holds(tree, file.first, file.second);
                      });
  for (const std::string& path : store_) {
    if (needed && !tree.contains(path)) {
      Complain("gone from the store: " + path);
    }
  }
}

void Checker::AfterKill(int status) const {
  if (!WIFSIGNALED(status) || WTERMSIG(status) != SIGKILL) {
    Complain("not killed, status " + std::to_string(status));
  }
  EverythingWhole(Files(Simulator()), true);
}

/// The history tells whether the install began. One that did not begin has changed nothing, and
/// leaves the button as it was.
void Checker::UserWasTold(const Tree& tree) const {
  const std::string history(kHistory);
  const auto behind = std::count_if(new_.begin(), new_.end(), [&tree](const auto& file) {
    return !IsProgram(file.first) && !Holds(tree, file.first, file.second);
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

void Checker::SetupWasHonest(int status, const Tree& tree) const {
  const std::string difference = Difference(tree, new_);
  if (status == 0 && !difference.empty()) {
    Complain("it said that it was done, " + difference);
  } else if (status != 0 && *g_shared->last_text == 0) {
    Complain("it failed in silence");
  }
}

void Checker::AfterFailure(int status, bool deletes_may_fail) const {
  const Tree tree = Files(Simulator());
  EverythingWhole(tree, deletes_may_fail);
  if (!WIFEXITED(status)) {
    Complain("ended by signal " + std::to_string(WTERMSIG(status)));
    std::cout << ReadText(g_base / "log");
  } else if (scenario_.task != nullptr) {
    SetupWasHonest(WEXITSTATUS(status), tree);
  } else if (WEXITSTATUS(status) == 1 && !WasShown(kError)) {
    Complain("a start that failed in silence");
  } else {
    UserWasTold(tree);
  }
}

/// What the struck run entered may stand there beside what this one does.
void Checker::HistoryWasKept(Tree& tree) const {
  const std::string history(kHistory);
  const std::string entries = tree[history];
  if (!entries.starts_with(old_.at(history)) || entries.size() % kRecordBytes != 0 ||
      entries.size() > old_.at(history).size() + 2 * kRecordBytes) {
    Complain("the history lost entries");
  }
  tree[history] = new_.at(history);
}

void Checker::AfterRepair() const {
  char struck[sizeof g_shared->seen.struck];
  std::memcpy(struck, g_shared->seen.struck, sizeof struck);
  const int status = Run(scenario_, {});
  std::memcpy(g_shared->seen.struck, struck, sizeof struck);
  Tree tree = Files(Simulator());
  const bool sets_up = scenario_.task != nullptr;
  if (!sets_up) {
    HistoryWasKept(tree);
  }
  if (!WIFEXITED(status) || WasShown(kError) || WasShown(kExclamation) ||
      (sets_up && WEXITSTATUS(status) != 0)) {
    Complain("the next run ended with status " + std::to_string(status));
  }
  const std::string difference = Difference(tree, new_);
  if (!difference.empty()) {
    Complain("not repaired, " + difference);
  }
  const std::string program = (Simulator() / kProgramSetUp).string();
  if (tree.contains(kProgramSetUp) && access(program.c_str(), X_OK) != 0) {
    Complain("the program can't be started");
  }
}
