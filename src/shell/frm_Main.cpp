#include "shell/frm_Main.h"

#include <string>

#include "platform/system.h"
#include "settings/Selection.h"
#include "settings/mod_Main.h"
#include "shell/FormLoaded.h"
#include "shell/MainSwitches.h"
#include "shell/PageForm.h"
#include "shell/RefreshMainPage.h"
#include "shell/frm_Preview.h"
#include "widgets/SmallFontFix.h"

namespace nimbrel {
namespace {

constexpr int kWindowWidth = 798;
constexpr int kWindowHeight = 603;
constexpr int kPanelWidth = 596;
constexpr int kPanelHeight = 450;

struct LabelRow {
  toolkit::Label frm_Main::*label;
  int left;
  int top;
  int width;
  int height;
  const char* text;
};

constexpr std::array kLabels{
    // Centred over the navigation buttons, whose column is 142 pixels wide from 24.
    LabelRow{&frm_Main::lbl_SelectOption, 32, 91, 126, 18, "Select Option"},
    LabelRow{&frm_Main::Label19, 10, 13, 212, 16, "Settings History"},
    LabelRow{&frm_Main::Label2, 10, 73, 221, 16, "Current Cloud Settings:"},
    LabelRow{&frm_Main::Label3, 10, 98, 95, 16, "Solid Cumulus:"},
    LabelRow{&frm_Main::Label4, 10, 114, 95, 16, "Stratus:"},
    LabelRow{&frm_Main::Label5, 10, 130, 95, 16, "Wispy Edges:"},
    LabelRow{&frm_Main::Label6, 10, 146, 95, 16, "Cirrus:"},
    LabelRow{&frm_Main::lbl_Cloud_Solid, 108, 98, 242, 16, ""},
    LabelRow{&frm_Main::lbl_Cloud_Stratus, 108, 114, 242, 16, ""},
    LabelRow{&frm_Main::lbl_Cloud_Wispy, 108, 130, 242, 16, ""},
    LabelRow{&frm_Main::lbl_Cloud_Cirrus, 108, 146, 242, 16, ""},
    LabelRow{&frm_Main::Label11, 10, 183, 221, 16, "Current Sky Texture Settings:"},
    LabelRow{&frm_Main::Label10, 10, 208, 95, 16, "Sunrise:"},
    LabelRow{&frm_Main::Label9, 10, 224, 95, 16, "Day:"},
    LabelRow{&frm_Main::Label8, 10, 240, 95, 16, "Sunset:"},
    LabelRow{&frm_Main::Label7, 10, 256, 95, 16, "Night:"},
    LabelRow{&frm_Main::lbl_Sky_Sunrise, 108, 208, 242, 16, ""},
    LabelRow{&frm_Main::lbl_Sky_Day, 108, 224, 242, 16, ""},
    LabelRow{&frm_Main::lbl_Sky_Sunset, 108, 240, 242, 16, ""},
    LabelRow{&frm_Main::lbl_Sky_Night, 108, 256, 242, 16, ""},
    LabelRow{&frm_Main::Label16, 10, 293, 221, 16, "Current Water Settings:"},
    LabelRow{&frm_Main::Label15, 10, 318, 95, 16, "Base Color Set:"},
    LabelRow{&frm_Main::Label14, 10, 334, 95, 16, "Reflection Set:"},
    LabelRow{&frm_Main::Label13, 10, 350, 95, 16, "Wave Height:"},
    LabelRow{&frm_Main::lbl_Water_Base, 108, 318, 242, 16, ""},
    LabelRow{&frm_Main::lbl_Water_Environment, 108, 334, 242, 16, ""},
    LabelRow{&frm_Main::lbl_Water_Waves, 108, 350, 242, 16, ""},
    LabelRow{&frm_Main::lbl_Check_Fast, 371, 112, 222, 29,
             "Check to create lower resolution and quality but higher speed clouds"},
    LabelRow{&frm_Main::lbl_Check_DXT, 371, 145, 222, 29,
             "Check to create DXT3 Cloud Textures, leave unchecked for Normal 32bit"},
    LabelRow{&frm_Main::lbl_Check_Sun, 371, 240, 222, 16, "Check to use Replacement Sun"},
    LabelRow{&frm_Main::lbl_Check_Contrails, 371, 256, 222, 16, "Check to use Extended Contrails"},
    LabelRow{&frm_Main::lbl_PreviewText, 4, 423, 587, 16, kPreviewClosedText},
    LabelRow{&frm_Main::lbl_Version, 551, 436, 43, 13, ""},
};

constexpr std::array kHeadings{&frm_Main::Label19, &frm_Main::Label2, &frm_Main::Label11,
                               &frm_Main::Label16};

/// A check box and the label beside it that toggles it.
struct SwitchRow {
  toolkit::CheckBox frm_Main::*box;
  toolkit::Label frm_Main::*label;
  int top;  ///< of the box
};
constexpr std::array kSwitches{
    SwitchRow{&frm_Main::chk_Fast, &frm_Main::lbl_Check_Fast, 119},
    SwitchRow{&frm_Main::chk_DXT, &frm_Main::lbl_Check_DXT, 152},
    SwitchRow{&frm_Main::chk_Sun, &frm_Main::lbl_Check_Sun, 241},
    SwitchRow{&frm_Main::chk_Contrails, &frm_Main::lbl_Check_Contrails, 257},
};

template <class Button>
struct ButtonRow {
  Button frm_Main::*button;
  ButtonSetup setup;
  const char* text = "";
};

constexpr std::array kSmallButtons{
    ButtonRow<SmallButton>{&frm_Main::btn_Exit,
                           {754, 12, "exit", "btn_Exit", "Click to Exit Nimbrel."}},
    ButtonRow<SmallButton>{
        &frm_Main::btn_Minimize,
        {722, 12, "minimize", "btn_Minimize", "Click to Minimize the Nimbrel interface."}},
};

constexpr std::array kMediumButtons{
    ButtonRow<MediumButton>{
        &frm_Main::btn_Home,
        {24, 121, "home", "btn_Home", "Click to access the Main page of the Nimbrel interface."},
        "Main"},
    ButtonRow<MediumButton>{&frm_Main::btn_3d,
                            {24, 171, "3d", "btn_3d",
                             "Click to access the Cloud Options page of the Nimbrel interface."},
                            "Cloud Options"},
    ButtonRow<MediumButton>{
        &frm_Main::btn_Sky,
        {24, 221, "sky", "btn_Sky",
         "Click to access the Sky Texture Options page of the Nimbrel interface."},
        "Sky Options"},
    ButtonRow<MediumButton>{
        &frm_Main::btn_Water,
        {24, 271, "water", "btn_Water",
         "Click to access the Water Texture Options page of the Nimbrel interface."},
        "Water Options"},
    ButtonRow<MediumButton>{
        &frm_Main::btn_Randomizer,
        {24, 321, "randomizer", "btn_Randomizer",
         "Click to access the Randomizer Settings page of the Nimbrel interface."},
        "Randomizer"},
    ButtonRow<MediumButton>{&frm_Main::btn_Favorites,
                            {24, 371, "favorite", "btn_Favorites",
                             "Click to access the Favorites List page of the Nimbrel interface."},
                            "Favorites"},
    ButtonRow<MediumButton>{
        &frm_Main::btn_Help,
        {24, 475, "help", "btn_Help", "Click to access Help on the Nimbrel interface."},
        "Help"},
    ButtonRow<MediumButton>{
        &frm_Main::btn_About,
        {24, 525, "about", "btn_About", "Click to access the About screen of Nimbrel."},
        "About"},
};

/// These stand on the panel and follow the font scale; those of the window frame don't.
constexpr std::array kLargeButtons{
    ButtonRow<LargeButton>{
        &frm_Main::btn_Install,
        {305, 378, "install", "btn_Save",
         "Click to install the selected Nimbrel options into Flight Simulator."}},
    ButtonRow<LargeButton>{
        &frm_Main::btn_AddFavorite,
        {165, 378, "add_favorite", "btn_AddFavorites",
         "Click to save the currently selected options to your Favorites List."}},
    ButtonRow<LargeButton>{
        &frm_Main::btn_History,
        {255, 20, "load_history", "btn_History",
         "Click to set the selected History option into the Nimbrel interface."}},
};

template <class Rows>
void SetUpButtons(frm_Main& main, const Rows& rows, double scale) {
  for (const auto& row : rows) {
    ButtonSetup setup = row.setup;
    setup.left *= scale;
    setup.top *= scale;
    auto& button = main.*row.button;
    SetUpButton(button, main.form, setup);
    if constexpr (requires { button.SetButtonText(row.text); }) {
      button.SetButtonText(row.text);
    }
  }
}

std::string VersionCaption() {
  const platform::Version version = platform::ProgramVersion();
  return "Version " + std::to_string(version.major) + "." + std::to_string(version.minor) +
         std::to_string(version.revision);
}

std::string MediaFile(const char* name) {
  return platform::ApplicationFolder() + "\\Media\\" + name;
}

void SetHandPointer(toolkit::Control& control) {
  control.SetMouseIcon(toolkit::HandCursor());
  control.SetMousePointer(toolkit::kPointerCustom);
}

void Toggle(toolkit::CheckBox& box) { box.SetValue(IsOn(box) ? 0 : 1); }

/// Freed by its release alone: static objects end after the toolkit does.
frm_Main* main_form = nullptr;

}  // namespace

frm_Main::frm_Main() {
  PlaceControls();
  lbl_Version.SetCaption(VersionCaption());
  shape = std::make_unique<clsTransForm>();
  FixFormForFontSize(form);
  ShapeWindow();
  SetFormLoaded(FormId::kMain);
  ColourControls();
  PlaceButtons();
  pic_Main.SetPicture(MediaFile("SubLighter_BG.bmp"));
  for (const auto label : kSummaryLabels) {
    (this->*label).SetForeColor(kValueColor);
  }
  WireDragging();
  WireSwitches();
  form.QueryUnload = [] { ShutDownProgram(); };
}

void frm_Main::PlaceControls() {
  pic_ScreenIcon.PlacePixels(180, 79, 44, 44);
  pic_Main.PlacePixels(kPanelLeft, kPanelTop, kPanelWidth, kPanelHeight);
  combo_History.PlacePixels(10, 31, 236, 21);
  for (const LabelRow& row : kLabels) {
    (this->*row.label).PlacePixels(row.left, row.top, row.width, row.height);
    (this->*row.label).SetCaption(row.text);
  }
  for (const auto heading : kHeadings) {
    (this->*heading).SetFont({.weight = 700, .bold = true});
  }
  lbl_SelectOption.SetFont({.size = 9.75F});
  lbl_SelectOption.SetAlignment(toolkit::kAlignCenter);
  for (const SwitchRow& row : kSwitches) {
    (this->*row.box).PlacePixels(353, row.top, 14, 14);
  }
  chk_Sun.SetValue(1);
  chk_Contrails.SetValue(1);
  MakePreviewSpots();
}

void frm_Main::MakePreviewSpots() {
  constexpr std::array<const char*, kFamilies> kNames{"lbl_CloudPreview", "lbl_SkyPreview",
                                                      "lbl_WaterPreview"};
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    const OptionGroup& group = kOptionGroups[i];
    const std::string name = std::string(kNames[static_cast<std::size_t>(group.family)]) + "(" +
                             std::to_string(group.index) + ")";
    preview_spots[i] = std::make_unique<toolkit::Label>(pic_Main, name);
    preview_spots[i]->PlacePixels(MiniLeft(group), MiniTop(group), kMiniWidth, kMiniHeight);
    preview_spots[i]->Click = [&group] { ShowMainPreview(group); };
    SetHandPointer(*preview_spots[i]);
  }
}

/// Without its artwork the window is a plain rectangle of the same size: everything on it works.
void frm_Main::ShapeWindow() {
  form.SetCaption("Nimbrel");
  form.PlacePixels(0, 0, kWindowWidth, kWindowHeight);
  form.CenterOnScreen();
  form.SetMouseIcon(toolkit::LoadCursorFile(MediaFile("HMOVE.cur")));
  ShapeFromFile(*shape, form, "\\Media\\MainRegion.dat");
  form.SetBackColor(kPlainColor);
  pic_Main.SetBackColor(kPlainColor);
  pic_ScreenIcon.SetBackColor(kPlainColor);
  form.SetPicture(MediaFile("MainInterface.bmp"));
  form.SetIconPicture(MediaFile("icon_Home.bmp"));
}

/// What is inside a button is the button's own and keeps its colours.
void frm_Main::ColourControls() {
  for (toolkit::Control* control : form.Controls()) {
    const toolkit::HWND parent = toolkit::GetParent(control->hWnd());
    if (parent != form.hWnd() && parent != pic_Main.hWnd()) {
      continue;
    }
    if (control->Kind() == toolkit::ControlKind::kLabel) {
      auto& label = static_cast<toolkit::Label&>(*control);
      label.SetForeColor(kTextColor);
      label.SetTransparent(true);
    } else if (control->Kind() == toolkit::ControlKind::kCheckBox) {
      control->SetBackColor(kPlainColor);
    }
  }
}

void frm_Main::PlaceButtons() {
  SetUpButtons(*this, kSmallButtons, 1.0);
  SetUpButtons(*this, kMediumButtons, 1.0);
  SetUpButtons(*this, kLargeButtons, static_cast<double>(FontScaleFactor));
}

void frm_Main::WireDragging() {
  DraggedForm = &form;
  form.MouseDown = [this](const toolkit::MouseEvent& event) {
    if (event.button == toolkit::kLeftButton) {
      form.SetMousePointer(toolkit::kPointerCustom);
    }
  };
  form.MouseMove = [this](const toolkit::MouseEvent& event) {
    if (event.button == toolkit::kLeftButton) {
      clsTransForm::DragForm(form.hWnd(), event.button);
    }
  };
  form.MouseUp = [this](const toolkit::MouseEvent&) {
    if (form.MousePointer() == toolkit::kPointerCustom) {
      form.SetMousePointer(toolkit::kPointerDefault);
    }
  };
}

void frm_Main::WireSwitches() {
  for (const SwitchRow& row : kSwitches) {
    toolkit::CheckBox& box = this->*row.box;
    toolkit::Label& label = this->*row.label;
    label.Click = [&box] { Toggle(box); };
    label.DblClick = label.Click;
    SetHandPointer(box);
    SetHandPointer(label);
  }
}

frm_Main& MainForm() {
  if (main_form == nullptr) {
    main_form = new frm_Main;
  }
  return *main_form;
}

void ReleaseMainForm() {
  delete main_form;
  main_form = nullptr;
  DraggedForm = nullptr;
  ClearFormLoaded(FormId::kMain);
}

MainSwitches Switches() {
  frm_Main& main = MainForm();
  return {main.chk_Sun, main.chk_Contrails, main.chk_DXT, main.chk_Fast};
}

}  // namespace nimbrel
