#include "shell/rings/RingActions.h"

#include <algorithm>
#include <utility>

#include "shell/State.h"
#include "shell/rings/RingPage.h"
#include "shell/rings/RingPainting.h"
#include "shell/rings/RingSpec.h"

namespace nimbrel {
namespace {

/// The routines of one ring.
struct RingRoutines {
  void (*draw)(const RingPictures& pictures);
  PerDirection<void (*)(const RingPictures& pictures)> rotate;
  void (*update_arrows)();
};
constexpr PerFamily<RingRoutines> kRoutines{{{
    {DrawCloudRing,
     {{{RotateCloudRingCounterclockwise, RotateCloudRingClockwise}}},
     UpdateCloudArrows},
    {DrawSkyRing, {{{RotateSkyRingCounter, RotateSkyRingClock}}}, UpdateSkyArrows},
    {DrawWaterRing,
     {{{RotateWaterRingCounterclockwise, RotateWaterRingClockwise}}},
     UpdateWaterArrows},
}}};

std::int16_t& FrontIndex(Family family) { return ui.*kRingSpecs[family].front; }

Group FrontGroup(Family family) { return GroupAt(family, FrontIndex(family)); }

/// The test for 0 comes first: a group of one option keeps its right arrow, which then does
/// nothing.
void UpdateArrows(Family family) {
  const Group front = FrontGroup(family);
  const std::int16_t option = ui.CurrentSelection[front];
  const bool first = option == 0;
  const bool last = !first && option == ui.catalogue.HighestIndex(front);
  RingPage& page = RingPageOf(family);
  page.btn_Left.Setstate(first ? "disabled" : "enabled");
  page.btn_Right.Setstate(last ? "disabled" : "enabled");
}

void RunButton(Family family, std::string_view type) {
  const RingSpec& spec = kRingSpecs[family];
  for (const auto direction : {TurnDirection::kCounterclockwise, TurnDirection::kClockwise}) {
    if (type == spec.turn_buttons[direction].button_type) {
      TurnRing(family, direction);
    }
  }
  for (const auto& [button, step] : {std::pair{&spec.left_button, -1}, {&spec.right_button, 1}}) {
    if (type == button->button_type) {
      StepOption(family, step);
    }
  }
}

}  // namespace

bool RunRingClick(std::string_view form_name, std::string_view button_type) {
  const auto* const family = std::find_if(kFamilies.begin(), kFamilies.end(), [&](Family ring) {
    return form_name == kRingSpecs[ring].form_name;
  });
  if (family == kFamilies.end()) {
    return false;
  }
  RunButton(*family, button_type);
  return true;
}

void TurnRing(Family family, TurnDirection direction) {
  const RingRoutines& routines = kRoutines[family];
  const int step = kRingPlans[family].turns[direction].group_step;
  const Group front = GroupAt(family, FrontIndex(family) + step);
  FrontIndex(family) = static_cast<std::int16_t>(IndexInFamily(front));
  routines.rotate[direction](PicturesFrom(front));
  routines.update_arrows();
  RingPageOf(family).form.Refresh();
}

void StepOption(Family family, int step) {
  const Group front = FrontGroup(family);
  std::int16_t& option = ui.CurrentSelection[front];
  if (step < 0 ? option >= 1 : option < ui.catalogue.HighestIndex(front)) {
    option = static_cast<std::int16_t>(option + step);
  }
  DrawAtRest(family);
  kRoutines[family].update_arrows();
}

void UpdateCloudArrows() { UpdateArrows(Family::kCloud); }
void UpdateSkyArrows() { UpdateArrows(Family::kSky); }
void UpdateWaterArrows() { UpdateArrows(Family::kWater); }

void DrawAtRest(Family family) { kRoutines[family].draw(PicturesFrom(FrontGroup(family))); }

}  // namespace nimbrel
