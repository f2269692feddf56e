#include "setup/Keeping.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>

#include "install/CopyPlan.h"
#include "platform/checksum.h"
#include "platform/text.h"
#include "settings/Catalogue.h"
#include "settings/Failure.h"
#include "settings/Folders.h"
#include "setup/Dialogue.h"
#include "setup/Disk.h"
#include "setup/Places.h"
#include "setup/Store.h"

namespace nimbrel {
namespace {

using platform::EntryKind;
using platform::FileStatus;

/// A file of the simulator that is not in the manifest, before setup.
struct TargetFacts {
  bool reachable = false;  ///< inside the simulator and not in the store
  bool exists = false;
  bool is_file = false;           ///< links followed; an install can't replace a folder
  bool may_be_installed = false;  ///< an install may have written it
  bool stored = false;            ///< in the store, unlisted
};

KeepAction Decide(const TargetFacts& facts) {
  if (!facts.reachable) {
    return KeepAction::kNone;
  }
  if (!facts.exists) {
    return KeepAction::kNoteAbsent;
  }
  if (!facts.is_file) {
    return KeepAction::kNone;
  }
  if (!facts.may_be_installed) {
    return KeepAction::kKeep;
  }
  return facts.stored ? KeepAction::kUseStored : KeepAction::kLeaveUnknown;
}

/// A listed original: the manifest vouches only for what is still in the store.
KeepAction Decide(const Original& original, bool stored_whole, bool still_original) {
  if (original.state != OriginalState::kKept || stored_whole) {
    return KeepAction::kNone;
  }
  return still_original ? KeepAction::kKeepAgain : KeepAction::kLeaveChanged;
}

/// An install writes the history before it copies any texture.
bool InstallsMade(const Store& store) {
  return store.disk().HasFile(store.places().HistoryFile()) ||
         store.disk().HasFile(store.places().ComposedTexture());
}

/// True if an install may have written this file, given that one has run: every install edits it,
/// or it equals a file of the pack. Before the first install equality proves nothing, since a pack
/// may hold the simulator's own file.
bool MayBeInstalled(Disk& disk, const WrittenFile& file) {
  return file.edited ||
         std::any_of(file.sources.begin(), file.sources.end(), [&](const std::string& source) {
           return disk.HasFile(source) && disk.SameContent(source, file.target);
         });
}

TargetFacts FactsOf(const Store& store, const WrittenFile& file, const std::string& path,
                    bool installs_made) {
  FileStatus status = FileStatus::kOk;
  TargetFacts facts;
  facts.reachable = store.ReachOf(file.target, status) == Reach::kInside;
  Require(status, file.target);
  facts.exists = platform::KindOf(file.target) != EntryKind::kNone;
  facts.is_file = store.disk().files.FileExists(file.target);
  facts.may_be_installed =
      facts.reachable && facts.is_file && installs_made && MayBeInstalled(store.disk(), file);
  facts.stored = facts.may_be_installed && store.disk().files.FileExists(store.Copy(path));
  return facts;
}

void PlanTarget(const Store& store, const WrittenFile& file, std::string path, bool installs_made,
                KeepingPlan& plan) {
  if (path.find_first_of("\r\n") != std::string::npos) {
    throw ActionFailed("A file with a line break in its name can't be kept: " + path);
  }
  const KeepAction action = Decide(FactsOf(store, file, path, installs_made));
  if (action == KeepAction::kKeep) {
    std::uintmax_t size{};
    Require(platform::FileSize(file.target, size), file.target);
    plan.bytes += size;
  }
  if (action != KeepAction::kNone) {
    plan.steps.push_back({action, std::move(path)});
  }
}

void PlanListed(const Store& store, const Original& original, KeepingPlan& plan) {
  if (original.state != OriginalState::kKept) {
    return;
  }
  const bool stored_whole = store.Matches(store.Copy(original.path), original);
  const bool still_original =
      !stored_whole && store.Matches(store.InSimulator(original.path), original);
  const KeepAction action = Decide(original, stored_whole, still_original);
  plan.bytes += action == KeepAction::kKeepAgain ? original.size : 0;
  if (action != KeepAction::kNone) {
    plan.steps.push_back({action, original.path});
  }
}

/// True if Modules comes with Nimbrel: it does not exist, or holds nothing else. A setup that was
/// killed may have made it.
bool MakesModules(const Store& store) {
  const Places& places = store.places();
  const auto entries = store.disk().List(places.modules);
  return std::all_of(entries.begin(), entries.end(), [&](const platform::FolderEntry& entry) {
    const std::string path = places.modules + "/" + entry.name;
    return path == places.program || path == places.originals;
  });
}

void CopyIntoStore(const Store& store, const std::string& path) {
  const std::string source = store.InSimulator(path);
  const std::string copy = store.Copy(path);
  if (!store.disk().SameContent(source, copy)) {
    store.disk().Copy(source, copy);
  }
}

void List(const std::string& path, OriginalState state, Manifest& manifest) {
  manifest.originals.push_back({.path = path, .state = state, .size = 0, .checksum = {}});
}

/// With size and checksum of the store's copy, which is what a restore will read.
void ListKept(const Store& store, const std::string& path, Manifest& manifest) {
  const std::vector<std::byte> bytes = store.disk().Read(store.Copy(path));
  manifest.originals.push_back({.path = path,
                                .state = OriginalState::kKept,
                                .size = bytes.size(),
                                .checksum = platform::Sha256(bytes)});
}

/// How an action is announced and carried out. The manifest lists new files in the table's order.
struct KeepRow {
  KeepAction action;
  const char* announcement;
  void (*act)(const Store& store, const std::string& path, Manifest& manifest);
};
constexpr KeepRow kKeepRows[] = {
    {KeepAction::kKeep, "keep a copy of every file that Nimbrel could ever replace",
     [](const Store& store, const std::string& path, Manifest& manifest) {
       CopyIntoStore(store, path);
       ListKept(store, path, manifest);
     }},
    {KeepAction::kUseStored, "use the copies an earlier setup made", ListKept},
    {KeepAction::kKeepAgain, "keep once more what is missing from the store and still original",
     [](const Store& store, const std::string& path, Manifest&) { CopyIntoStore(store, path); }},
    {KeepAction::kLeaveChanged, "leave alone what has changed and is missing from the store",
     nullptr},
    {KeepAction::kNoteAbsent, "note what does not exist now, for restore to delete it again",
     [](const Store&, const std::string& path, Manifest& manifest) {
       List(path, OriginalState::kAbsent, manifest);
     }},
    {KeepAction::kLeaveUnknown,
     "leave alone what Nimbrel has replaced already: its originals are not known, and\n"
     "    restore will not touch it",
     [](const Store&, const std::string& path, Manifest& manifest) {
       List(path, OriginalState::kUnknown, manifest);
     }},
};

std::vector<std::string> PathsOf(const KeepingPlan& plan, KeepAction action) {
  std::vector<std::string> paths;
  for (const KeepStep& step : plan.steps) {
    if (step.action == action) {
      paths.push_back(step.path);
    }
  }
  return paths;
}

}  // namespace

KeepingPlan PlanKeeping(const Store& store, const Manifest& known, const Catalogue& catalogue,
                        const Folders& folders) {
  const CopyRoutes routes(catalogue, folders, store.disk().files);
  const bool installs_made = InstallsMade(store);
  KeepingPlan plan;
  std::set<std::string> known_names;
  for (const Original& original : known.originals) {
    known_names.insert(platform::FoldName(original.path));
    PlanListed(store, original, plan);
  }
  const WrittenFiles written =
      FilesThatInstallsWrite(routes, catalogue, folders, store.disk().files);
  Require(written.unread.status, store.disk().files.HostPath(written.unread.path));
  for (const WrittenFile& file : written.files) {
    std::string path = file.target.substr(store.places().simulator.size() + 1);
    if (!known_names.contains(platform::FoldName(path))) {
      PlanTarget(store, file, std::move(path), installs_made, plan);
    }
  }
  return plan;
}

void AnnounceKeeping(std::ostream& out, const Store& store, const KeepingPlan& plan) {
  for (const KeepRow& row : kKeepRows) {
    const std::vector<std::string> paths = PathsOf(plan, row.action);
    if (row.action == KeepAction::kKeep) {  // hundreds of files: their folders say more
      AnnounceFolders(
          out, paths,
          row.announcement + (" (" + SizeOf(plan.bytes)) + ")\n    in " + store.places().originals);
    } else {
      Announce(out, paths, row.announcement);
    }
  }
}

std::vector<std::string> KeptPaths(const Manifest& known, const KeepingPlan& plan) {
  std::vector<std::string> kept = PathsOf(plan, KeepAction::kKeep);
  for (std::string& path : PathsOf(plan, KeepAction::kUseStored)) {
    kept.push_back(std::move(path));
  }
  const std::vector<std::string> lost = PathsOf(plan, KeepAction::kLeaveChanged);
  for (const Original& original : known.originals) {
    if (original.state == OriginalState::kKept &&
        std::find(lost.begin(), lost.end(), original.path) == lost.end()) {
      kept.push_back(original.path);
    }
  }
  return kept;
}

void Keep(const Store& store, const KeepingPlan& plan, Manifest manifest) {
  if (manifest.originals.empty()) {
    manifest.made_modules = MakesModules(store);
  }
  store.Open();
  for (const KeepRow& row : kKeepRows) {
    for (const std::string& path : PathsOf(plan, row.action)) {
      if (row.act != nullptr) {
        row.act(store, path, manifest);
      }
    }
  }
  store.WriteList(manifest);
}

}  // namespace nimbrel
