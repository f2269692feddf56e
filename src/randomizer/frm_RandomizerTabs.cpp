#include "randomizer/frm_RandomizerTabs.h"

#include "randomizer/frm_RandomizerConstraints.h"
#include "randomizer/frm_RandomizerOverview.h"
#include "settings/Catalogue.h"
#include "shell/PageForm.h"
#include "shell/Pages.h"
#include "shell/mod_GDIP_DrawingRoutines.h"
#include "shell/mod_GDIP_PagePainting.h"

namespace nimbrel {
namespace {

struct TabRow {
  const char* label;
  const char* caption;
  const char* page;
  const char* title;
  toolkit::Form& (*form)();
};
constexpr std::array<TabRow, kRandomizerTabs> kTabs{{
    {"lbl_Overview", "Overview", "frm_RandomizerOverview", "Randomizer Settings Overview",
     []() -> toolkit::Form& { return RandomizerOverview().form; }},
    {"lbl_Cloud", "Clouds", "frm_RandomizerCloud", "Cloud Randomizer Constraints",
     []() -> toolkit::Form& { return RandomizerPage(kCloud).form; }},
    {"lbl_Sky", "Sky", "frm_RandomizerSky", "Sky Randomizer Constraints",
     []() -> toolkit::Form& { return RandomizerPage(kSky).form; }},
    {"lbl_Water", "Water", "frm_RandomizerWater", "Water Randomizer Constraints",
     []() -> toolkit::Form& { return RandomizerPage(kWater).form; }},
}};

constexpr RandomizerTab TabAt(std::size_t place) { return static_cast<RandomizerTab>(place); }
constexpr int PlaceOf(RandomizerTab tab) { return static_cast<int>(tab); }
constexpr const TabRow& RowOf(RandomizerTab tab) { return kTabs[static_cast<std::size_t>(tab)]; }

}  // namespace

RandomizerTabs::RandomizerTabs(toolkit::Form& form, RandomizerTab own, std::string_view help)
    : labels{{{form, kTabs[0].label},
              {form, kTabs[1].label},
              {form, kTabs[2].label},
              {form, kTabs[3].label}}},
      Label3(form, "Label3") {
  for (std::size_t i = 0; i < kTabs.size(); ++i) {
    const RandomizerTab tab = TabAt(i);
    PlaceLabel(labels[i], {23 + 84 * PlaceOf(tab), 11, 70, 16}, kTabs[i].caption);
    labels[i].SetAlignment(toolkit::kAlignCenter);
    if (tab == own) {
      labels[i].SetFont(kBoldFont);
    } else {
      labels[i].Click = [tab] { OpenRandomizerTab(tab); };
      labels[i].DblClick = labels[i].Click;
    }
  }
  PlaceLabel(Label3, {15, 40, 566, 42}, help);
}

void RandomizerTabs::ColorTabs() {
  for (toolkit::Label& label : labels) {
    label.SetForeColor(kValueColor);
  }
}

void OpenRandomizerTab(RandomizerTab tab) {
  ShowPage(RowOf(tab).form());
  ShowRandomizerPage(tab);
  CurrentPage = RowOf(tab).page;
}

void ShowRandomizerPage(RandomizerTab tab) {
  SetPageTitle(RowOf(tab).title, "icon_Randomizer.bmp");
  toolkit::Form& form = RowOf(tab).form();
  form.Cls();
  DrawTabFrame(form.hDC(), PlaceOf(tab));
  for (std::size_t i = 0; i < kTabs.size(); ++i) {
    if (TabAt(i) != tab) {
      DrawTabOutline(form.hDC(), static_cast<int>(i), PlaceOf(tab));
    }
  }
  if (tab == RandomizerTab::kOverviewTab) {
    FillRandomizerOverview();
  }
  form.Refresh();
}

}  // namespace nimbrel
