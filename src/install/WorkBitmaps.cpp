#include "install/WorkBitmaps.h"

#include <span>

#include "platform/FileSystem.h"
#include "platform/bitmap_file.h"
#include "platform/text.h"
#include "settings/Folders.h"

namespace nimbrel {

using platform::FileStatus;

std::string TempBitmapsFolder(const Folders& folders) { return folders.program + "\\TempBitmaps"; }

std::string TempBitmapFile(const Folders& folders, std::string_view name) {
  return TempBitmapsFolder(folders) + "\\" + platform::Trim(name) + ".bmp";
}

FileStatus WorkBitmaps::Load(std::size_t slot, std::string_view path) {
  FileStatus status = FileStatus::kOk;
  if (!files_.LiesWithin(path, folders_.program, &status)) {
    return status == FileStatus::kOk ? FileStatus::kNoSource : status;
  }
  InputSlot& input = slots_.at(slot);
  input.dc = platform::CreateCompatibleDC({});
  input.bitmap = platform::LoadImageA(
      files_, path, platform::LR_LOADFROMFILE | platform::LR_CREATEDIBSECTION, &status);
  const bool selected = platform::SelectObject(input.dc, input.bitmap);
  return selected || status != FileStatus::kOk ? status : FileStatus::kNotAFile;
}

bool WorkBitmaps::Create(std::uint16_t bit_count, std::int16_t width, std::int16_t height) {
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

bool WorkBitmaps::TakeColorTable() {
  const std::span<platform::RGBQuad> colors(sheet_.info.colors);
  const unsigned count = platform::GetDIBColorTable(slots_[0].dc, 0, colors);
  return platform::SetDIBColorTable(sheet_.dc, 0, colors.first(count)) != 0;
}

bool WorkBitmaps::Blit(std::size_t slot, const CellCopy& cell) {
  return platform::StretchBlt(sheet_.dc, cell.x, cell.y, cell.width, cell.height,
                              slots_.at(slot).dc, cell.source_x, cell.source_y, cell.source_width,
                              cell.source_height, platform::SRCCOPY);
}

FileStatus WorkBitmaps::Save(std::string_view name) {
  platform::BitmapInfo& info = sheet_.info;
  const auto lines = static_cast<unsigned>(info.header.height);
  if (platform::GetDIBits(sheet_.dc, sheet_.bitmap, 0, lines, sheet_.pixels, info) == 0) {
    return FileStatus::kOther;
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
  const auto table = std::as_bytes(std::span(info.colors)).first(table_bytes);
  file.insert(file.end(), table.begin(), table.end());
  const auto pixels = std::as_bytes(std::span(sheet_.pixels));
  file.insert(file.end(), pixels.begin(), pixels.end());
  return files_.ReplaceFile(TempBitmapFile(folders_, name), file, platform::Durability::kRename);
}

void WorkBitmaps::ReleaseSheet() {
  platform::DeleteDC(sheet_.dc);
  platform::DeleteObject(sheet_.bitmap);
}

}  // namespace nimbrel
