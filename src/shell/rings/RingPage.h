#pragma once

#include <memory>
#include <vector>

#include "settings/Groups.h"
#include "shell/painting/mod_GDIP_DrawingRoutines.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

struct RingPlan;
struct RingSpec;

/// The page of a ring: frm_3d, frm_Sky or frm_Water.
struct RingPage {
  using Labels = std::vector<std::unique_ptr<toolkit::Label>>;

  explicit RingPage(Family family);

  const RingSpec& spec;
  std::vector<ReadyFrame> frames;  ///< by slot; none on a page whose picture is round
  toolkit::Form form;
  Labels labels;  ///< in the order of RingSpec
  StandardButton btn_Clockwise;
  StandardButton btn_CounterClockwise;
  StandardButton btn_Left;
  StandardButton btn_Right;
};

/// Place of a slot on its page.
toolkit::RectF PlaceOf(const RingPlan& plan, int slot);
/// How a picture at a slot is framed, on a ring without a rim.
PictureFrame FrameAt(int slot);

/// The page of a family, loaded at the first call.
RingPage& RingPageOf(Family family);

}  // namespace nimbrel
