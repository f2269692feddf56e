#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "shell/pages/RandomizerTabs.h"
#include "toolkit/forms.h"

namespace nimbrel {

/// One form of the program. The list of all of them is the one that navigation, dispatch and
/// shutdown go by.
struct FormRow {
  std::string_view name;         ///< what CurrentPage says while the page is shown, in any case
  toolkit::Form* (*existing)();  ///< null if it was never made
  // Of the pages alone: the forms that can lie over the panel of the main window.
  toolkit::Form& (*load)() = nullptr;
  std::string_view opened_by{};  ///< type of the navigation button or tab that opens it
  std::string_view title{};
  std::string_view icon{};
  void (*draw)() = nullptr;  ///< null: the page holds nothing that is painted
  /// Its native list controls, which are hidden while it is; null: it has none.
  std::vector<toolkit::Control*> (*lists)() = nullptr;
};

/// Every form with skinned buttons, in the order of their release, and every page, in the order in
/// which ShowPage looks for the one that is shown.
std::span<const FormRow> FormRows();

/// Puts a page over the panel of the main window, in place of the one that is there.
void ShowPage(toolkit::Form& form);
/// Takes a page out of the main window by its name, in any case; "frm_msg" hides the dialog.
void HidePage(std::string_view name);

/// Opens the page of a navigation button or a tab by its type, paints it with its title and makes
/// it the CurrentPage. Does nothing for a type that opens no page.
void OpenPage(std::string_view opened_by);
/// Paints a page of the randomizer and its title anew.
void ShowRandomizerPage(RandomizerTab tab);
/// Hides the page over the panel, and makes the main page the CurrentPage with its title.
void ShowMainPage();
void PaintMainTitle();

}  // namespace nimbrel
