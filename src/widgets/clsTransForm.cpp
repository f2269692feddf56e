#include "widgets/clsTransForm.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"
#include "toolkit/forms.h"
#include "toolkit/region.h"
#include "toolkit/window.h"

namespace nimbrel {

namespace {

constexpr std::uint32_t kBadRecord = 5;
constexpr std::uint32_t kFileNotFound = 53;
constexpr std::uint32_t kDiskFull = 61;
constexpr std::uint32_t kPermissionDenied = 70;
constexpr std::uint32_t kAccessError = 75;
constexpr std::uint32_t kPathNotFound = 76;

/// Of a region file that is being written.
constexpr const char* kTemporaryPrefix = "~region-";
constexpr const char* kSaveSource = "TransForm";
constexpr const char* kLoadSource = "Nimbrel.cDIBSectionRegion";

/// Four million rectangles, far more than any artwork needs.
constexpr std::size_t kMaxRegionFile = std::size_t{64} << 20U;

/// The published number of a failed file operation.
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
std::vector<Run> FindRuns(const platform::HDC& dc, int right, int bottom,
                          platform::ColorRef color) {
  std::vector<Run> runs;
  for (int y = 0; y <= bottom; ++y) {
    std::optional<Run> run;
    for (int x = 0; x <= right; ++x) {
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

/// The rectangle of the picture without the pixels of `color`.
toolkit::HRGN ScanRegion(const platform::HDC& dc, int right, int bottom, platform::ColorRef color) {
  const std::vector<Run> runs = FindRuns(dc, right, bottom, color);
  toolkit::HRGN region = toolkit::CreateRectRgn(0, 0, right, bottom);
  for (const Run& run : runs) {
    const toolkit::HRGN row = toolkit::CreateRectRgn(run.first, run.y, run.last + 1, run.y + 1);
    toolkit::CombineRgn(region, region, row, toolkit::RGN_DIFF);
  }
  return region;
}

void SaveRegionDataToFile(const toolkit::HRGN& region, std::string_view file) {
  const std::vector<std::byte> data = toolkit::GetRegionData(region);
  const platform::FileStatus status =
      platform::FileSystem(kTemporaryPrefix).ReplaceFile(file, data, platform::Durability::kRename);
  if (status != platform::FileStatus::kOk) {
    throw TransFormError(ErrorNumber(status), kSaveSource, FileErrorText(file, status));
  }
}

toolkit::HRGN LoadRegionDataFromFile(std::string_view file) {
  platform::FileStatus status = platform::FileStatus::kOther;
  const auto data = platform::FileSystem(kTemporaryPrefix).ReadFile(file, kMaxRegionFile, &status);
  if (!data) {
    throw TransFormError(ErrorNumber(status), kLoadSource, FileErrorText(file, status));
  }
  toolkit::HRGN region = toolkit::ExtCreateRegion(*data);
  if (!region) {
    throw TransFormError(kBadRecord, kLoadSource, std::string(file) + " is not a region file");
  }
  return region;
}

}  // namespace

/// Retained drawing, pixel scale and no clipping of controls are what every form has here.
void clsTransForm::PrepareForm() {
  scale_height_ = static_cast<std::int32_t>(form_->ScaleHeight());
  scale_width_ = static_cast<std::int32_t>(form_->ScaleWidth());
}

void clsTransForm::ShapeMe(toolkit::Form& name, platform::ColorRef color, bool Load,
                           std::string_view FileName) {
  form_ = &name;
  PrepareForm();
  toolkit::HRGN region;
  if (Load && !FileName.empty()) {
    region = LoadRegionDataFromFile(FileName);
    // The user can't answer a modal form that is invisible.
    if (!toolkit::RectInRegion(region, {0, 0, scale_width_, scale_height_})) {
      throw TransFormError(kBadRecord, kLoadSource, std::string(FileName) + " shows nothing");
    }
  } else {
    region = ScanRegion(form_->hDC(), scale_width_, scale_height_, color);
  }
  if (!Load && !FileName.empty()) {
    SaveRegionDataToFile(region, FileName);
  }
  toolkit::SetWindowRgn(form_->hWnd(), region, true);
}

void clsTransForm::DragForm(toolkit::Form& form, std::int16_t intButton) {
  if (intButton == toolkit::kLeftButton) {
    form.Drag();
  }
  if (form.MousePointer() == toolkit::kPointerCustom) {
    form.SetMousePointer(toolkit::kPointerDefault);
  }
}

void ShapeFromFile(clsTransForm& shape, toolkit::Form& form, std::string_view file) {
  try {
    shape.ShapeMe(form, platform::RGB(0, 0, 0), true, file);
  } catch (const TransFormError&) {
    // The form stays rectangular.
  }
}

}  // namespace nimbrel
