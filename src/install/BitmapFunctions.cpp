#include "install/BitmapFunctions.h"

#include "platform/bitmap_file.h"
#include "platform/files.h"
#include "platform/little_endian.h"
#include "platform/system.h"
#include "platform/text.h"

namespace nimbrel {

std::string TempBitmapsFolder() { return platform::ApplicationFolder() + "\\TempBitmaps"; }

std::string TempBitmapFile(std::string_view name) {
  return TempBitmapsFolder() + "\\" + platform::Trim(name) + ".bmp";
}

platform::FileStatus SheetTrouble = platform::FileStatus::kOk;

void NoteSheet(platform::FileStatus status) {
  using platform::FileStatus;
  const bool trouble = status != FileStatus::kOk && status != FileStatus::kNoSource &&
                       status != FileStatus::kNotAFile && status != FileStatus::kTooLarge;
  if (trouble && SheetTrouble == FileStatus::kOk) {
    SheetTrouble = status;
  }
}

InputSlot* BitmapFunctions::Slot(std::int16_t slot) {
  const auto index = static_cast<std::size_t>(slot);
  return slot >= 0 && index < slots_.size() ? &slots_[index] : nullptr;
}

bool BitmapFunctions::Load(std::int16_t slot, std::string_view path) {
  InputSlot* const input = Slot(slot);
  if (input == nullptr) {
    return false;
  }
  input->dc = platform::CreateCompatibleDC({});
  platform::FileStatus status = platform::FileStatus::kOk;
  input->bitmap = platform::LoadImageA(
      path, platform::LR_LOADFROMFILE | platform::LR_CREATEDIBSECTION, &status);
  NoteSheet(status);
  return platform::SelectObject(input->dc, input->bitmap);
}

bool BitmapFunctions::Create(std::uint16_t bit_count, std::int16_t width, std::int16_t height) {
  sheet_.info = {};
  sheet_.info.header.width = width;
  sheet_.info.header.height = height;
  sheet_.info.header.bit_count = bit_count;
  sheet_.dc = platform::CreateCompatibleDC({});
  sheet_.bitmap = platform::CreateDIBSection(sheet_.dc, sheet_.info);
  if (!platform::SelectObject(sheet_.dc, sheet_.bitmap)) {
    return false;
  }
  sheet_.pixels.assign(
      static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * (bit_count / 8U), 0);
  return true;
}

bool BitmapFunctions::TakeColorTable() {
  const std::span<platform::RGBQuad> colors(sheet_.info.colors);
  const unsigned count = platform::GetDIBColorTable(slots_[0].dc, 0, colors);
  return platform::SetDIBColorTable(sheet_.dc, 0, colors.first(count)) != 0;
}

bool BitmapFunctions::Blit(std::int16_t slot, const CellCopy& cell) {
  const InputSlot* const input = Slot(slot);
  return input != nullptr &&
         platform::StretchBlt(sheet_.dc, cell.x, cell.y, cell.width, cell.height, input->dc,
                              cell.source_x, cell.source_y, cell.source_width, cell.source_height,
                              platform::SRCCOPY);
}

bool BitmapFunctions::Save(std::string_view name) {
  platform::BitmapInfo& info = sheet_.info;
  const auto lines = static_cast<unsigned>(info.header.height);
  if (platform::GetDIBits(sheet_.dc, sheet_.bitmap, 0, lines, sheet_.pixels, info) == 0) {
    return false;
  }
  const std::size_t table_bytes = info.header.bit_count == 8 ? sizeof(info.colors) : 0;
  const std::size_t pixels_at =
      platform::kFileHeaderBytes + platform::kInfoHeaderBytes + table_bytes;
  const std::size_t file_size = pixels_at + sheet_.pixels.size();
  std::vector<std::byte> file;
  file.reserve(file_size);
  platform::AppendFileHeader(file, static_cast<std::uint32_t>(file_size),
                             static_cast<std::uint32_t>(pixels_at));
  platform::AppendInfoHeader(file, info.header);
  if (table_bytes != 0) {
    const auto table = std::as_bytes(std::span(info.colors));
    file.insert(file.end(), table.begin(), table.end());
  }
  const auto pixels = std::as_bytes(std::span(sheet_.pixels));
  file.insert(file.end(), pixels.begin(), pixels.end());
  const platform::FileStatus status =
      platform::ReplaceFile(TempBitmapFile(name), file, platform::Durability::kRename);
  NoteSheet(status);
  return status == platform::FileStatus::kOk;
}

void BitmapFunctions::ReleaseInput(std::int16_t slot) {
  if (InputSlot* const input = Slot(slot)) {
    platform::DeleteDC(input->dc);
    platform::DeleteObject(input->bitmap);
  }
}

void BitmapFunctions::ReleaseSheet() {
  platform::DeleteDC(sheet_.dc);
  platform::DeleteObject(sheet_.bitmap);
}

}  // namespace nimbrel
