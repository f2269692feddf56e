#pragma once

#include <array>

#include "toolkit/gdiplus.h"

namespace nimbrel {

/// The small sky pictures from dawn to night. Written by LoadSkyMinis; disposed of at shutdown.
extern std::array<toolkit::GpImage, 14> SkyMini;

/// Loads them and makes their white transparent. A missing picture is passed over.
void LoadSkyMinis();

/// Opaque pure white as transparent white, any other colour with the given alpha.
toolkit::ARGB KeyWhitePixel(toolkit::ARGB color, unsigned char alpha);

}  // namespace nimbrel
