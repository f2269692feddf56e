#include "shell/pages/RandomizerTabs.h"

#include "shell/PageForm.h"
#include "shell/State.h"
#include "shell/painting/mod_GDIP_DrawingRoutines.h"

namespace nimbrel {
namespace {

struct TabRow {
  const char* label;
  const char* caption;
  const char* type;  ///< of the button that would open the page
};
constexpr std::array<TabRow, kRandomizerTabs> kTabs{{
    {"lbl_Overview", "Overview", "randomizer"},
    {"lbl_Cloud", "Clouds", "randomizer_cloud"},
    {"lbl_Sky", "Sky", "randomizer_sky"},
    {"lbl_Water", "Water", "randomizer_water"},
}};

}  // namespace

RandomizerTabs::RandomizerTabs(toolkit::Form& form, RandomizerTab own, std::string_view help)
    : labels{{{form, kTabs[0].label},
              {form, kTabs[1].label},
              {form, kTabs[2].label},
              {form, kTabs[3].label}}},
      Label3(form, "Label3") {
  for (std::size_t i = 0; i < kTabs.size(); ++i) {
    PlaceLabel(labels[i], {23.0 + 84.0 * static_cast<double>(i), 11, 70, 16}, kTabs[i].caption);
    labels[i].SetForeColor(kValueColor);
    labels[i].SetAlignment(toolkit::kAlignCenter);
    if (i == static_cast<std::size_t>(own)) {
      labels[i].SetFont(kBoldFont);
    } else {
      labels[i].Click = [&form, &row = kTabs[i]] {
        ui.buttons.dispatch(ButtonClass::kMedium, form.Name(), row.type);
      };
      labels[i].DblClick = labels[i].Click;
    }
  }
  PlaceLabel(Label3, {15, 40, 566, 42}, help);
}

const char* TabType(RandomizerTab tab) { return kTabs[static_cast<std::size_t>(tab)].type; }

void DrawTabs(toolkit::Form& form, RandomizerTab own) {
  const int active = static_cast<int>(own);
  form.Cls();
  DrawTabFrame(form.hDC(), active);
  for (int tab = 0; tab < static_cast<int>(kTabs.size()); ++tab) {
    if (tab != active) {
      DrawTabOutline(form.hDC(), tab, active);
    }
  }
}

}  // namespace nimbrel
