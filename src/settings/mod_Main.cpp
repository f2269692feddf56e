#include "settings/mod_Main.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>

#include "history/frm_AddFavorite.h"
#include "history/frm_Favorite.h"
#include "history/mod_History.h"
#include "platform/files.h"
#include "platform/system.h"
#include "randomizer/frm_RandomizerConstraints.h"
#include "randomizer/frm_RandomizerOverview.h"
#include "randomizer/mod_Randomizer.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "settings/Selection.h"
#include "settings/mod_ReadConfiguration.h"
#include "settings/mod_WriteConfiguration.h"
#include "shell/FormLoaded.h"
#include "shell/Pages.h"
#include "shell/RefreshMainPage.h"
#include "shell/RingPage.h"
#include "shell/frm_About.h"
#include "shell/frm_Main.h"
#include "shell/frm_Msg.h"
#include "shell/frm_Preview.h"
#include "shell/frm_Sky.h"
#include "shell/frm_Splash.h"
#include "shell/mod_GDIP_PagePainting.h"
#include "shell/mod_Load_Previews.h"
#include "toolkit/desktop.h"
#include "toolkit/forms.h"
#include "toolkit/gdiplus.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {
namespace {

std::uintptr_t graphics_token = 0;
/// A start that broke off may hold values that were never read: nothing is written back then.
bool start_failed = false;

toolkit::Form& MainWindow() { return MainForm().form; }

/// Left-overs of a run that was killed while it wrote. Those beside the history are its reader's.
void RemoveLeftOvers() {
  const std::string folder = platform::ApplicationFolder();
  for (const char* part : {"", "\\TempBitmaps"}) {
    platform::RemoveTemporaries(folder + part);
  }
}

/// Everything the interface needs. The constant tables need no step: the compiler fills them.
void LoadBehindSplash() {
  SplashForm().form.Show();
  SplashForm().form.Refresh();
  SimulatorRoot = platform::ApplicationFolder() + "\\..\\..\\";
  RemoveLeftOvers();
  HistoryFocusIndex = -1;
  StartGraphics();
  LoadCumulusConfiguration();
  LoadSkyConfiguration();
  LoadWaterConfiguration();
  ReadHistory();
  ListFavorites();
  LoadSkyMinis();
  LoadMainConfiguration();
}

void ShowMainWindow() {
  SplashForm().form.Hide();
  MainForm().form.Show();
  SetPageTitle("Nimbrel Main", "icon_Home.bmp");
}

void BringBackLastState() {
  if (HistoryLastIndex == -1) {
    RefreshMainPage();
    return;
  }
  LoadHistoryEntry(HistoryLastIndex);
  const auto randomized =
      std::find_if(HistoryEntries.rbegin(), HistoryEntries.rend(),
                   [](const SettingsRecord& entry) { return entry.Source == 1; });
  if (randomized != HistoryEntries.rend()) {
    RandomizerRecord = *randomized;
    FillRandomizerOverview();
  }
}

/// A failure that no reader has told the user of: what stands on disk is left as it is.
[[noreturn]] void BreakOffStart(const std::string& reason) {
  start_failed = true;
  try {
    ShowMessage("Error", "Nimbrel Fatal Error",
                "Nimbrel could not start: " + reason + "\r\rPress the checkmark to Exit.", true,
                false, false);
  } catch (const std::exception&) {
    // Without the dialog there is nothing left to tell it with.
  }
  ShutDownProgram();
}

void SaveSettings() {
  if (!start_failed) {
    WriteMainFlags();
  }
}

/// Loads the constraint pages that were never opened, so it is not for a catalogue half read.
void SaveInhibitFlags() {
  if (!start_failed && ConfigurationLoaded()) {
    SaveConstraints();
  }
}

void TakePageOut() {
  if (CurrentPage != "frm_Main") {
    ReleasePreview();
    HidePage(CurrentPage);
  }
}

void DisposePreviews() {
  for (const OptionGroup& group : kOptionGroups) {
    const auto family = static_cast<std::size_t>(group.family);
    const int highest = Catalogue.HighestIndex[family][static_cast<std::size_t>(group.index)];
    for (int option = 0; option <= highest; ++option) {
      TextureOption* row =
          Catalogue.Tables[family].Cell(group.index, static_cast<std::int16_t>(option));
      if (row != nullptr) {
        toolkit::GdipDisposeImage(row->Preview);
      }
    }
  }
}

void DisposeSkyMinis() {
  for (toolkit::GpImage& image : SkyMini) {
    toolkit::GdipDisposeImage(image);
  }
}

/// A form that shutdown gives back, if it was ever loaded.
struct OwnedForm {
  FormId id;
  toolkit::Form& (*form)();
  void (*release)();
  void (*release_shape)() = nullptr;  ///< of the shaped windows
};

/// In the order of their release. The splash has no buttons, so it may stand here for those too.
constexpr std::array kOwnedForms{
    OwnedForm{FormId::kMain, MainWindow, ReleaseMainForm, [] { MainForm().shape.reset(); }},
    OwnedForm{FormId::kMsg, []() -> toolkit::Form& { return MessageForm().form; },
              ReleaseMessageForm, [] { MessageForm().shape.reset(); }},
    OwnedForm{FormId::kSplash, []() -> toolkit::Form& { return SplashForm().form; },
              ReleaseSplashForm, [] { SplashForm().shape.reset(); }},
    OwnedForm{FormId::kAddFavorite, []() -> toolkit::Form& { return AddFavoriteForm().form; },
              ReleaseAddFavoriteForm, [] { AddFavoriteForm().shape.reset(); }},
    OwnedForm{FormId::kCloudPage, []() -> toolkit::Form& { return CloudPage().form; },
              ReleaseCloudPage},
    OwnedForm{FormId::kSkyPage, []() -> toolkit::Form& { return SkyPage().form; }, ReleaseSkyPage},
    OwnedForm{FormId::kWaterPage, []() -> toolkit::Form& { return WaterPage().form; },
              ReleaseWaterPage},
    OwnedForm{FormId::kRandomizerOverview,
              []() -> toolkit::Form& { return RandomizerOverview().form; },
              ReleaseRandomizerOverview},
    OwnedForm{FormId::kRandomizerCloud,
              []() -> toolkit::Form& { return RandomizerPage(kCloud).form; },
              [] { ReleaseRandomizerPage(kCloud); }},
    OwnedForm{FormId::kRandomizerSky, []() -> toolkit::Form& { return RandomizerPage(kSky).form; },
              [] { ReleaseRandomizerPage(kSky); }},
    OwnedForm{FormId::kRandomizerWater,
              []() -> toolkit::Form& { return RandomizerPage(kWater).form; },
              [] { ReleaseRandomizerPage(kWater); }},
    OwnedForm{FormId::kFavorite, []() -> toolkit::Form& { return FavoritePage().form; },
              ReleaseFavoritePage},
    OwnedForm{FormId::kAbout, []() -> toolkit::Form& { return AboutPage().form; },
              ReleaseAboutPage},
};

void ReleaseSkinnedButtons(toolkit::Form& form) {
  for (toolkit::Control* control : form.Controls()) {
    if (auto* button = dynamic_cast<SkinnedButton*>(control)) {
      button->end_sub_class();
    }
  }
}

template <class Step>
void ForEachLoadedForm(Step step) {
  for (const OwnedForm& owned : kOwnedForms) {
    if (IsFormLoaded(owned.id)) {
      step(owned);
    }
  }
}

void ReleaseButtons() {
  ForEachLoadedForm([](const OwnedForm& owned) { ReleaseSkinnedButtons(owned.form()); });
}

void ReleaseShapes() {
  ForEachLoadedForm([](const OwnedForm& owned) {
    if (owned.release_shape != nullptr) {
      owned.release_shape();
    }
  });
}

void ReleaseForms() {
  ForEachLoadedForm([](const OwnedForm& owned) { owned.release(); });
}

constexpr std::array<void (*)(), 9> kShutDownSteps{SaveSettings,    SaveInhibitFlags, TakePageOut,
                                                   DisposePreviews, DisposeSkyMinis,  StopGraphics,
                                                   ReleaseButtons,  ReleaseShapes,    ReleaseForms};

}  // namespace

void StartProgram() {
  DispatchClick = RunClick;
  MessageOwner = MainWindow;
  try {
    LoadBehindSplash();
    ShowMainWindow();
    BringBackLastState();
  } catch (const std::exception& failure) {
    BreakOffStart(failure.what());
  }
}

void ShutDownProgram() {
  // A step that itself ends in a shutdown goes on behind itself, so the program always ends.
  static std::size_t next = 0;
  while (next < kShutDownSteps.size()) {
    try {
      kShutDownSteps[next++]();
    } catch (const std::exception&) {
      // Passed over: the steps behind it give back what is left.
    }
  }
  platform::EndProcess(ConfigurationLoaded() && !start_failed ? 0 : 1);
}

void StartGraphics() {
  if (toolkit::GdiplusStartup(graphics_token, 1) != toolkit::Status::Ok) {
    toolkit::SystemErrorBox("Error loading GDI+!", "Nimbrel");
    ShutDownProgram();
  }
}

void StopGraphics() { toolkit::GdiplusShutdown(graphics_token); }

}  // namespace nimbrel
