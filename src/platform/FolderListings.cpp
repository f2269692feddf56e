#include "platform/FolderListings.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <utility>

#include "platform/host_folder.h"
#include "platform/text.h"

namespace platform {
namespace {

/// More folders than an install touches; beyond it the cache starts anew.
constexpr std::size_t kMaxListings = 64;

/// How long after its reading a listing is updated by own changes, in nanoseconds.
constexpr std::int64_t kOwnTrust = 2'000'000'000;

}  // namespace

void FolderListings::Listing::Add(std::string_view name) {
  const auto [place, fresh] = names.try_emplace(FoldName(name), name);
  if (!fresh && place->second != name) {
    has_variants = true;
    place->second = std::min(place->second, std::string(name));
  }
}

int FolderListings::Listing::Read(const std::string& folder) {
  *this = {};
  taken = StampClock();
  const auto now = StampOfFolder(folder);
  if (!now) {
    return errno;
  }
  stamp = *now;
  valid_until = IsSettled(stamp, taken) ? std::numeric_limits<std::int64_t>::max() : 0;
  return ScanFolder(folder, [this](const dirent& entry) { Add(entry.d_name); });
}

const FolderListings::Listing* FolderListings::CurrentListing(const std::string& folder,
                                                              int& error) {
  const auto stamp = StampOfFolder(folder);
  error = stamp ? 0 : errno;
  if (stamp && listings_.size() >= kMaxListings && !listings_.contains(folder)) {
    listings_.clear();
  }
  Listing& listing = listings_[folder];
  if (stamp && (listing.stamp != *stamp || StampClock() >= listing.valid_until)) {
    error = listing.Read(folder);
  }
  if (error != 0) {
    listings_.erase(folder);
    return nullptr;
  }
  return &listing;
}

int FolderListings::FindIgnoringCase(const std::string& folder, std::string_view name,
                                     std::string& found) {
  found.clear();
  int error = 0;
  if (const Listing* const listing = CurrentListing(folder, error); listing != nullptr) {
    const auto entry = listing->names.find(FoldName(name));
    found = entry == listing->names.end() ? std::string() : entry->second;
  }
  return error;
}

FolderListings::OwnChange::OwnChange(FolderListings& listings, std::string folder)
    : listings_(listings), folder_(std::move(folder)) {
  const auto listing = listings_.listings_.find(folder_);
  was_current_ =
      listing != listings_.listings_.end() && StampOfFolder(folder_) == listing->second.stamp;
}

FolderListings::OwnChange::~OwnChange() {
  const auto listing = listings_.listings_.find(folder_);
  if (!was_current_ || listing == listings_.listings_.end()) {
    return;
  }
  // Of several names that differ only in case the listing keeps one, so it can't be updated.
  const auto stamp = StampOfFolder(folder_);
  if (!stamp || listing->second.has_variants) {
    listings_.listings_.erase(listing);
    return;
  }
  listing->second.stamp = *stamp;
  listing->second.valid_until = listing->second.taken + kOwnTrust;
}

void FolderListings::OwnChange::Added(std::string_view name) {
  if (was_current_) {
    listings_.listings_[folder_].Add(name);
  }
}

void FolderListings::OwnChange::Removed(std::string_view name) {
  if (was_current_) {
    listings_.listings_[folder_].names.erase(FoldName(name));
  }
}

}  // namespace platform
