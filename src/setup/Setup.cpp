#include "setup/Setup.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <istream>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "platform/system.h"
#include "platform/text.h"
#include "setup/Arguments.h"
#include "setup/Originals.h"
#include "setup/Program.h"

namespace nimbrel {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kNamed = 10;  ///< files that a list names before it only counts

std::string Files(std::size_t count) {
  return count == 1 ? "1 file" : std::to_string(count) + " files";
}

std::string Size(std::uintmax_t bytes) {
  constexpr std::uintmax_t kTenth = 100'000;  // of a megabyte
  const std::uintmax_t tenths = (bytes + kTenth - 1) / kTenth;
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " MB";
}

void List(std::ostream& out, const std::vector<std::string>& paths) {
  for (std::size_t i = 0; i < std::min(paths.size(), kNamed); ++i) {
    out << "      " << paths[i] << '\n';
  }
  if (paths.size() > kNamed) {
    out << "      and " << paths.size() - kNamed << " more\n";
  }
}

/// One thing to be done to some files, with their names; nothing for none.
void Announce(std::ostream& out, const std::vector<std::string>& paths, std::string_view what) {
  if (!paths.empty()) {
    out << "  * " << what << " (" << Files(paths.size()) << "):\n";
    List(out, paths);
  }
}

std::vector<std::string> PathsOf(const std::vector<Original>& originals) {
  std::vector<std::string> paths;
  paths.reserve(originals.size());
  for (const Original& original : originals) {
    paths.push_back(original.path);
  }
  return paths;
}

bool Confirms(const Console& console, const Request& request, std::string_view question) {
  if (request.yes) {
    return true;
  }
  console.out << '\n' << question << " [y/N] " << std::flush;
  std::string answer;
  std::getline(console.in, answer);
  answer = platform::LowerCase(platform::Trim(answer));
  return answer == "y" || answer == "yes";
}

int NothingDone(const Console& console) {
  console.out << "Nothing has been changed.\n";
  return kFailed;
}

void RefuseWhileRunning(const Places& places) {
  if (ProgramRuns(places)) {
    throw SetupFailure("Nimbrel is running. Leave it first");
  }
}

// Setting up.

void AnnounceKeeping(std::ostream& out, const Places& places, const KeepPlan& plan) {
  if (!plan.keep.empty()) {
    std::map<std::string, std::size_t> folders;
    for (const std::string& path : plan.keep) {
      ++folders[fs::path(path).parent_path().string()];
    }
    out << "  * keep a copy of every file that Nimbrel could ever replace (" << Size(plan.bytes)
        << ")\n    in " << places.originals << ":\n";
    for (const auto& [folder, count] : folders) {
      out << "      " << folder << ": " << Files(count) << '\n';
    }
  }
  Announce(out, plan.stored, "take up the copies that an earlier setup has made");
  Announce(out, plan.again, "keep once more what has gone from the store and is still original");
  Announce(out, plan.lost, "leave alone what has changed and has gone from the store");
  Announce(out, plan.absent, "note what is not there now, to be taken away again by --restore");
  Announce(out, plan.unknown,
           "leave alone what Nimbrel has replaced already: its originals are not known, and\n"
           "    --restore will not touch it");
}

void AnnouncePutting(std::ostream& out, const Places& places, const PutPlan& plan) {
  Announce(out, plan.suns, "back up the simulator's own sun for Nimbrel");
  if (plan.pack_in_place && !plan.files.empty()) {
    out << "  * add missing artwork (" << Files(plan.files.size()) << ")\n";
  } else if (!plan.files.empty()) {
    out << "  * put the texture pack " << places.from.pack << '\n'
        << "    (" << Files(plan.files.size()) << ") into " << places.program << '\n';
  }
  out << "  * put the program there: " << places.ProgramFile() << '\n';
}

std::vector<std::string> KeptPaths(const Manifest& manifest, const KeepPlan& plan) {
  std::vector<std::string> kept = plan.keep;
  kept.insert(kept.end(), plan.stored.begin(), plan.stored.end());
  for (const Original& original : manifest.originals) {
    const bool lost =
        std::find(plan.lost.begin(), plan.lost.end(), original.path) != plan.lost.end();
    if (original.was == Was::kKept && !lost) {
      kept.push_back(original.path);
    }
  }
  return kept;
}

/// A device that fills up on the way does no harm, but is better known before.
void RefuseWithoutRoom(const Places& places, std::uintmax_t bytes) {
  const std::uintmax_t free = fs::space(places.simulator).available;
  if (free < bytes) {
    throw SetupFailure("This takes " + Size(bytes) + ", and only " + Size(free) + " are free in " +
                       places.simulator);
  }
}

int SetUp(const Places& places, const Request& request, const Console& console) {
  if (!platform::FileExists(places.from.program)) {
    throw SetupFailure("The program is not where it should be: " + places.from.program);
  }
  ReadCatalogueOf(places);
  Manifest manifest = ReadOriginals(places).value_or(Manifest{});
  const KeepPlan keeping = PlanKeeping(places, manifest);
  const PutPlan putting = PlanPutting(places, KeptPaths(manifest, keeping));
  console.out << "In " << places.simulator << " this will\n";
  AnnounceKeeping(console.out, places, keeping);
  AnnouncePutting(console.out, places, putting);
  RefuseWithoutRoom(places, keeping.bytes + putting.bytes);
  if (!Confirms(console, request, "Go on?")) {
    return NothingDone(console);
  }
  RefuseWhileRunning(places);
  Keep(places, keeping, manifest);
  PutInPlace(places, putting);
  console.out << "Done. Start Nimbrel with\n  " << places.ProgramFile() << '\n';
  return kDone;
}

// Restoring and removing.

void AnnounceRestoring(std::ostream& out, const RestorePlan& plan) {
  Announce(out, PathsOf(plan.bring_back), "bring back the originals");
  Announce(out, PathsOf(plan.rename), "give back the letter case of the name");
  Announce(out, plan.take_away, "delete what was not there before Nimbrel");
  Announce(out, plan.unknown, "leave alone what Nimbrel had replaced before the first setup");
  Announce(out, plan.lost, "leave alone what has changed and whose stored original is damaged");
}

bool IsEmpty(const RestorePlan& plan) {
  return plan.bring_back.empty() && plan.rename.empty() && plan.take_away.empty() &&
         plan.lost.empty();
}

/// Whether the simulator is as it was afterwards; what is not is told.
bool RestoreAndTell(const Places& places, const Manifest& manifest, const RestorePlan& plan,
                    const Console& console) {
  const std::vector<NotRestored> failures = Restore(places, manifest, plan);
  for (const NotRestored& failure : failures) {
    console.err << failure.path << ' ' << platform::Describe(failure.status) << ".\n";
  }
  for (const std::string& path : plan.lost) {
    console.err << path << " could not be restored: its stored original is damaged.\n";
  }
  const bool done = failures.empty() && plan.lost.empty();
  console.out << (done ? "The simulator is as it was before Nimbrel"
                       : "The simulator is not yet as it was before Nimbrel");
  if (!plan.unknown.empty()) {
    console.out << ", but for " << Files(plan.unknown.size()) << " whose originals nobody knows";
  }
  console.out << ".\n";
  return done;
}

/// Empty when nothing tells what the simulator was, which without the program is no harm.
std::optional<Manifest> ReadForRestoring(const Places& places) {
  std::optional<Manifest> manifest = ReadOriginals(places);
  if (!manifest &&
      (HoldsFilesWithoutManifest(places) || platform::FileExists(places.ProgramFile()))) {
    throw SetupFailure(
        "No setup has come to its end here, so there is nothing to restore from. Run "
        "nimbrel-setup without --restore and --remove first");
  }
  return manifest;
}

int RestoreOnly(const Places& places, const Request& request, const Console& console) {
  const std::optional<Manifest> manifest = ReadForRestoring(places);
  if (!manifest) {
    throw SetupFailure("No originals are kept in " + places.simulator);
  }
  const RestorePlan plan = PlanRestoring(places, *manifest);
  if (!IsEmpty(plan)) {
    console.out << "In " << places.simulator << " this will\n";
    AnnounceRestoring(console.out, plan);
    if (!Confirms(console, request, "Go on?")) {
      return NothingDone(console);
    }
  }
  RefuseWhileRunning(places);
  return RestoreAndTell(places, *manifest, plan, console) ? kDone : kFailed;
}

/// A removal that was killed at its very end leaves empty folders, at last Modules alone: nobody
/// knows by then whose it is, and nobody misses an empty one.
int RemoveNothing(const Places& places, const Console& console) {
  if (platform::FolderExists(places.modules)) {
    RemoveOriginals(places, true);
  }
  console.out << "There is no Nimbrel in " << places.simulator << ".\n";
  return kDone;
}

int Remove(const Places& places, const Request& request, const Console& console) {
  const std::optional<Manifest> manifest = ReadForRestoring(places);
  if (!manifest) {
    return RemoveNothing(places, console);
  }
  const RestorePlan restoring = PlanRestoring(places, *manifest);
  const TakePlan taking = PlanTaking(places);
  console.out << "In " << places.simulator << " this will\n";
  AnnounceRestoring(console.out, restoring);
  console.out << "  * take out Nimbrel with its texture pack (" << Files(taking.ours.size())
              << ") and the stored originals\n";
  Announce(console.out, taking.own, "ask you about what is your own in Nimbrel's folder");
  if (!Confirms(console, request, "Go on?")) {
    return NothingDone(console);
  }
  const bool own_too =
      !taking.own.empty() &&
      Confirms(console, request, "Delete your own files, favourites and history too?");
  RefuseWhileRunning(places);
  if (!RestoreAndTell(places, *manifest, restoring, console)) {
    console.out << "So Nimbrel stays, and the originals with it.\n";
    return kFailed;
  }
  TakeOut(places, taking, own_too);
  RemoveOriginals(places, manifest->made_modules);
  console.out << "Nimbrel has been taken out.\n";
  if (!taking.own.empty() && !own_too) {
    console.out << "Your own files are still in " << places.program << ".\n";
  }
  return kDone;
}

int Perform(const Request& request, SetupSources sources, const Console& console) {
  if (!request.pack.empty()) {
    sources.pack = request.pack;
  }
  sources.pack = fs::weakly_canonical(sources.pack).string();
  const Places places = FindPlaces(request.folder, sources);
  switch (request.task) {
    case Request::Task::kRestore:
      return RestoreOnly(places, request, console);
    case Request::Task::kRemove:
      return Remove(places, request, console);
    default:
      return SetUp(places, request, console);
  }
}

int PerformAndTell(const Request& request, const SetupSources& sources, const Console& console) {
  try {
    return Perform(request, sources, console);
  } catch (const std::exception& error) {
    console.err << "nimbrel-setup: " << error.what() << ".\n";
    return kFailed;
  }
}

/// Started from a menu there is nobody to give the folder but the user at the terminal, which then
/// closes with the command.
int AskAndPerform(Request request, const SetupSources& sources, const Console& console) {
  console.out << "The folder of Flight Simulator 2004: " << std::flush;
  if (!std::getline(console.in, request.folder) || request.folder.empty()) {
    console.err << '\n' << kUsageText;
    return kUsage;
  }
  const int status = PerformAndTell(request, sources, console);
  console.out << "Press Enter to close." << std::flush;
  std::string line;
  std::getline(console.in, line);
  return status;
}

}  // namespace

int RunSetup(const std::vector<std::string>& arguments, const SetupSources& sources,
             const Console& console) {
  const std::optional<Request> request = ParseArguments(arguments);
  if (!request) {
    console.err << kUsageText;
    return kUsage;
  }
  if (request->task == Request::Task::kHelp) {
    console.out << kUsageText;
    return kDone;
  }
  if (request->task == Request::Task::kVersion) {
    const platform::Version version = platform::ProgramVersion();
    console.out << "nimbrel-setup " << version.major << '.' << version.minor << '.'
                << version.revision << '\n';
    return kDone;
  }
  return request->folder.empty() ? AskAndPerform(*request, sources, console)
                                 : PerformAndTell(*request, sources, console);
}

}  // namespace nimbrel
