#pragma once

#include <array>

#include "toolkit/forms.h"

namespace nimbrel {

/// The four pages of the randomizer, by their tab.
enum class RandomizerTab : unsigned char { kOverviewTab, kCloudsTab, kSkyTab, kWaterTab };
inline constexpr std::size_t kRandomizerTabs = 4;

/// What all four pages carry: the labels of the tabs and the help text.
struct RandomizerTabs {
  /// Places everything on the page; a click on another tab's label opens that tab's page.
  RandomizerTabs(toolkit::Form& form, RandomizerTab own, std::string_view help);
  /// Once the page is loaded, which gives every label the colour of plain text.
  void ColorTabs();

  std::array<toolkit::Label, kRandomizerTabs> labels;
  toolkit::Label Label3;
};

/// Puts the tab's page over the panel, paints it and makes it the CurrentPage.
void OpenRandomizerTab(RandomizerTab tab);
/// Repaints the tab's page and the title over it, for the overview with the RandomizerRecord.
void ShowRandomizerPage(RandomizerTab tab);

}  // namespace nimbrel
