#include "history/FavoriteStore.h"

#include <algorithm>

#include "platform/FileSystem.h"
#include "platform/text.h"
#include "settings/Failure.h"
#include "settings/Folders.h"

namespace nimbrel {
namespace {

constexpr std::size_t kMaxFavorites = 1000;
/// A longer file is no favourite and is not read into memory: a row without texts.
constexpr std::size_t kMaxFileBytes = std::size_t{1} << 20U;
constexpr std::string_view kRemoved = ",/\\()[]:;=*'\"";

std::string FavoritesFolder(const Folders& folders) { return folders.program + "\\Favorites"; }

/// Puts a text at the start of its field, whose last byte stays zero.
void PutText(std::span<std::byte> field, std::string_view text) {
  std::string ansi = platform::ToAnsi(platform::Trim(text));
  ansi.resize(std::min({ansi.size(), ansi.find('\0'), field.size() - 1}));
  std::transform(ansi.begin(), ansi.end(), field.begin(),
                 [](char c) { return static_cast<std::byte>(c); });
}

std::string TakeText(std::span<const std::byte> field) {
  const auto end = std::find(field.begin(), field.end(), std::byte{0});
  return platform::FromAnsi(
      {reinterpret_cast<const char*>(field.data()), static_cast<std::size_t>(end - field.begin())});
}

/// Like subspan, without what lies past the end.
std::span<const std::byte> Part(std::span<const std::byte> bytes, std::size_t from,
                                std::size_t length) {
  const std::size_t start = std::min(from, bytes.size());
  return bytes.subspan(start, std::min(length, bytes.size() - start));
}

/// No user means a control character or a null character as a part of a file name.
bool IsName(std::string_view name) {
  return std::none_of(name.begin(), name.end(), [](char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7F;
  });
}

/// Sweeps what killed runs have left only if the listing shows some: in a folder of thousands of
/// files a second listing costs time.
std::vector<std::string> FavoriteNames(platform::FileSystem& files, const std::string& folder) {
  std::vector<std::string> names =
      files.ListFiles(folder + "*.*", platform::kReadOnly | platform::kHidden | platform::kSystem);
  const auto is_temporary = [&files](const std::string& name) { return files.IsTemporary(name); };
  if (std::erase_if(names, is_temporary) != 0) {
    files.SweepTemporaries(folder);
  }
  names.resize(std::min(names.size(), kMaxFavorites));
  return names;
}

}  // namespace

std::array<std::byte, kFavoriteBytes> EncodeFavorite(const FavoriteRecord& favorite) {
  std::array<std::byte, kFavoriteBytes> bytes{};
  const std::span<std::byte> all(bytes);
  PutText(all.first(kFavoriteTitleBytes), favorite.Title);
  PutText(all.subspan(kFavoriteTitleBytes, kFavoriteDescriptionBytes), favorite.Description);
  const auto record = EncodeRecord(favorite.Settings);
  std::copy(record.begin(), record.end(), all.last(kRecordBytes).begin());
  return bytes;
}

FavoriteRecord DecodeFavorite(std::span<const std::byte> bytes) {
  return {TakeText(Part(bytes, 0, kFavoriteTitleBytes)),
          TakeText(Part(bytes, kFavoriteTitleBytes, kFavoriteDescriptionBytes)),
          DecodeRecord(Part(bytes, kFavoriteBytes - kRecordBytes, kRecordBytes))};
}

std::string FavoriteFileName(std::string_view title) {
  std::string name = platform::Trim(title);
  std::erase_if(name, [](char c) { return kRemoved.find(c) != std::string_view::npos; });
  std::replace(name.begin(), name.end(), ' ', '_');
  return name + ".nbf";
}

std::vector<Favorite> ReadFavoriteFiles(const Folders& folders) {
  platform::FileSystem files(kTemporaryPrefix);
  const std::string folder = FavoritesFolder(folders) + "\\";
  std::vector<Favorite> favorites;
  for (const std::string& name : FavoriteNames(files, folder)) {
    Favorite& favorite = favorites.emplace_back();
    favorite.path = folder;
    favorite.path += name;
    if (const auto bytes = files.ReadFile(favorite.path, kMaxFileBytes)) {
      favorite.record = DecodeFavorite(*bytes);
    }
  }
  return favorites;
}

std::string FavoritePath(std::string_view title, const Folders& folders) {
  platform::FileSystem files(kTemporaryPrefix);
  const std::string folder = FavoritesFolder(folders);
  // If the folder can't be made, the write tells.
  files.CreateFolder(folder);
  const std::string name = FavoriteFileName(title);
  std::string path = folder + "\\" + name;
  // A link in the file's place must not lead the write out of the folder.
  if (!IsName(name) || !files.LiesWithin(path, folder)) {
    throw ActionFailed("The title gives no name for a file in the Favorites folder.");
  }
  return path;
}

bool FavoriteExists(const std::string& path) {
  return platform::FileSystem(kTemporaryPrefix).FileExists(path);
}

void WriteFavoriteFile(const std::string& path, const FavoriteRecord& favorite) {
  const platform::FileStatus status =
      platform::FileSystem(kTemporaryPrefix)
          .ReplaceFile(path, EncodeFavorite(favorite), platform::Durability::kFlushedRename);
  if (status != platform::FileStatus::kOk) {
    throw ActionFailed("The favorite's file " + std::string(platform::Describe(status)) + ".");
  }
}

platform::FileStatus DeleteFavoriteFile(const std::string& path) {
  return platform::FileSystem(kTemporaryPrefix).DeleteFile(path);
}

}  // namespace nimbrel
