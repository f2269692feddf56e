#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "settings/Groups.h"
#include "shell/PageForm.h"
#include "shell/rings/RingPlan.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

struct RingSpec;
struct State;

/// A group and its selected option.
struct RingPicture {
  Group group;
  std::int16_t option;
};
/// The group in front, then the others in ring order.
using RingPictures = std::vector<RingPicture>;
/// The pictures of the ring with this group in front, as the selection has them.
RingPictures PicturesFrom(Group front);

/// Font, colour and alignment of a ring page's label.
enum class LabelStyle : std::uint8_t { kPlain, kValue, kHeading, kTitle, kCentredTitle };

/// One label of a ring page.
struct RingLabel {
  const char* name;
  LabelPlace place;
  LabelStyle style;
  const char* caption;  ///< of a label that never changes
  /// What any other label says for these pictures; `which` is its own number. Null: the caption.
  std::string (*text)(const RingSpec& spec, const RingPictures& pictures, int which) = nullptr;
  int which = 0;
};

/// What differs between the three ring pages and is not their plan.
struct RingSpec {
  const char* form_name;
  const char* background;
  std::int16_t State::*front;  ///< index of the group in front
  std::span<const RingLabel> labels;
  /// By group, what is written before a title: in front, and elsewhere on the ring.
  std::span<const std::string_view> front_prefix;
  std::span<const std::string_view> other_prefix;
  PerDirection<ButtonSetup> turn_buttons;
  ButtonSetup left_button;
  ButtonSetup right_button;
};
extern const PerFamily<RingSpec> kRingSpecs;

}  // namespace nimbrel
