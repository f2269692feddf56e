#pragma once

#include <array>
#include <string_view>

#include "toolkit/forms.h"

namespace nimbrel {

/// The four pages of the randomizer, by their tab.
enum class RandomizerTab : unsigned char { kOverviewTab, kCloudsTab, kSkyTab, kWaterTab };
inline constexpr std::size_t kRandomizerTabs = 4;

/// What all four pages carry: the labels of the tabs and the help text.
struct RandomizerTabs {
  /// Places everything on the page. A click on another tab's label is dispatched as that of the
  /// navigation button that opens the tab's page.
  RandomizerTabs(toolkit::Form& form, RandomizerTab own, std::string_view help);

  std::array<toolkit::Label, kRandomizerTabs> labels;
  toolkit::Label Label3;
};

/// The type of a click that opens the page of a tab.
const char* TabType(RandomizerTab tab);
/// Clears the page and draws the frame with the outlines of the tabs.
void DrawTabs(toolkit::Form& form, RandomizerTab own);

}  // namespace nimbrel
