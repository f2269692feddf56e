#include "history/mod_Favorites.h"

#include <algorithm>

#include "platform/system.h"
#include "platform/text.h"
#include "settings/Functions_Configuration.h"
#include "settings/Selection.h"
#include "shell/frm_Msg.h"

namespace nimbrel {

std::vector<FavoriteRecord> FavoriteEntries;
std::vector<std::string> FavoritePaths;
std::int16_t FavoriteLastIndex = -1;

namespace {

constexpr std::int16_t kFromFavorite = 2;
constexpr std::size_t kMostFavorites = 1000;
/// What is longer is no favourite and is not taken into memory: a row without texts.
constexpr std::size_t kLargestFile = std::size_t{1} << 20;
constexpr std::string_view kRemoved = ",/\\()[]:;=*'\"";

std::string FavoritesFolder() { return platform::ApplicationFolder() + "\\Favorites"; }

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

/// The part of a span that lies in it.
std::span<const std::byte> Part(std::span<const std::byte> bytes, std::size_t from,
                                std::size_t length) {
  const std::size_t start = std::min(from, bytes.size());
  return bytes.subspan(start, std::min(length, bytes.size() - start));
}

/// Control characters and an end of text are no part of a name that a user could mean.
bool IsName(std::string_view name) {
  return std::none_of(name.begin(), name.end(), [](char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7F;
  });
}

/// Where the title's file stands or will stand. A link that somebody has put in its place must not
/// lead the writing out of the folder.
std::string PathOf(std::string_view title) {
  const std::string name = FavoriteFileName(title);
  std::string path = FavoritesFolder() + "\\" + name;
  if (!IsName(name) || !platform::LiesWithin(path, FavoritesFolder())) {
    throw RunTimeFailure("The title gives no name for a file in the Favorites folder.");
  }
  return path;
}

bool MayOverwrite() {
  ShowMessage("Question", "Overwrite Favorites Collection?",
              "You are about to overwrite an existing Favorites Collection file.\r\r"
              "Do you wish to continue?",
              true, true, false);
  const bool yes = MessageAnswer == 1;
  MessageAnswer = -1;
  return yes;
}

SettingsRecord RecordOf(std::int16_t source) {
  SettingsRecord record =
      source == kFavoriteOfRandomizer ? RandomizerRecord : SelectionToRecord(kFromFavorite);
  record.Date = platform::Now();
  record.Source = kFromFavorite;
  return record;
}

std::vector<std::string> ListFolder() {
  return platform::ListFiles(FavoritesFolder() + "\\*.*",
                             platform::kReadOnly | platform::kHidden | platform::kSystem);
}

/// Without what a killed run has left, which is looked for only when the listing, dear in a folder
/// of thousands, shows something like it.
std::vector<std::string> FileNames() {
  static constexpr std::string_view kStart =
      platform::kTemporaryPattern.substr(0, platform::kTemporaryPattern.find('*'));
  std::vector<std::string> names = ListFolder();
  if (std::any_of(names.begin(), names.end(),
                  [](const std::string& name) { return name.starts_with(kStart); })) {
    platform::RemoveTemporaries(FavoritesFolder());
    names = ListFolder();
  }
  names.resize(std::min(names.size(), kMostFavorites));
  return names;
}

bool IsEntry(std::int32_t index) { return index >= 0 && index <= FavoriteLastIndex; }

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

void ReadFavorites() {
  const std::vector<std::string> names = FileNames();
  FavoriteEntries.clear();
  FavoritePaths.clear();
  FavoriteEntries.reserve(names.size());
  FavoritePaths.reserve(names.size());
  for (const std::string& name : names) {
    const std::string& path = FavoritePaths.emplace_back(FavoritesFolder() + "\\" + name);
    const auto bytes = platform::ReadFile(path, kLargestFile);
    FavoriteEntries.push_back(bytes ? DecodeFavorite(*bytes) : FavoriteRecord());
  }
  FavoriteLastIndex = static_cast<std::int16_t>(static_cast<int>(FavoriteEntries.size()) - 1);
}

bool SaveFavorite(std::int16_t source, std::string_view title, std::string_view description) {
  // A user who has tidied the folder away still means to keep this favourite.
  platform::CreateFolder(FavoritesFolder());
  const std::string path = PathOf(title);
  if (platform::FileExists(path) && !MayOverwrite()) {
    return false;
  }
  const FavoriteRecord favorite{std::string(title), std::string(description), RecordOf(source)};
  const platform::FileStatus status =
      platform::ReplaceFile(path, EncodeFavorite(favorite), platform::Durability::kFlushedRename);
  if (status != platform::FileStatus::kOk) {
    throw RunTimeFailure("The favorite's file " + std::string(platform::Describe(status)) + ".");
  }
  return true;
}

void LoadFavorite(std::int32_t index) {
  if (IsEntry(index)) {
    // A copy: what the record sets off may read the folder anew.
    const SettingsRecord settings = FavoriteEntries[static_cast<std::size_t>(index)].Settings;
    RecordToSelection(settings);
  }
}

platform::FileStatus DeleteFavorite(std::int32_t index) {
  return IsEntry(index) ? platform::DeleteFile(FavoritePaths[static_cast<std::size_t>(index)])
                        : platform::FileStatus::kOk;
}

}  // namespace nimbrel
