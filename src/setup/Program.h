#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "settings/Catalogue.h"
#include "settings/Folders.h"

namespace nimbrel {

class Disk;
class Store;
struct Places;
struct SetupSources;

/// The folders of the pack whose options count: the one in place, else the one to be copied.
Folders FoldersOfPack(Disk& disk, const Places& places, const SetupSources& sources);
/// Its catalogue. Throws ActionFailed if there is no pack or it can't be read.
Catalogue ReadPack(Disk& disk, const Folders& folders);

/// What goes into the program's folder. Paths of the pack begin at that folder.
struct DeliveryPlan {
  bool pack_in_place = false;      ///< then only missing artwork is added
  std::vector<std::string> files;  ///< of the pack, the information file last
  std::vector<std::string> suns;   ///< that Backups\TEX lacks: from the simulator's root on
  std::uintmax_t bytes = 0;        ///< of all that, and of the program
};
/// `kept`: paths from the simulator's root on of what the store holds or will hold.
DeliveryPlan PlanDelivery(Disk& disk, const Places& places, const SetupSources& sources,
                          const std::vector<std::string>& kept);
void AnnounceDelivery(std::ostream& out, const Places& places, const SetupSources& sources,
                      const DeliveryPlan& plan);
/// Copies the backups, the pack and at last the program. Only the program replaces a file. Throws
/// ActionFailed.
void Deliver(const Store& store, const SetupSources& sources, const DeliveryPlan& plan);

/// What is in the program's folder.
struct RemovalPlan {
  std::vector<std::string> ours;   ///< of the pack and unchanged, or made by setup and program
  std::vector<std::string> users;  ///< all else: favourites, history, settings, other packs
};
RemovalPlan PlanRemoval(const Store& store, const SetupSources& sources);
/// Deletes the program's files, the program first, and the folders that are empty then.
void RemoveProgram(Disk& disk, const Places& places, const RemovalPlan& plan, bool users_too);

}  // namespace nimbrel
