#include "settings/Catalogue.h"

#include <algorithm>

namespace nimbrel {

OptionCatalogue Catalogue;

void CatalogueTable::Create(std::size_t groups, std::int16_t highest) {
  width_ = static_cast<std::size_t>(highest < 0 ? 0 : highest) + 1;
  rows_.assign(groups * width_, TextureOption{});
}

std::size_t CatalogueTable::Row(std::int16_t group, std::int16_t option) const {
  if (group < 0 || option < 0 || static_cast<std::size_t>(option) >= width_) {
    return rows_.size();
  }
  const std::size_t row =
      static_cast<std::size_t>(group) * width_ + static_cast<std::size_t>(option);
  return std::min(row, rows_.size());
}

TextureOption* CatalogueTable::Cell(std::int16_t group, std::int16_t option) {
  const std::size_t row = Row(group, option);
  return row < rows_.size() ? &rows_[row] : nullptr;
}

const TextureOption& CatalogueTable::At(std::int16_t group, std::int16_t option) const {
  static const TextureOption empty;
  const std::size_t row = Row(group, option);
  return row < rows_.size() ? rows_[row] : empty;
}

const TextureOption& OptionCatalogue::At(std::int16_t family, std::int16_t group,
                                         std::int16_t option) const {
  static const CatalogueTable empty;
  const bool known = family >= 0 && static_cast<std::size_t>(family) < Tables.size();
  return (known ? Tables[static_cast<std::size_t>(family)] : empty).At(group, option);
}

}  // namespace nimbrel
