#include "SkyBox.h"

namespace demo {

namespace {

struct Face {
  Vec3 forward;
  Vec3 right;
  Vec3 up;
};

/// On the lid, right is east and up is south: the view of an eye that looks north and then up.
constexpr std::array<Face, 5> kFaces{{
    {{0, 1, 0}, {1, 0, 0}, {0, 0, 1}},
    {{1, 0, 0}, {0, -1, 0}, {0, 0, 1}},
    {{0, -1, 0}, {-1, 0, 0}, {0, 0, 1}},
    {{-1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
    {{0, 0, 1}, {1, 0, 0}, {0, -1, 0}},
}};
constexpr std::size_t kLid = 4;

std::size_t FaceOf(const Vec3& d) {
  const float x = std::abs(d.x);
  const float y = std::abs(d.y);
  if (d.z >= x && d.z >= y) {
    return kLid;
  }
  if (x > y) {
    return d.x > 0.0F ? 1 : 3;
  }
  return d.y > 0.0F ? 0 : 2;
}

}  // namespace

Vec3 FaceDirection(int face, int x, int y, int side) {
  const Face& f = kFaces[static_cast<std::size_t>(face)];
  const float across = 2.0F * F(x) / F(side - 1) - 1.0F;
  const float down = F(y) / F(side - 1);
  const float up = face == static_cast<int>(kLid) ? 1.0F - 2.0F * down : 1.0F - down;
  return Normalize(f.forward + f.right * across + f.up * up);
}

FacePlace PlaceOf(const Vec3& direction, int side) {
  const std::size_t face = FaceOf(direction);
  const Face& f = kFaces[face];
  const float depth = 1.0F / Dot(direction, f.forward);
  const float across = Dot(direction, f.right) * depth;
  const float up = Dot(direction, f.up) * depth;
  const float last = F(side - 1);
  const float down = face == kLid ? (1.0F - up) * 0.5F : 1.0F - up;
  return {face, (across + 1.0F) * 0.5F * last, down * last};
}

Color Look(const SkyBox& box, const Vec3& direction) {
  const Vec3 lifted{direction.x, direction.y, std::max(direction.z, 0.0F)};
  const FacePlace place = PlaceOf(lifted, box[0].width);
  return box[place.face].Between(place.x, place.y).color;
}

SkyFaces PaintFaces(int side, const std::function<Color(const Vec3&)>& light) {
  SkyFaces faces(5, Canvas(side, side));
  for (int face = 0; face < 5; ++face) {
    Canvas& canvas = faces[static_cast<std::size_t>(face)];
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x) {
        canvas.color[canvas.Place(x, y)] = light(FaceDirection(face, x, y, side));
      }
    }
  }
  return faces;
}

SkyBox EncodeFaces(const SkyFaces& faces) {
  SkyBox box;
  for (std::size_t i = 0; i < box.size(); ++i) {
    box[i] = Encode(faces[i]);
  }
  return box;
}

float Camera::Scale() const { return F(width) * 0.5F / std::tan(Radians(field) * 0.5F); }

Vec3 Camera::Ray(float x, float y) const {
  const Vec3 ahead = Direction(heading, 0.0F);
  const Vec3 right = Direction(heading + 90.0F, 0.0F);
  const float across = x + 0.5F - F(width) * 0.5F;
  const float up = Horizon() - (y + 0.5F);
  return Normalize(ahead * Scale() + right * across + Vec3{0.0F, 0.0F, up});
}

}  // namespace demo
