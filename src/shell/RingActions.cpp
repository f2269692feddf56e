#include "shell/RingActions.h"

#include <algorithm>

#include "settings/Catalogue.h"
#include "settings/Selection.h"
#include "shell/RingPage.h"
#include "shell/frm_Sky.h"
#include "shell/mod_GDIP_Rings.h"

namespace nimbrel {
namespace {

std::int16_t& SelectedOption(std::int16_t family, std::int16_t group) {
  return CurrentSelection[static_cast<std::size_t>(family)][static_cast<std::size_t>(group)];
}

std::int16_t Highest(std::int16_t family, std::int16_t group) {
  return Catalogue.HighestIndex[static_cast<std::size_t>(family)][static_cast<std::size_t>(group)];
}

void StepOption(std::int16_t family, std::int16_t group, int step) {
  std::int16_t& option = SelectedOption(family, group);
  if (step < 0 ? option >= 1 : option < Highest(family, group)) {
    option = static_cast<std::int16_t>(option + step);
  }
}

/// The test for 0 comes first: a group of one option keeps its right arrow, which then does
/// nothing.
void UpdateArrows(std::int16_t family, std::int16_t group, SkinnedButton& left,
                  SkinnedButton& right) {
  const std::int16_t option = SelectedOption(family, group);
  const bool first = option == 0;
  const bool last = !first && option == Highest(family, group);
  left.Setstate(first ? "disabled" : "enabled");
  right.Setstate(last ? "disabled" : "enabled");
}

void UpdateRingArrows(RingPage& page) {
  UpdateArrows(page.look.family, *page.look.front, page.btn_Left, page.btn_Right);
}

void DrawAtRest(RingPage& page) { DrawRing(page, PicturesFrom(page.look, *page.look.front)); }

void TurnRing(RingPage& page, TurnDirection direction) {
  page.form.Cls();
  const int groups = page.look.Groups();
  const int step = direction == TurnDirection::kClockwise ? 1 : groups - 1;
  *page.look.front = static_cast<std::int16_t>((*page.look.front + step) % groups);
  RotateRing(page, direction, PicturesFrom(page.look, *page.look.front));
  UpdateRingArrows(page);
  page.form.Refresh();
}

void StepRing(RingPage& page, int step) {
  StepOption(page.look.family, *page.look.front, step);
  DrawAtRest(page);
  UpdateRingArrows(page);
}

}  // namespace

void TurnCloudRing(TurnDirection direction) { TurnRing(CloudPage(), direction); }
void TurnWaterRing(TurnDirection direction) { TurnRing(WaterPage(), direction); }

void TurnSkyRing(TurnDirection direction) {
  // The other way round than on the two other rings: counterclockwise goes to the next group.
  const int step = direction == TurnDirection::kCounterclockwise ? 1 : 3;
  const auto target = static_cast<std::int16_t>((SkyFrontGroup + step) % 4);
  RotateSkyRing(direction, target, SkyFrontGroup, SelectedOption(kSky, target));
  SkyFrontGroup = target;
  UpdateSkyArrows();
}

void StepCloudOption(int step) { StepRing(CloudPage(), step); }
void StepWaterOption(int step) { StepRing(WaterPage(), step); }

void StepSkyOption(int step) {
  StepOption(kSky, SkyFrontGroup, step);
  DrawSkyPage();
  UpdateSkyArrows();
}

void UpdateCloudArrows() { UpdateRingArrows(CloudPage()); }
void UpdateWaterArrows() { UpdateRingArrows(WaterPage()); }
void UpdateSkyArrows() {
  UpdateArrows(kSky, SkyFrontGroup, SkyPage().btn_Left, SkyPage().btn_Right);
}

void DrawCloudPage() { DrawAtRest(CloudPage()); }
void DrawWaterPage() { DrawAtRest(WaterPage()); }
void DrawSkyPage() { DrawSkyRing(SkyFrontGroup, SelectedOption(kSky, SkyFrontGroup)); }

}  // namespace nimbrel
