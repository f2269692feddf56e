#include "install/Functions_8bit.h"

namespace nimbrel {
namespace {

BitmapFunctions g_alpha;

}  // namespace

bool LoadBitmap8(std::int16_t slot, std::string_view path) {
  return path != "IGNORE" && g_alpha.Load(slot, path);
}

bool CreateSheet8(std::uint16_t bit_count, std::int16_t width, std::int16_t height) {
  return g_alpha.Create(bit_count, width, height) && g_alpha.TakeColorTable();
}

bool BlitCell8(std::int16_t slot, const CellCopy& cell) { return g_alpha.Blit(slot, cell); }

bool SaveSheet8(std::string_view name) { return g_alpha.Save(name); }

void ReleaseInput8(std::int16_t slot) { g_alpha.ReleaseInput(slot); }

void ReleaseSheet8() { g_alpha.ReleaseSheet(); }

}  // namespace nimbrel
