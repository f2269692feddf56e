#include "shell/RingPage.h"

#include <string>

#include "platform/system.h"
#include "settings/Selection.h"
#include "shell/PageForm.h"
#include "shell/mod_GDIP_Rings.h"

namespace nimbrel {
namespace {

constexpr std::array<std::string_view, 4> kCloudBase{
    "Solid Cumulus: ", "Stratus: ", "Wispy Edges: ", "Cirrus: "};
constexpr std::array<std::string_view, 4> kCloudOther{
    "Solid: ", "Stratus: ", "Wispy: ", "Cirrus: "};
constexpr std::array<std::string_view, 3> kWaterPrefix{"Base Color: ", "Reflectivity: ", "Waves: "};

const RingPageLook kCloudLook{
    "frm_3d",
    FormId::kCloudPage,
    kCloud,
    &kCloudRing,
    &CloudFrontGroup,
    kCloudBase,
    kCloudOther,
    "Click to rotate the cloud options in a clockwise direction.",
    "Click to rotate the cloud options in a counter-clockwise direction.",
    "Click change the selected cloud option.",
    "Click to change the selected cloud option.",
};
const RingPageLook kWaterLook{
    "frm_Water",
    FormId::kWaterPage,
    kWater,
    &kWaterRing,
    &WaterFrontGroup,
    kWaterPrefix,
    kWaterPrefix,
    "Click to rotate the water texture options in a clockwise direction.",
    "Click to rotate the water texture options in a counter-clockwise direction.",
    "Click change the selected water texture option.",
    "Click change the selected water texture option.",
};

std::vector<ReadyFrame> FramesOf(std::span<const OrbitSlot> orbit) {
  std::vector<ReadyFrame> frames;
  for (std::size_t slot = 0; slot < orbit.size(); ++slot) {
    const float radius = kCornerRadius[slot];
    frames.push_back(MakeReadyFrame(PlaceOf(orbit[slot]), {radius, radius * 2, 3, 2}));
  }
  return frames;
}

RingPage* cloud_page = nullptr;
RingPage* water_page = nullptr;

}  // namespace

RingPage::RingPage(const RingPageLook& page_look)
    : look(page_look),
      frames(FramesOf(page_look.plan->orbit)),
      form(page_look.form_name),
      Label7(form, "Label7"),
      lbl_Base(form, "lbl_Base"),
      lbl_Left(form, "lbl_Left"),
      lbl_Right(form, "lbl_Right"),
      lbl_Description(form, "lbl_Description"),
      btn_Clockwise(form, "btn_Clockwise"),
      btn_CounterClockwise(form, "btn_CounterClockwise"),
      btn_Left(form, "btn_Left"),
      btn_Right(form, "btn_Right") {
  PlaceLabel(Label7, {10, 366, 134, 16}, "Currently Viewing:");
  PlaceLabel(lbl_Base, {10, 383, 576, 22});
  PlaceLabel(lbl_Left, {10, 10, 177, 30});
  PlaceLabel(lbl_Right, {419, 10, 177, 30});
  PlaceLabel(lbl_Description, {10, 405, 576, 42});
  lbl_Base.SetFont(kHeadingFont);
  lbl_Left.SetFont(kRingFont);
  lbl_Right.SetFont(kRingFont);
  if (look.Groups() == 4) {
    lbl_Center.emplace(form, "lbl_Center");
    PlaceLabel(*lbl_Center, {188, 78, 220, 19});
    lbl_Center->SetFont(kRingFont);
    lbl_Center->SetAlignment(toolkit::kAlignCenter);
  }
  LoadPageForm(form, look.id, "SubRing_BG.bmp");
  lbl_Base.SetForeColor(kValueColor);
  lbl_Description.SetForeColor(kValueColor);
  SetUpButton(btn_Clockwise, form, {11, 297, "clockwise", "btn_3d_Clockwise", look.clockwise_tip});
  SetUpButton(btn_CounterClockwise, form,
              {541, 297, "counterclockwise", "btn_CounterClockwise", look.counterclockwise_tip});
  SetUpButton(btn_Left, form, {256, 338, "left", "btn_Left", look.left_tip});
  SetUpButton(btn_Right, form, {300, 338, "right", "btn_Right", look.right_tip});
}

RingPage& CloudPage() { return LoadedPage(cloud_page, kCloudLook); }
RingPage& WaterPage() { return LoadedPage(water_page, kWaterLook); }
void ReleaseCloudPage() { ReleasePage(cloud_page, kCloudLook.id); }
void ReleaseWaterPage() { ReleasePage(water_page, kWaterLook.id); }

}  // namespace nimbrel
