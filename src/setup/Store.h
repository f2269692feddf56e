#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/FileStatus.h"
#include "setup/Manifest.h"

namespace nimbrel {

class Disk;
struct Places;

/// Whether the command may write or delete a path of the simulator.
enum class Reach : std::uint8_t {
  kInside,   ///< it may
  kOutside,  ///< no: in the store, or a link made after the manifest leads out of the simulator
  kUnknown,  ///< can't be determined
};

/// The store of originals: what the simulator's files were before Nimbrel. A file is stored once;
/// what the manifest lists is never stored again.
///
/// Paths named `path` begin at the simulator's root, as in the manifest.
class Store {
 public:
  /// Both have to live as long as the object.
  Store(const Places& places, Disk& disk) : places_(places), disk_(disk) {}

  Disk& disk() const { return disk_; }
  const Places& places() const { return places_; }

  /// Empty before the first complete setup. Throws ActionFailed for a damaged manifest.
  std::optional<Manifest> ReadList() const;
  void WriteList(const Manifest& manifest) const;

  /// The simulator's file as it is on disk, in whatever letter case.
  std::string InSimulator(const std::string& path, platform::FileStatus* status = nullptr) const;
  /// The store's copy, likewise. Throws ActionFailed if it can't be looked for.
  std::string Copy(const std::string& path) const;

  /// True if the bytes are the original's. Unreadable counts as different.
  bool Matches(const std::string& host, const Original& original) const;

  /// `status`: the error for kUnknown, else kOk.
  Reach ReachOf(const std::string& host, platform::FileStatus& status) const;

  /// True if it holds files of a setup that did not end.
  bool IsUnfinished() const;
  /// Makes the folder and removes what killed runs left half-written in it.
  void Open() const;
  /// Removes the store, the manifest last, and the folder Modules if it came with Nimbrel and is
  /// empty.
  void Remove(bool made_modules) const;

 private:
  std::string FilesFolder() const;
  std::string ListFile() const;

  const Places& places_;
  Disk& disk_;
};

}  // namespace nimbrel
