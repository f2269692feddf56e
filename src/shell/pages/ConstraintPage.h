#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "settings/Groups.h"
#include "shell/pages/RandomizerTabs.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

struct Constraints;

/// The check list of one group: its checked rows are the options that the randomizer may pick. Rows
/// are sorted by title and carry the option's index in the catalogue.
struct ConstraintList {
  ConstraintList(toolkit::Form& form, Group list_group);

  Group group;
  toolkit::ListBox list;
  toolkit::Label heading;
  StandardButton check_all;
  toolkit::Label percentage;
};

/// frm_RandomizerCloud, frm_RandomizerSky or frm_RandomizerWater. Filled from the catalogue as it
/// is made.
struct ConstraintPage {
  explicit ConstraintPage(Family page_family);

  Family family;
  toolkit::Form form;
  RandomizerTabs tabs;
  std::vector<std::unique_ptr<ConstraintList>> lists;  ///< by the index of the group
  std::optional<toolkit::CheckBox> chk_Sun;            ///< of the sky page alone, like the next
  std::optional<toolkit::CheckBox> chk_Contrails;

 private:
  void MakeLists();
  void MakeSwitchBoxes();
};

/// Fills the page's lists from the catalogue.
void FillConstraintLists(ConstraintPage& page);
/// Brings check-all buttons and percentages in line with the lists, and checks the first row of a
/// list that has no other row checked.
void UpdateConstraintPage(ConstraintPage& page);
/// Checks every row of a group's list.
void CheckAllOptions(Group group);
/// The button_type of a group's check-all button is the group's prefix and this.
inline constexpr char kCheckAllType[] = "_checkall";

/// What the pages allow the randomizer. While the program runs, their lists and check boxes are the
/// authority on it. Makes the pages that do not exist yet.
Constraints ReadConstraints();

}  // namespace nimbrel
