#include "app/mod_Main.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>

#include "app/mod_ReadConfiguration.h"
#include "platform/FileSystem.h"
#include "platform/system.h"
#include "settings/Failure.h"
#include "settings/Folders.h"
#include "shell/PageForm.h"
#include "shell/Pages.h"
#include "shell/State.h"
#include "shell/dialogs/frm_AddFavorite.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/dialogs/frm_Splash.h"
#include "shell/dispatch.h"
#include "shell/mod_Favorites.h"
#include "shell/mod_History.h"
#include "shell/mod_Misc.h"
#include "shell/mod_Randomizer.h"
#include "shell/mod_WriteConfiguration.h"
#include "shell/pages/frm_Main.h"
#include "shell/pages/frm_Preview.h"
#include "shell/painting/Pictures.h"
#include "shell/painting/mod_Load_Previews.h"
#include "toolkit/desktop.h"
#include "toolkit/gdiplus.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {
namespace {

void ShowSplash() {
  toolkit::Form& splash = Loaded(ui.forms.splash).form;
  splash.Show();
  splash.Refresh();
}

/// Removes what a run left that was killed while it wrote. The stores do so in their own folders.
void SweepLeftovers() {
  platform::FileSystem files(kTemporaryPrefix);
  for (const char* part : {"", "\\TempBitmaps"}) {
    files.SweepTemporaries(ui.folders.program + part);
  }
}

/// Everything the interface needs.
void LoadAll() {
  ui.HistoryFocusIndex = -1;
  StartGraphics();
  LoadCumulusConfiguration();
  LoadSkyConfiguration();
  LoadWaterConfiguration();
  ui.pictures = std::make_shared<Pictures>(ui.catalogue, ui.folders);
  ReadHistory();
  ListFavorites();
  LoadSkyMinis();
  LoadMainConfiguration();
}

void ShowMainWindow() {
  Loaded(ui.forms.splash).form.Hide();
  Loaded(ui.forms.main).form.Show();
  PaintMainTitle();
}

void RestoreLastState() {
  const auto& entries = ui.history.entries;
  if (entries.empty()) {
    RefreshMainPage();
    return;
  }
  LoadHistoryEntry(static_cast<std::int16_t>(entries.size() - 1));
  const auto randomized =
      std::find_if(entries.rbegin(), entries.rend(),
                   [](const SettingsRecord& entry) { return entry.Source == kFromRandomizer; });
  if (randomized != entries.rend()) {
    ui.RandomizerRecord = *randomized;
    FillRandomizerOverview();
  }
}

/// A failure that no reader has told. The files are left as they are: the start may hold values
/// that were never read.
[[noreturn]] void BreakOffStart(const std::string& reason) {
  ui.ConfigurationLoaded = false;
  try {
    TellFatal("Nimbrel could not start: " + reason + "\r\rPress the checkmark to Exit.");
  } catch (const std::exception&) {
    // Without the dialog there is nothing left to tell it with.
  }
  ShutDownProgram();
}

/// Makes the constraint pages that were never opened, which takes a whole catalogue.
void SaveInhibitFlags() {
  if (ui.ConfigurationLoaded) {
    SaveConstraints();
  }
}

void TakePageOut() {
  if (ui.CurrentPage != "frm_Main") {
    ReleasePreview();
    HidePage(ui.CurrentPage);
  }
}

void ReleasePictures() { ui.pictures.reset(); }

void ReleaseButtons() {
  for (const FormRow& row : FormRows()) {
    if (toolkit::Form* form = row.existing()) {
      ReleaseSkinnedButtons(*form);
    }
  }
}

void ReleaseShapes() {
  const auto release = [](const auto& form) {
    if (form != nullptr) {
      form->shape.reset();
    }
  };
  release(ui.forms.main);
  release(ui.forms.message);
  release(ui.forms.splash);
  release(ui.forms.add_favorite);
}

void ReleaseForms() { ui.forms = {}; }

constexpr std::array kShutDownSteps{WriteMainFlags,  SaveInhibitFlags, TakePageOut,
                                    ReleasePictures, StopGraphics,     ReleaseButtons,
                                    ReleaseShapes,   ReleaseForms};

}  // namespace

void StartProgram() {
  ui.buttons = {ui.folders.program + "\\Media", RunClick};
  ui.ShutDownProgram = ShutDownProgram;
  try {
    ShowSplash();
    SweepLeftovers();
    LoadAll();
    ShowMainWindow();
    RestoreLastState();
  } catch (const std::exception& failure) {
    BreakOffStart(failure.what());
  }
}

void ShutDownProgram() {
  if (ui.ShuttingDown) {
    throw ActionFailed("The program is about to end");
  }
  ui.ShuttingDown = true;
  for (const auto step : kShutDownSteps) {
    try {
      step();
    } catch (const std::exception&) {
      // The remaining steps must still run.
    }
  }
  platform::EndProcess(ui.ConfigurationLoaded ? 0 : 1);
}

void StartGraphics() {
  if (toolkit::GdiplusStartup(ui.GraphicsToken, 1) != toolkit::Status::Ok) {
    toolkit::SystemErrorBox("Error loading GDI+!", "Nimbrel");
    ShutDownProgram();
  }
}

void StopGraphics() { toolkit::GdiplusShutdown(ui.GraphicsToken); }

void ReleaseSkinnedButtons(toolkit::Form& form) {
  for (toolkit::Control* control : form.Controls()) {
    if (auto* button = dynamic_cast<SkinnedButton*>(control)) {
      button->end_sub_class();
    }
  }
}

}  // namespace nimbrel
