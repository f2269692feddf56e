#include "shell/mod_Randomizer.h"

#include "platform/system.h"
#include "randomizer/Draw.h"
#include "shell/State.h"
#include "shell/mod_Misc.h"
#include "shell/mod_WriteConfiguration.h"
#include "shell/pages/ConstraintPage.h"
#include "shell/pages/frm_Preview.h"
#include "shell/pages/frm_RandomizerOverview.h"
#include "shell/painting/PagePainting.h"

namespace nimbrel {
namespace {

// Pixels of the overview.
constexpr int kPreviewLeft = 0;
constexpr int kPreviewTop = 120;

}  // namespace

void RandomizeSelection() {
  const Constraints constraints = ReadConstraints();
  ConstrainOptions(constraints, ui.catalogue);
  ui.RandomizerRecord.choice = PickChoice(ui.catalogue, constraints, ui.random);
  ui.RandomizerRecord.Date = ui.Now();
}

void ApplyRandomSelection() { RecordToSelection(ui.RandomizerRecord); }

void SaveConstraints() {
  ConstrainAll(ReadConstraints(), ui.catalogue);
  WriteInhibitFlags();
}

void FillRandomizerOverview() {
  frm_RandomizerOverview& page = Loaded(ui.forms.overview);
  const SettingsRecord& record = ui.RandomizerRecord;
  ShowTitles(page.titles, record.choice);
  page.lbl_Sky_Sun.SetCaption(record.choice.sun ? "Use Replacement" : "Use Default");
  page.lbl_Sky_Contrails.SetCaption(record.choice.contrails ? "Use Extended" : "Use Default");
  page.lbl_DateTime.SetCaption(platform::FormatMoment(record.Date));
  DrawPreviews(page.form, kOverviewPreviews, record.choice, DrawOverviewPreview);
  if (const auto group = PreviewedGroup(page.form)) {
    ShowOverviewPreview(*group);
  }
}

void DrawRandomizerPage(toolkit::Form& form, RandomizerTab tab) {
  DrawTabs(form, tab);
  if (tab == RandomizerTab::kOverviewTab) {
    FillRandomizerOverview();
  }
}

void ShowOverviewPreview(Group group) {
  OpenPreview(group, ui.RandomizerRecord.choice.option[group], Loaded(ui.forms.overview).form,
              kPreviewLeft, kPreviewTop);
}

}  // namespace nimbrel
