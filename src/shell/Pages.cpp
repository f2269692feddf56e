#include "shell/Pages.h"

#include <array>
#include <cstddef>

#include "history/frm_Favorite.h"
#include "platform/text.h"
#include "randomizer/frm_RandomizerConstraints.h"
#include "randomizer/frm_RandomizerOverview.h"
#include "settings/Catalogue.h"
#include "shell/RingPage.h"
#include "shell/frm_About.h"
#include "shell/frm_Main.h"
#include "shell/frm_Msg.h"
#include "shell/frm_Preview.h"
#include "shell/frm_Sky.h"

namespace nimbrel {

namespace {

template <std::int16_t kFamily>
toolkit::Form& RandomizerForm() {
  return RandomizerPage(kFamily).form;
}
template <std::int16_t kFamily>
std::span<toolkit::Control* const> RandomizerLists() {
  return RandomizerPage(kFamily).list_controls;
}

constexpr std::array kPages{
    Page{"frm_3d", FormId::kCloudPage, []() -> toolkit::Form& { return CloudPage().form; }},
    Page{"frm_sky", FormId::kSkyPage, []() -> toolkit::Form& { return SkyPage().form; }},
    Page{"frm_water", FormId::kWaterPage, []() -> toolkit::Form& { return WaterPage().form; }},
    Page{"frm_randomizeroverview", FormId::kRandomizerOverview,
         []() -> toolkit::Form& { return RandomizerOverview().form; }},
    Page{"frm_randomizercloud", FormId::kRandomizerCloud, RandomizerForm<kCloud>,
         RandomizerLists<kCloud>},
    Page{"frm_randomizersky", FormId::kRandomizerSky, RandomizerForm<kSky>, RandomizerLists<kSky>},
    Page{"frm_randomizerwater", FormId::kRandomizerWater, RandomizerForm<kWater>,
         RandomizerLists<kWater>},
    Page{"frm_favorite", FormId::kFavorite, []() -> toolkit::Form& { return FavoritePage().form; },
         FavoriteLists},
    Page{"frm_about", FormId::kAbout, []() -> toolkit::Form& { return AboutPage().form; }},
};

/// What SetParent gave back when a page was last shown.
std::array<toolkit::HWND, static_cast<std::size_t>(FormId::kCount)> SavedParent{};

toolkit::HWND& ParentOf(const Page& page) { return SavedParent[static_cast<std::size_t>(page.id)]; }

void SwitchLists(const Page& page, bool on) {
  if (page.lists != nullptr) {
    for (toolkit::Control* list : page.lists()) {
      list->SetVisible(on);
    }
  }
}

void HideVisiblePage() {
  for (const Page& page : Pages) {
    if (IsFormLoaded(page.id) && page.form().Visible()) {
      HidePage(page.name);
    }
  }
}

const Page* PageOf(const toolkit::Form& form) {
  for (const Page& page : Pages) {
    if (IsFormLoaded(page.id) && &page.form() == &form) {
      return &page;
    }
  }
  return nullptr;
}

void TakeOut(std::string_view name) {
  for (const Page& page : Pages) {
    if (page.name == name && IsFormLoaded(page.id)) {
      SwitchLists(page, false);
      toolkit::SetParent(page.form().hWnd(), ParentOf(page));
      page.form().Hide();
    }
  }
}

}  // namespace

std::span<const Page> Pages = kPages;
std::string CurrentPage;

void ShowPage(toolkit::Form& form) {
  ClosePreview();
  HideVisiblePage();
  form.SetLeft(kPanelLeft * toolkit::Screen::TwipsPerPixelX());
  form.SetTop(kPanelTop * toolkit::Screen::TwipsPerPixelY());
  form.Show();
  form.ZOrder();
  const toolkit::HWND parent = toolkit::SetParent(form.hWnd(), MainForm().form.hWnd());
  if (const Page* page = PageOf(form)) {
    ParentOf(*page) = parent;
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
  if (IsFormLoaded(FormId::kMain)) {
    MainForm().form.ZOrder();
    MainForm().form.SetFocus();
  }
}

}  // namespace nimbrel
