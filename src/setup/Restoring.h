#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "platform/FileStatus.h"
#include "setup/Manifest.h"

namespace nimbrel {

class Store;

/// The way back to the simulator as it was before Nimbrel.

enum class RestoreAction : std::uint8_t {
  kNone,          ///< is as it was
  kCantSee,       ///< in a folder that can't be listed
  kBringBack,     ///< differs, or is gone
  kRename,        ///< the same except for the letter case of its name
  kDelete,        ///< was absent
  kLeaveUnknown,  ///< what it was is not known
  kLeaveDamaged,  ///< differs, and the store's copy is damaged or gone
};

struct RestoreStep {
  RestoreAction action;
  std::string path;             ///< from the simulator's root on
  platform::FileStatus status;  ///< the reason for kCantSee, else kOk
};
/// In the manifest's order; what needs no action is left out.
using RestorationPlan = std::vector<RestoreStep>;

RestorationPlan PlanRestoration(const Store& store, const Manifest& manifest);

std::vector<std::string> PathsOf(const RestorationPlan& plan, RestoreAction action);
void AnnounceRestoration(std::ostream& out, const RestorationPlan& plan);
/// True if there is something to confirm: a file to change, or one that can't be brought back.
bool NeedsConfirmation(const RestorationPlan& plan);

struct NotRestored {
  std::string path;
  platform::FileStatus status;
};
/// Does as much of the plan as it can, each file whole or not at all, and returns the failures.
std::vector<NotRestored> Restore(const Store& store, const Manifest& manifest,
                                 const RestorationPlan& plan);

}  // namespace nimbrel
