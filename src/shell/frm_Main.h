#pragma once

#include <array>
#include <memory>

#include "settings/Catalogue.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {

/// The main window and first page: the navigation column, the panel that every page lies over, and
/// on the panel the summary of the selection, the switches and the history.
struct frm_Main {
  frm_Main();

  std::unique_ptr<clsTransForm> shape;
  toolkit::Form form{"frm_Main"};
  toolkit::PictureBox pic_ScreenIcon{form, "pic_ScreenIcon"};
  toolkit::Label lbl_SelectOption{form, "lbl_SelectOption"};
  SmallButton btn_Exit{form, "btn_Exit"};
  SmallButton btn_Minimize{form, "btn_Minimize"};
  MediumButton btn_Home{form, "btn_Home"};
  MediumButton btn_3d{form, "btn_3d"};
  MediumButton btn_Sky{form, "btn_Sky"};
  MediumButton btn_Water{form, "btn_Water"};
  MediumButton btn_Randomizer{form, "btn_Randomizer"};
  MediumButton btn_Favorites{form, "btn_Favorites"};
  MediumButton btn_Help{form, "btn_Help"};
  MediumButton btn_About{form, "btn_About"};

  toolkit::PictureBox pic_Main{form, "pic_Main"};
  toolkit::Label Label19{pic_Main, "Label19"};
  toolkit::ComboBox combo_History{pic_Main, "combo_History"};
  LargeButton btn_History{pic_Main, "btn_History"};

  toolkit::Label Label2{pic_Main, "Label2"};
  toolkit::Label Label3{pic_Main, "Label3"};
  toolkit::Label Label4{pic_Main, "Label4"};
  toolkit::Label Label5{pic_Main, "Label5"};
  toolkit::Label Label6{pic_Main, "Label6"};
  toolkit::Label lbl_Cloud_Solid{pic_Main, "lbl_Cloud_Solid"};
  toolkit::Label lbl_Cloud_Stratus{pic_Main, "lbl_Cloud_Stratus"};
  toolkit::Label lbl_Cloud_Wispy{pic_Main, "lbl_Cloud_Wispy"};
  toolkit::Label lbl_Cloud_Cirrus{pic_Main, "lbl_Cloud_Cirrus"};

  toolkit::Label Label11{pic_Main, "Label11"};
  toolkit::Label Label10{pic_Main, "Label10"};
  toolkit::Label Label9{pic_Main, "Label9"};
  toolkit::Label Label8{pic_Main, "Label8"};
  toolkit::Label Label7{pic_Main, "Label7"};
  toolkit::Label lbl_Sky_Sunrise{pic_Main, "lbl_Sky_Sunrise"};
  toolkit::Label lbl_Sky_Day{pic_Main, "lbl_Sky_Day"};
  toolkit::Label lbl_Sky_Sunset{pic_Main, "lbl_Sky_Sunset"};
  toolkit::Label lbl_Sky_Night{pic_Main, "lbl_Sky_Night"};

  toolkit::Label Label16{pic_Main, "Label16"};
  toolkit::Label Label15{pic_Main, "Label15"};
  toolkit::Label Label14{pic_Main, "Label14"};
  toolkit::Label Label13{pic_Main, "Label13"};
  toolkit::Label lbl_Water_Base{pic_Main, "lbl_Water_Base"};
  toolkit::Label lbl_Water_Environment{pic_Main, "lbl_Water_Environment"};
  toolkit::Label lbl_Water_Waves{pic_Main, "lbl_Water_Waves"};

  toolkit::CheckBox chk_Fast{pic_Main, "chk_Fast"};
  toolkit::Label lbl_Check_Fast{pic_Main, "lbl_Check_Fast"};
  toolkit::CheckBox chk_DXT{pic_Main, "chk_DXT"};
  toolkit::Label lbl_Check_DXT{pic_Main, "lbl_Check_DXT"};
  toolkit::CheckBox chk_Sun{pic_Main, "chk_Sun"};
  toolkit::Label lbl_Check_Sun{pic_Main, "lbl_Check_Sun"};
  toolkit::CheckBox chk_Contrails{pic_Main, "chk_Contrails"};
  toolkit::Label lbl_Check_Contrails{pic_Main, "lbl_Check_Contrails"};

  LargeButton btn_AddFavorite{pic_Main, "btn_AddFavorite"};
  LargeButton btn_Install{pic_Main, "btn_Install"};
  toolkit::Label lbl_PreviewText{pic_Main, "lbl_PreviewText"};
  toolkit::Label lbl_Version{pic_Main, "lbl_Version"};

  /// Transparent labels over the mini previews, which take the clicks on them: the control arrays
  /// lbl_CloudPreview, lbl_SkyPreview and lbl_WaterPreview, in the order of kOptionGroups.
  std::array<std::unique_ptr<toolkit::Label>, kOptionGroups.size()> preview_spots;

 private:
  void PlaceControls();
  void MakePreviewSpots();
  void ShapeWindow();
  void ColourControls();
  void PlaceButtons();
  void WireDragging();
  void WireSwitches();
};

/// The form, loaded at the first call.
frm_Main& MainForm();
/// For shutdown.
void ReleaseMainForm();

/// The label with the title of each group's option, in the order of kOptionGroups.
inline constexpr std::array<toolkit::Label frm_Main::*, kOptionGroups.size()> kSummaryLabels{
    &frm_Main::lbl_Cloud_Solid,       &frm_Main::lbl_Cloud_Stratus, &frm_Main::lbl_Cloud_Wispy,
    &frm_Main::lbl_Cloud_Cirrus,      &frm_Main::lbl_Sky_Sunrise,   &frm_Main::lbl_Sky_Day,
    &frm_Main::lbl_Sky_Sunset,        &frm_Main::lbl_Sky_Night,     &frm_Main::lbl_Water_Base,
    &frm_Main::lbl_Water_Environment, &frm_Main::lbl_Water_Waves};

/// Size of a mini preview and its place on pic_Main, pixels: a column for each group index, a row
/// for each family.
inline constexpr int kMiniWidth = 47;
inline constexpr int kMiniHeight = 35;
constexpr int MiniLeft(const OptionGroup& group) { return 355 + 60 * group.index; }
constexpr int MiniTop(const OptionGroup& group) { return 73 + 110 * group.family; }

/// Left and top of the panel in the main window, pixels: pic_Main, and each page over it.
inline constexpr int kPanelLeft = 177;
inline constexpr int kPanelTop = 128;

}  // namespace nimbrel
