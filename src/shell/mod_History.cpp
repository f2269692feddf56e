#include "shell/mod_History.h"

#include <cstddef>

#include "history/HistoryStore.h"
#include "shell/State.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/mod_Misc.h"
#include "shell/pages/frm_Main.h"

namespace nimbrel {

void ReadHistory() { ui.history = ReadHistoryFile(ui.folders); }

void AppendHistory(std::int16_t Source) {
  AppendToHistory(ui.history, SelectionToRecord(Source), ui.folders);
}

void LoadHistoryEntry(std::int16_t index) {
  if (index >= 0 && static_cast<std::size_t>(index) < ui.history.entries.size()) {
    RecordToSelection(ui.history.entries[static_cast<std::size_t>(index)]);
  }
}

void LoadSelectedHistory() {
  const toolkit::ComboBox& combo = Loaded(ui.forms.main).combo_History;
  if (combo.ListIndex() < 0) {
    return;
  }
  ui.HistoryFocusIndex = static_cast<std::int16_t>(combo.ItemData(combo.ListIndex()));
  LoadHistoryEntry(ui.HistoryFocusIndex);
  ui.HistoryFocusIndex = -1;
  Tell("Information", "History Settings Loaded",
       "The history settings have been loaded into the Nimbrel interface.\r\r"
       "To use these settings in Flight Simulator, press the Save and Install button.");
}

}  // namespace nimbrel
