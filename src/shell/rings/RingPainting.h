#pragma once

#include <cstdint>

#include "platform/gdi.h"
#include "shell/rings/RingSpec.h"

namespace nimbrel {

struct RingPage;

/// The rings at rest and in turn. Every routine draws on its page's retained bitmap; a frame
/// reaches the screen whole, by Refresh.

/// One picture with shadow and border at a slot of frm_3d or frm_Water; neither clears nor
/// refreshes.
void DrawRingPicture(RingPage& page, int slot, const RingPicture& picture);

/// Each clears its page, draws the pictures at rest, sets the labels and refreshes.
void DrawCloudRing(const RingPictures& pictures);
void DrawSkyRing(const RingPictures& pictures);
void DrawWaterRing(const RingPictures& pictures);

/// Each clears its page, shows the frames of a turn for 25 milliseconds each, and ends with the
/// ring as it is drawn at rest, which the caller's Refresh brings to the screen. `pictures` begin
/// with the group that comes to the front.
void RotateCloudRingClockwise(const RingPictures& pictures);
void RotateCloudRingCounterclockwise(const RingPictures& pictures);
void RotateSkyRingClock(const RingPictures& pictures);
void RotateSkyRingCounter(const RingPictures& pictures);
void RotateWaterRingClockwise(const RingPictures& pictures);
void RotateWaterRingCounterclockwise(const RingPictures& pictures);

/// Circles round a small sky picture (31 pixels) and round the centre (200 pixels).
void DrawSkyMiniRim(const platform::HDC& hdc, std::int32_t left, std::int32_t top);
void DrawSkyCentreRim(const platform::HDC& hdc, std::int32_t left, std::int32_t top);

}  // namespace nimbrel
