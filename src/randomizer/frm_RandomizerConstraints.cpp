#include "randomizer/frm_RandomizerConstraints.h"

#include <array>
#include <string>

#include "platform/text.h"
#include "randomizer/ConstraintRows.h"
#include "randomizer/mod_Randomizer.h"
#include "settings/Catalogue.h"
#include "shell/MainSwitches.h"
#include "shell/PageForm.h"

namespace nimbrel {

bool ConstraintFillInProgress = false;

namespace {

// Pixels. What belongs to a list stands round it at fixed distances.
constexpr int kListWidth = 267;
constexpr int kListHeight = 79;
constexpr int kHeadingRise = 17;
constexpr int kFootDrop = 87;  ///< from the top of the list to button and percentage
constexpr int kButtonShift = 228;

constexpr std::array<ConstraintListLook, 4> kCloudLists{{
    {"Solid", "Solid Cumulus:", 15, 105, "btn_CheckAll_0",
     "Click to check all options available for the Solid Cumulus textures."},
    {"Stratus", "Stratus:", 311, 105, "btn_CheckAll_1",
     "Click to check all options available for the Stratus Cumulus textures."},
    {"Wispy", "Wispy Edges:", 15, 278, "btn_CheckAll",
     "Click to check all options available for the Wispy Cumulus textures."},
    {"Cirrus", "Cirrus:", 311, 278, "btn_CheckAll",
     "Click to check all options available for the Cirrus textures."},
}};
constexpr std::array<ConstraintListLook, 4> kSkyLists{{
    {"Sunrise", "Sunrise Textures:", 15, 105, "btn_CheckAll_0",
     "Click to check all options available for the Sunrise sky textures."},
    {"Day", "Day Textures:", 311, 105, "btn_CheckAll_1",
     "Click to check all options available for the Day sky textures."},
    {"Sunset", "Sunset Textures:", 15, 258, "btn_CheckAll",
     "Click to check all options available for the Sunset sky textures."},
    {"Night", "Night Textures:", 311, 258, "btn_CheckAll",
     "Click to check all options available for the Night sky textures."},
}};
constexpr std::array<ConstraintListLook, 3> kWaterLists{{
    {"Base", "Base Water Color Textures:", 15, 105, "btn_CheckAll_0",
     "Click to check all options available for the Base water textures."},
    {"Environment", "Water Reflectivity:", 311, 105, "btn_CheckAll_1",
     "Click to check all options available for the Reflection water textures."},
    {"Waves", "Wave Height:", 15, 278, "btn_CheckAll",
     "Click to check all options available for the Wave Height textures."},
}};

#define NIMBREL_CONSTRAINT_HELP(family)                                                          \
  "Set constraints, for the " family                                                             \
  " options, on what is available to be selected by the randomizer, by using this page.  Check " \
  "the options you would like to be available to the randomizer.  Leave an item unchecked and "  \
  "it will not be selected by the randomizer."

/// By family.
constexpr std::array<ConstraintPageLook, kFamilies> kLooks{{
    {"frm_RandomizerCloud", FormId::kRandomizerCloud, kCloud, RandomizerTab::kCloudsTab,
     NIMBREL_CONSTRAINT_HELP("cloud"), true, kCloudLists},
    {"frm_RandomizerSky", FormId::kRandomizerSky, kSky, RandomizerTab::kSkyTab,
     NIMBREL_CONSTRAINT_HELP("sky"), false, kSkyLists},
    {"frm_RandomizerWater", FormId::kRandomizerWater, kWater, RandomizerTab::kWaterTab,
     NIMBREL_CONSTRAINT_HELP("water"), false, kWaterLists},
}};
#undef NIMBREL_CONSTRAINT_HELP

/// Freed by their release alone: static objects end after the toolkit does.
std::array<ConstraintPage*, kFamilies> pages{};

/// Mutes the lists while one lives.
class FillMark {
 public:
  FillMark() { ConstraintFillInProgress = true; }
  FillMark(const FillMark&) = delete;
  FillMark& operator=(const FillMark&) = delete;
  ~FillMark() { ConstraintFillInProgress = before_; }

 private:
  bool before_ = ConstraintFillInProgress;
};

std::string ControlName(const char* front, const ConstraintListLook& look, const char* end = "") {
  return front + std::string(look.name) + end;
}

void FillList(toolkit::ListBox& list, std::int16_t family, std::int16_t group) {
  list.Clear();
  const std::int16_t highest =
      Catalogue.HighestIndex[static_cast<std::size_t>(family)][static_cast<std::size_t>(group)];
  for (std::int32_t option = 0; option <= highest; ++option) {
    const TextureOption& cell = Catalogue.At(family, group, static_cast<std::int16_t>(option));
    // The list is sorted: it says where the row has come to stand.
    const int row = list.AddItem(platform::Trim(cell.Title), option);
    list.SetSelected(row, cell.InhibitRandomizer == 0);
  }
  if (list.ListCount() > 0) {
    list.SetListIndex(0);
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

ConstraintList& ListOf(std::size_t group) {
  const OptionGroup& place = kOptionGroups[group];
  return *RandomizerPage(place.family).lists[static_cast<std::size_t>(place.index)];
}

}  // namespace

ConstraintList::ConstraintList(toolkit::Form& form, const ConstraintListLook& list_look)
    : look(list_look),
      list(form, ControlName("lst_", look), toolkit::kCheckedList | toolkit::kSortedList),
      heading(form, ControlName("lbl_", look)),
      check_all(form, ControlName("btn_", look, "_CheckAll")),
      percentage(form, ControlName("lbl_", look, "_pct")) {
  list.PlacePixels(look.left, look.top, kListWidth, kListHeight);
  PlaceLabel(heading, {look.left, look.top - kHeadingRise, kListWidth, 16}, look.heading);
  PlaceLabel(percentage, {look.left, look.top + kFootDrop, 173, 16}, "Selection Percentage: 100%");
}

ConstraintPage::ConstraintPage(const ConstraintPageLook& page_look)
    : look(page_look), form(look.form_name), tabs(form, look.tab, look.help) {
  MakeLists();
  if (look.family == kSky) {
    MakeSwitchBoxes();
  }
  LoadPageForm(form, look.id, "Sub_BG.bmp");
  for (const auto& list : lists) {
    list->list.SetForeColor(kTextColor);
  }
  PlaceButtons();
  tabs.ColorTabs();
  FillConstraintLists(*this);
}

void ConstraintPage::MakeLists() {
  for (const ConstraintListLook& list_look : look.lists) {
    lists.push_back(std::make_unique<ConstraintList>(form, list_look));
    ConstraintList& list = *lists.back();
    list_controls.push_back(&list.list);
    if (look.bold_headings) {
      list.heading.SetFont(kBoldFont);
    }
    list.list.ItemCheck = [this](int) {
      if (!ConstraintFillInProgress) {
        UpdateConstraintPage(*this);
      }
    };
  }
}

void ConstraintPage::MakeSwitchBoxes() {
  chk_Sun.emplace(form, "chk_Sun");
  chk_Sun->PlacePixels(15, 395, 561, 19);
  chk_Sun->SetCaption("Check to allow the randomizer to select the replacement sun texture");
  chk_Contrails.emplace(form, "chk_Contrails");
  chk_Contrails->PlacePixels(15, 416, 561, 19);
  chk_Contrails->SetCaption(
      "Check to allow the randomizer to select to use the extended contrails");
  for (toolkit::CheckBox* box : {&*chk_Sun, &*chk_Contrails}) {
    box->SetTransparent(true);
  }
}

void ConstraintPage::PlaceButtons() {
  for (const auto& list : lists) {
    const ConstraintListLook& at = list->look;
    const std::string type = platform::LowerCase(at.name) + "_checkall";
    SetUpButton(list->check_all, form,
                {static_cast<double>(at.left + kButtonShift),
                 static_cast<double>(at.top + kFootDrop), type.c_str(), at.picture, at.tool_tip});
  }
}

ConstraintPage& RandomizerPage(std::int16_t family) {
  const auto place = static_cast<std::size_t>(family);
  return LoadedPage(pages[place], kLooks[place]);
}

void ReleaseRandomizerPage(std::int16_t family) {
  const auto place = static_cast<std::size_t>(family);
  ReleasePage(pages[place], kLooks[place].id);
}

void FillConstraintLists(ConstraintPage& page) {
  const FillMark mark;
  for (std::size_t group = 0; group < page.lists.size(); ++group) {
    FillList(page.lists[group]->list, page.look.family, static_cast<std::int16_t>(group));
  }
  if (page.chk_Sun) {
    page.chk_Sun->SetValue(Catalogue.sunInhibitRandomizer == 0 ? 1 : 0);
    page.chk_Contrails->SetValue(Catalogue.contrailsInhibitRandomizer == 0 ? 1 : 0);
  }
  UpdateConstraintPage(page);
}

void UpdateConstraintPage(ConstraintPage& page) {
  const FillMark mark;
  for (const auto& list : page.lists) {
    UpdateList(*list);
  }
}

void CheckAllOptions(std::size_t group) {
  const FillMark mark;
  toolkit::ListBox& list = ListOf(group).list;
  for (int row = 0; row < list.ListCount(); ++row) {
    list.SetSelected(row, true);
  }
  UpdateConstraintPage(RandomizerPage(kOptionGroups[group].family));
}

std::vector<ConstraintRow> ConstraintRows(std::size_t group) {
  const toolkit::ListBox& list = ListOf(group).list;
  std::vector<ConstraintRow> rows;
  rows.reserve(static_cast<std::size_t>(list.ListCount()));
  for (int row = 0; row < list.ListCount(); ++row) {
    rows.push_back({list.ItemData(row), list.Selected(row)});
  }
  return rows;
}

SwitchConstraints AllowedSwitches() {
  const ConstraintPage& page = RandomizerPage(kSky);
  return {IsOn(*page.chk_Sun), IsOn(*page.chk_Contrails)};
}

}  // namespace nimbrel
