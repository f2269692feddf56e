#include "install/mod_Install.h"

#include <array>
#include <cstdint>
#include <exception>
#include <set>
#include <string>

#include "install/BitmapFunctions.h"
#include "install/CopyFailures.h"
#include "install/CopyPlan.h"
#include "install/mod_CloudComposer.h"
#include "install/mod_CopyFiles.h"
#include "install/mod_SunContrails.h"
#include "platform/files.h"
#include "platform/system.h"
#include "settings/Functions_Configuration.h"
#include "settings/Selection.h"
#include "shell/MainSwitches.h"
#include "shell/frm_Msg.h"
#include "toolkit/forms.h"

namespace nimbrel {
namespace {

constexpr const char* kTitle = "Copying Files to Flight Simulator";
constexpr const char* kCreating =
    "Creating Cumulus Cloud Texture for flight simulator.  This process will take a few moments.";
constexpr const char* kCompleted = "Completed copying environment files to Flight Simulator.";

std::int16_t Chosen(std::int16_t family, std::int16_t group) {
  return CurrentSelection[static_cast<std::size_t>(family)][static_cast<std::size_t>(group)];
}

void Announce(double percent, const std::string& sentence) {
  UpdateProgress(kTitle, sentence + "\r\rPlease stand by...", percent);
}

void AnnounceCopy(double percent, const std::string& what) {
  Announce(percent,
           "Copying " + what + " to flight simulator.  This process will take a few moments.");
}

template <std::int16_t kColumn>
void CopyWater(double start, double end) {
  CopyWaterSet(kColumn, Chosen(kWater, kColumn), start, end);
}

template <std::int16_t kColumn>
void CopySky(double start, double end) {
  CopySkySet(kColumn, Chosen(kSky, kColumn), start, end);
}

void CopyWaves(double, double) { CopyWavesSet(Chosen(kWater, 2)); }

void CopyCirrus(double start, double end) { CopyCirrusSet(Chosen(kCloud, 3), start, end); }

void InstallSun(double start, double) {
  const bool replacement = IsOn(Switches().chk_Sun);
  AnnounceCopy(start, replacement ? "Replacement Sun files" : "Sun files");
  ApplySun(replacement);
}

void InstallContrails(double, double) { ApplyContrails(IsOn(Switches().chk_Contrails)); }

/// An option outside the catalogue, or without a path, gets no path at all: "\.bmp" in the
/// program's folder would be some stray file. Its slot is emptied and its cells stay unfilled.
void LoadCloudInput(std::int16_t input, const std::string& suffix) {
  const std::string& textures = Catalogue.At(kCloud, input, Chosen(kCloud, input)).Textures;
  if (textures.empty()) {
    PrepareCloudInput(input, "", "");
    return;
  }
  const std::string path = platform::ApplicationFolder() + "\\" + textures;
  PrepareCloudInput(input, path + suffix + ".bmp", path + "_a" + suffix + ".bmp");
}

/// A catalogue that names no place for the texture gets none, in silence, as with an empty
/// destination of a set. A run without any texture to put in place is an error: the user asked for
/// clouds that can't be made, and the simulator keeps those it has.
///
/// When the system would not read an input or write a sheet, what there is would be a texture with
/// holes, or that of an earlier selection: the simulator keeps its own then, and the user is told.
void PlaceCumulus() {
  const std::string source = ComposedCumulus();
  if (SheetTrouble != platform::FileStatus::kOk) {
    NoteCopy(CumulusTarget(), SheetTrouble);
    return;
  }
  if (!platform::FileExists(source)) {
    throw RunTimeFailure(
        "No cumulus cloud texture could be made, so Flight Simulator keeps the one it has.");
  }
  if (const std::string target = CumulusTarget(); !target.empty()) {
    ReplaceSimulatorFile(source, target);
  }
}

/// Steps 14 to 16.
void InstallCumulus(double, double) {
  const std::int16_t size_index = IsOn(Switches().chk_Fast) ? 1 : 0;
  Announce(94, kCreating);
  SheetTrouble = platform::FileStatus::kOk;
  for (std::int16_t input = 0; input < 3; ++input) {
    LoadCloudInput(input, size_index == 1 ? "_Fast" : "");
  }
  Announce(96, kCreating);
  ComposeCumulus(size_index, IsOn(Switches().chk_DXT) ? 1 : 0);
  Announce(98, kCreating);
  PlaceCumulus();
}

/// One stage: where it has the progress bar, in percent, what the dialog says is copied (null: the
/// stage does without an update or makes its own), and its work.
struct Stage {
  double start;
  double end;
  const char* what;
  void (*work)(double start, double end);
};
constexpr Stage kStages[] = {
    {0, 20, "Base Water files", CopyWater<0>},
    {20, 24, "Water Reflection files", CopyWater<1>},
    {24, 25, "Wave Height files", CopyWaves},
    {25, 42, "Sunrise Sky Textures", CopySky<0>},
    {42, 52, "Day Sky Textures", CopySky<1>},
    {52, 69, "Sunset Sky Textures", CopySky<2>},
    {69, 73, "Night Sky Textures", CopySky<3>},
    {73, 74, nullptr, InstallSun},
    {74, 74, nullptr, InstallContrails},
    {74, 79, "Cirrus Cloud Textures", CopyCirrus},
    {79, 86, "CLD Cloud Textures", CopyCldFolder},
    {86, 91, "Cumulus Cloud Textures", CopyCumulusFolder},
    {91, 94, "Stratus Cloud Textures", CopyStratusFolder},
    {94, 100, nullptr, InstallCumulus},
};

/// Removes what a killed run left beside its targets, once for each folder that a run writes.
void RemoveLeftovers() {
  const std::string& cumulus = Catalogue.CloudDestination;
  const std::string folders[] = {
      Catalogue.DestinationWater,
      Catalogue.DestinationWaves,
      Catalogue.SkyDestination,
      Catalogue.DestinationCirrus,
      std::string("Texture"),
      std::string("Effects"),
      cumulus.substr(0, cumulus.find_last_of("\\/") + 1),
  };
  std::set<std::string> distinct;
  for (const std::string& folder : folders) {
    std::string pattern = SimulatorRoot + folder + "\\";
    if (distinct.insert(platform::HostPath(pattern)).second &&
        platform::LiesWithin(pattern, SimulatorRoot)) {
      pattern += platform::kTemporaryPattern;
      DeleteUntilGone(pattern);
    }
  }
}

/// What the user sees and may not do during a run. However the run ends, the dialog whose buttons
/// are off goes and the pointer comes back.
class RunOnScreen {
 public:
  RunOnScreen() {
    toolkit::Screen::SetMousePointer(toolkit::kPointerHourglass);
    ShowMessage("Progress", kTitle, kTitle, false, false, true);
  }
  RunOnScreen(const RunOnScreen&) = delete;
  RunOnScreen& operator=(const RunOnScreen&) = delete;
  ~RunOnScreen() {
    HideMessage();
    toolkit::Screen::SetMousePointer(toolkit::kPointerDefault);
  }

 private:
  toolkit::InputGuard no_second_press_;
};

}  // namespace

void InstallSettings() {
  CopyFailures.clear();
  const RunOnScreen screen;
  RemoveLeftovers();
  for (const Stage& stage : kStages) {
    if (stage.what != nullptr) {
      AnnounceCopy(stage.start, stage.what);
    }
    stage.work(stage.start, stage.end);
  }
  Announce(100, kCompleted);
}

std::string RunInstall() {
  try {
    InstallSettings();
    return {};
  } catch (const RunTimeFailure& failure) {
    return failure.what();
  } catch (const std::exception&) {
    return "An error has ended the copying of files to Flight Simulator.";
  }
}

void ReportInstall(const std::string& error) {
  if (error.empty()) {
    ShowMessage("Information", kTitle,
                "All environment files have been copied to Flight Simulator.\r\r"
                "Please press the checkmark to continue.",
                true, false, false);
  } else {
    ShowMessage("Error", kTitle, error + "\r\rPress the checkmark to continue.", true, false,
                false);
  }
  if (!CopyFailures.empty()) {
    ShowMessage("Exclamation", kTitle, CopyFailureText(), true, false, false);
  }
}

void InstallAndReport() { ReportInstall(RunInstall()); }

}  // namespace nimbrel
