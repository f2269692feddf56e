#include "setup/Restoring.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "setup/Dialogue.h"
#include "setup/Disk.h"
#include "setup/Places.h"
#include "setup/Store.h"

namespace nimbrel {
namespace {

namespace fs = std::filesystem;
using platform::EntryKind;
using platform::FileStatus;

/// A listed file as it is now.
struct RestoreFacts {
  FileStatus seen = FileStatus::kOk;  ///< or why it can't be looked for
  bool exists = false;
  bool same_content = false;
  bool same_name = false;     ///< in the same letter case
  bool stored_whole = false;  ///< the store's copy is undamaged; determined only for other content
};

RestoreAction Decide(const Original& original, const RestoreFacts& facts) {
  if (original.state == OriginalState::kUnknown) {
    return RestoreAction::kLeaveUnknown;
  }
  if (facts.seen != FileStatus::kOk) {
    return RestoreAction::kCantSee;
  }
  if (original.state == OriginalState::kAbsent) {
    return facts.exists ? RestoreAction::kDelete : RestoreAction::kNone;
  }
  if (facts.same_content) {
    return facts.same_name ? RestoreAction::kNone : RestoreAction::kRename;
  }
  return facts.stored_whole ? RestoreAction::kBringBack : RestoreAction::kLeaveDamaged;
}

RestoreFacts FactsOf(const Store& store, const Original& original) {
  RestoreFacts facts;
  if (original.state == OriginalState::kUnknown) {
    return facts;
  }
  const std::string host = store.InSimulator(original.path, &facts.seen);
  if (facts.seen != FileStatus::kOk) {
    return facts;
  }
  const bool kept = original.state == OriginalState::kKept;
  facts.exists = platform::KindOf(host) != EntryKind::kNone;
  facts.same_name = fs::path(host).filename() == fs::path(original.path).filename();
  facts.same_content = kept && store.Matches(host, original);
  facts.stored_whole =
      kept && !facts.same_content && store.Matches(store.Copy(original.path), original);
  return facts;
}

FileStatus SetLetterCase(const Store& store, const std::string& path) {
  FileStatus status = FileStatus::kOk;
  const fs::path host = store.InSimulator(path, &status);
  const fs::path wanted = host.parent_path() / fs::path(path).filename();
  return status != FileStatus::kOk || host == wanted
             ? status
             : platform::RenameEntry(host.string(), wanted.string());
}

FileStatus BringBack(const Store& store, const std::string& path) {
  const FileStatus status = store.disk().files.CopyOver(store.Copy(path), store.InSimulator(path),
                                                        platform::Durability::kFlushedRename, {},
                                                        store.places().simulator);
  return status == FileStatus::kOk ? SetLetterCase(store, path) : status;
}

FileStatus Delete(const Store& store, const std::string& path) {
  return store.disk().files.DeleteFile(store.InSimulator(path));
}

/// How an action is announced and carried out.
struct RestoreRow {
  RestoreAction action;
  const char* announcement;
  FileStatus (*act)(const Store& store, const std::string& path);  ///< null: nothing to do
};
constexpr RestoreRow kRestoreRows[] = {
    {RestoreAction::kBringBack, "bring back the originals", BringBack},
    {RestoreAction::kRename, "restore the letter case of the name", SetLetterCase},
    {RestoreAction::kDelete, "delete what did not exist before Nimbrel", Delete},
    {RestoreAction::kLeaveUnknown, "leave alone what Nimbrel had replaced before the first setup",
     nullptr},
    {RestoreAction::kLeaveDamaged,
     "leave alone what has changed and whose stored original is damaged", nullptr},
};

FileStatus CheckReach(const Store& store, const std::string& host) {
  FileStatus status = FileStatus::kOk;
  return store.ReachOf(host, status) == Reach::kOutside ? FileStatus::kOutside : status;
}

FileStatus Act(const Store& store, const RestoreRow& row, const std::string& path) {
  const FileStatus status = CheckReach(store, store.InSimulator(path));
  return status == FileStatus::kOk ? row.act(store, path) : status;
}

/// Removes what killed installs left half-written beside the originals.
void SweepTemporaries(const Store& store, const Manifest& manifest,
                      std::vector<NotRestored>& failures) {
  std::map<std::string, std::string> folders;  // with a file in each
  for (const Original& original : manifest.originals) {
    const std::string host = store.InSimulator(original.path);
    folders.emplace(fs::path(host).parent_path().string(), host);
  }
  for (const auto& [folder, file] : folders) {
    FileStatus status = CheckReach(store, file);
    status = status == FileStatus::kOk ? store.disk().files.SweepTemporaries(folder) : status;
    if (status != FileStatus::kOk && status != FileStatus::kOutside) {
      failures.push_back({folder, status});
    }
  }
}

}  // namespace

RestorationPlan PlanRestoration(const Store& store, const Manifest& manifest) {
  RestorationPlan plan;
  for (const Original& original : manifest.originals) {
    const RestoreFacts facts = FactsOf(store, original);
    const RestoreAction action = Decide(original, facts);
    if (action != RestoreAction::kNone) {
      plan.push_back({action, original.path, facts.seen});
    }
  }
  return plan;
}

std::vector<std::string> PathsOf(const RestorationPlan& plan, RestoreAction action) {
  std::vector<std::string> paths;
  for (const RestoreStep& step : plan) {
    if (step.action == action) {
      paths.push_back(step.path);
    }
  }
  return paths;
}

void AnnounceRestoration(std::ostream& out, const RestorationPlan& plan) {
  for (const RestoreRow& row : kRestoreRows) {
    Announce(out, PathsOf(plan, row.action), row.announcement);
  }
}

bool NeedsConfirmation(const RestorationPlan& plan) {
  return std::any_of(plan.begin(), plan.end(), [](const RestoreStep& step) {
    return step.action != RestoreAction::kLeaveUnknown && step.action != RestoreAction::kCantSee;
  });
}

std::vector<NotRestored> Restore(const Store& store, const Manifest& manifest,
                                 const RestorationPlan& plan) {
  std::vector<NotRestored> failures;
  for (const RestoreStep& step : plan) {
    if (step.status != FileStatus::kOk) {
      failures.push_back({step.path, step.status});
    }
  }
  for (const RestoreRow& row : kRestoreRows) {
    if (row.act == nullptr) {
      continue;
    }
    for (const std::string& path : PathsOf(plan, row.action)) {
      if (const FileStatus status = Act(store, row, path); status != FileStatus::kOk) {
        failures.push_back({path, status});
      }
    }
  }
  SweepTemporaries(store, manifest, failures);
  return failures;
}

}  // namespace nimbrel
