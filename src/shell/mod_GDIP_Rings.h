#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "shell/RingPage.h"
#include "shell/RingPlan.h"
#include "toolkit/gdiplus.h"

namespace nimbrel {

/// The rings at rest and in turn. Every routine draws on its page's retained bitmap; a frame
/// reaches the screen whole, by Refresh.

/// A slot's place on its page.
toolkit::RectF PlaceOf(const OrbitSlot& slot);

/// A group and its selected option.
struct RingPicture {
  std::int16_t group;
  std::int16_t option;
};
/// P0, the group that is in front after the call, then the others in ring order.
using RingPictures = std::vector<RingPicture>;
/// The pictures of a page with this group in front, as the CurrentSelection has them.
RingPictures PicturesFrom(const RingPageLook& look, std::int16_t front);

/// One picture with shadow and border at a slot; neither clears nor refreshes.
void DrawRingPicture(RingPage& page, int slot, const RingPicture& picture);

/// Clears the page, draws its pictures at rest, back to front, sets the labels and refreshes.
void DrawRing(RingPage& page, const RingPictures& pictures);
inline void DrawCloudRing(const RingPictures& pictures) { DrawRing(CloudPage(), pictures); }
inline void DrawWaterRing(const RingPictures& pictures) { DrawRing(WaterPage(), pictures); }

/// Five frames of a turn, each shown for 25 milliseconds, then the final picture and the labels.
/// The caller clears before and refreshes after, and has set the page's front group already.
void RotateRing(RingPage& page, TurnDirection direction, const RingPictures& pictures);

/// Clears frm_Sky, draws centre, rim and labels, and refreshes.
void DrawSkyRing(std::int16_t group, std::int16_t option);
/// The rim turns while the centre shows the target group's picture from the first frame on. The
/// last frame is on the screen when it returns. SkyFrontGroup is the caller's, afterwards.
void RotateSkyRing(TurnDirection direction, std::int16_t target, std::int16_t current,
                   std::int16_t option);

/// Circles round a small picture (31 pixels) and the centre (200 pixels).
void DrawSkyMiniRim(const platform::HDC& hdc, std::int32_t left, std::int32_t top);
void DrawSkyCentreRim(const platform::HDC& hdc, std::int32_t left, std::int32_t top);

/// Waits 25 milliseconds, asleep; yields to nothing.
void WaitForFrame();

}  // namespace nimbrel
