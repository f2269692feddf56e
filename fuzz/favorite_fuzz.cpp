#include <filesystem>
#include <string>

#include "history/FavoriteStore.h"
#include "platform/text.h"
#include "settings/Failure.h"
#include "support.h"

namespace fs = std::filesystem;
using namespace nimbrel;
using fuzz::Require;

namespace {

fs::path Folder() { return fuzz::Simulator().Program("Favorites"); }

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
  std::string path;
  try {
    path = FavoritePath(favorite.Title, fuzz::Simulator().folders());
    WriteFavoriteFile(path, favorite);
  } catch (const ActionFailed&) {
    Require(CountOf(Folder()) == before);
    return;
  }
  Require(FavoriteExists(path) && CountOf(Folder()) <= before + 1);
  Require(DeleteFavoriteFile(path) == platform::FileStatus::kOk);
}

}  // namespace

/// Any bytes as a favourite's file: it is listed, saved again under its own title and deleted.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Put(Folder() / "given.nbf", std::as_bytes(std::span(data, size)));
  const std::vector<Favorite> favorites = ReadFavoriteFiles(fuzz::Simulator().folders());
  Require(favorites.size() == 1);
  RequireRoundTrip(favorites[0].record);
  Save(favorites[0].record);
  Require(CountOf(fuzz::Simulator().Program()) == 1);
  Require(DeleteFavoriteFile(favorites[0].path) == platform::FileStatus::kOk);
  Require(CountOf(Folder()) == 0);
  return 0;
}
