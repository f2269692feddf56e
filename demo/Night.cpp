#include "Night.h"

#include "Noise.h"
#include "Random.h"

namespace demo {

namespace {

/// Across the plane of the Milky Way.
const Vec3 kPole = Normalize({0.62F, -0.55F, 0.35F});

float Bell(float distance, float width) {
  const float t = distance / width;
  return std::exp(-t * t);
}

Color MilkyWay(const Vec3& d) {
  const float latitude = Dot(d, kPole);
  const float cloud = Vapour().At(d.x * 0.9F, d.y * 0.9F, d.z * 0.9F);
  const float grain = Vapour().At(d.x * 2.7F, d.y * 2.7F, d.z * 2.7F);
  const float band = Bell(latitude + 0.10F * cloud, 0.20F) * (0.55F + 0.9F * cloud + 0.35F * grain);
  const float rift = Bell(latitude + 0.05F + 0.22F * grain, 0.055F) * Clamp01(0.6F + 1.5F * cloud);
  const float core = Bell(latitude, 0.12F) * Bell(d.z - 0.25F, 0.35F);
  return (Color{0.052F, 0.058F, 0.078F} * std::max(band, 0.0F) +
          Color{0.050F, 0.036F, 0.024F} * core) *
         (1.0F - 0.75F * Clamp01(rift));
}

/// One curtain: sharp below, long rays above, green turning violet. It hangs in folds and fades out
/// where the wind has thinned it.
Color Curtain(float azimuth, float elevation, float foot, float seed) {
  const float fold = 0.09F * std::sin(azimuth * 2.3F + seed) +
                     0.035F * std::sin(azimuth * 7.7F + seed * 2.3F) +
                     0.10F * Vapour().At(azimuth * 0.31F, seed, 0.5F);
  const float above = elevation - foot - fold;
  const float slant = azimuth + 0.12F * elevation;
  const float fine = Vapour().At(slant * 4.3F, seed, 0.2F);
  const float rays = Clamp01(0.42F + 0.9F * Vapour().At(slant * 1.3F, seed, 0.7F) + 0.5F * fine);
  const float light =
      above > 0.0F ? std::exp(-above / (0.05F + 0.22F * rays)) : std::exp(-above * above / 0.0012F);
  const Color color =
      Mix(Color{0.08F, 0.60F, 0.24F}, Color{0.26F, 0.12F, 0.46F}, Slope(0.05F, 0.36F, above));
  const float wide = Slope(-0.25F, 0.35F, Vapour().At(azimuth * 0.17F, seed + 0.4F, 0.9F));
  return color * (light * (0.15F + rays) * wide);
}

Color Aurora(const Vec3& d) {
  const float azimuth = std::atan2(d.x, d.y);
  const float elevation = std::asin(Clamp01(d.z));
  const Color sum = Curtain(azimuth, elevation, 0.20F, 0.3F) * 0.9F +
                    Curtain(azimuth, elevation, 0.36F, 1.9F) * 0.6F +
                    Curtain(azimuth, elevation, 0.13F, 4.2F) * 0.45F;
  const float veil = Bell(elevation - 0.3F, 0.35F) * 0.05F;
  return (sum + Color{0.10F, 0.62F, 0.28F} * veil) * (0.75F * Bell(azimuth, 1.15F));
}

Color Town(const Vec3& d) {
  const float azimuth = std::atan2(d.x, d.y) * (180.0F / kPi) + 360.0F;
  const float elevation = std::asin(Clamp01(d.z));
  const float near = Bell(std::fmod(azimuth, 360.0F) - 233.0F, 34.0F);
  const float far = Bell(std::fmod(azimuth, 360.0F) - 196.0F, 14.0F);
  return Color{0.95F, 0.50F, 0.20F} *
         (0.42F * near * std::exp(-elevation / 0.13F) + 0.2F * far * std::exp(-elevation / 0.05F));
}

struct Star {
  Vec3 direction;
  Color light;
};

Star NextStar(Random& random) {
  const float azimuth = random.Between(0.0F, 360.0F);
  const float height = random.Unit();
  const Vec3 direction = Direction(azimuth, std::asin(height) * (180.0F / kPi));
  const float rank = random.Unit();
  const float warm = random.Unit();
  const float power = 0.016F / (0.010F + rank);  // few are bright
  const Color color = Mix(Color{0.75F, 0.86F, 1.0F}, Color{1.0F, 0.84F, 0.68F}, warm * warm);
  return {direction, color * power * Slope(0.0F, 0.12F, height)};
}

/// Looks round from the eye at any place of its face.
void AddStar(SkyFaces& faces, const Star& star) {
  constexpr float kWidth = 0.0027F;  // radians
  constexpr int kReach = 3;
  const FacePlace place = PlaceOf(star.direction, faces[0].width);
  Canvas& face = faces[place.face];
  const int column = Floor(place.x + 0.5F);
  const int row = Floor(place.y + 0.5F);
  for (int y = std::max(row - kReach, 0); y <= std::min(row + kReach, face.height - 1); ++y) {
    for (int x = std::max(column - kReach, 0); x <= std::min(column + kReach, face.width - 1);
         ++x) {
      const Vec3 to = FaceDirection(static_cast<int>(place.face), x, y, face.width);
      face.color[face.Place(x, y)] += star.light * Bell(Length(to - star.direction), kWidth);
    }
  }
}

}  // namespace

Color NightGlow(const NightLights& lights, const Vec3& direction) {
  if (lights.stars <= 0.0F) {
    return {};
  }
  const float low = std::exp(-std::max(direction.z, 0.0F) / 0.22F);
  Color light = Color{0.0045F, 0.0075F, 0.0135F} + Color{0.006F, 0.010F, 0.015F} * low;
  if (lights.milky_way > 0.0F) {
    light += MilkyWay(direction) * (lights.milky_way * Slope(0.0F, 0.15F, direction.z));
  }
  if (lights.aurora > 0.0F) {
    light += Aurora(direction) * lights.aurora;
  }
  if (lights.town > 0.0F) {
    light += Town(direction) * lights.town;
  }
  return light;
}

void AddStars(SkyFaces& faces, const NightLights& lights, std::uint32_t seed) {
  constexpr float kStars = 6000.0F;
  Random random(seed);
  for (int i = 0; i < static_cast<int>(kStars * lights.stars); ++i) {
    const Star star = NextStar(random);
    const float band = Bell(Dot(star.direction, kPole), 0.25F);
    if (random.Unit() < 0.35F + 0.65F * band || lights.milky_way <= 0.0F) {
      AddStar(faces, star);
    }
  }
}

}  // namespace demo
