#pragma once

#include <cstdint>

#include "toolkit/forms.h"

namespace nimbrel {

/// Dots per inch of the desktop, and 96 divided by them. Written by IsSmallFonts and
/// FixFormForFontSize; multiplied into whatever is placed in twips.
extern std::int32_t ScreenDpi;
extern float FontScaleFactor;

/// Whether the desktop has 96 dots per inch.
bool IsSmallFonts();

/// Rescales the form and its controls so that each keeps its pixel size at 96 dots per inch.
void FixFormForFontSize(toolkit::Form& form);

}  // namespace nimbrel
