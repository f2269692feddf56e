#include "shell/painting/Pictures.h"

#include <string>

#include "settings/Catalogue.h"
#include "settings/Folders.h"

namespace nimbrel {

Pictures::Pictures(const Catalogue& catalogue, const Folders& folders) {
  for (const GroupFacts& row : kGroups) {
    for (const TextureOption& option : catalogue.options[row.group]) {
      // A failure leaves the handle empty: the option is shown without a picture.
      toolkit::GdipLoadImageFromFile(folders.program + "\\" + option.Preview + ".bmp",
                                     previews_[row.group].emplace_back());
    }
  }
}

const toolkit::GpImage& Pictures::Preview(Group group, std::int16_t option) const {
  const auto& pictures = previews_[group];
  const bool known = option >= 0 && static_cast<std::size_t>(option) < pictures.size();
  return known ? pictures[static_cast<std::size_t>(option)] : none_;
}

}  // namespace nimbrel
