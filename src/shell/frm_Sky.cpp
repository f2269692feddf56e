#include "shell/frm_Sky.h"

#include "shell/PageForm.h"

namespace nimbrel {
namespace {

frm_Sky* sky_page = nullptr;

}  // namespace

frm_Sky::frm_Sky()
    : form("frm_Sky"),
      Label7(form, "Label7"),
      lbl_Setting(form, "lbl_Setting"),
      Label2(form, "Label2"),
      GroupLabels{{{form, "Label3"}, {form, "Label4"}, {form, "Label5"}, {form, "Label6"}}},
      lbl_Title{{{form, "lbl_Title(0)"},
                 {form, "lbl_Title(1)"},
                 {form, "lbl_Title(2)"},
                 {form, "lbl_Title(3)"}}},
      Label1(form, "Label1"),
      lbl_Description(form, "lbl_Description"),
      btn_Clockwise(form, "btn_Clockwise"),
      btn_CounterClockwise(form, "btn_CounterClockwise"),
      btn_Left(form, "btn_Left"),
      btn_Right(form, "btn_Right") {
  constexpr std::array<const char*, 4> kGroups{"Sunrise:", "Day:", "Sunset:", "Night:"};
  PlaceLabel(Label7, {10, 6, 141, 16}, "Currently Viewing:");
  PlaceLabel(lbl_Setting, {10, 24, 160, 22});
  lbl_Setting.SetFont(kHeadingFont);
  PlaceLabel(Label2, {10, 284, 141, 16}, "Selected Settings:");
  for (std::size_t group = 0; group < kGroups.size(); ++group) {
    const int top = 301 + 16 * static_cast<int>(group);
    PlaceLabel(GroupLabels[group], {10, top, 51, 16}, kGroups[group]);
    PlaceLabel(lbl_Title[group], {63, top, group == 1 ? 280 : 176, 16});
  }
  PlaceLabel(Label1, {10, 389, 161, 16}, "Current Item Description:");
  PlaceLabel(lbl_Description, {10, 405, 576, 42});
  LoadPageForm(form, FormId::kSkyPage, "Sub_BG.bmp");
  lbl_Setting.SetForeColor(kValueColor);
  lbl_Description.SetForeColor(kValueColor);
  for (toolkit::Label& title : lbl_Title) {
    title.SetForeColor(kValueColor);
  }
  SetUpButton(btn_Clockwise, form,
              {85, 138, "clock", "btn_Sky_Clockwise",
               "Click to rotate the sky texture options in a clockwise direction."});
  SetUpButton(btn_CounterClockwise, form,
              {472, 138, "counter", "btn_Sky_CounterClockwise",
               "Click to rotate the sky texture options in a counter-clockwise direction."});
  constexpr const char* kStepTip = "Click change the selected sky texture option.";
  SetUpButton(btn_Left, form, {256, 338, "left", "btn_Left", kStepTip});
  SetUpButton(btn_Right, form, {300, 338, "right", "btn_Right", kStepTip});
}

frm_Sky& SkyPage() { return LoadedPage(sky_page); }
void ReleaseSkyPage() { ReleasePage(sky_page, FormId::kSkyPage); }

}  // namespace nimbrel
