#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "setup/Manifest.h"
#include "setup/Places.h"

namespace nimbrel {

/// What goes into the program's folder. Paths from that folder on.
struct PutPlan {
  bool pack_in_place = false;      ///< then only artwork that is missing is added
  std::vector<std::string> files;  ///< of the pack, the information file last
  std::vector<std::string> suns;   ///< that Backups\TEX lacks: from the simulator's root on
  std::uintmax_t bytes = 0;        ///< of all that, and of the program
};
/// `kept`: paths from the simulator's root on of what the store of originals holds or will hold.
PutPlan PlanPutting(const Places& places, const std::vector<std::string>& kept);

/// Puts the backups, the pack and at last the program in place. Nothing that stands there is
/// replaced but the program. Throws SetupFailure.
void PutInPlace(const Places& places, const PutPlan& plan);

/// What stands in the program's folder.
struct TakePlan {
  std::vector<std::string> ours;  ///< from the pack and unchanged, or made by setup and program
  std::vector<std::string> own;   ///< all else: favourites, history, settings, other packs
};
TakePlan PlanTaking(const Places& places);

/// Deletes the program's files, the program first, and the folders that are empty then.
void TakeOut(const Places& places, const TakePlan& plan, bool own_too);

}  // namespace nimbrel
