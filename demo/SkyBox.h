#pragma once

#include <array>
#include <functional>
#include <vector>

#include "Texture.h"

namespace demo {

/// The upper half of a cube round the eye: north, east, south, west and the lid. A side's lower
/// edge is the horizon, its upper edge meets the lid; the edges' pixels are the same on both.
using SkyBox = std::array<Texture, 5>;

/// The direction that a pixel of a face shows.
Vec3 FaceDirection(int face, int x, int y, int side);
/// Linear light from a direction; below the horizon that of the horizon.
Color Look(const SkyBox& box, const Vec3& direction);
/// All five faces, each pixel with the `light` of its direction, and their files.
using SkyFaces = std::vector<Canvas>;
SkyFaces PaintFaces(int side, const std::function<Color(const Vec3&)>& light);
SkyBox EncodeFaces(const SkyFaces& faces);
/// The face and the pixel that a direction meets.
struct FacePlace {
  std::size_t face;
  float x;
  float y;
};
FacePlace PlaceOf(const Vec3& direction, int side);

/// A pinhole that looks over the land: heading in degrees from north, the horizon's row as a share
/// of the height, the width of the view in degrees.
struct Camera {
  float heading;
  float horizon;
  float field;
  int width;
  int height;

  Vec3 Ray(float x, float y) const;
  float Horizon() const { return horizon * F(height); }
  /// Pixels for a length of 1 at a distance of 1.
  float Scale() const;
};

}  // namespace demo
