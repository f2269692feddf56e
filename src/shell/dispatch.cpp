#include <array>
#include <exception>
#include <string>
#include <string_view>

#include "history/frm_AddFavorite.h"
#include "history/frm_Favorite.h"
#include "history/mod_Favorites.h"
#include "history/mod_History.h"
#include "install/mod_Install.h"
#include "randomizer/frm_RandomizerConstraints.h"
#include "randomizer/frm_RandomizerTabs.h"
#include "randomizer/mod_Randomizer.h"
#include "settings/Selection.h"
#include "settings/mod_Main.h"
#include "settings/mod_WriteConfiguration.h"
#include "shell/Pages.h"
#include "shell/RefreshMainPage.h"
#include "shell/RingActions.h"
#include "shell/RingPage.h"
#include "shell/frm_About.h"
#include "shell/frm_Main.h"
#include "shell/frm_Msg.h"
#include "shell/frm_Preview.h"
#include "shell/frm_Sky.h"
#include "shell/mod_GDIP_PagePainting.h"

namespace nimbrel {
namespace {

constexpr std::int16_t kRandomizeAndInstall = 2;  ///< of PendingMessageAction
constexpr const char* kRandomizeTitle = "Randomize Settings?";

void Minimize() { MainForm().form.Minimize(); }

void GoHome() {
  if (CurrentPage == "frm_Main") {
    return;
  }
  ClosePreview();
  HidePage(CurrentPage);
  CurrentPage = "frm_Main";
  SetPageTitle("Nimbrel Main", "icon_Home.bmp");
  RefreshMainPage();
}

/// What a button of the navigation column opens.
struct Opening {
  toolkit::Form& (*form)();
  const char* title;
  const char* icon;
  void (*draw)();  ///< null: the page holds nothing that is painted
  const char* current_page;
};
constexpr Opening kClouds{[]() -> toolkit::Form& { return CloudPage().form; },
                          "Cloud Texture Options", "icon_3d.bmp", DrawCloudPage, "frm_3d"};
constexpr Opening kSkies{[]() -> toolkit::Form& { return SkyPage().form; },
                         "Sky Backdrop Texture Options", "icon_Sky.bmp", DrawSkyPage, "frm_sky"};
constexpr Opening kWaters{[]() -> toolkit::Form& { return WaterPage().form; },
                          "Water Texture Options", "icon_Water.bmp", DrawWaterPage, "frm_Water"};
constexpr Opening kFavorites{[]() -> toolkit::Form& { return FavoritePage().form; },
                             "Favorites List", "icon_Favorites.bmp", nullptr, "frm_Favorite"};
constexpr Opening kAboutNimbrel{[]() -> toolkit::Form& { return AboutPage().form; },
                                "About Nimbrel", "icon_About.bmp", nullptr, "frm_About"};

template <const Opening& kOpening>
void Open() {
  toolkit::Form& form = kOpening.form();
  ShowPage(form);
  SetPageTitle(kOpening.title, kOpening.icon);
  if (kOpening.draw != nullptr) {
    kOpening.draw();
    form.Refresh();
  }
  CurrentPage = kOpening.current_page;
}

template <void (*kTurn)(TurnDirection), TurnDirection kDirection>
void Turn() {
  kTurn(kDirection);
}

template <void (*kStep)(int), int kBy>
void Step() {
  kStep(kBy);
}

/// The group by its place in kOptionGroups.
template <std::size_t kGroup>
void CheckAll() {
  CheckAllOptions(kGroup);
}

/// The history entry stands before the first file is copied, so that a run that fails half-way can
/// be done again from the list.
void Install() {
  AppendHistory(0);
  RefreshMainPage();
  InstallAndReport();
}

void LoadHistory() {
  const toolkit::ComboBox& combo = MainForm().combo_History;
  if (combo.ListIndex() < 0) {
    return;
  }
  HistoryFocusIndex = static_cast<std::int16_t>(combo.ItemData(combo.ListIndex()));
  LoadHistoryEntry(HistoryFocusIndex);
  HistoryFocusIndex = -1;
  ShowMessage("Information", "History Settings Loaded",
              "The history settings have been loaded into the Nimbrel interface.\r\r"
              "To use these settings in Flight Simulator, press the Save and Install button.\r\r"
              "Press the checkmark to continue.",
              true, false, false);
}

void AskToRandomize() {
  PendingMessageAction = kRandomizeAndInstall;
  ShowMessage("Question", kRandomizeTitle,
              "You are about to randomize the Nimbrel settings and save those changes into Flight "
              "Simulator.\r\rDo you wish to continue?",
              true, true, false);
}

/// Everything before the first file of the simulator is touched. The reason why it broke off, or
/// empty text.
std::string DrawAndRecord() {
  try {
    RandomizeSelection();
    ApplyRandomSelection();
    ShowRandomizerPage(RandomizerTab::kOverviewTab);
    WriteInhibitFlags();
    AppendHistory(1);
    return {};
  } catch (const std::exception& failure) {
    return failure.what();
  }
}

/// The question is still open while all of this runs inside its OK. It is answered before the next
/// message stands: an OK to that one must not draw again.
void RandomizeAndInstall() {
  const std::string unrecorded = DrawAndRecord();
  const std::string error = unrecorded.empty() ? RunInstall() : unrecorded;
  PendingMessageAction = 0;
  if (unrecorded.empty()) {
    ReportInstall(error);
  } else {
    ShowMessage("Error", kRandomizeTitle, error + "\r\rPress the checkmark to continue.", true,
                false, false);
  }
}

void AnswerOk() {
  MessageAnswer = 1;
  if (PendingMessageAction == kDeleteFavorite) {
    DeleteSelectedFavorite();
  }
  if (PendingMessageAction == kRandomizeAndInstall) {
    RandomizeAndInstall();
  }
  HidePage("frm_msg");
}

void AnswerCancel() {
  PendingMessageAction = 0;
  MessageAnswer = 0;
  HidePage("frm_msg");
}

struct ClickRow {
  ButtonClass button_class;
  std::string_view form;
  std::string_view type;
  void (*action)();
};

constexpr auto kClockwise = TurnDirection::kClockwise;
constexpr auto kCounter = TurnDirection::kCounterclockwise;

constexpr std::array kClicks{
    ClickRow{ButtonClass::kSmall, "frm_Main", "exit", [] { ShutDownProgram(); }},
    ClickRow{ButtonClass::kSmall, "frm_Main", "minimize", Minimize},
    ClickRow{ButtonClass::kMedium, "frm_Main", "home", GoHome},
    ClickRow{ButtonClass::kMedium, "frm_Main", "3d", Open<kClouds>},
    ClickRow{ButtonClass::kMedium, "frm_Main", "sky", Open<kSkies>},
    ClickRow{ButtonClass::kMedium, "frm_Main", "water", Open<kWaters>},
    ClickRow{ButtonClass::kMedium, "frm_Main", "randomizer",
             [] { OpenRandomizerTab(RandomizerTab::kOverviewTab); }},
    ClickRow{ButtonClass::kMedium, "frm_Main", "favorite", Open<kFavorites>},
    ClickRow{ButtonClass::kMedium, "frm_Main", "about", Open<kAboutNimbrel>},
    ClickRow{ButtonClass::kMedium, "frm_Main", "help", OpenHelpFile},
    ClickRow{ButtonClass::kLarge, "frm_Main", "install", Install},
    ClickRow{ButtonClass::kLarge, "frm_Main", "load_history", LoadHistory},
    ClickRow{ButtonClass::kLarge, "frm_Main", "add_favorite",
             [] { OpenAddFavorite(kFavoriteOfSelection); }},
    ClickRow{ButtonClass::kStandard, "frm_3d", "clockwise", Turn<TurnCloudRing, kClockwise>},
    ClickRow{ButtonClass::kStandard, "frm_3d", "counterclockwise", Turn<TurnCloudRing, kCounter>},
    ClickRow{ButtonClass::kStandard, "frm_3d", "left", Step<StepCloudOption, -1>},
    ClickRow{ButtonClass::kStandard, "frm_3d", "right", Step<StepCloudOption, 1>},
    ClickRow{ButtonClass::kStandard, "frm_Sky", "clock", Turn<TurnSkyRing, kClockwise>},
    ClickRow{ButtonClass::kStandard, "frm_Sky", "counter", Turn<TurnSkyRing, kCounter>},
    ClickRow{ButtonClass::kStandard, "frm_Sky", "left", Step<StepSkyOption, -1>},
    ClickRow{ButtonClass::kStandard, "frm_Sky", "right", Step<StepSkyOption, 1>},
    ClickRow{ButtonClass::kStandard, "frm_Water", "clockwise", Turn<TurnWaterRing, kClockwise>},
    ClickRow{ButtonClass::kStandard, "frm_Water", "counterclockwise",
             Turn<TurnWaterRing, kCounter>},
    ClickRow{ButtonClass::kStandard, "frm_Water", "left", Step<StepWaterOption, -1>},
    ClickRow{ButtonClass::kStandard, "frm_Water", "right", Step<StepWaterOption, 1>},
    ClickRow{ButtonClass::kLarge, "frm_RandomizerOverview", "randomize", AskToRandomize},
    ClickRow{ButtonClass::kLarge, "frm_RandomizerOverview", "add_favorite",
             [] { OpenAddFavorite(kFavoriteOfRandomizer); }},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerCloud", "solid_checkall", CheckAll<0>},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerCloud", "stratus_checkall", CheckAll<1>},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerCloud", "wispy_checkall", CheckAll<2>},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerCloud", "cirrus_checkall", CheckAll<3>},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerSky", "sunrise_checkall", CheckAll<4>},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerSky", "day_checkall", CheckAll<5>},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerSky", "sunset_checkall", CheckAll<6>},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerSky", "night_checkall", CheckAll<7>},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerWater", "base_checkall", CheckAll<8>},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerWater", "environment_checkall", CheckAll<9>},
    ClickRow{ButtonClass::kStandard, "frm_RandomizerWater", "waves_checkall", CheckAll<10>},
    ClickRow{ButtonClass::kStandard, "frm_AddFavorite", "continue", ContinueAddFavorite},
    ClickRow{ButtonClass::kStandard, "frm_AddFavorite", "cancel", CancelAddFavorite},
    ClickRow{ButtonClass::kStandard, "frm_Favorite", "load", LoadSelectedFavorite},
    ClickRow{ButtonClass::kStandard, "frm_Favorite", "delete", AskToDeleteFavorite},
    ClickRow{ButtonClass::kStandard, "frm_Msg", "ok", AnswerOk},
    ClickRow{ButtonClass::kStandard, "frm_Msg", "cancel", AnswerCancel},
};

}  // namespace

void RunClick(ButtonClass button_class, const std::string& form_name,
              const std::string& button_type) {
  for (const ClickRow& row : kClicks) {
    if (row.button_class == button_class && row.form == form_name && row.type == button_type) {
      row.action();
      return;
    }
  }
}

}  // namespace nimbrel
