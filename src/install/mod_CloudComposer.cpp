#include "install/mod_CloudComposer.h"

#include "install/BitmapFunctions.h"
#include "install/CallDXTdll.h"
#include "install/Functions_24bit.h"
#include "install/Functions_8bit.h"
#include "platform/files.h"
#include "platform/qvdds.h"
#include "platform/system.h"
#include "settings/Functions_Configuration.h"

namespace nimbrel {

const std::array<CumulusSheet, 2> CumulusLayout{{
    {512,
     512,
     {{{1, 0, 0, 384, 128},
       {0, 384, 0, 512, 128},
       {2, 0, 128, 256, 384},
       {2, 256, 128, 512, 256},
       {0, 0, 384, 256, 512},
       {0, 256, 256, 512, 512}}}},
    {256,
     256,
     {{{1, 0, 0, 192, 64},
       {0, 192, 0, 256, 64},
       {2, 0, 64, 128, 192},
       {2, 128, 64, 256, 128},
       {0, 0, 192, 128, 256},
       {0, 128, 128, 256, 256}}}},
}};

namespace {

constexpr std::string_view kColorSheet = "cumulus01_c";
constexpr std::string_view kAlphaSheet = "cumulus01_a";
constexpr std::string_view kTexture = "cumulus01";

/// True from the first alpha bitmap that loads to the end of the program.
bool g_alpha_loaded = false;

const CumulusSheet* FindSheet(std::int16_t size_index) {
  const auto index = static_cast<std::size_t>(size_index);
  return size_index >= 0 && index < CumulusLayout.size() ? &CumulusLayout[index] : nullptr;
}

/// A path of the information file that climbs out of the program's folder is not followed. One that
/// can't be looked at may have been an input.
bool MayRead(std::string_view path) {
  platform::FileStatus status = platform::FileStatus::kOk;
  const bool inside = platform::LiesWithin(path, platform::ApplicationFolder(), &status);
  NoteSheet(status);
  return inside;
}

/// Copies the cells in their order. The last one decides: a failed stratus or wispy input leaves
/// its cells empty, and a failed solid input, whose cell is the last, the whole sheet undone.
bool LayCells(const CumulusSheet& sheet, bool (*blit)(std::int16_t, const CellCopy&)) {
  bool laid = false;
  for (const CumulusCell& cell : sheet.cells) {
    const auto width = static_cast<std::int16_t>(cell.right - cell.left);
    const auto height = static_cast<std::int16_t>(cell.bottom - cell.top);
    laid =
        blit(cell.input, {cell.left, cell.top, width, height, cell.left, cell.top, width, height});
  }
  return laid;
}

}  // namespace

void PrepareCloudInput(std::int16_t input, std::string_view color_path,
                       std::string_view alpha_path) {
  if (!platform::CreateFolder(TempBitmapsFolder())) {
    throw RunTimeFailure("The folder for temporary bitmaps could not be made.");
  }
  ReleaseInput24(input);
  ReleaseInput8(input);
  if (MayRead(color_path) && LoadBitmap24(input, color_path) && MayRead(alpha_path) &&
      LoadBitmap8(input, alpha_path)) {
    g_alpha_loaded = true;
  }
}

bool ComposeColorSheet(std::int16_t size_index) {
  const CumulusSheet* const sheet = FindSheet(size_index);
  return sheet != nullptr && CreateSheet24(24, sheet->width, sheet->height) &&
         LayCells(*sheet, BlitCell24);
}

bool ComposeAlphaSheet(std::int16_t size_index) {
  const CumulusSheet* const sheet = FindSheet(size_index);
  return sheet != nullptr && CreateSheet8(8, sheet->width, sheet->height) && g_alpha_loaded &&
         LayCells(*sheet, BlitCell8);
}

void ComposeCumulus(std::int16_t size_index, std::int16_t compression) {
  ReleaseSheets();
  if (!ComposeColorSheet(size_index) || !SaveSheet24(kColorSheet) ||
      !ComposeAlphaSheet(size_index) || !SaveSheet8(kAlphaSheet)) {
    return;
  }
  const std::int32_t format = compression == 1 ? platform::kFormatDXT3 : platform::kFormat32Bit;
  CompressCumulus(kColorSheet, kAlphaSheet, kTexture, true, format);
}

void ReleaseSheets() {
  ReleaseSheet24();
  ReleaseSheet8();
}

}  // namespace nimbrel
