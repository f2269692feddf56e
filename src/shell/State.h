#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "history/FavoriteStore.h"
#include "history/HistoryStore.h"
#include "platform/system.h"
#include "randomizer/Draw.h"
#include "settings/Catalogue.h"
#include "settings/Choice.h"
#include "settings/Folders.h"
#include "settings/SettingsRecord.h"
#include "shell/Forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

class Pictures;

/// Everything the interface knows, plain and open: what can be chosen, what is chosen, what is
/// shown. The four switches are the exception: their check boxes on frm_Main are their state.
struct State {
  Folders folders;
  Catalogue catalogue;
  std::shared_ptr<Pictures> pictures;  ///< the preview pictures of the catalogue; not shared
  /// True once all four readers have read the information file. Until then the check boxes and the
  /// inhibit flags are not the file's, and nothing is written back.
  bool ConfigurationLoaded = false;

  /// What is chosen now. Written by single steps on a ring page and by RecordToSelection.
  Selection CurrentSelection;
  /// The group each ring has in front, by its index in the family. Written by turns alone.
  std::int16_t CloudFrontGroup = 0;
  std::int16_t SkyFrontGroup = 0;
  std::int16_t WaterFrontGroup = 0;

  History history;
  /// The entry that the history list keeps selected across a refresh; -1: the newest.
  std::int16_t HistoryFocusIndex = -1;
  std::vector<Favorite> favorites;  ///< the folder as last listed
  /// The favourite that the list keeps selected across a refresh; -1 selects the first row.
  std::int16_t FavoriteFocusIndex = 0;
  /// True while the list of favourites is refilled: its clicks are not the user's then.
  bool FavoriteListBusy = false;
  /// True while constraint lists are filled or brought in line: their checks are not the user's
  /// then.
  bool ConstraintFillInProgress = false;
  SettingsRecord RandomizerRecord;  ///< the latest random selection
  RandomSource random = ClockRandom();
  std::function<double()> Now = platform::Now;  ///< the moment of new records

  /// The page now shown, by its form's name. Empty at start, "frm_Main" once the user has come back
  /// to the main page.
  std::string CurrentPage;
  /// What an OK of the message dialog is to do. The asker sets it before ShowMessage.
  std::int16_t PendingMessageAction = 0;
  /// 1 after OK, 0 after Cancel, -1 once the answer has been read.
  std::int16_t MessageAnswer = 0;

  ButtonContext buttons;  ///< of every skinned button; its dispatch also gets clicks on labels
  LoadedForms forms;

  std::uintptr_t GraphicsToken = 0;  ///< from StartGraphics to StopGraphics
  /// Ends the program; does not return. Set at start by app/.
  std::function<void()> ShutDownProgram;
  bool ShuttingDown = false;
};

/// Values of PendingMessageAction.
inline constexpr std::int16_t kDeleteFavorite = 1;
inline constexpr std::int16_t kRandomizeAndInstall = 2;

/// The one record.
extern State ui;

}  // namespace nimbrel
