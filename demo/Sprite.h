#pragma once

#include <vector>

#include "CloudSheets.h"

namespace demo {

/// The air between the eye and a picture.
struct Haze {
  Color color;
  float share;
};

/// A cell of a sheet that is drawn at any size, with halved copies for the small ones.
class Sprite {
 public:
  Sprite(const Texture& sheet, const SheetCell& cell);

  float Aspect() const { return F(sizes_[0].width) / F(sizes_[0].height); }
  /// With its upper left corner at x, y.
  void Draw(Canvas& canvas, float x, float y, float width, const Haze& haze) const;

 private:
  std::vector<Canvas> sizes_;
};

}  // namespace demo
