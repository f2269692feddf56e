#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "randomizer/frm_RandomizerTabs.h"
#include "shell/FormLoaded.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

/// One list of a constraint page, in pixels of the page.
struct ConstraintListLook {
  const char* name;  ///< "Solid": lst_Solid, lbl_Solid, btn_Solid_CheckAll, lbl_Solid_pct
  const char* heading;
  int left;
  int top;
  const char* picture;  ///< of its check-all button
  const char* tool_tip;
};

/// What differs between the three constraint pages.
struct ConstraintPageLook {
  const char* form_name;
  FormId id;
  std::int16_t family;
  RandomizerTab tab;
  const char* help;
  bool bold_headings;
  std::span<const ConstraintListLook> lists;  ///< by the index of the group
};

/// The check list of one group: its checked rows are the options that the randomizer may pick. Rows
/// are sorted by title and carry the option's index in the catalogue.
struct ConstraintList {
  ConstraintList(toolkit::Form& form, const ConstraintListLook& list_look);

  const ConstraintListLook& look;
  toolkit::ListBox list;
  toolkit::Label heading;
  StandardButton check_all;
  toolkit::Label percentage;
};

/// frm_RandomizerCloud, frm_RandomizerSky or frm_RandomizerWater.
struct ConstraintPage {
  explicit ConstraintPage(const ConstraintPageLook& page_look);

  const ConstraintPageLook& look;
  toolkit::Form form;
  RandomizerTabs tabs;
  std::vector<std::unique_ptr<ConstraintList>> lists;  ///< by the index of the group
  std::vector<toolkit::Control*> list_controls;
  std::optional<toolkit::CheckBox> chk_Sun;  ///< of the sky page alone, like the next
  std::optional<toolkit::CheckBox> chk_Contrails;

 private:
  void MakeLists();
  void MakeSwitchBoxes();
  void PlaceButtons();
};

/// The page of a family, loaded and filled at the first call.
ConstraintPage& RandomizerPage(std::int16_t family);
/// For shutdown.
void ReleaseRandomizerPage(std::int16_t family);

/// While true, the events of the lists are passed over.
extern bool ConstraintFillInProgress;

/// Fills the page's lists from the catalogue. Called once, at the end of the page's load.
void FillConstraintLists(ConstraintPage& page);
/// Brings check-all buttons and percentages in line with the lists, and checks the first row of a
/// list that has no other row checked.
void UpdateConstraintPage(ConstraintPage& page);
/// Checks every row of a group's list; the group by its place in kOptionGroups.
void CheckAllOptions(std::size_t group);

}  // namespace nimbrel
