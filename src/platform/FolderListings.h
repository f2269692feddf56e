#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/FileStamp.h"

namespace platform {

/// The names in folders, by which a path is matched without regard to case.
///
/// A listing is used again while the folder keeps its time stamp. Two changes within one tick of
/// the file system's clock leave the same stamp, so a listing read in the tick of a change is used
/// once only. An install makes hundreds of changes in a row, each in the tick of the one before:
/// after such an own change the listing is updated instead of read again, for up to two seconds
/// from its reading. A change that another process makes in the very tick of an own one is noticed
/// after that time.
class FolderListings {
 public:
  /// Finds the name in `folder` that equals `name` except for its case; of several the first in
  /// byte order; empty if there is none. Returns the errno value of reading the folder.
  int FindIgnoringCase(const std::string& folder, std::string_view name, std::string& found);

  /// Lives around a change that the program itself makes in a folder, and updates the folder's
  /// listing.
  class OwnChange {
   public:
    OwnChange(FolderListings& listings, std::string folder);
    OwnChange(const OwnChange&) = delete;
    OwnChange& operator=(const OwnChange&) = delete;
    ~OwnChange();

    void Added(std::string_view name);
    void Removed(std::string_view name);

   private:
    FolderListings& listings_;
    std::string folder_;
    bool was_current_ = false;
  };

 private:
  struct Listing {
    FileStamp stamp;
    std::int64_t taken = 0;  ///< when the folder was read, as StampClock
    std::int64_t valid_until = 0;
    bool has_variants = false;                           ///< of names that differ only in case
    std::unordered_map<std::string, std::string> names;  ///< folded name to name

    void Add(std::string_view name);
    int Read(const std::string& folder);
  };

  /// Null if the folder can't be read, with the reason in `error`.
  const Listing* CurrentListing(const std::string& folder, int& error);

  std::unordered_map<std::string, Listing> listings_;
};

}  // namespace platform
