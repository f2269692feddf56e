#include "setup/Tasks.h"

#include <optional>
#include <ostream>
#include <string_view>

#include "settings/Failure.h"
#include "setup/Disk.h"
#include "setup/Keeping.h"
#include "setup/Program.h"
#include "setup/Restoring.h"
#include "setup/Store.h"

namespace nimbrel {
namespace {

bool IsConfirmed(const Job& job, std::string_view question) {
  return job.yes || Confirms(job.console, question);
}

bool NothingDone(const Job& job) {
  job.console.out << "Nothing has been changed.\n";
  return false;
}

void AnnounceWhere(const Job& job) {
  job.console.out << "In " << job.places.simulator << " this will\n";
}

void RefuseWhileRunning(const Job& job) {
  if (platform::IsBeingRun(job.places.ProgramFile())) {
    throw ActionFailed("Nimbrel is running. Exit it first");
  }
}

/// A full device does no harm, but the user should know beforehand.
void RefuseWithoutRoom(const Job& job, std::uintmax_t bytes) {
  std::uintmax_t free{};
  Require(platform::FreeSpace(job.places.simulator, free), job.places.simulator);
  if (free < bytes) {
    throw ActionFailed("This takes " + SizeOf(bytes) + ", and only " + SizeOf(free) +
                       " are free in " + job.places.simulator);
  }
}

/// Empty if setup never ran here. Throws if it ran and did not finish.
std::optional<Manifest> ReadForRestoring(const Job& job, const Store& store) {
  std::optional<Manifest> manifest = store.ReadList();
  if (!manifest && (store.IsUnfinished() || job.disk.files.FileExists(job.places.ProgramFile()))) {
    throw ActionFailed(
        "No setup has come to its end here, so there is nothing to restore from. Run nimbrelctl "
        "setup first");
  }
  return manifest;
}

/// True if the simulator is as it was; tells what is not.
bool RestoreAndTell(const Job& job, const Store& store, const Manifest& manifest,
                    const RestorationPlan& plan) {
  const Console& console = job.console;
  const std::vector<NotRestored> failures = Restore(store, manifest, plan);
  for (const NotRestored& failure : failures) {
    console.err << ActionFailed(failure.path, failure.status).what() << ".\n";
  }
  const std::vector<std::string> damaged = PathsOf(plan, RestoreAction::kLeaveDamaged);
  for (const std::string& path : damaged) {
    console.err << path << " could not be restored: its stored original is damaged.\n";
  }
  const bool done = failures.empty() && damaged.empty();
  console.out << (done ? "The simulator is as it was before Nimbrel"
                       : "The simulator is not yet as it was before Nimbrel");
  const std::size_t unknown = PathsOf(plan, RestoreAction::kLeaveUnknown).size();
  if (unknown > 0) {
    console.out << ", except for " << CountOf(unknown) << " whose originals are not known";
  }
  console.out << ".\n";
  return done;
}

/// A removal killed at its last step leaves empty folders, possibly only Modules. No record says
/// who made it; an empty one is deleted.
bool RemoveNothing(const Job& job, const Store& store) {
  if (job.disk.files.FolderExists(job.places.modules)) {
    store.Remove(true);
  }
  job.console.out << "There is no Nimbrel in " << job.places.simulator << ".\n";
  return true;
}

void AnnounceRemoval(const Job& job, const RemovalPlan& plan) {
  job.console.out << "  * remove Nimbrel with its texture pack (" << CountOf(plan.ours.size())
                  << ") and the stored originals\n";
  Announce(job.console.out, plan.users, "ask you about what is your own in Nimbrel's folder");
}

}  // namespace

bool SetUp(const Job& job) {
  if (!job.disk.files.FileExists(job.sources.program)) {
    throw ActionFailed("The program is not where it should be: " + job.sources.program);
  }
  const Store store(job.places, job.disk);
  const Folders folders = FoldersOfPack(job.disk, job.places, job.sources);
  const Catalogue catalogue = ReadPack(job.disk, folders);
  const Manifest manifest = store.ReadList().value_or(Manifest{});
  const KeepingPlan keeping = PlanKeeping(store, manifest, catalogue, folders);
  const DeliveryPlan delivery =
      PlanDelivery(job.disk, job.places, job.sources, KeptPaths(manifest, keeping));
  AnnounceWhere(job);
  AnnounceKeeping(job.console.out, store, keeping);
  AnnounceDelivery(job.console.out, job.places, job.sources, delivery);
  RefuseWithoutRoom(job, keeping.bytes + delivery.bytes);
  if (!IsConfirmed(job, "Go on?")) {
    return NothingDone(job);
  }
  RefuseWhileRunning(job);
  Keep(store, keeping, manifest);
  Deliver(store, job.sources, delivery);
  job.console.out << "Done. Start Nimbrel with\n  " << job.places.ProgramFile() << '\n';
  return true;
}

bool RestoreOriginals(const Job& job) {
  const Store store(job.places, job.disk);
  const std::optional<Manifest> manifest = ReadForRestoring(job, store);
  if (!manifest) {
    throw ActionFailed("No originals are kept in " + job.places.simulator);
  }
  const RestorationPlan plan = PlanRestoration(store, *manifest);
  if (NeedsConfirmation(plan)) {
    AnnounceWhere(job);
    AnnounceRestoration(job.console.out, plan);
    if (!IsConfirmed(job, "Go on?")) {
      return NothingDone(job);
    }
  }
  RefuseWhileRunning(job);
  return RestoreAndTell(job, store, *manifest, plan);
}

bool RemoveNimbrel(const Job& job) {
  const Store store(job.places, job.disk);
  const std::optional<Manifest> manifest = ReadForRestoring(job, store);
  if (!manifest) {
    return RemoveNothing(job, store);
  }
  const RestorationPlan restoration = PlanRestoration(store, *manifest);
  const RemovalPlan removal = PlanRemoval(store, job.sources);
  AnnounceWhere(job);
  AnnounceRestoration(job.console.out, restoration);
  AnnounceRemoval(job, removal);
  if (!IsConfirmed(job, "Go on?")) {
    return NothingDone(job);
  }
  const bool users_too = !removal.users.empty() &&
                         IsConfirmed(job, "Delete your own files, favourites and history too?");
  RefuseWhileRunning(job);
  if (!RestoreAndTell(job, store, *manifest, restoration)) {
    job.console.out << "Nimbrel and the stored originals were kept.\n";
    return false;
  }
  RemoveProgram(job.disk, job.places, removal, users_too);
  store.Remove(manifest->made_modules);
  job.console.out << "Nimbrel has been removed.\n";
  if (!removal.users.empty() && !users_too) {
    job.console.out << "Your own files are still in " << job.places.program << ".\n";
  }
  return true;
}

}  // namespace nimbrel
