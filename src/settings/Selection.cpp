#include "settings/Selection.h"

#include "platform/system.h"
#include "shell/MainSwitches.h"
#include "shell/RefreshMainPage.h"

namespace nimbrel {
namespace {

constexpr std::int16_t kFromRandomizer = 1;

std::int16_t& Selected(const OptionGroup& group) {
  return CurrentSelection[static_cast<std::size_t>(group.family)]
                         [static_cast<std::size_t>(group.index)];
}

std::int16_t SwitchValue(bool on) { return on ? 1 : 0; }

}  // namespace

Selection CurrentSelection{};
std::int16_t CloudFrontGroup = 0;
std::int16_t SkyFrontGroup = 0;
std::int16_t WaterFrontGroup = 0;
SettingsRecord RandomizerRecord;
std::vector<SettingsRecord> HistoryEntries;
std::int16_t HistoryLastIndex = -1;
std::int16_t HistoryFocusIndex = -1;

void RecordToSelection(const SettingsRecord& record) {
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    Selected(kOptionGroups[i]) = record.*kRecordFields[i];
  }
  const MainSwitches switches = Switches();
  switches.chk_Sun.SetValue(SwitchValue(record.Sun == 1));
  switches.chk_Contrails.SetValue(SwitchValue(record.Contrails == 1));
  RefreshMainPage();
}

SettingsRecord SelectionToRecord(std::int16_t source) {
  SettingsRecord record;
  record.Date = source == kFromRandomizer ? RandomizerRecord.Date : platform::Now();
  record.Source = source;
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    record.*kRecordFields[i] = Selected(kOptionGroups[i]);
  }
  const MainSwitches switches = Switches();
  record.Sun = SwitchValue(IsOn(switches.chk_Sun));
  record.Contrails = SwitchValue(IsOn(switches.chk_Contrails));
  return record;
}

}  // namespace nimbrel
