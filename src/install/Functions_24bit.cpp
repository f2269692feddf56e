#include "install/Functions_24bit.h"

namespace nimbrel {
namespace {

BitmapFunctions g_color;

}  // namespace

bool LoadBitmap24(std::int16_t slot, std::string_view path) { return g_color.Load(slot, path); }

bool CreateSheet24(std::uint16_t bit_count, std::int16_t width, std::int16_t height) {
  return g_color.Create(bit_count, width, height);
}

bool BlitCell24(std::int16_t slot, const CellCopy& cell) { return g_color.Blit(slot, cell); }

bool SaveSheet24(std::string_view name) { return g_color.Save(name); }

void ReleaseInput24(std::int16_t slot) { g_color.ReleaseInput(slot); }

void ReleaseSheet24() { g_color.ReleaseSheet(); }

}  // namespace nimbrel
