#pragma once

#include <QImage>
#include <filesystem>

#include "Options.h"

namespace demo {

/// The option number of what the simulator came with: a look of its own.
inline constexpr int kOriginal = kOptions;

/// A scene that shows an option of a group, with its number and title when it has one.
QImage PaintScene(const Group& group, int option, int width, int height);

/// The small sky of an hour, 0 to 13 round the clock from late night, 31 by 31, white outside its
/// circle.
QImage PaintSkyMini(int hour);

/// A square texture of a set's file, with the option's number.
QImage PaintTexture(const Group& group, int option, int file, int side);

/// One input of the cumulus sheet at a side of 512 or 256 pixels, the same picture at both.
struct CumulusInput {
  QImage color;  ///< 24-bit look
  QImage alpha;  ///< 8 bits with a table of greys
};
CumulusInput PaintCumulusInput(const Group& group, int option, int side);

/// A sun: a disc with a glow over black.
QImage PaintSun(int side, const QColor& glow);

}  // namespace demo
