#pragma once

#include <cstdint>
#include <string_view>

namespace nimbrel {

/// The doors to the favourites.

/// Values of `source`: what a favourite is saved of.
inline constexpr std::int16_t kFavoriteOfSelection = 0;
inline constexpr std::int16_t kFavoriteOfRandomizer = 1;

/// Reads the folder anew and shows its first favourite on frm_Favorite.
void ListFavorites();
/// Writes a favourite, on disk when it returns; asks before it replaces an old one. False if the
/// user declines. Throws ActionFailed, with the old file as it was, if the file can't be written.
bool SaveFavorite(std::int16_t source, std::string_view title, std::string_view description);
/// Makes favourite `index` the selection; an index outside the list does nothing.
void LoadFavorite(std::int32_t index);

/// Asks for title and description of a new favourite, and returns when the dialog has closed.
void OpenAddFavorite(std::int16_t source);
/// The actions of that dialog's buttons. If the save fails or is declined the dialog stays open
/// with the user's texts.
void ContinueAddFavorite();
void CancelAddFavorite();

/// The actions of frm_Favorite's buttons. They do nothing if no row is selected.
void LoadSelectedFavorite();
void AskToDeleteFavorite();
/// What OK does after AskToDeleteFavorite. Tells if the file can't be deleted.
void DeleteSelectedFavorite();

}  // namespace nimbrel
