#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStatus.h"
#include "settings/SettingsRecord.h"

namespace nimbrel {

struct Folders;

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

/// A file of the folder, with what it holds as far as it makes sense.
struct Favorite {
  std::string path;
  FavoriteRecord record;
};

/// The stored form. Texts are trimmed and end before a zero character and before their field does.
std::array<std::byte, kFavoriteBytes> EncodeFavorite(const FavoriteRecord& favorite);
/// Bytes past the end of a short span read as zeros; those past a favourite's end don't count.
FavoriteRecord DecodeFavorite(std::span<const std::byte> bytes);

/// The name of a title's file in the folder, without the characters that no file name may have.
std::string FavoriteFileName(std::string_view title);

/// The folder's files, at most 1000, in the order of the listing.
std::vector<Favorite> ReadFavoriteFiles(const Folders& folders);

/// The path of a title's file. Makes the folder if it is missing. Throws ActionFailed if the title
/// can't be used as a file name.
std::string FavoritePath(std::string_view title, const Folders& folders);
/// True if a favourite is saved under this path.
bool FavoriteExists(const std::string& path);
/// Writes a favourite, on disk when it returns, in place of an old one. Throws ActionFailed, with
/// the old file as it was, if the file can't be written.
void WriteFavoriteFile(const std::string& path, const FavoriteRecord& favorite);
/// kOk also if the file does not exist.
platform::FileStatus DeleteFavoriteFile(const std::string& path);

}  // namespace nimbrel
