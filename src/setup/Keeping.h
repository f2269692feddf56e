#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "setup/Manifest.h"

namespace nimbrel {

class Store;
struct Catalogue;
struct Folders;

/// Before an install can replace a file, setup keeps its original.

enum class KeepAction : std::uint8_t {
  kNone,
  kKeep,          ///< copy the file into the store
  kUseStored,     ///< a killed setup has stored it already
  kKeepAgain,     ///< listed and still original, but gone from the store: a removal was killed
  kLeaveChanged,  ///< listed, gone from the store, and changed since
  kNoteAbsent,    ///< a restore deletes what comes
  kLeaveUnknown,  ///< an install has replaced it: the original is not known
};

struct KeepStep {
  KeepAction action;
  std::string path;  ///< from the simulator's root on
};
struct KeepingPlan {
  std::vector<KeepStep> steps;
  std::uintmax_t bytes = 0;  ///< that the store will grow by
};

/// What the store lacks of the files that installs of the catalogue write. Throws ActionFailed if
/// a folder can't be read: an original in it would be lost.
KeepingPlan PlanKeeping(const Store& store, const Manifest& known, const Catalogue& catalogue,
                        const Folders& folders);

void AnnounceKeeping(std::ostream& out, const Store& store, const KeepingPlan& plan);

/// The paths whose originals the store holds when the plan has been carried out.
std::vector<std::string> KeptPaths(const Manifest& known, const KeepingPlan& plan);

/// Completes the store: first every file, then the manifest. Throws ActionFailed; the next run uses
/// what is in the store by then.
void Keep(const Store& store, const KeepingPlan& plan, Manifest manifest);

}  // namespace nimbrel
