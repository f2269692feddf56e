#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <span>
#include <sstream>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/text.h"
#include "settings/Failure.h"
#include "setup/Command.h"
#include "setup/Disk.h"
#include "setup/Restoring.h"
#include "setup/Store.h"
#include "support.h"

namespace fs = std::filesystem;
using namespace nimbrel;
using fuzz::Require;

namespace {

constexpr const char* kCatalogue =
    "[CloudTextures]\nDestination=Texture\\cumulus01.bmp\nDestinationCirrus=Texture\nnumSolid=1\n"
    "solidInhibitRandomizer.0=0\nsolidInhibitRandomizer.1=0\nstratusInhibitRandomizer.0=0\n"
    "wispyInhibitRandomizer.0=0\ncirrusInhibitRandomizer.0=0\n[SkyTextures]\nDestination=Texture\n"
    "sunInhibitRandomizer=0\ncontrailsInhibitRandomizer=0\nnumDay=1\ndayTextures.0=Day\n"
    "sunriseInhibitRandomizer.0=0\ndayInhibitRandomizer.0=0\ndayInhibitRandomizer.1=0\n"
    "sunsetInhibitRandomizer.0=0\nnightInhibitRandomizer.0=0\n[WaterTextures]\nnumBase=1\n"
    "baseInhibitRandomizer.0=0\nbaseInhibitRandomizer.1=0\nenvironmentInhibitRandomizer.0=0\n"
    "wavesInhibitRandomizer.0=0\n";

constexpr std::string_view kSimulator = "Simulator/";
constexpr std::string_view kModules = "Simulator/Modules/";
constexpr std::string_view kStore = "Simulator/Modules/Nimbrel Originals/";
const std::string kManifest = "Simulator/Modules/Nimbrel Originals/manifest";
const std::string kStoredSun = "Simulator/Modules/Nimbrel Originals/files/Texture/sun.bmp";
const std::string kLink = "Simulator/Texture/out";
/// What a killed run would leave, of a process that can't exist.
constexpr std::string_view kLeftOver = "~nimbrel-2147480000-1.tmp";
/// The content of a path that does not exist.
const std::string kGone(1, '\0');

/// A simulator with the program in it, its store, and foreign files around it.
Tree BaseWorld() {
  Tree tree{{"pack/NB_Information.cfg", kCatalogue},
            {"pack/Day/day.bmp", "pack day"},
            {"pack/program", "program"},
            {"outside/file.bmp", "own file"},
            {"Simulator/Effects/fx_contrail_s.fx", "[Particle.0]\nLifetime=1,2\n"},
            {"Simulator/Scenery/base.bmp", "own base"},
            {"Simulator/Texture/DAY.bmp", "own day"},
            {"Simulator/Texture/sun.bmp", "own sun"},
            {"Simulator/Modules/other.dll", "own dll"},
            {"Simulator/Modules/Nimbrel/Data/History.nbh", ""},
            {"Simulator/Modules/Nimbrel/nimbrel", "program"},
            {"Simulator/Modules/Nimbrel Originals/files/Texture/DAY.bmp", "own day"},
            {kStoredSun, "own sun"},
            {kLink, "-> ../../outside"}};
  for (const std::string folder : {"", "outside/", "Simulator/", "Simulator/Texture/"}) {
    tree[folder + std::string(kLeftOver)] = "half";
  }
  Tree folders;
  for (const auto& [path, content] : tree) {
    for (std::size_t cut = path.find('/'); cut != std::string::npos;
         cut = path.find('/', cut + 1)) {
      folders[path.substr(0, cut + 1)] = "";
    }
  }
  tree.merge(folders);
  return tree;
}

/// A list with the entries, complete.
std::string ListOf(const std::string& entries) {
  std::istringstream lines(entries);
  std::size_t originals = 0;
  for (std::string line; std::getline(lines, line);) {
    originals += line == "made Modules" ? 0 : 1;
  }
  const char* const last = entries.empty() || entries.ends_with('\n') ? "" : "\n";
  return "Nimbrel originals 1\n" + entries + last + "end " + std::to_string(originals) + "\n";
}

/// The bits of the input's first byte; the two lowest are the task.
constexpr unsigned kWrapped = 4;    ///< the input is only the entries of a list
constexpr unsigned kInstalled = 8;  ///< the pack's files are in the simulator
constexpr unsigned kDamaged = 16;   ///< a stored original has changed
constexpr unsigned kLost = 32;      ///< it is gone

Tree WorldOf(unsigned bits, const std::string& input) {
  static const Tree kBase = BaseWorld();
  Tree tree = kBase;
  tree[kManifest] = (bits & kWrapped) != 0 ? ListOf(input) : input;
  if ((bits & kInstalled) != 0) {
    tree["Simulator/Texture/sun.bmp"] = "pack sun";
    tree["Simulator/Texture/halo.bmp"] = "pack halo";
    tree.erase("Simulator/Texture/DAY.bmp");
    tree["Simulator/Texture/day.bmp"] = "pack day";
  }
  if ((bits & kDamaged) != 0) {
    tree[kStoredSun] = "own sum";
  }
  if ((bits & kLost) != 0) {
    tree.erase(kStoredSun);
  }
  return tree;
}

Tree ReadWorld() { return Files(fuzz::Outside()); }

void Make(const std::string& path, const std::string& content) {
  const fs::path place = fuzz::Outside() / path;
  if (path.ends_with('/')) {
    fs::create_directories(place);
  } else if (path == kLink) {
    fs::create_symlink(content.substr(3), place);
  } else {
    fuzz::Put(place, std::as_bytes(std::span(content)));
  }
}

const std::string& ContentOf(const Tree& tree, const std::string& path) {
  const auto found = tree.find(path);
  return found == tree.end() ? kGone : found->second;
}

/// Turns what is on disk into what is wanted.
void ChangeWorld(const Tree& present, const Tree& wanted) {
  std::for_each(present.rbegin(), present.rend(), [&](const auto& entry) {
    if (ContentOf(wanted, entry.first) != entry.second) {
      const std::string path = (fuzz::Outside() / entry.first).string();
      fs::remove(path.ends_with('/') ? path.substr(0, path.size() - 1) : path);
    }
  });
  for (const auto& [path, content] : wanted) {
    if (ContentOf(present, path) != content) {
      Make(path, content);
    }
  }
}

std::string Simulator() { return fuzz::Simulator().Simulator().parent_path().string(); }

int Run(const std::string& task) {
  const SetupSources sources{(fuzz::Outside() / "pack/program").string(),
                             (fuzz::Outside() / "pack").string()};
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  const int status = RunCommand({task, "--yes", "--", Simulator()}, sources, {in, out, err});
  Require(status == kDone || (status == kFailed && !err.str().empty()));
  return status;
}

std::optional<Manifest> ReadList() {
  platform::FileSystem files(kTemporaryPrefix);
  try {
    return ReadManifest(files, (fuzz::Outside() / kManifest).string());
  } catch (const ActionFailed&) {
    return std::nullopt;
  }
}

Tree Folded(const Tree& tree) {
  Tree folded;
  for (const auto& [path, content] : tree) {
    folded[platform::FoldName(path)] = content;
  }
  return folded;
}

/// What a run may make of the simulator's files: contents by folded path.
Tree ChangesOf(const Tree& before, const Manifest& manifest) {
  Tree changes;
  for (const auto& [path, content] : before) {
    if (path.starts_with(platform::FoldName(kSimulator)) &&
        path.ends_with(platform::FoldName(kLeftOver))) {
      changes[path] = kGone;
    }
  }
  for (const Original& original : manifest.originals) {
    const std::string path = platform::FoldName(original.path);
    const std::string& stored =
        ContentOf(before, platform::FoldName(std::string(kStore) + "files/") + path);
    const bool kept = original.state == OriginalState::kKept;
    if (original.state == OriginalState::kAbsent || (kept && stored != kGone)) {
      changes[platform::FoldName(kSimulator) + path] = kept ? stored : kGone;
    }
  }
  return changes;
}

/// `skip`: the folder in which a run may change anything; empty for none.
void CheckChanges(const Tree& before, const Tree& after, const Manifest& manifest,
                  std::string_view skip) {
  const Tree was = Folded(before);
  const Tree is = Folded(after);
  const Tree changes = ChangesOf(was, manifest);
  for (const Tree* tree : {&was, &is}) {
    for (const auto& [path, ignored] : *tree) {
      const std::string& now = ContentOf(is, path);
      const bool skipped = !skip.empty() && path.starts_with(platform::FoldName(skip));
      const auto change = changes.find(path);
      Require(now == ContentOf(was, path) || skipped ||
              (change != changes.end() && change->second == now));
    }
  }
}

/// True if another restore would find nothing to do.
bool IsRestored(const Manifest& manifest) {
  Disk disk;
  const Places places = FindPlaces(disk, Simulator());
  return !NeedsConfirmation(PlanRestoration(Store(places, disk), manifest));
}

bool StoreIsUnchanged(const Tree& before, const Tree& after) {
  return std::all_of(before.begin(), before.end(), [&](const auto& entry) {
    return !entry.first.starts_with(kStore) || ContentOf(after, entry.first) == entry.second;
  });
}

Tree RestoreAndCheck(const Tree& before, const Manifest& manifest) {
  const int status = Run("restore");
  Tree after = ReadWorld();
  CheckChanges(before, after, manifest, "");
  Require(StoreIsUnchanged(before, after));
  Require(status == kFailed || IsRestored(manifest));
  return after;
}

Tree RemoveAndCheck(const Tree& before, const Manifest& manifest) {
  const int status = Run("remove");
  Tree after = ReadWorld();
  CheckChanges(before, after, manifest, kModules);
  Require(after.at("Simulator/Modules/other.dll") == "own dll");
  Require(status == kDone ? !after.contains(std::string(kStore)) && IsRestored(manifest)
                          : StoreIsUnchanged(before, after));
  return after;
}

/// The list keeps its entries; the store keeps what is in it.
Tree SetUpAndCheck(const Tree& before, const Manifest& manifest) {
  Require(Run("setup") == kDone);
  Tree after = ReadWorld();
  CheckChanges(before, after, {}, kModules);
  const std::optional<Manifest> now = ReadList();
  Require(now && now->originals.size() >= manifest.originals.size());
  for (std::size_t i = 0; i < manifest.originals.size(); ++i) {
    const Original& was = manifest.originals[i];
    const Original& is = now->originals[i];
    Require(is.path == was.path && is.state == was.state && is.size == was.size &&
            is.checksum == was.checksum);
  }
  return after;
}

}  // namespace

/// A byte of choices, then any bytes as the list of the originals: a list that is refused changes
/// nothing; with any other a restore, a removal or a setup changes what is listed, inside the
/// simulator, and nothing else.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Tree present = ReadWorld();
  auto input = std::as_bytes(std::span(data, size));
  const unsigned bits = fuzz::TakeByte(input);
  const unsigned task = bits & 3U;
  const Tree before = WorldOf(bits, std::string(fuzz::Text(input)));
  ChangeWorld(present, before);
  const std::optional<Manifest> manifest = ReadList();
  if (!manifest) {
    constexpr std::array<const char*, 4> kTasks{"restore", "remove", "remove", "setup"};
    Require(Run(kTasks[task]) == kFailed);
    present = ReadWorld();
    Require(present == before);
  } else if (task == 3) {
    present = SetUpAndCheck(before, *manifest);
  } else {
    present = task == 1 ? before : RestoreAndCheck(before, *manifest);
    present = task == 0 ? present : RemoveAndCheck(present, *manifest);
  }
  return 0;
}
