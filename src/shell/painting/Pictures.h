#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "settings/Groups.h"
#include "toolkit/gdiplus.h"

namespace nimbrel {

struct Catalogue;
struct Folders;

/// The pictures that the interface keeps decoded from start to end.
class Pictures {
 public:
  /// Loads the preview picture of every option.
  Pictures(const Catalogue& catalogue, const Folders& folders);

  /// The preview picture of an option. Empty for an index outside the catalogue, which records from
  /// files may hold, and for a picture that failed to load.
  const toolkit::GpImage& Preview(Group group, std::int16_t option) const;

  /// The small sky pictures from dawn to night, filled by LoadSkyMinis.
  std::array<toolkit::GpImage, 14> SkyMini;

 private:
  PerGroup<std::vector<toolkit::GpImage>> previews_;
  toolkit::GpImage none_;  ///< always empty
};

}  // namespace nimbrel
