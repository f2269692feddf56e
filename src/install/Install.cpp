#include "install/Install.h"

#include <array>
#include <cstdint>
#include <exception>
#include <string>
#include <variant>

#include "install/CloudComposer.h"
#include "install/CopyPlan.h"
#include "install/Progress.h"
#include "install/SunContrails.h"
#include "install/mod_CopyFiles.h"
#include "platform/FileSystem.h"
#include "settings/Catalogue.h"
#include "settings/Failure.h"
#include "settings/Folders.h"

namespace nimbrel {
namespace {

using platform::FileStatus;

/// What a stage does if it copies neither the set of a group nor a fixed folder.
enum class Task : std::uint8_t { kSun, kContrails, kLoadClouds, kComposeClouds, kPlaceClouds };
using Route = std::variant<Group, FixedFolder, Task>;

constexpr const char* kSun = "Copying Sun files to";
constexpr const char* kReplacementSun = "Copying Replacement Sun files to";
constexpr const char* kClouds = "Creating Cumulus Cloud Texture for";

struct Stage {
  const char* sentence;  ///< how its sentence begins; null: the one before stays
  Route route;
  double start;        ///< percent
  double end = start;  ///< percent; without one the progress stands still
};
constexpr std::array kStages{
    Stage{"Copying Base Water files to", Group::kBase, 0, 20},
    Stage{"Copying Water Reflection files to", Group::kEnvironment, 20, 24},
    Stage{"Copying Wave Height files to", Group::kWaves, 24},
    Stage{"Copying Sunrise Sky Textures to", Group::kSunrise, 25, 42},
    Stage{"Copying Day Sky Textures to", Group::kDay, 42, 52},
    Stage{"Copying Sunset Sky Textures to", Group::kSunset, 52, 69},
    Stage{"Copying Night Sky Textures to", Group::kNight, 69, 73},
    Stage{kSun, Task::kSun, 73},
    Stage{nullptr, Task::kContrails, 73},
    Stage{"Copying Cirrus Cloud Textures to", Group::kCirrus, 74, 79},
    Stage{"Copying CLD Cloud Textures to", FixedFolder::kCld, 79, 86},
    Stage{"Copying Cumulus Cloud Textures to", FixedFolder::kCumulus, 86, 91},
    Stage{"Copying Stratus Cloud Textures to", FixedFolder::kStratus, 91, 94},
    Stage{kClouds, Task::kLoadClouds, 94},
    Stage{kClouds, Task::kComposeClouds, 96},
    Stage{kClouds, Task::kPlaceClouds, 98},
};

/// One install: does the work of each stage.
class InstallRun {
 public:
  InstallRun(const CopyRun& copy, const Choice& choice, const MachineSwitches& machine,
             const Catalogue& catalogue)
      : copy_(copy),
        choice_(choice),
        machine_(machine),
        catalogue_(catalogue),
        composer_(copy.folders, copy.files) {}

  void Run() {
    Sweep();
    for (const Stage& stage : kStages) {
      if (stage.sentence != nullptr) {
        Announce(stage);
      }
      std::visit([&](auto route) { Work(route, stage.start, stage.end); }, stage.route);
    }
    Announce("Completed copying environment files to Flight Simulator.", 100);
  }

 private:
  void Announce(const std::string& sentence, double percent) {
    copy_.progress.Announce(sentence + "\r\rPlease stand by...", percent);
  }

  void Announce(const Stage& stage) {
    const bool replacement = stage.sentence == kSun && choice_.sun;
    Announce(std::string(replacement ? kReplacementSun : stage.sentence) +
                 " flight simulator.  This process will take a few moments.",
             stage.start);
  }

  void Sweep() {
    for (const std::string& folder : copy_.routes.Destinations()) {
      if (copy_.files.LiesWithin(folder, copy_.folders.simulator)) {
        DeleteUntilGone(copy_, folder);
      }
    }
  }

  void Work(Group group, double start, double end) {
    const std::int16_t selection = choice_.option[group];
    switch (FamilyOf(group)) {
      case Family::kCloud:
        return CopyCirrusSet(copy_, selection, start, end);
      case Family::kSky:
        return CopySkySet(copy_, group, selection, start, end);
      case Family::kWater:
        return group == Group::kWaves ? CopyWavesSet(copy_, selection)
                                      : CopyWaterSet(copy_, group, selection, start, end);
    }
  }

  void Work(FixedFolder folder, double start, double end) {
    switch (folder) {
      case FixedFolder::kCld:
        return CopyCldFolder(copy_, start, end);
      case FixedFolder::kCumulus:
        return CopyCumulusFolder(copy_, start, end);
      case FixedFolder::kStratus:
        return CopyStratusFolder(copy_, start, end);
    }
  }

  void Work(Task task, double /*start*/, double /*end*/) {
    switch (task) {
      case Task::kSun:
        return ApplySun(copy_, choice_.sun);
      case Task::kContrails:
        return ApplyContrails(copy_, choice_.contrails);
      case Task::kLoadClouds:
        return LoadClouds();
      case Task::kComposeClouds:
        return ComposeClouds();
      case Task::kPlaceClouds:
        return PlaceClouds();
    }
  }

  void LoadClouds() {
    std::size_t input = 0;
    for (const Group group : {Group::kSolid, Group::kStratus, Group::kWispy}) {
      const FileStatus status = LoadCloud(input++, group);
      composed_ = composed_ == FileStatus::kOk ? status : composed_;
    }
  }

  /// An option outside the catalogue or without a path has no input: its cells stay empty.
  FileStatus LoadCloud(std::size_t input, Group group) {
    const std::string& textures = catalogue_.At(group, choice_.option[group]).Textures;
    if (textures.empty()) {
      return FileStatus::kOk;
    }
    const std::string path = copy_.folders.program + "\\" + textures;
    const std::string suffix = machine_.fast ? "_Fast.bmp" : ".bmp";
    return composer_.PrepareCloudInput(input, path + suffix, path + "_a" + suffix);
  }

  void ComposeClouds() {
    if (composed_ == FileStatus::kOk) {
      composed_ = composer_.ComposeCumulus(machine_);
    }
  }

  /// After a read or write error the texture would have holes or be that of an earlier choice, so
  /// the simulator keeps its own. If the inputs make no texture, that of an earlier run serves.
  void PlaceClouds() {
    const std::string source = copy_.routes.ComposedCumulus();
    const std::string target = copy_.routes.CumulusTarget();
    if (target.empty()) {
      return;
    }
    switch (composed_) {
      case FileStatus::kOk:
      case FileStatus::kNoSource:
      case FileStatus::kNotAFile:
        if (!copy_.files.FileExists(source)) {
          throw ActionFailed(
              "No cumulus cloud texture could be made, so Flight Simulator keeps the one it has.");
        }
        return ReplaceSimulatorFile(copy_, source, target);
      default:
        return ReportFile(copy_, target, composed_);
    }
  }

  const CopyRun& copy_;
  const Choice& choice_;
  const MachineSwitches& machine_;
  const Catalogue& catalogue_;
  CloudComposer composer_;
  FileStatus composed_ = FileStatus::kOk;  ///< of the texture so far
};

}  // namespace

Report Install(const Choice& choice, const MachineSwitches& machine, const Catalogue& catalogue,
               const Folders& folders, Progress& progress) {
  Report report;
  report.installed = choice;
  platform::FileSystem files(kTemporaryPrefix);
  const CopyRoutes routes(catalogue, folders, files);
  const CopyRun copy{routes, files, folders, report, progress};
  try {
    InstallRun(copy, choice, machine, catalogue).Run();
  } catch (const ActionFailed& failure) {
    report.error = failure.what();
  } catch (const std::exception&) {
    report.error = "An error has ended the copying of files to Flight Simulator.";
  }
  return report;
}

}  // namespace nimbrel
