#pragma once

#include "toolkit/gdiplus.h"

namespace nimbrel {

/// Loads the small sky pictures into the Pictures of the interface and makes their white
/// transparent. A missing picture is passed over.
void LoadSkyMinis();

/// Opaque pure white as transparent white, any other colour with the given alpha.
toolkit::ARGB KeyWhitePixel(toolkit::ARGB color, unsigned char alpha);

}  // namespace nimbrel
