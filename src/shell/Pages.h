#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "shell/FormLoaded.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

/// One page that can lie over the panel of the main window.
struct Page {
  std::string_view name;  ///< its form's, in lower case
  FormId id;
  toolkit::Form& (*form)();  ///< loads it
  /// Its native list controls, in the order they are switched on and off. Null: it has none.
  std::span<toolkit::Control* const> (*lists)() = nullptr;
};
/// Every page, in the order in which ShowPage looks for the one that is up.
extern std::span<const Page> Pages;

/// The page now shown, by its form's name. Empty at start, "frm_Main" once the user has come back
/// to the main page. Written by the dispatch, by the randomizer's tabs and by
/// LoadSelectedFavorite.
extern std::string CurrentPage;

/// Puts a page over the panel of the main window, in place of the one that is there. Does not set
/// CurrentPage: the caller does, afterwards.
void ShowPage(toolkit::Form& form);
/// Takes a page out of the main window by its name, in any case; "frm_msg" hides the dialog.
void HidePage(std::string_view name);

/// The action of every skinned button's click; becomes DispatchClick at start.
void RunClick(ButtonClass button_class, const std::string& form_name,
              const std::string& button_type);

}  // namespace nimbrel
