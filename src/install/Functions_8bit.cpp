#include "install/Functions_8bit.h"

#include "install/WorkBitmaps.h"

namespace nimbrel {

platform::FileStatus LoadBitmap8(WorkBitmaps& side, std::size_t slot, std::string_view path) {
  return path == "IGNORE" ? platform::FileStatus::kNoSource : side.Load(slot, path);
}

bool CreateSheet8(WorkBitmaps& side, std::uint16_t bit_count, std::int16_t width,
                  std::int16_t height) {
  return side.Create(bit_count, width, height) && side.TakeColorTable();
}

bool BlitCell8(WorkBitmaps& side, std::size_t slot, const CellCopy& cell) {
  return side.Blit(slot, cell);
}

platform::FileStatus SaveSheet8(WorkBitmaps& side, std::string_view name) {
  return side.Save(name);
}

}  // namespace nimbrel
