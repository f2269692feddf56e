#include "shell/pages/frm_Main.h"

#include <array>
#include <span>
#include <string>

#include "settings/Version.h"
#include "shell/State.h"
#include "shell/painting/PagePainting.h"
#include "toolkit/gdiplus.h"
#include "widgets/SkinnedButtons.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {
namespace {

constexpr ShapedWindowSpec kWindow{"Nimbrel", 798, 603, "MainRegion.dat", "MainInterface.bmp"};
constexpr int kPanelWidth = 596;
constexpr int kPanelHeight = 450;
constexpr toolkit::RectF kTitlePlace{230, 79, 500, 44};

constexpr std::array kCaptions{
    CaptionRow{"Label19", "Settings History", {10, 13, 212, 16}, true},
    CaptionRow{"Label2", "Current Cloud Settings:", {10, 73, 221, 16}, true},
    CaptionRow{"Label3", "Solid Cumulus:", {10, 98, 95, 16}},
    CaptionRow{"Label4", "Stratus:", {10, 114, 95, 16}},
    CaptionRow{"Label5", "Wispy Edges:", {10, 130, 95, 16}},
    CaptionRow{"Label6", "Cirrus:", {10, 146, 95, 16}},
    CaptionRow{"Label11", "Current Sky Texture Settings:", {10, 183, 221, 16}, true},
    CaptionRow{"Label10", "Sunrise:", {10, 208, 95, 16}},
    CaptionRow{"Label9", "Day:", {10, 224, 95, 16}},
    CaptionRow{"Label8", "Sunset:", {10, 240, 95, 16}},
    CaptionRow{"Label7", "Night:", {10, 256, 95, 16}},
    CaptionRow{"Label16", "Current Water Settings:", {10, 293, 221, 16}, true},
    CaptionRow{"Label15", "Base Color Set:", {10, 318, 95, 16}},
    CaptionRow{"Label14", "Reflection Set:", {10, 334, 95, 16}},
    CaptionRow{"Label13", "Wave Height:", {10, 350, 95, 16}},
};
constexpr int kTitleLeft = 108;
constexpr int kTitleWidth = 242;
/// Each family has a row of previews; its titles begin 25 pixels below that row's top.
constexpr int TitleTop(const GroupFacts& group) {
  return kMainPreviews.Top(group.group) + 25 + 16 * IndexInFamily(group.group);
}

/// A check box and the label beside it that toggles it.
struct SwitchRow {
  toolkit::CheckBox frm_Main::*box;
  int top;  ///< of the box
  CaptionRow label;
};
constexpr std::array kSwitches{
    SwitchRow{&frm_Main::chk_Fast,
              119,
              {"lbl_Check_Fast",
               "Check to create lower resolution and quality but higher speed clouds",
               {371, 112, 222, 29}}},
    SwitchRow{&frm_Main::chk_DXT,
              152,
              {"lbl_Check_DXT",
               "Check to create DXT3 Cloud Textures, leave unchecked for Normal 32bit",
               {371, 145, 222, 29}}},
    SwitchRow{&frm_Main::chk_Sun,
              241,
              {"lbl_Check_Sun", "Check to use Replacement Sun", {371, 240, 222, 16}}},
    SwitchRow{&frm_Main::chk_Contrails,
              257,
              {"lbl_Check_Contrails", "Check to use Extended Contrails", {371, 256, 222, 16}}},
};

struct ButtonRow {
  const char* name;
  ButtonSetup setup;
  const char* text = "";  ///< of a medium button
};
constexpr std::array kSmallButtons{
    ButtonRow{"btn_Exit", {754, 12, "exit", "btn_Exit", "Click to Exit Nimbrel."}},
    ButtonRow{"btn_Minimize",
              {722, 12, "minimize", "btn_Minimize", "Click to Minimize the Nimbrel interface."}},
};
constexpr std::array kMediumButtons{
    ButtonRow{
        "btn_Home",
        {24, 121, "home", "btn_Home", "Click to access the Main page of the Nimbrel interface."},
        "Main"},
    ButtonRow{"btn_3d",
              {24, 171, "3d", "btn_3d",
               "Click to access the Cloud Options page of the Nimbrel interface."},
              "Cloud Options"},
    ButtonRow{"btn_Sky",
              {24, 221, "sky", "btn_Sky",
               "Click to access the Sky Texture Options page of the Nimbrel interface."},
              "Sky Options"},
    ButtonRow{"btn_Water",
              {24, 271, "water", "btn_Water",
               "Click to access the Water Texture Options page of the Nimbrel interface."},
              "Water Options"},
    ButtonRow{"btn_Randomizer",
              {24, 321, "randomizer", "btn_Randomizer",
               "Click to access the Randomizer Settings page of the Nimbrel interface."},
              "Randomizer"},
    ButtonRow{"btn_Favorites",
              {24, 371, "favorite", "btn_Favorites",
               "Click to access the Favorites List page of the Nimbrel interface."},
              "Favorites"},
    ButtonRow{"btn_Help",
              {24, 475, "help", "btn_Help", "Click to access Help on the Nimbrel interface."},
              "Help"},
    ButtonRow{"btn_About",
              {24, 525, "about", "btn_About", "Click to access the About screen of Nimbrel."},
              "About"},
};
constexpr std::array kLargeButtons{
    ButtonRow{"btn_Install",
              {305, 378, "install", "btn_Save",
               "Click to install the selected Nimbrel options into Flight Simulator."}},
    ButtonRow{"btn_AddFavorite",
              {165, 378, "add_favorite", "btn_AddFavorites",
               "Click to save the currently selected options to your Favorites List."}},
    ButtonRow{"btn_History",
              {255, 20, "load_history", "btn_History",
               "Click to set the selected History option into the Nimbrel interface."}},
};

template <class Button>
void AddButtons(frm_Main& main, toolkit::Container& container, std::span<const ButtonRow> rows) {
  for (const ButtonRow& row : rows) {
    auto button = std::make_unique<Button>(container, row.name);
    PlaceButton(*button, main.form, row.setup);
    if constexpr (requires { button->SetButtonText(row.text); }) {
      button->SetButtonText(row.text);
    }
    main.buttons.push_back(std::move(button));
  }
}

/// The number without its last dot.
std::string VersionCaption() {
  std::string digits = kVersion;
  digits.erase(digits.rfind('.'), 1);
  return "Version " + digits;
}

}  // namespace

frm_Main::frm_Main() {
  shape = LoadShapedForm(form, kWindow);
  form.SetIconPicture(MediaFile("icon_Home.bmp"));
  PlaceControls();
  PlaceSwitches();
  PlaceButtons();
  WireDragging();
  form.QueryUnload = [] { ui.ShutDownProgram(); };
}

frm_Main::~frm_Main() = default;

void frm_Main::PlaceControls() {
  pic_ScreenIcon.PlacePixels(180, 79, 44, 44);
  pic_ScreenIcon.SetBackColor(kPlainColor);
  // Centred over the navigation buttons, whose column is 142 pixels wide from 24.
  PlaceLabel(lbl_SelectOption, {32, 91, 126, 18}, "Select Option");
  lbl_SelectOption.SetFont(kRingFont);
  lbl_SelectOption.SetAlignment(toolkit::kAlignCenter);
  pic_Main.PlacePixels(kPanelLeft, kPanelTop, kPanelWidth, kPanelHeight);
  pic_Main.SetBackColor(kPlainColor);
  pic_Main.SetPicture(MediaFile("SubLighter_BG.bmp"));
  combo_History.PlacePixels(10, 31, 236, 21);
  captions = MakeCaptions(pic_Main, kCaptions);
  titles = MakeTitleLabels(pic_Main, kTitleLeft, kTitleWidth, TitleTop);
  PlaceLabel(lbl_PreviewText, {4, 423, 587, 16}, kPreviewClosedText);
  PlaceLabel(lbl_Version, {551, 436, 43, 13}, VersionCaption());
  preview_spots = MakePreviewSpots(pic_Main, kMainPreviews, form);
}

void frm_Main::PlaceSwitches() {
  for (const SwitchRow& row : kSwitches) {
    toolkit::CheckBox& box = this->*row.box;
    box.PlacePixels(353, row.top, 14, 14);
    box.SetBackColor(kPlainColor);
    SetHandPointer(box);
    toolkit::Label& label =
        *switch_labels.emplace_back(std::make_unique<toolkit::Label>(pic_Main, row.label.name));
    PlaceLabel(label, row.label.place, row.label.text);
    label.Click = [&box] { Set(box, !IsOn(box)); };
    label.DblClick = label.Click;
    SetHandPointer(label);
  }
  Set(chk_Sun, true);
  Set(chk_Contrails, true);
}

void frm_Main::PlaceButtons() {
  AddButtons<SmallButton>(*this, form, kSmallButtons);
  AddButtons<MediumButton>(*this, form, kMediumButtons);
  AddButtons<LargeButton>(*this, pic_Main, kLargeButtons);
}

void frm_Main::WireDragging() {
  form.MouseDown = [this](const toolkit::MouseEvent& event) {
    if (event.button == toolkit::kLeftButton) {
      form.SetMousePointer(toolkit::kPointerCustom);
    }
  };
  form.MouseMove = [this](const toolkit::MouseEvent& event) {
    if (event.button == toolkit::kLeftButton) {
      clsTransForm::DragForm(form, event.button);
    }
  };
  form.MouseUp = [this](const toolkit::MouseEvent&) {
    if (form.MousePointer() == toolkit::kPointerCustom) {
      form.SetMousePointer(toolkit::kPointerDefault);
    }
  };
}

void SetPageTitle(std::string_view title, std::string_view icon_file) {
  frm_Main& main = Loaded(ui.forms.main);
  DrawHead(main.form, main.pic_ScreenIcon, kTitlePlace, title, icon_file);
}

}  // namespace nimbrel
