#include "shell/mod_GDIP_Rings.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/system.h"
#include "platform/text.h"
#include "settings/Catalogue.h"
#include "settings/Selection.h"
#include "shell/frm_Sky.h"
#include "shell/mod_GDIP_DrawingRoutines.h"
#include "shell/mod_Load_Previews.h"
#include "toolkit/gdiplus.h"

namespace nimbrel {
namespace {

constexpr std::uint32_t kFrameMilliseconds = 25;
constexpr toolkit::ARGB kCentreUnderlay = 0xFF000000;
constexpr float kMiniDiameter = 31;
constexpr float kCentreDiameter = 200;

std::string TitleOf(std::int16_t family, const RingPicture& picture) {
  return platform::Trim(Catalogue.At(family, picture.group, picture.option).Title);
}

void DrawPlaced(RingPage& page, std::span<const PlacedPicture> placed,
                const RingPictures& pictures) {
  for (const PlacedPicture& picture : placed) {
    DrawRingPicture(page, picture.slot, pictures[picture.follower]);
  }
}

void SetRingLabels(RingPage& page, const RingPictures& pictures) {
  const RingPageLook& look = page.look;
  const auto text = [&](std::span<const std::string_view> prefix, std::size_t follower) {
    const RingPicture& picture = pictures[follower];
    return std::string(prefix[static_cast<std::size_t>(picture.group)]) +
           TitleOf(look.family, picture);
  };
  const auto& front = Catalogue.At(look.family, pictures[0].group, pictures[0].option);
  page.lbl_Description.SetCaption(platform::Trim(front.Description));
  page.lbl_Base.SetCaption(text(look.base_prefix, 0));
  page.lbl_Right.SetCaption(text(look.other_prefix, 1));
  if (page.lbl_Center) {
    page.lbl_Center->SetCaption(text(look.other_prefix, 2));
  }
  page.lbl_Left.SetCaption(text(look.other_prefix, pictures.size() - 1));
}

void DrawCircle(const platform::HDC& hdc, const toolkit::RectF& box, float width) {
  toolkit::GpGraphics graphics;
  toolkit::GpPen pen;
  toolkit::GdipCreateFromHDC(hdc, graphics);
  toolkit::GdipSetSmoothingMode(graphics, toolkit::SmoothingModeAntiAlias);
  toolkit::GdipCreatePen1(kBorderColor, width, toolkit::UnitPixel, pen);
  toolkit::GdipDrawArc(graphics, pen, box.x, box.y, box.width, box.height, 0, 360);
}

/// The picture of the sky group in the middle, clipped to its circle.
void DrawSkyCentre(const platform::HDC& hdc, const RingPicture& picture) {
  const toolkit::RectF box = PlaceOf(SkyOrbit[kRimSlots]);
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
  toolkit::GdipDrawImageRect(graphics, Catalogue.At(kSky, picture.group, picture.option).Preview,
                             box.x, box.y, box.width, box.height);
  DrawSkyCentreRim(hdc, SkyOrbit[kRimSlots].left, SkyOrbit[kRimSlots].top);
}

/// The fourteen small pictures round it, picture `start` at the top.
void DrawSkyRim(const platform::HDC& hdc, std::size_t start) {
  toolkit::GpGraphics graphics;
  toolkit::GdipCreateFromHDC(hdc, graphics);
  for (std::size_t slot = 0; slot < kRimSlots; ++slot) {
    const toolkit::RectF box = PlaceOf(SkyOrbit[slot]);
    toolkit::GdipDrawImageRect(graphics, SkyMini[(start + slot) % kRimSlots], box.x, box.y,
                               box.width, box.height);
    DrawSkyMiniRim(hdc, SkyOrbit[slot].left, SkyOrbit[slot].top);
  }
}

void SetSkyLabels(const RingPicture& picture) {
  constexpr std::array<const char*, 4> kSettings{"Sunrise Options", "Day Options", "Sunset Options",
                                                 "Night Options"};
  frm_Sky& page = SkyPage();
  const auto& shown = Catalogue.At(kSky, picture.group, picture.option);
  page.lbl_Description.SetCaption(platform::Trim(shown.Description));
  for (std::int16_t group = 0; group < 4; ++group) {
    const std::int16_t option = CurrentSelection[kSky][static_cast<std::size_t>(group)];
    page.lbl_Title[static_cast<std::size_t>(group)].SetCaption(TitleOf(kSky, {group, option}));
  }
  page.lbl_Setting.SetCaption(kSettings[static_cast<std::size_t>(picture.group)]);
}

}  // namespace

toolkit::RectF PlaceOf(const OrbitSlot& slot) {
  return {static_cast<float>(slot.left), static_cast<float>(slot.top),
          static_cast<float>(slot.width), static_cast<float>(slot.height)};
}

RingPictures PicturesFrom(const RingPageLook& look, std::int16_t front) {
  RingPictures pictures;
  for (std::int16_t follower = 0; follower < look.Groups(); ++follower) {
    const auto group = static_cast<std::int16_t>((front + follower) % look.Groups());
    pictures.push_back(
        {group,
         CurrentSelection[static_cast<std::size_t>(look.family)][static_cast<std::size_t>(group)]});
  }
  return pictures;
}

void DrawRingPicture(RingPage& page, int slot, const RingPicture& picture) {
  DrawFramedPicture(page.form.hDC(), page.frames[static_cast<std::size_t>(slot)],
                    Catalogue.At(page.look.family, picture.group, picture.option).Preview);
}

void DrawRing(RingPage& page, const RingPictures& pictures) {
  page.form.Cls();
  DrawPlaced(page, page.look.plan->rest, pictures);
  SetRingLabels(page, pictures);
  page.form.Refresh();
}

void RotateRing(RingPage& page, TurnDirection direction, const RingPictures& pictures) {
  for (int frame = 0; frame < kTurnFrames; ++frame) {
    const FramePlan plan = TurnFrame(*page.look.plan, direction, frame);
    DrawPlaced(page, std::span(plan.pictures).first(plan.count), pictures);
    page.form.Refresh();
    WaitForFrame();
    page.form.Cls();
  }
  DrawPlaced(page, page.look.plan->rest, pictures);
  SetRingLabels(page, pictures);
}

void DrawSkyRing(std::int16_t group, std::int16_t option) {
  toolkit::Form& form = SkyPage().form;
  form.Cls();
  DrawSkyCentre(form.hDC(), {group, option});
  DrawSkyRim(form.hDC(), static_cast<std::size_t>(kRimStart[static_cast<std::size_t>(group)]));
  SetSkyLabels({group, option});
  form.Refresh();
}

void RotateSkyRing(TurnDirection direction, std::int16_t target, std::int16_t current,
                   std::int16_t option) {
  const bool up = direction == TurnDirection::kCounterclockwise;
  const auto from = static_cast<std::size_t>(current);
  const int last = up ? kCounterLastStep[from] : kClockLastStep[from];
  auto start = static_cast<std::size_t>(kRimStart[from]);
  toolkit::Form& form = SkyPage().form;
  form.Cls();
  for (int step = 0; step <= last; ++step) {
    DrawSkyCentre(form.hDC(), {target, option});
    DrawSkyRim(form.hDC(), start);
    form.Refresh();
    if (step < last) {
      WaitForFrame();
      form.Cls();
    }
    start = (start + (up ? 1 : kRimSlots - 1)) % kRimSlots;
  }
  SetSkyLabels({target, option});
}

void DrawSkyMiniRim(const platform::HDC& hdc, std::int32_t left, std::int32_t top) {
  DrawCircle(hdc, {static_cast<float>(left), static_cast<float>(top), kMiniDiameter, kMiniDiameter},
             1);
}

void DrawSkyCentreRim(const platform::HDC& hdc, std::int32_t left, std::int32_t top) {
  DrawCircle(hdc,
             {static_cast<float>(left), static_cast<float>(top), kCentreDiameter, kCentreDiameter},
             2);
}

void WaitForFrame() {
  // Unsigned differences keep the wait at its length when the counter wraps.
  const std::uint32_t start = platform::GetTickCount();
  for (std::uint32_t passed = 0; passed < kFrameMilliseconds;
       passed = platform::GetTickCount() - start) {
    platform::Sleep(kFrameMilliseconds - passed);
  }
}

}  // namespace nimbrel
