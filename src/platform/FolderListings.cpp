#include "platform/FolderListings.h"

#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <unordered_map>

#include "platform/FileStamp.h"
#include "platform/text.h"

namespace platform {
namespace {

/// More folders than an install touches; past it the listings are begun anew.
constexpr std::size_t kMostListings = 64;

/// How long after its reading a listing may be carried through changes of our own.
constexpr std::int64_t kOwnTrust = 2'000'000'000;

struct Listing {
  FileStamp stamp;
  std::int64_t taken = 0;
  bool own = false;                                    ///< kept good through a change of our own
  bool variants = false;                               ///< holds names that differ only in case
  std::unordered_map<std::string, std::string> names;  ///< folded name to name
};

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): one thread, one file system
std::unordered_map<std::string, Listing> listings;

bool FolderStamp(const std::string& folder, FileStamp& stamp) {
  struct stat facts {};
  if (stat(folder.c_str(), &facts) != 0) {
    return false;
  }
  if (!S_ISDIR(facts.st_mode)) {
    errno = ENOTDIR;
    return false;
  }
  stamp = StampOf(facts);
  return true;
}

/// Right after a change of our own the stamp is too young to tell whether a stranger's change came
/// with it. A run makes hundreds in a row, so the listing is believed meanwhile, and read again as
/// soon as the run pauses.
bool IsGood(const Listing& listing, const FileStamp& stamp) {
  if (listing.stamp != stamp || IsSettled(stamp, listing.taken)) {
    return listing.stamp == stamp;
  }
  const std::int64_t now = StampClock();
  return listing.own && !IsSettled(stamp, now) && now - listing.taken < kOwnTrust;
}

/// Whether a listing was good just now, before a change of our own.
bool CanBeCarried(const Listing& listing, const FileStamp& stamp) {
  return listing.stamp == stamp &&
         (IsSettled(stamp, listing.taken) || StampClock() - listing.taken < kOwnTrust);
}

void Note(Listing& listing, std::string_view name) {
  const auto [place, fresh] = listing.names.try_emplace(FoldName(name), name);
  if (!fresh && place->second != name) {
    listing.variants = true;
    place->second = std::min(place->second, std::string(name));
  }
}

bool Read(const std::string& folder, Listing& listing) {
  listing = {};
  listing.taken = StampClock();
  return FolderStamp(folder, listing.stamp) &&
         ScanFolder(folder, [&listing](const dirent& entry) { Note(listing, entry.d_name); });
}

const Listing* GoodListing(const std::string& folder) {
  FileStamp stamp;
  if (!FolderStamp(folder, stamp)) {
    listings.erase(folder);
    return nullptr;
  }
  if (listings.size() >= kMostListings && !listings.contains(folder)) {
    listings.clear();
  }
  Listing& listing = listings[folder];
  if (!IsGood(listing, stamp) && !Read(folder, listing)) {
    const int error = errno;
    listings.erase(folder);
    errno = error;
    return nullptr;
  }
  return &listing;
}

}  // namespace

PathParts SplitPath(const std::string& path) {
  const std::size_t cut = path.rfind('/');
  if (cut == std::string::npos) {
    return {".", path};
  }
  return {cut == 0 ? "/" : path.substr(0, cut), path.substr(cut + 1)};
}

std::string JoinPath(const std::string& folder, std::string_view name) {
  if (folder == ".") {
    return std::string(name);
  }
  std::string path = folder;
  if (path.back() != '/') {
    path += '/';
  }
  return path += name;
}

bool ScanFolder(const std::string& folder, const std::function<void(const dirent& entry)>& visit) {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
  if (!stream) {
    return false;
  }
  for (;;) {
    errno = 0;  // the only sign that tells a failure from the end
    const dirent* const entry = readdir(stream.get());
    if (entry == nullptr) {
      return errno == 0;
    }
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") {
      visit(*entry);
    }
  }
}

bool FindIgnoringCase(const std::string& folder, std::string_view name, std::string& found) {
  const Listing* listing = GoodListing(folder);
  if (listing == nullptr) {
    return false;
  }
  const auto entry = listing->names.find(FoldName(name));
  found = entry == listing->names.end() ? std::string() : entry->second;
  return true;
}

OwnFolderChange::OwnFolderChange(std::string folder) : folder_(std::move(folder)) {
  const auto listing = listings.find(folder_);
  FileStamp stamp;
  was_valid_ = listing != listings.end() && FolderStamp(folder_, stamp) &&
               CanBeCarried(listing->second, stamp);
}

OwnFolderChange::~OwnFolderChange() {
  const auto found = listings.find(folder_);
  if (!was_valid_ || found == listings.end()) {
    return;
  }
  Listing& listing = found->second;
  if (listing.variants || !FolderStamp(folder_, listing.stamp)) {
    listings.erase(found);
    return;
  }
  listing.own = true;
  if (!removed_.empty()) {
    listing.names.erase(FoldName(removed_));
  }
  if (!added_.empty()) {
    Note(listing, added_);
  }
}

}  // namespace platform
