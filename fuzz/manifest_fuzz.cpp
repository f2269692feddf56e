#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "platform/text.h"
#include "setup/Originals.h"
#include "setup/Setup.h"
#include "support.h"

namespace fs = std::filesystem;
using namespace nimbrel;
using fuzz::Require;

namespace {

/// By paths: files are an "f" with their content behind it, links an "l" with their end, folders
/// "d".
using Tree = std::map<std::string, std::string>;

constexpr const char* kCatalogue =
    "[CloudTextures]\nDestination=Texture\\cumulus01.bmp\nDestinationCirrus=Texture\nnumSolid=1\n"
    "solidInhibitRandomizer.0=0\nsolidInhibitRandomizer.1=0\nstratusInhibitRandomizer.0=0\n"
    "wispyInhibitRandomizer.0=0\ncirrusInhibitRandomizer.0=0\n[SkyTextures]\nDestination=Texture\n"
    "sunInhibitRandomizer=0\ncontrailsInhibitRandomizer=0\nnumDay=1\ndayTextures.0=Day\n"
    "sunriseInhibitRandomizer.0=0\ndayInhibitRandomizer.0=0\ndayInhibitRandomizer.1=0\n"
    "sunsetInhibitRandomizer.0=0\nnightInhibitRandomizer.0=0\n[WaterTextures]\nnumBase=1\n"
    "baseInhibitRandomizer.0=0\nbaseInhibitRandomizer.1=0\nenvironmentInhibitRandomizer.0=0\n"
    "wavesInhibitRandomizer.0=0\n";

constexpr std::string_view kSimulator = "simulator/";
constexpr std::string_view kModules = "simulator/Modules";
constexpr std::string_view kStore = "simulator/Modules/Nimbrel Originals";
constexpr const char* kManifest = "simulator/Modules/Nimbrel Originals/manifest";
constexpr const char* kStoredSun = "simulator/Modules/Nimbrel Originals/files/Texture/sun.bmp";
/// What a killed run would leave, of a process that can't be.
constexpr std::string_view kLeftOver = "~nimbrel-2147480000-1.tmp";

/// A simulator with the program in it, its store, and what lies around it and is nobody's.
Tree World() {
  Tree files{{"pack/NB_Information.cfg", kCatalogue},
             {"pack/Day/day.bmp", "pack day"},
             {"pack/program", "program"},
             {"outside/file.bmp", "own file"},
             {"simulator/Effects/fx_contrail_s.fx", "[Particle.0]\nLifetime=1,2\n"},
             {"simulator/Scenery/base.bmp", "own base"},
             {"simulator/Texture/DAY.bmp", "own day"},
             {"simulator/Texture/sun.bmp", "own sun"},
             {"simulator/Modules/other.dll", "own dll"},
             {"simulator/Modules/Nimbrel/Data/History.nbh", ""},
             {"simulator/Modules/Nimbrel/nimbrel", "program"},
             {"simulator/Modules/Nimbrel Originals/files/Texture/DAY.bmp", "own day"},
             {kStoredSun, "own sun"}};
  for (const std::string folder : {"", "outside/", "simulator/", "simulator/Texture/"}) {
    files[folder + std::string(kLeftOver)] = "half";
  }
  Tree tree{{"simulator/Texture/out", "l../../outside"}};
  for (const auto& [path, content] : files) {
    tree[path] = "f" + content;
    for (fs::path above = fs::path(path).parent_path(); !above.empty();
         above = above.parent_path()) {
      tree[above.string()] = "d";
    }
  }
  return tree;
}

enum class Task { kRestore, kRemove, kRestoreAndRemove, kSetUp };

/// How the input's first byte has the world and the run.
struct Choices {
  Task task;
  bool wrapped;    ///< the input is only the entries of a list
  bool installed;  ///< the pack's files stand in the simulator
  bool damaged;    ///< a stored original has changed
  bool lost;       ///< it is gone
};

Choices ChoicesOf(unsigned byte) {
  return {static_cast<Task>(byte & 3U), (byte & 4U) != 0, (byte & 8U) != 0, (byte & 16U) != 0,
          (byte & 32U) != 0};
}

std::string ListOf(const std::string& entries) {
  std::istringstream lines(entries);
  std::size_t originals = 0;
  for (std::string line; std::getline(lines, line);) {
    originals += line == "made Modules" ? 0 : 1;
  }
  const char* const last = entries.empty() || entries.ends_with('\n') ? "" : "\n";
  return "Nimbrel originals 1\n" + entries + last + "end " + std::to_string(originals) + "\n";
}

Tree WorldOf(const Choices& choices, const std::string& input) {
  static const Tree kWorld = World();
  Tree tree = kWorld;
  tree[kManifest] = "f" + (choices.wrapped ? ListOf(input) : input);
  if (choices.installed) {
    tree["simulator/Texture/sun.bmp"] = "fpack sun";
    tree["simulator/Texture/halo.bmp"] = "fpack halo";
    tree.erase("simulator/Texture/DAY.bmp");
    tree["simulator/Texture/day.bmp"] = "fpack day";
  }
  if (choices.damaged) {
    tree[kStoredSun] = "fown sum";
  }
  if (choices.lost) {
    tree.erase(kStoredSun);
  }
  return tree;
}

Tree ReadWorld() {
  Tree tree;
  const std::string world = fuzz::World("").string();
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(world)) {
    tree[entry.path().string().substr(world.size())] =
        entry.is_symlink()     ? "l" + fs::read_symlink(entry).string()
        : entry.is_directory() ? "d"
                               : "f" + fuzz::Get(entry);
  }
  return tree;
}

void Make(const std::string& path, const std::string& entry) {
  const fs::path place = fuzz::World(path);
  const std::string_view content = std::string_view(entry).substr(1);
  if (entry[0] == 'd') {
    fs::create_directory(place);
  } else if (entry[0] == 'l') {
    fs::create_symlink(content, place);
  } else {
    fuzz::Put(place, std::as_bytes(std::span(content)));
  }
}

/// Turns what is on disk into what is wanted.
void ChangeWorld(const Tree& present, const Tree& wanted) {
  const auto is_in = [](const auto& entry, const Tree& tree) {
    const auto found = tree.find(entry.first);
    return found != tree.end() && found->second == entry.second;
  };
  std::for_each(present.rbegin(), present.rend(), [&](const auto& entry) {
    if (!is_in(entry, wanted)) {
      fs::remove(fuzz::World(entry.first));
    }
  });
  for (const auto& entry : wanted) {
    if (!is_in(entry, present)) {
      Make(entry.first, entry.second);
    }
  }
}

SetupSources Sources() {
  return {fuzz::World("pack/program").string(), fuzz::World("pack").string()};
}

int Run(const std::string& task) {
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  const int status =
      RunSetup({"--yes", task, "--", fuzz::Simulator("").string()}, Sources(), {in, out, err});
  Require(status == kDone || (status == kFailed && !err.str().empty()));
  return status;
}

std::optional<Manifest> Read() {
  try {
    return ReadManifest(fuzz::World(kManifest).string());
  } catch (const SetupFailure&) {
    return std::nullopt;
  }
}

bool IsBelow(std::string_view path, std::string_view folder) {
  return path == folder || (path.starts_with(folder) && path.substr(folder.size())[0] == '/');
}

Tree Folded(const Tree& tree) {
  Tree folded;
  for (const auto& [path, content] : tree) {
    folded[platform::FoldName(path)] = content;
  }
  return folded;
}

/// What a run may make of the simulator's files: by folded paths their contents, empty for none.
Tree ChangesOf(const Tree& before, const Manifest& manifest) {
  Tree changes;
  for (const auto& [path, content] : before) {
    if (path.starts_with(kSimulator) && path.ends_with(kLeftOver)) {
      changes[path] = "";
    }
  }
  for (const Original& original : manifest.originals) {
    const std::string path = platform::FoldName(original.path);
    const auto stored = before.find(platform::FoldName(kStore) + "/files/" + path);
    if (original.was == Was::kAbsent) {
      changes[std::string(kSimulator) + path] = "";
    } else if (original.was == Was::kKept && stored != before.end()) {
      changes[std::string(kSimulator) + path] = stored->second;
    }
  }
  return changes;
}

/// `skip`: the folder that a run may change as it likes.
void CheckChanges(const Tree& before, const Tree& after, const Manifest& manifest,
                  std::string_view skip) {
  const Tree was = Folded(before);
  const Tree is = Folded(after);
  const Tree changes = ChangesOf(was, manifest);
  const auto content = [](const Tree& tree, const std::string& path) {
    const auto found = tree.find(path);
    return found == tree.end() ? std::string() : found->second;
  };
  for (const Tree* tree : {&was, &is}) {
    for (const auto& [path, ignored] : *tree) {
      const std::string now = content(is, path);
      const auto change = changes.find(path);
      Require(now == content(was, path) || IsBelow(path, platform::FoldName(skip)) ||
              (change != changes.end() && change->second == now));
    }
  }
}

bool NothingLeft(const Manifest& manifest) {
  const RestorePlan plan =
      PlanRestoring(FindPlaces(fuzz::Simulator("").string(), Sources()), manifest);
  return plan.bring_back.empty() && plan.rename.empty() && plan.take_away.empty() &&
         plan.lost.empty();
}

bool StoreStands(const Tree& before, const Tree& after) {
  return std::all_of(before.begin(), before.end(), [&](const auto& entry) {
    const auto now = after.find(entry.first);
    return !IsBelow(entry.first, kStore) || (now != after.end() && now->second == entry.second);
  });
}

Tree RestoreAndCheck(const Tree& before, const Manifest& manifest) {
  const int status = Run("--restore");
  Tree after = ReadWorld();
  CheckChanges(before, after, manifest, "none");
  Require(StoreStands(before, after));
  Require(status == kFailed || NothingLeft(manifest));
  return after;
}

Tree RemoveAndCheck(const Tree& before, const Manifest& manifest) {
  const int status = Run("--remove");
  Tree after = ReadWorld();
  CheckChanges(before, after, manifest, kModules);
  Require(after.at("simulator/Modules/other.dll") == "fown dll");
  Require(status == kDone ? !after.contains(std::string(kStore)) && NothingLeft(manifest)
                          : StoreStands(before, after));
  return after;
}

/// The list keeps what it had, and what it says is still in the store stays there.
Tree SetUpAndCheck(const Tree& before, const Manifest& manifest) {
  Require(Run("--yes") == kDone);
  Tree after = ReadWorld();
  CheckChanges(before, after, {}, kModules);
  const std::optional<Manifest> now = Read();
  Require(now && now->originals.size() >= manifest.originals.size());
  for (std::size_t i = 0; i < manifest.originals.size(); ++i) {
    const Original& was = manifest.originals[i];
    const Original& is = now->originals[i];
    Require(is.path == was.path && is.was == was.was && is.size == was.size &&
            is.checksum == was.checksum);
  }
  return after;
}

Tree RunAndCheck(Task task, const Tree& before, const Manifest& manifest) {
  switch (task) {
    case Task::kRestore:
      return RestoreAndCheck(before, manifest);
    case Task::kRemove:
      return RemoveAndCheck(before, manifest);
    case Task::kSetUp:
      return SetUpAndCheck(before, manifest);
    default:
      return RemoveAndCheck(RestoreAndCheck(before, manifest), manifest);
  }
}

}  // namespace

/// A byte of choices, then any bytes as the list of the originals: a list that is refused changes
/// nothing; by any other a restore, a removal or a setup changes what is listed, inside the
/// simulator, and nothing else.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Tree present;
  auto input = std::as_bytes(std::span(data, size));
  const Choices choices = ChoicesOf(fuzz::TakeByte(input));
  Tree before = WorldOf(choices, std::string(fuzz::Text(input)));
  ChangeWorld(present, before);
  if (const std::optional<Manifest> manifest = Read()) {
    present = RunAndCheck(choices.task, before, *manifest);
    return 0;
  }
  constexpr std::array<const char*, 4> kTasks{"--restore", "--remove", "--remove", "--yes"};
  Require(Run(kTasks[static_cast<std::size_t>(choices.task)]) == kFailed);
  present = ReadWorld();
  Require(present == before);
  return 0;
}
