#include "shell/Pages.h"

#include <algorithm>
#include <array>

#include "platform/text.h"
#include "shell/State.h"
#include "shell/dialogs/frm_AddFavorite.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/dialogs/frm_Splash.h"
#include "shell/mod_Randomizer.h"
#include "shell/pages/ConstraintPage.h"
#include "shell/pages/frm_About.h"
#include "shell/pages/frm_Favorite.h"
#include "shell/pages/frm_Main.h"
#include "shell/pages/frm_Preview.h"
#include "shell/pages/frm_RandomizerOverview.h"
#include "shell/rings/RingActions.h"
#include "shell/rings/RingPage.h"

namespace nimbrel {
namespace {

using ListControls = std::vector<toolkit::Control*>;

template <class Made>
toolkit::Form* Existing(const std::shared_ptr<Made>& slot) {
  return slot == nullptr ? nullptr : &slot->form;
}

toolkit::Form& RingForm(Family family) { return Loaded(ui.forms.rings[family], family).form; }
ConstraintPage& Constraint(Family family) { return Loaded(ui.forms.constraints[family], family); }

void DrawConstraint(Family family, RandomizerTab tab) {
  DrawRandomizerPage(Constraint(family).form, tab);
}

ListControls ListsOf(Family family) {
  ListControls lists;
  for (const auto& list : Constraint(family).lists) {
    lists.push_back(&list->list);
  }
  return lists;
}

constexpr std::string_view kRandomizerIcon = "icon_Randomizer.bmp";

constexpr std::array kForms{
    FormRow{.name = "frm_Main",
            .existing = [] { return Existing(ui.forms.main); },
            .title = "Nimbrel Main",
            .icon = "icon_Home.bmp"},
    FormRow{.name = "frm_Msg", .existing = [] { return Existing(ui.forms.message); }},
    FormRow{.name = "frm_AddFavorite", .existing = [] { return Existing(ui.forms.add_favorite); }},
    FormRow{.name = "frm_3d",
            .existing = [] { return Existing(ui.forms.rings[Family::kCloud]); },
            .load = []() -> toolkit::Form& { return RingForm(Family::kCloud); },
            .opened_by = "3d",
            .title = "Cloud Texture Options",
            .icon = "icon_3d.bmp",
            .draw = [] { DrawAtRest(Family::kCloud); }},
    FormRow{.name = "frm_sky",
            .existing = [] { return Existing(ui.forms.rings[Family::kSky]); },
            .load = []() -> toolkit::Form& { return RingForm(Family::kSky); },
            .opened_by = "sky",
            .title = "Sky Backdrop Texture Options",
            .icon = "icon_Sky.bmp",
            .draw = [] { DrawAtRest(Family::kSky); }},
    FormRow{.name = "frm_Water",
            .existing = [] { return Existing(ui.forms.rings[Family::kWater]); },
            .load = []() -> toolkit::Form& { return RingForm(Family::kWater); },
            .opened_by = "water",
            .title = "Water Texture Options",
            .icon = "icon_Water.bmp",
            .draw = [] { DrawAtRest(Family::kWater); }},
    FormRow{.name = "frm_RandomizerOverview",
            .existing = [] { return Existing(ui.forms.overview); },
            .load = []() -> toolkit::Form& { return Loaded(ui.forms.overview).form; },
            .opened_by = "randomizer",
            .title = "Randomizer Settings Overview",
            .icon = kRandomizerIcon,
            .draw =
                [] {
                  DrawRandomizerPage(Loaded(ui.forms.overview).form, RandomizerTab::kOverviewTab);
                }},
    FormRow{.name = "frm_RandomizerCloud",
            .existing = [] { return Existing(ui.forms.constraints[Family::kCloud]); },
            .load = []() -> toolkit::Form& { return Constraint(Family::kCloud).form; },
            .opened_by = "randomizer_cloud",
            .title = "Cloud Randomizer Constraints",
            .icon = kRandomizerIcon,
            .draw = [] { DrawConstraint(Family::kCloud, RandomizerTab::kCloudsTab); },
            .lists = [] { return ListsOf(Family::kCloud); }},
    FormRow{.name = "frm_RandomizerSky",
            .existing = [] { return Existing(ui.forms.constraints[Family::kSky]); },
            .load = []() -> toolkit::Form& { return Constraint(Family::kSky).form; },
            .opened_by = "randomizer_sky",
            .title = "Sky Randomizer Constraints",
            .icon = kRandomizerIcon,
            .draw = [] { DrawConstraint(Family::kSky, RandomizerTab::kSkyTab); },
            .lists = [] { return ListsOf(Family::kSky); }},
    FormRow{.name = "frm_RandomizerWater",
            .existing = [] { return Existing(ui.forms.constraints[Family::kWater]); },
            .load = []() -> toolkit::Form& { return Constraint(Family::kWater).form; },
            .opened_by = "randomizer_water",
            .title = "Water Randomizer Constraints",
            .icon = kRandomizerIcon,
            .draw = [] { DrawConstraint(Family::kWater, RandomizerTab::kWaterTab); },
            .lists = [] { return ListsOf(Family::kWater); }},
    FormRow{.name = "frm_Favorite",
            .existing = [] { return Existing(ui.forms.favorites); },
            .load = []() -> toolkit::Form& { return Loaded(ui.forms.favorites).form; },
            .opened_by = "favorite",
            .title = "Favorites List",
            .icon = "icon_Favorites.bmp",
            .lists = [] { return ListControls{&Loaded(ui.forms.favorites).lst_Favorites}; }},
    FormRow{.name = "frm_About",
            .existing = [] { return Existing(ui.forms.about); },
            .load = []() -> toolkit::Form& { return Loaded(ui.forms.about).form; },
            .opened_by = "about",
            .title = "About Nimbrel",
            .icon = "icon_About.bmp"},
};

const FormRow* RowOpenedBy(std::string_view type) {
  const auto* const row = std::find_if(kForms.begin(), kForms.end(), [type](const FormRow& form) {
    return form.load != nullptr && form.opened_by == type;
  });
  return row == kForms.end() ? nullptr : row;
}

/// The page that is shown on the form, null for a form that is no page.
const FormRow* RowOf(const toolkit::Form& form) {
  const auto* const row = std::find_if(kForms.begin(), kForms.end(), [&form](const FormRow& page) {
    return page.load != nullptr && page.existing() == &form;
  });
  return row == kForms.end() ? nullptr : row;
}

void SwitchLists(const FormRow& page, bool on) {
  if (page.lists != nullptr) {
    for (toolkit::Control* list : page.lists()) {
      list->SetVisible(on);
    }
  }
}

void TakeOut(std::string_view folded_name) {
  for (const FormRow& page : kForms) {
    toolkit::Form* const form = page.load == nullptr ? nullptr : page.existing();
    if (form != nullptr && platform::LowerCase(page.name) == folded_name) {
      SwitchLists(page, false);
      toolkit::SetParent(form->hWnd(), nullptr);
      form->Hide();
    }
  }
}

void HideVisiblePage() {
  for (const FormRow& page : kForms) {
    const toolkit::Form* const form = page.load == nullptr ? nullptr : page.existing();
    if (form != nullptr && form->Visible()) {
      HidePage(page.name);
    }
  }
}

void Paint(const FormRow& page) {
  SetPageTitle(page.title, page.icon);
  if (page.draw != nullptr) {
    page.draw();
    page.load().Refresh();
  }
}

}  // namespace

std::span<const FormRow> FormRows() { return kForms; }

void ShowPage(toolkit::Form& form) {
  ClosePreview();
  HideVisiblePage();
  form.SetLeft(kPanelLeft * toolkit::Screen::TwipsPerPixelX());
  form.SetTop(kPanelTop * toolkit::Screen::TwipsPerPixelY());
  form.Show();
  form.ZOrder();
  toolkit::SetParent(form.hWnd(), Loaded(ui.forms.main).form.hWnd());
  if (const FormRow* page = RowOf(form)) {
    SwitchLists(*page, true);
  }
  form.SetFocus();
}

void HidePage(std::string_view name) {
  const std::string folded = platform::LowerCase(name);
  if (folded == "frm_msg") {
    HideMessage();
  } else {
    TakeOut(folded);
  }
  if (ui.forms.main != nullptr) {
    ui.forms.main->form.ZOrder();
    ui.forms.main->form.SetFocus();
  }
}

void OpenPage(std::string_view opened_by) {
  if (const FormRow* page = RowOpenedBy(opened_by)) {
    ShowPage(page->load());
    Paint(*page);
    ui.CurrentPage = page->name;
  }
}

void ShowRandomizerPage(RandomizerTab tab) { Paint(*RowOpenedBy(TabType(tab))); }

void ShowMainPage() {
  HidePage(ui.CurrentPage);
  ui.CurrentPage = kForms.front().name;
  PaintMainTitle();
}

void PaintMainTitle() { Paint(kForms.front()); }

}  // namespace nimbrel
