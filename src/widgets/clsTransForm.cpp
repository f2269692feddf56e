#include "widgets/clsTransForm.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/system.h"
#include "toolkit/window.h"

namespace nimbrel {

toolkit::Form* DraggedForm = nullptr;

namespace {

constexpr std::uint32_t kNoRegionSize = 0x800409D2;
constexpr std::uint32_t kNoRegionData = 0x800409D1;
constexpr std::uint32_t kBadRecord = 5;
constexpr std::uint32_t kFileNotFound = 53;
constexpr std::uint32_t kDiskFull = 61;
constexpr std::uint32_t kPermissionDenied = 70;
constexpr std::uint32_t kAccessError = 75;
constexpr std::uint32_t kPathNotFound = 76;

constexpr const char* kSaveSource = "TransForm";
constexpr const char* kLoadSource = "Nimbrel.cDIBSectionRegion";

constexpr std::size_t kHeaderBytes = 32;
constexpr std::size_t kRectangleBytes = 16;
/// Four million rectangles: far over any artwork, and no danger to memory.
constexpr std::size_t kLongestRegionFile = std::size_t{64} << 20U;

/// The platform's number for a failed file operation.
std::uint32_t ErrorNumber(platform::FileStatus status) {
  constexpr std::array<std::pair<platform::FileStatus, std::uint32_t>, 5> kNumbers = {{
      {platform::FileStatus::kNoSource, kFileNotFound},
      {platform::FileStatus::kNoFolder, kPathNotFound},
      {platform::FileStatus::kNoSpace, kDiskFull},
      {platform::FileStatus::kNoPermission, kPermissionDenied},
      {platform::FileStatus::kBusy, kPermissionDenied},
  }};
  const auto* const found = std::find_if(kNumbers.begin(), kNumbers.end(),
                                         [&](const auto& row) { return row.first == status; });
  return found == kNumbers.end() ? kAccessError : found->second;
}

std::string FileErrorText(std::string_view file, platform::FileStatus status) {
  return std::string(file) + " " + std::string(platform::Describe(status));
}

/// A horizontal stretch of key-coloured pixels.
struct Run {
  int y;
  int first;
  int last;
};

/// Every maximal run of `color`. Both sides are inclusive: the position right of the picture has no
/// colour and so closes a run that reaches the edge.
std::vector<Run> FindRuns(const platform::HDC& dc, int width, int height,
                          platform::ColorRef color) {
  std::vector<Run> runs;
  for (int y = 0; y <= height; ++y) {
    std::optional<Run> run;
    for (int x = 0; x <= width; ++x) {
      if (platform::GetPixel(dc, x, y) == color) {
        run = Run{y, run ? run->first : x, x};
      } else if (run) {
        runs.push_back(*run);
        run.reset();
      }
    }
  }
  return runs;
}

/// Whether any pixel of the form is left inside the outline.
bool ShowsAnything(const toolkit::Region& region, int width, int height) {
  return std::any_of(region.Rects().begin(), region.Rects().end(), [&](const toolkit::Rect& part) {
    return part.left < width && part.top < height && part.right > 0 && part.bottom > 0;
  });
}

}  // namespace

/// Retained drawing, pixel scale and no clipping of controls are what every form has here.
void clsTransForm::PrepareForm() {
  scale_height_ = static_cast<std::int32_t>(form_->ScaleHeight());
  scale_width_ = static_cast<std::int32_t>(form_->ScaleWidth());
}

toolkit::HRGN clsTransForm::ScanRegion(platform::ColorRef color) const {
  const std::vector<Run> runs = FindRuns(form_->hDC(), scale_width_, scale_height_, color);
  toolkit::HRGN region = toolkit::CreateRectRgn(0, 0, scale_width_, scale_height_);
  for (const Run& run : runs) {
    const toolkit::HRGN row = toolkit::CreateRectRgn(run.first, run.y, run.last + 1, run.y + 1);
    toolkit::CombineRgn(region, region, row, toolkit::RGN_DIFF);
  }
  return region;
}

void clsTransForm::ShapeMe(toolkit::Form& name, platform::ColorRef color, bool Load,
                           std::string_view FileName) {
  form_ = &name;
  PrepareForm();
  toolkit::HRGN region;
  if (Load && !FileName.empty()) {
    region = LoadRegionDataFromFile(FileName);
    // An outline that shows nothing of the form would leave the user before an invisible window,
    // and a modal one can't be answered.
    if (!ShowsAnything(*region, scale_width_, scale_height_)) {
      throw TransFormError(kBadRecord, kLoadSource, std::string(FileName) + " shows nothing");
    }
  } else {
    region = ScanRegion(color);
  }
  if (!Load && !FileName.empty()) {
    SaveRegionDataToFile(region, FileName);
  }
  toolkit::SetWindowRgn(form_->hWnd(), std::move(region), true);
}

void clsTransForm::SaveRegionDataToFile(const toolkit::HRGN& region, std::string_view file) {
  const std::vector<std::byte> data = toolkit::GetRegionData(region);
  if (data.empty()) {
    throw TransFormError(kNoRegionSize, kSaveSource,
                         "Unable to determine size of region in SaveRegionDataToFile");
  }
  if (data.size() != kHeaderBytes + kRectangleBytes * region->Rects().size()) {
    throw TransFormError(kNoRegionData, kSaveSource,
                         "Unable to get region data in SaveRegionDataToFile");
  }
  const platform::FileStatus status =
      platform::ReplaceFile(file, data, platform::Durability::kRename);
  if (status != platform::FileStatus::kOk) {
    throw TransFormError(ErrorNumber(status), kSaveSource, FileErrorText(file, status));
  }
}

toolkit::HRGN clsTransForm::LoadRegionDataFromFile(std::string_view file) {
  platform::FileStatus status = platform::FileStatus::kOther;
  const auto data = platform::ReadFile(file, kLongestRegionFile, &status);
  if (!data) {
    throw TransFormError(ErrorNumber(status), kLoadSource, FileErrorText(file, status));
  }
  toolkit::HRGN region = toolkit::ExtCreateRegion(*data);
  if (!region) {
    throw TransFormError(kBadRecord, kLoadSource, std::string(file) + " is no region file");
  }
  return region;
}

void clsTransForm::DragForm(toolkit::HWND hwnd, std::int16_t intButton) {
  if (intButton == toolkit::kLeftButton) {
    toolkit::ReleaseCapture();
    toolkit::SendMessageA(hwnd, toolkit::WM_NCLBUTTONDOWN, toolkit::HTCAPTION, 0);
  }
  if (DraggedForm != nullptr && DraggedForm->MousePointer() == toolkit::kPointerCustom) {
    DraggedForm->SetMousePointer(toolkit::kPointerDefault);
  }
}

void ShapeFromFile(clsTransForm& shape, toolkit::Form& form, std::string_view media_file) {
  try {
    shape.ShapeMe(form, platform::RGB(0, 0, 0), true,
                  platform::ApplicationFolder() + std::string(media_file));
  } catch (const TransFormError&) {
    // The form stays rectangular.
  }
}

}  // namespace nimbrel
