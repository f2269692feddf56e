#include "shell/pages/ConstraintPage.h"

#include <array>
#include <string>

#include "randomizer/Draw.h"
#include "shell/PageForm.h"
#include "shell/State.h"

namespace nimbrel {
namespace {

// Pixels. The controls of a list are placed from its top left corner.
constexpr int kListWidth = 267;
constexpr int kListHeight = 79;
constexpr int kHeadingRise = 17;
constexpr int kFootDrop = 87;  ///< from the top of the list to button and percentage
constexpr int kButtonShift = 228;

/// One list, in pixels of its page.
struct ConstraintListSpec {
  const char* name;  ///< "Solid": lst_Solid, lbl_Solid, btn_Solid_CheckAll, lbl_Solid_pct
  const char* heading;
  int left;
  int top;
  const char* picture;  ///< of its check-all button
  const char* tool_tip;
};
constexpr PerGroup<ConstraintListSpec> kListSpecs{{{
    {"Solid", "Solid Cumulus:", 15, 105, "btn_CheckAll_0",
     "Click to check all options available for the Solid Cumulus textures."},
    {"Stratus", "Stratus:", 311, 105, "btn_CheckAll_1",
     "Click to check all options available for the Stratus Cumulus textures."},
    {"Wispy", "Wispy Edges:", 15, 278, "btn_CheckAll",
     "Click to check all options available for the Wispy Cumulus textures."},
    {"Cirrus", "Cirrus:", 311, 278, "btn_CheckAll",
     "Click to check all options available for the Cirrus textures."},
    {"Sunrise", "Sunrise Textures:", 15, 105, "btn_CheckAll_0",
     "Click to check all options available for the Sunrise sky textures."},
    {"Day", "Day Textures:", 311, 105, "btn_CheckAll_1",
     "Click to check all options available for the Day sky textures."},
    {"Sunset", "Sunset Textures:", 15, 258, "btn_CheckAll",
     "Click to check all options available for the Sunset sky textures."},
    {"Night", "Night Textures:", 311, 258, "btn_CheckAll",
     "Click to check all options available for the Night sky textures."},
    {"Base", "Base Water Color Textures:", 15, 105, "btn_CheckAll_0",
     "Click to check all options available for the Base water textures."},
    {"Environment", "Water Reflectivity:", 311, 105, "btn_CheckAll_1",
     "Click to check all options available for the Reflection water textures."},
    {"Waves", "Wave Height:", 15, 278, "btn_CheckAll",
     "Click to check all options available for the Wave Height textures."},
}}};

struct ConstraintPageSpec {
  const char* form_name;
  RandomizerTab tab;
  const char* options;  ///< what the help text calls them
  bool bold_headings;
};
constexpr PerFamily<ConstraintPageSpec> kPageSpecs{{{
    {"frm_RandomizerCloud", RandomizerTab::kCloudsTab, "cloud", true},
    {"frm_RandomizerSky", RandomizerTab::kSkyTab, "sky", false},
    {"frm_RandomizerWater", RandomizerTab::kWaterTab, "water", false},
}}};

std::string HelpText(const ConstraintPageSpec& spec) {
  return std::string("Set constraints, for the ") + spec.options +
         " options, on what is available to be selected by the randomizer, by using this page.  "
         "Check the options you would like to be available to the randomizer.  Leave an item "
         "unchecked and it will not be selected by the randomizer.";
}

/// Mutes the lists while one lives.
class FillMark {
 public:
  FillMark() { ui.ConstraintFillInProgress = true; }
  FillMark(const FillMark&) = delete;
  FillMark& operator=(const FillMark&) = delete;
  ~FillMark() { ui.ConstraintFillInProgress = before_; }

 private:
  bool before_ = ui.ConstraintFillInProgress;
};

std::string ControlName(const char* front, Group group, const char* end = "") {
  return front + std::string(kListSpecs[group].name) + end;
}

void FillList(ConstraintList& list) {
  list.list.Clear();
  std::int32_t index = 0;
  for (const TextureOption& option : ui.catalogue.options[list.group]) {
    // AddItem returns the sorted position.
    const int row = list.list.AddItem(option.Title, index++);
    list.list.SetSelected(row, option.InhibitRandomizer == 0);
  }
  if (list.list.ListCount() > 0) {
    list.list.SetListIndex(0);
  }
}

int CountChecked(const toolkit::ListBox& list) {
  int checked = 0;
  for (int row = 0; row < list.ListCount(); ++row) {
    checked += list.Selected(row) ? 1 : 0;
  }
  return checked;
}

void UpdateList(ConstraintList& list) {
  int checked = CountChecked(list.list);
  list.check_all.Setstate(checked == list.list.ListCount() ? "disabled" : "enabled");
  if (checked == 0 && list.list.ListCount() > 0) {
    list.list.SetSelected(0, true);
    checked = 1;
  }
  list.percentage.SetCaption("Selection Percentage: " + PercentageText(checked) + "%");
}

ConstraintPage& PageOf(Family family) { return Loaded(ui.forms.constraints[family], family); }

toolkit::ListBox& ListOf(Group group) {
  return PageOf(FamilyOf(group)).lists[static_cast<std::size_t>(IndexInFamily(group))]->list;
}

}  // namespace

ConstraintList::ConstraintList(toolkit::Form& form, Group list_group)
    : group(list_group),
      list(form, ControlName("lst_", group), toolkit::kCheckedList | toolkit::kSortedList),
      heading(form, ControlName("lbl_", group)),
      check_all(form, ControlName("btn_", group, "_CheckAll")),
      percentage(form, ControlName("lbl_", group, "_pct")) {
  const ConstraintListSpec& spec = kListSpecs[group];
  const double left = spec.left;
  const double top = spec.top;
  list.PlacePixels(left, top, kListWidth, kListHeight);
  list.SetForeColor(kTextColor);
  PlaceLabel(heading, {left, top - kHeadingRise, kListWidth, 16}, spec.heading);
  if (kPageSpecs[FamilyOf(group)].bold_headings) {
    heading.SetFont(kBoldFont);
  }
  PlaceLabel(percentage, {left, top + kFootDrop, 173, 16}, "Selection Percentage: 100%");
  const std::string type = std::string(kGroups[group].prefix) + kCheckAllType;
  PlaceButton(check_all, form,
              {left + kButtonShift, top + kFootDrop, type.c_str(), spec.picture, spec.tool_tip});
}

ConstraintPage::ConstraintPage(Family page_family)
    : family(page_family),
      form(kPageSpecs[family].form_name),
      tabs(form, kPageSpecs[family].tab, HelpText(kPageSpecs[family])) {
  LoadPageForm(form, "Sub_BG.bmp");
  MakeLists();
  if (family == Family::kSky) {
    MakeSwitchBoxes();
  }
  FillConstraintLists(*this);
}

void ConstraintPage::MakeLists() {
  for (const GroupFacts& facts : GroupsOf(family)) {
    lists.push_back(std::make_unique<ConstraintList>(form, facts.group));
    lists.back()->list.ItemCheck = [this](int) {
      if (!ui.ConstraintFillInProgress) {
        UpdateConstraintPage(*this);
      }
    };
  }
}

void ConstraintPage::MakeSwitchBoxes() {
  chk_Sun.emplace(form, "chk_Sun");
  chk_Sun->PlacePixels(15, 395, 561, 19);
  chk_Sun->SetCaption("Check to allow the randomizer to select the replacement sun texture");
  chk_Sun->SetTransparent(true);
  chk_Contrails.emplace(form, "chk_Contrails");
  chk_Contrails->PlacePixels(15, 416, 561, 19);
  chk_Contrails->SetCaption(
      "Check to allow the randomizer to select to use the extended contrails");
  chk_Contrails->SetTransparent(true);
}

void FillConstraintLists(ConstraintPage& page) {
  const FillMark mark;
  for (const auto& list : page.lists) {
    FillList(*list);
  }
  if (page.chk_Sun) {
    page.chk_Sun->SetValue(ui.catalogue.sunInhibitRandomizer == 0 ? 1 : 0);
    page.chk_Contrails->SetValue(ui.catalogue.contrailsInhibitRandomizer == 0 ? 1 : 0);
  }
  UpdateConstraintPage(page);
}

void UpdateConstraintPage(ConstraintPage& page) {
  const FillMark mark;
  for (const auto& list : page.lists) {
    UpdateList(*list);
  }
}

void CheckAllOptions(Group group) {
  const FillMark mark;
  toolkit::ListBox& list = ListOf(group);
  for (int row = 0; row < list.ListCount(); ++row) {
    list.SetSelected(row, true);
  }
  UpdateConstraintPage(PageOf(FamilyOf(group)));
}

Constraints ReadConstraints() {
  Constraints constraints;
  for (const GroupFacts& facts : kGroups) {
    const toolkit::ListBox& list = ListOf(facts.group);
    auto& rows = constraints.rows[facts.group];
    for (int row = 0; row < list.ListCount(); ++row) {
      rows.push_back({list.ItemData(row), list.Selected(row)});
    }
  }
  const ConstraintPage& sky = PageOf(Family::kSky);
  constraints.sun = sky.chk_Sun->Value() == 1;
  constraints.contrails = sky.chk_Contrails->Value() == 1;
  return constraints;
}

}  // namespace nimbrel
