/// The fault harness. It runs the program's own code on a small simulator, pressing its buttons,
/// and that of nimbrelctl, and strikes at every call that touches a file:
///
///   test_faults [--kill N] [--fail N] [SCENARIO...]
///
/// ends the process at every N-th file-changing call, then again half-way through every N-th
/// writing one, and makes every N-th call fail: once, from there on, and with all calls on its
/// path; 0 leaves a part out. Without arguments it is all scenarios, N = 1. What must hold:
///
///  - Killed: every file of simulator and program is whole, the old or the new one, and none is
///    lost. Nothing but the program's own temporary names is left over.
///  - Failing: the same, no crash, an end within a minute, and when the simulator did not get all
///    of an install, a message of kind "Exclamation" that counts the files, or "Error".
///  - nimbrelctl besides: it says that it is done only when it is, and why not when it fails.
///    The originals are in the store as long as the program stands there or anything is not as it
///    was. A restore gives back the simulator's names and bytes, a removal leaves nothing else.
///  - After both: the next start works, doing the same once more brings what an undisturbed run
///    brings, without a complaint, and no temporary file survives it.
///
/// It can't see what a loss of power would show: a left-out flush changes nothing for a killed
/// process.

#include <sys/mman.h>

#include <QFontMetrics>
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <set>
#include <string>

#include "Checker.h"
#include "Faults.h"
#include "Play.h"
#include "support/TempFolder.h"
#include "toolkit/forms.h"

using faults::Deed;

namespace {

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

void Harass(const Scenario& scenario, long kill, long fail) {
  const Checker checker(scenario);
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
    constexpr long kCallsAtPlace = 10;  // about
    plan.deed = Deed::kFailAtPlace;
    StrikeAll(checker, scenario, (std::string(failure.name) + " at one place").c_str(), plan,
              (fail + kCallsAtPlace - 1) / kCallsAtPlace, failed);
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
  // Made once: each run is a copy of this process, which itself runs no events and has one thread.
  const toolkit::Application application(argc, argv);
  QFontMetrics(QFont("Verdana")).horizontalAdvance('x');
  MakeWorlds();
  for (const Scenario& scenario : kAllScenarios) {
    if (names.empty() || names.contains(scenario.name)) {
      Harass(scenario, kill, fail);
    }
  }
  std::cout << (FaultsFound() == 0 ? "All well." : "WRONG: " + std::to_string(FaultsFound()))
            << '\n';
  return FaultsFound() == 0 ? 0 : 1;
}
