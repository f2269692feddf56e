#include "shell/pages/GroupLabels.h"

#include <string>

#include "shell/PageForm.h"
#include "shell/State.h"

namespace nimbrel {
namespace {

constexpr PerGroup<const char*> kTitleNames{
    {{"lbl_Cloud_Solid", "lbl_Cloud_Stratus", "lbl_Cloud_Wispy", "lbl_Cloud_Cirrus",
      "lbl_Sky_Sunrise", "lbl_Sky_Day", "lbl_Sky_Sunset", "lbl_Sky_Night", "lbl_Water_Base",
      "lbl_Water_Environment", "lbl_Water_Waves"}}};

constexpr PerFamily<const char*> kSpotNames{
    {{"lbl_CloudPreview", "lbl_SkyPreview", "lbl_WaterPreview"}}};

constexpr int kTitleHeight = 16;

}  // namespace

TitleLabels MakeTitleLabels(toolkit::Container& container, int left, int width,
                            int (*top)(const GroupFacts& group)) {
  TitleLabels titles;
  for (const GroupFacts& facts : kGroups) {
    auto& title = titles[facts.group];
    title = std::make_unique<toolkit::Label>(container, kTitleNames[facts.group]);
    PlaceLabel(*title, LabelPlace{static_cast<double>(left), static_cast<double>(top(facts)),
                                  static_cast<double>(width), kTitleHeight});
    title->SetForeColor(kValueColor);
  }
  return titles;
}

void ShowTitles(const TitleLabels& titles, const Choice& choice) {
  for (const GroupFacts& facts : kGroups) {
    titles[facts.group]->SetCaption(ui.catalogue.At(facts.group, choice.option[facts.group]).Title);
  }
}

void DrawPreviews(toolkit::Container& surface, const PreviewGrid& grid, const Choice& choice,
                  void (*draw)(toolkit::Container& surface, int left, int top, int width,
                               int height, Group group, std::int16_t option)) {
  for (const GroupFacts& facts : kGroups) {
    draw(surface, grid.Left(facts.group), grid.Top(facts.group), kMiniWidth, kMiniHeight,
         facts.group, choice.option[facts.group]);
  }
}

PreviewSpots MakePreviewSpots(toolkit::Container& container, const PreviewGrid& grid,
                              const toolkit::Form& form) {
  PreviewSpots spots;
  for (const GroupFacts& facts : kGroups) {
    auto& spot = spots[facts.group];
    spot = std::make_unique<toolkit::Label>(container,
                                            std::string(kSpotNames[facts.family]) + "(" +
                                                std::to_string(IndexInFamily(facts.group)) + ")");
    PlaceLabel(*spot,
               LabelPlace{static_cast<double>(grid.Left(facts.group)),
                          static_cast<double>(grid.Top(facts.group)), kMiniWidth, kMiniHeight});
    spot->Click = [&form, &facts] {
      ui.buttons.dispatch(ButtonClass::kSmall, form.Name(),
                          std::string(kPreviewType) + facts.prefix);
    };
    SetHandPointer(*spot);
  }
  return spots;
}

}  // namespace nimbrel
