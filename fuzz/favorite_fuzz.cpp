#include <algorithm>
#include <filesystem>
#include <string>

#include "history/mod_Favorites.h"
#include "platform/files.h"
#include "platform/text.h"
#include "settings/Functions_Configuration.h"
#include "shell/frm_Msg.h"
#include "support.h"
#include "support/recorders.h"

namespace fs = std::filesystem;
using namespace nimbrel;
using fuzz::Require;

namespace {

fs::path Folder() { return fuzz::Program("Favorites"); }

std::ptrdiff_t CountOf(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

/// Texts lose blanks at their ends, and what their fields have no room for; nothing else.
void RequireRoundTrip(const FavoriteRecord& favorite) {
  const FavoriteRecord once = DecodeFavorite(EncodeFavorite(favorite));
  const FavoriteRecord twice = DecodeFavorite(EncodeFavorite(once));
  Require(platform::Trim(favorite.Title).starts_with(once.Title));
  Require(platform::Trim(favorite.Description).starts_with(once.Description));
  Require(twice.Title == platform::Trim(once.Title));
  Require(twice.Description == platform::Trim(once.Description));
  Require(EncodeRecord(twice.Settings) == EncodeRecord(favorite.Settings));
}

/// Saves under the title; whatever it is, at most one file comes, in the folder of the favourites.
void Save(const FavoriteRecord& favorite) {
  const std::ptrdiff_t before = CountOf(Folder());
  try {
    Require(SaveFavorite(kFavoriteOfSelection, favorite.Title, favorite.Description));
  } catch (const RunTimeFailure&) {
    Require(CountOf(Folder()) == before);
    return;
  }
  // The given file's own name in another letter case is that file.
  const fs::path file = platform::HostPath((Folder() / FavoriteFileName(favorite.Title)).string());
  Require(fs::file_size(file) == kFavoriteBytes && CountOf(Folder()) <= before + 1);
  fs::remove(file);
}

}  // namespace

/// Any bytes as a favourite's file: it is listed, loaded, saved again under its own title and
/// deleted.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Recorded = {};
  Recorded.on_message = [] { MessageAnswer = 1; };
  fuzz::Put(Folder() / "given.nbf", std::as_bytes(std::span(data, size)));
  ReadFavorites();
  Require(FavoriteLastIndex == 0 && FavoriteEntries.size() == 1);
  const FavoriteRecord favorite = FavoriteEntries[0];
  RequireRoundTrip(favorite);
  LoadFavorite(0);
  Save(favorite);
  Require(CountOf(fuzz::Program("")) == 1 && DeleteFavorite(0) == platform::FileStatus::kOk);
  Require(CountOf(Folder()) == 0);
  return 0;
}
