#include "shell/rings/RingPainting.h"

#include "platform/system.h"
#include "shell/State.h"
#include "shell/painting/Pictures.h"
#include "shell/painting/mod_GDIP_DrawingRoutines.h"
#include "shell/rings/RingPage.h"
#include "shell/rings/RingPlan.h"
#include "toolkit/gdiplus.h"

namespace nimbrel {
namespace {

constexpr std::uint32_t kFrameMilliseconds = 25;
constexpr toolkit::ARGB kCentreUnderlay = 0xFF000000;
constexpr float kMiniDiameter = 31;
constexpr float kCentreDiameter = 200;

const toolkit::GpImage& PreviewOf(const RingPicture& picture) {
  return ui.pictures->Preview(picture.group, picture.option);
}

int FrontOf(const RingPictures& pictures) { return IndexInFamily(pictures.front().group); }

void DrawCircle(const platform::HDC& hdc, std::int32_t left, std::int32_t top, float diameter,
                float width) {
  toolkit::GpGraphics graphics;
  toolkit::GpPen pen;
  toolkit::GdipCreateFromHDC(hdc, graphics);
  toolkit::GdipSetSmoothingMode(graphics, toolkit::SmoothingModeAntiAlias);
  toolkit::GdipCreatePen1(kBorderColor, width, toolkit::UnitPixel, pen);
  toolkit::GdipDrawArc(graphics, pen, static_cast<float>(left), static_cast<float>(top), diameter,
                       diameter, 0, 360);
}

/// The picture in the middle of the sky ring, clipped to its circle.
void DrawSkyCentre(RingPage& page, int slot, const RingPicture& picture) {
  const platform::HDC hdc = page.form.hDC();
  const toolkit::RectF box = PlaceOf(kRingPlans[Family::kSky], slot);
  toolkit::GpGraphics graphics;
  toolkit::GpPath path;
  toolkit::GpRegion region;
  toolkit::GpPen pen;
  toolkit::GdipCreateFromHDC(hdc, graphics);
  toolkit::GdipCreatePath(toolkit::FillModeAlternate, path);
  toolkit::GdipAddPathEllipse(path, box.x, box.y, box.width, box.height);
  toolkit::GdipCreateRegionPath(path, region);
  toolkit::GdipSetClipRegion(graphics, region, toolkit::CombineModeIntersect);
  toolkit::GdipCreatePen1(kCentreUnderlay, 1, toolkit::UnitPixel, pen);
  toolkit::GdipDrawPath(graphics, pen, path);
  toolkit::GdipDrawImageRect(graphics, PreviewOf(picture), box.x, box.y, box.width, box.height);
  const OrbitSlot& place = SkyOrbit[static_cast<std::size_t>(slot)];
  DrawSkyCentreRim(hdc, place.left, place.top);
}

/// The fourteen small pictures round the centre, picture `start` at the top.
void DrawSkyRim(const platform::HDC& hdc, int start) {
  toolkit::GpGraphics graphics;
  toolkit::GdipCreateFromHDC(hdc, graphics);
  for (int slot = 0; slot < kRimSlots; ++slot) {
    const auto mini = static_cast<std::size_t>((start + slot) % kRimSlots);
    const toolkit::RectF box = PlaceOf(kRingPlans[Family::kSky], slot);
    toolkit::GdipDrawImageRect(graphics, ui.pictures->SkyMini[mini], box.x, box.y, box.width,
                               box.height);
    const OrbitSlot& place = SkyOrbit[static_cast<std::size_t>(slot)];
    DrawSkyMiniRim(hdc, place.left, place.top);
  }
}

using DrawPicture = void (*)(RingPage& page, int slot, const RingPicture& picture);
constexpr PerFamily<DrawPicture> kDrawPicture{{{DrawRingPicture, DrawSkyCentre, DrawRingPicture}}};

void DrawFrame(RingPage& page, const RingFrame& frame, const RingPictures& pictures) {
  for (const auto& [follower, slot] : frame.pictures) {
    const RingPicture& picture = pictures[static_cast<std::size_t>(follower)];
    kDrawPicture[FamilyOf(picture.group)](page, slot, picture);
  }
  if (frame.rim_start) {
    DrawSkyRim(page.form.hDC(), *frame.rim_start);
  }
}

void SetLabels(RingPage& page, const RingPictures& pictures) {
  for (std::size_t i = 0; i < page.labels.size(); ++i) {
    const RingLabel& label = page.spec.labels[i];
    if (label.text != nullptr) {
      page.labels[i]->SetCaption(label.text(page.spec, pictures, label.which));
    }
  }
}

/// Sleeps for the time a frame is shown; runs no events.
void WaitForFrame() {
  // Unsigned differences keep the wait at its length when the counter wraps.
  const std::uint32_t start = platform::GetTickCount();
  for (std::uint32_t passed = 0; passed < kFrameMilliseconds;
       passed = platform::GetTickCount() - start) {
    platform::Sleep(kFrameMilliseconds - passed);
  }
}

/// A ring with the first of its pictures in front, not yet on the screen.
void ComposeRest(Family family, const RingPictures& pictures) {
  RingPage& page = RingPageOf(family);
  page.form.Cls();
  DrawFrame(page, RestFrame(kRingPlans[family], FrontOf(pictures)), pictures);
  SetLabels(page, pictures);
}

void DrawRing(Family family, const RingPictures& pictures) {
  ComposeRest(family, pictures);
  RingPageOf(family).form.Refresh();
}

void RotateRing(Family family, TurnDirection direction, const RingPictures& pictures) {
  const RingPlan& plan = kRingPlans[family];
  const int front = FrontOf(pictures);
  RingPage& page = RingPageOf(family);
  for (int frame = 0; frame < TurnFrames(plan, direction, front); ++frame) {
    page.form.Cls();
    DrawFrame(page, TurnFrame(plan, direction, front, frame), pictures);
    page.form.Refresh();
    WaitForFrame();
  }
  ComposeRest(family, pictures);
}

}  // namespace

void DrawRingPicture(RingPage& page, int slot, const RingPicture& picture) {
  DrawFramedPicture(page.form.hDC(), page.frames[static_cast<std::size_t>(slot)],
                    PreviewOf(picture));
}

void DrawCloudRing(const RingPictures& pictures) { DrawRing(Family::kCloud, pictures); }
void DrawSkyRing(const RingPictures& pictures) { DrawRing(Family::kSky, pictures); }
void DrawWaterRing(const RingPictures& pictures) { DrawRing(Family::kWater, pictures); }

void RotateCloudRingClockwise(const RingPictures& pictures) {
  RotateRing(Family::kCloud, TurnDirection::kClockwise, pictures);
}
void RotateCloudRingCounterclockwise(const RingPictures& pictures) {
  RotateRing(Family::kCloud, TurnDirection::kCounterclockwise, pictures);
}
void RotateSkyRingClock(const RingPictures& pictures) {
  RotateRing(Family::kSky, TurnDirection::kClockwise, pictures);
}
void RotateSkyRingCounter(const RingPictures& pictures) {
  RotateRing(Family::kSky, TurnDirection::kCounterclockwise, pictures);
}
void RotateWaterRingClockwise(const RingPictures& pictures) {
  RotateRing(Family::kWater, TurnDirection::kClockwise, pictures);
}
void RotateWaterRingCounterclockwise(const RingPictures& pictures) {
  RotateRing(Family::kWater, TurnDirection::kCounterclockwise, pictures);
}

void DrawSkyMiniRim(const platform::HDC& hdc, std::int32_t left, std::int32_t top) {
  DrawCircle(hdc, left, top, kMiniDiameter, 1);
}

void DrawSkyCentreRim(const platform::HDC& hdc, std::int32_t left, std::int32_t top) {
  DrawCircle(hdc, left, top, kCentreDiameter, 2);
}

}  // namespace nimbrel
