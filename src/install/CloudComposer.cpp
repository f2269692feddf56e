#include "install/CloudComposer.h"

#include "install/CallDXTdll.h"
#include "install/Functions_24bit.h"
#include "install/Functions_8bit.h"
#include "platform/FileSystem.h"
#include "platform/qvdds.h"
#include "settings/Choice.h"
#include "settings/Failure.h"

namespace nimbrel {
namespace {

using platform::FileStatus;

constexpr std::string_view kColorSheet = "cumulus01_c";
constexpr std::string_view kAlphaSheet = "cumulus01_a";

constexpr std::int16_t Half(std::int16_t pixels) { return static_cast<std::int16_t>(pixels / 2); }

constexpr CumulusSheet kLargeSheet{512,
                                   512,
                                   {{{1, 0, 0, 384, 128},
                                     {0, 384, 0, 512, 128},
                                     {2, 0, 128, 256, 384},
                                     {2, 256, 128, 512, 256},
                                     {0, 0, 384, 256, 512},
                                     {0, 256, 256, 512, 512}}}};

/// True if the cells are inside the sheet and have its whole area.
constexpr bool FillsSheet(const CumulusSheet& sheet) {
  int area = 0;
  for (const CumulusCell& cell : sheet.cells) {
    if (cell.right > sheet.width || cell.bottom > sheet.height) {
      return false;
    }
    area += (cell.right - cell.left) * (cell.bottom - cell.top);
  }
  return area == sheet.width * sheet.height;
}
static_assert(FillsSheet(kLargeSheet));

constexpr CumulusSheet FastSheet() {
  CumulusSheet sheet{Half(kLargeSheet.width), Half(kLargeSheet.height), kLargeSheet.cells};
  for (CumulusCell& cell : sheet.cells) {
    cell = {cell.input, Half(cell.left), Half(cell.top), Half(cell.right), Half(cell.bottom)};
  }
  return sheet;
}

using BlitCell = bool (*)(WorkBitmaps&, std::size_t, const CellCopy&);

/// Copies the cells in their order. The last one decides: a failed stratus or wispy input leaves
/// its cells empty, and a failed solid input, to which the last cell belongs, fails the sheet.
bool CopyCells(WorkBitmaps& side, const CumulusSheet& sheet, BlitCell blit) {
  bool copied = false;
  for (const CumulusCell& cell : sheet.cells) {
    const auto width = static_cast<std::int16_t>(cell.right - cell.left);
    const auto height = static_cast<std::int16_t>(cell.bottom - cell.top);
    copied = blit(side, cell.input,
                  {cell.left, cell.top, width, height, cell.left, cell.top, width, height});
  }
  return copied;
}

}  // namespace

const std::array<CumulusSheet, 2> CumulusLayout{kLargeSheet, FastSheet()};

CloudComposer::CloudComposer(const Folders& folders, platform::FileSystem& files)
    : folders_(folders), files_(files), color_(folders, files), alpha_(folders, files) {}

FileStatus CloudComposer::PrepareCloudInput(std::size_t input, std::string_view color_path,
                                            std::string_view alpha_path) {
  if (files_.CreateFolder(TempBitmapsFolder(folders_)) != FileStatus::kOk) {
    throw ActionFailed("The folder for temporary bitmaps could not be made.");
  }
  FileStatus status = LoadBitmap24(color_, input, color_path);
  if (status == FileStatus::kOk) {
    status = LoadBitmap8(alpha_, input, alpha_path);
  }
  return platform::IsReadError(status) ? status : FileStatus::kOk;
}

bool CloudComposer::ComposeColorSheet(const CumulusSheet& sheet) {
  return CreateSheet24(color_, 24, sheet.width, sheet.height) &&
         CopyCells(color_, sheet, BlitCell24);
}

bool CloudComposer::ComposeAlphaSheet(const CumulusSheet& sheet) {
  return CreateSheet8(alpha_, 8, sheet.width, sheet.height) && CopyCells(alpha_, sheet, BlitCell8);
}

FileStatus CloudComposer::ComposeCumulus(const MachineSwitches& machine) {
  const CumulusSheet& sheet = CumulusLayout[machine.fast ? 1 : 0];
  const std::int32_t format = machine.dxt ? platform::kFormatDXT3 : platform::kFormat32Bit;
  if (!ComposeColorSheet(sheet)) {
    return FileStatus::kNoSource;
  }
  FileStatus status = SaveSheet24(color_, kColorSheet);
  if (status == FileStatus::kOk) {
    status = ComposeAlphaSheet(sheet) ? SaveSheet8(alpha_, kAlphaSheet) : FileStatus::kNoSource;
  }
  if (status == FileStatus::kOk) {
    status =
        CompressCumulus(folders_, files_, kColorSheet, kAlphaSheet, kCumulusTexture, true, format);
  }
  ReleaseSheets();
  return status;
}

void CloudComposer::ReleaseSheets() {
  color_.ReleaseSheet();
  alpha_.ReleaseSheet();
}

}  // namespace nimbrel
