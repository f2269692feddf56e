#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "shell/FormLoaded.h"
#include "shell/RingPlan.h"
#include "shell/mod_GDIP_DrawingRoutines.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

/// What differs between the two pages whose pictures orbit a point: the clouds' and the waters'.
struct RingPageLook {
  const char* form_name;
  FormId id;
  std::int16_t family;
  const RingPlan* plan;
  std::int16_t* front;  ///< the group in front, of Selection.h
  /// What stands before a title, by group: for the group in front, and for the others.
  std::span<const std::string_view> base_prefix;
  std::span<const std::string_view> other_prefix;
  const char* clockwise_tip;
  const char* counterclockwise_tip;
  const char* left_tip;
  const char* right_tip;

  std::int16_t Groups() const { return static_cast<std::int16_t>(plan->rest.size()); }
};

/// frm_3d or frm_Water.
struct RingPage {
  explicit RingPage(const RingPageLook& page_look);

  const RingPageLook& look;
  std::vector<ReadyFrame> frames;  ///< by slot
  toolkit::Form form;
  toolkit::Label Label7;
  toolkit::Label lbl_Base;
  toolkit::Label lbl_Left;
  toolkit::Label lbl_Right;
  std::optional<toolkit::Label> lbl_Center;  ///< of the four groups' page alone
  toolkit::Label lbl_Description;
  StandardButton btn_Clockwise;
  StandardButton btn_CounterClockwise;
  StandardButton btn_Left;
  StandardButton btn_Right;
};

/// The pages, each loaded at its first call.
RingPage& CloudPage();
RingPage& WaterPage();
/// For shutdown.
void ReleaseCloudPage();
void ReleaseWaterPage();

}  // namespace nimbrel
