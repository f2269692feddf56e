#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "settings/SettingsRecord.h"

namespace nimbrel {

/// Favorites\*.nbf: one named choice in each file of 1315 bytes.

inline constexpr std::size_t kFavoriteTitleBytes = 255;
inline constexpr std::size_t kFavoriteDescriptionBytes = 1024;
inline constexpr std::size_t kFavoriteBytes =
    kFavoriteTitleBytes + kFavoriteDescriptionBytes + kRecordBytes;

struct FavoriteRecord {
  std::string Title;
  std::string Description;
  SettingsRecord Settings;
};

/// The folder as of the last ReadFavorites, which alone writes these, in the order of the listing.
extern std::vector<FavoriteRecord> FavoriteEntries;
extern std::vector<std::string> FavoritePaths;
extern std::int16_t FavoriteLastIndex;  ///< -1 while there is none

/// Who asks for a favourite: the main page, or the randomizer's overview for its own record.
inline constexpr std::int16_t kFavoriteOfSelection = 0;
inline constexpr std::int16_t kFavoriteOfRandomizer = 1;

/// The stored form. Texts are trimmed, end before a zero character and before their field does.
std::array<std::byte, kFavoriteBytes> EncodeFavorite(const FavoriteRecord& favorite);
/// Bytes behind the end of a short span read as zeros; those behind a favourite's end don't count.
FavoriteRecord DecodeFavorite(std::span<const std::byte> bytes);

/// The name of a title's file in the folder, without what can't stand in one.
std::string FavoriteFileName(std::string_view title);

/// Reads the folder anew, at most 1000 files of it, each as far as it makes sense.
void ReadFavorites();
/// Writes a favourite, on disk when it returns; asks before it takes the place of an old one. False
/// when the user would rather not. Throws RunTimeFailure, with the old file as it was, when the
/// file can't be written.
bool SaveFavorite(std::int16_t source, std::string_view title, std::string_view description);
/// Makes entry `index` the CurrentSelection; an index outside the list does nothing.
void LoadFavorite(std::int32_t index);
/// Deletes the file of entry `index`. kOk also when it has gone, or when there is no such entry.
platform::FileStatus DeleteFavorite(std::int32_t index);

}  // namespace nimbrel
