#pragma once

#include <QFont>
#include <string_view>

namespace toolkit {

struct Font;

/// What a font is asked for with, in pixels of the em square.
struct FontRequest {
  std::string_view family;
  double pixel_size = 11;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikeout = false;
};

/// Families that the machine lacks fall back to ones of the same widths, so that texts laid out for
/// them keep their lines.
QFont MakeFont(const FontRequest& request);
QFont MakeFont(const Font& font);

/// Pixels of a size in points at 96 dots per inch, at least 1: 8.25 is 11, 9.75 is 13, 12 is 16.
int PixelSize(double points);

}  // namespace toolkit
