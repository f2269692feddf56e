#include "shell/rings/RingPage.h"

#include "shell/PageForm.h"
#include "shell/State.h"
#include "shell/rings/RingPlan.h"
#include "shell/rings/RingSpec.h"

namespace nimbrel {
namespace {

/// A round picture has no frame.
std::vector<ReadyFrame> FramesOf(const RingPlan& plan) {
  std::vector<ReadyFrame> frames;
  for (int slot = 0; !plan.HasRim() && slot < static_cast<int>(plan.orbit.size()); ++slot) {
    frames.push_back(MakeReadyFrame(PlaceOf(plan, slot), FrameAt(slot)));
  }
  return frames;
}

void SetStyle(toolkit::Label& label, LabelStyle style) {
  switch (style) {
    case LabelStyle::kPlain:
      break;
    case LabelStyle::kHeading:
      label.SetFont(kHeadingFont);
      [[fallthrough]];
    case LabelStyle::kValue:
      label.SetForeColor(kValueColor);
      break;
    case LabelStyle::kCentredTitle:
      label.SetAlignment(toolkit::kAlignCenter);
      [[fallthrough]];
    case LabelStyle::kTitle:
      label.SetFont(kRingFont);
      break;
  }
}

RingPage::Labels MakeLabels(toolkit::Form& form, const RingSpec& spec) {
  RingPage::Labels labels;
  for (const RingLabel& row : spec.labels) {
    labels.push_back(std::make_unique<toolkit::Label>(form, row.name));
    PlaceLabel(*labels.back(), row.place, row.caption);
    SetStyle(*labels.back(), row.style);
  }
  return labels;
}

}  // namespace

RingPage::RingPage(Family family)
    : spec(kRingSpecs[family]),
      frames(FramesOf(kRingPlans[family])),
      form(spec.form_name),
      labels(MakeLabels(form, spec)),
      btn_Clockwise(form, "btn_Clockwise"),
      btn_CounterClockwise(form, "btn_CounterClockwise"),
      btn_Left(form, "btn_Left"),
      btn_Right(form, "btn_Right") {
  LoadPageForm(form, spec.background);
  PlaceButton(btn_Clockwise, form, spec.turn_buttons[TurnDirection::kClockwise]);
  PlaceButton(btn_CounterClockwise, form, spec.turn_buttons[TurnDirection::kCounterclockwise]);
  PlaceButton(btn_Left, form, spec.left_button);
  PlaceButton(btn_Right, form, spec.right_button);
}

toolkit::RectF PlaceOf(const RingPlan& plan, int slot) {
  const OrbitSlot& place = plan.orbit[static_cast<std::size_t>(slot)];
  return {static_cast<float>(place.left), static_cast<float>(place.top),
          static_cast<float>(place.width), static_cast<float>(place.height)};
}

PictureFrame FrameAt(int slot) {
  const float radius = kCornerRadius[static_cast<std::size_t>(slot)];
  return {radius, radius * 2, 3, 2};
}

RingPage& RingPageOf(Family family) { return Loaded(ui.forms.rings[family], family); }

}  // namespace nimbrel
