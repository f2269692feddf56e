#pragma once

#include <string_view>
#include <utility>

#include "shell/FormLoaded.h"
#include "toolkit/forms.h"

namespace nimbrel {

/// What the load of every page form has in common.

inline constexpr platform::ColorRef kTextColor = platform::RGB(96, 96, 96);
inline constexpr platform::ColorRef kValueColor = platform::RGB(0, 101, 161);
/// Behind the check boxes, and in the place of a background picture that is missing.
inline constexpr platform::ColorRef kPlainColor = platform::RGB(201, 213, 231);
inline const toolkit::Font kRingFont{.size = 9.75F};
inline const toolkit::Font kBoldFont{.weight = 700, .bold = true};
inline const toolkit::Font kHeadingFont{.size = 12, .weight = 700, .bold = true};

/// Place of a label in pixels: left, top, width, height.
struct LabelPlace {
  int left;
  int top;
  int width;
  int height;
};
void PlaceLabel(toolkit::Label& label, const LabelPlace& place, std::string_view caption = {});

/// Font fix, size, loaded flag, colours of all labels, and the background picture of "\Media\".
void LoadPageForm(toolkit::Form& form, FormId id, std::string_view background);

/// The form behind a pointer, made at the first call. A plain pointer, freed by ReleasePage alone:
/// static objects end after the toolkit does.
template <class Page, class... Arguments>
Page& LoadedPage(Page*& page, Arguments&&... arguments) {
  if (page == nullptr) {
    page = new Page(std::forward<Arguments>(arguments)...);
  }
  return *page;
}
template <class Page>
void ReleasePage(Page*& page, FormId id) {
  delete page;
  page = nullptr;
  ClearFormLoaded(id);
}

}  // namespace nimbrel
