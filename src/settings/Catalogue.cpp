#include "settings/Catalogue.h"

namespace nimbrel {
namespace {

const TextureOption kNoOption;

}  // namespace

const TextureOption& Catalogue::At(Group group, std::int16_t option) const {
  const std::vector<TextureOption>& rows = options[group];
  return option >= 0 && static_cast<std::size_t>(option) < rows.size()
             ? rows[static_cast<std::size_t>(option)]
             : kNoOption;
}

std::int16_t Catalogue::HighestIndex(Group group) const {
  return static_cast<std::int16_t>(static_cast<int>(options[group].size()) - 1);
}

}  // namespace nimbrel
