#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "setup/Manifest.h"
#include "setup/Places.h"

namespace nimbrel {

/// The store of originals: what the simulator's files were before Nimbrel. A file is taken once;
/// what the manifest lists is never taken again.

/// Its manifest, empty while no setup has come through.
std::optional<Manifest> ReadOriginals(const Places& places);

/// What has still to be kept of the files that installs of the Catalogue write. Paths from the
/// simulator's root on.
struct KeepPlan {
  std::vector<std::string> keep;    ///< to be copied into the store
  std::vector<std::string> stored;  ///< lie there whole already, from a setup that was killed
  std::vector<std::string> absent;  ///< are not there, so a restore deletes what comes
  /// An install has put the pack's own file there already, so that the original is not known. A
  /// restore leaves it alone.
  std::vector<std::string> unknown;
  /// Listed, still original, but gone from the store (a removal was killed, or somebody deleted
  /// them): to be copied once more.
  std::vector<std::string> again;
  std::vector<std::string> lost;  ///< listed, gone from the store, and changed
  std::uintmax_t bytes = 0;       ///< of `keep` and `again`
};
KeepPlan PlanKeeping(const Places& places, const Manifest& known);

/// Completes the store: first every file, then the manifest. Throws SetupFailure; what is in the
/// store by then is used by the next run.
void Keep(const Places& places, const KeepPlan& plan, Manifest& manifest);

struct NotRestored {
  std::string path;
  platform::FileStatus status;
};

/// What it takes to have the simulator as it was.
struct RestorePlan {
  std::vector<Original> bring_back;    ///< differ, or are gone
  std::vector<Original> rename;        ///< the same but for the letter case of their name
  std::vector<std::string> take_away;  ///< were absent; paths from the simulator's root on
  std::vector<std::string> lost;       ///< differ, and the store's copy is damaged or gone
  std::vector<std::string> unknown;    ///< nobody knows what they were: left alone
  std::vector<NotRestored> unseen;     ///< in folders that can't be looked into
};
RestorePlan PlanRestoring(const Places& places, const Manifest& manifest);

/// Does what it can of it, each file whole or not at all, and says what it could not.
std::vector<NotRestored> Restore(const Places& places, const Manifest& manifest,
                                 const RestorePlan& plan);

/// The store's copy of a kept original, as it is on disk in whatever letter case.
std::string StoredFile(const Places& places, const std::string& path);
/// Whether the store holds any file that no manifest lists yet.
bool HoldsFilesWithoutManifest(const Places& places);
/// Removes the store, the manifest last, and the folder Modules if it came with Nimbrel and is
/// empty.
void RemoveOriginals(const Places& places, bool made_modules);

}  // namespace nimbrel
