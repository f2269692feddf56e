#include "SkyPreviews.h"

#include "Noise.h"

namespace demo {

namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 300;

/// One chain of hills: its height as a share of the picture, and the share of the horizon's haze in
/// front of it.
struct Ridge {
  float height;
  float haze;
  float waves;  ///< across the picture
  float sharp;  ///< 0 round, 1 with edges
};

constexpr Ridge kHillRidges[] = {
    {0.035F, 0.62F, 3.1F, 0.2F}, {0.020F, 0.36F, 4.3F, 0.1F}, {-0.035F, 0.10F, 2.6F, 0.1F}};
constexpr Ridge kPeakRidges[] = {
    {0.115F, 0.62F, 4.6F, 0.9F}, {0.070F, 0.36F, 5.3F, 0.9F}, {-0.01F, 0.10F, 3.2F, 0.6F}};

float RidgeLine(const Ridge& ridge, int index, float x, std::uint32_t seed) {
  const Period period{1 << 12, 1 << 12};
  const float at = x / F(kWidth) * ridge.waves + F(index) * 17.3F + F(static_cast<int>(seed % 97U));
  const float soft = Fbm(at, 0.5F, period, 6, 7);
  const float edged = 0.5F - std::abs(Fbm(at * 0.7F, 3.5F, period, 6, 9)) * 1.6F;
  const float relief = Mix(soft * 0.8F, edged, ridge.sharp);
  return F(kHeight) * (ridge.height + (0.028F + 0.08F * ridge.sharp) * relief);
}

/// The mean light of a stretch along a row of the sky, so that no single star colours the land.
Color Stretch(const SkyBox& box, const Camera& camera, float x, float y) {
  constexpr int kPoints = 9;
  Color sum;
  for (int i = 0; i < kPoints; ++i) {
    sum += Look(box, camera.Ray(x + F(i - kPoints / 2) * 13.0F, y));
  }
  return sum * (1.0F / F(kPoints));
}

void DrawRidge(Canvas& canvas, const Camera& camera, const SkyBox& box, const Ridge& ridge,
               int index, std::uint32_t seed) {
  for (int x = 0; x < kWidth; ++x) {
    const Color low = Stretch(box, camera, F(x), camera.Horizon() - 4.0F);
    const Color high = Stretch(box, camera, F(x), camera.Horizon() * 0.55F);
    const Color air = Mix(low, high, 0.55F);
    const Color land = Mix(air * Color{0.05F, 0.06F, 0.08F}, air, ridge.haze * 0.8F);
    const float top = camera.Horizon() - RidgeLine(ridge, index, F(x), seed);
    for (int y = std::max(0, static_cast<int>(top)); y < kHeight; ++y) {
      const float deep = Clamp01((F(y) - top) / (0.25F * F(kHeight)));
      Color& pixel = canvas.color[canvas.Place(x, y)];
      pixel = Mix(pixel, land * (1.0F - 0.45F * deep), Clamp01(F(y) + 1.0F - top));
    }
  }
}

/// The sky upside down in small waves that grow towards the eye.
void DrawSea(Canvas& canvas, const Camera& camera, std::uint32_t seed) {
  const int shore = static_cast<int>(camera.Horizon());
  for (int y = shore; y < kHeight; ++y) {
    const float near = (F(y - shore) + 0.6F) / F(kHeight - shore);
    for (int x = 0; x < kWidth; ++x) {
      const float far = 1.0F / near;
      const float wave =
          Fbm((F(x) - F(kWidth) * 0.5F) * far * 0.012F, far * 3.4F, {1 << 14, 1 << 14}, 3, seed);
      const float from = F(shore) - (F(y - shore) * 0.9F + 2.0F + (wave + 0.25F) * 46.0F * near);
      const int row = std::clamp(static_cast<int>(from), 0, shore - 1);
      const float grazing = 0.86F - 0.42F * near - 0.25F * std::max(0.0F, wave);
      const Color deep = canvas.color[canvas.Place(x, 0)] * 0.12F;
      canvas.color[canvas.Place(x, y)] =
          Mix(deep, canvas.color[canvas.Place(x, row)], Clamp01(grazing));
    }
  }
}

}  // namespace

void AddLight(Canvas& canvas, const Camera& camera, const Texture& light, const Vec3& direction,
              float size, const Color& tint) {
  const Vec3 ahead = Direction(camera.heading, 0.0F);
  const Vec3 right = Direction(camera.heading + 90.0F, 0.0F);
  const float depth = Dot(direction, ahead);
  if (depth <= 0.0F) {
    return;
  }
  const float x = F(canvas.width) * 0.5F + Dot(direction, right) / depth * camera.Scale();
  const float y = camera.Horizon() - direction.z / depth * camera.Scale();
  const float side = Radians(size) * camera.Scale();
  const float step = F(light.width) / side;
  const auto first = [](float from) { return std::max(0, Floor(from)); };
  const int last_row = std::min(canvas.height, Floor(y + side / 2));
  const int last_column = std::min(canvas.width, Floor(x + side / 2));
  for (int row = first(y - side / 2); row < last_row; ++row) {
    for (int column = first(x - side / 2); column < last_column; ++column) {
      const float u = (F(column) + 0.5F - x) * step + F(light.width) * 0.5F - 0.5F;
      const float v = (F(row) + 0.5F - y) * step + F(light.width) * 0.5F - 0.5F;
      Color& pixel = canvas.color[canvas.Place(column, row)];
      const Color add = light.Between(u, v).color * tint;
      pixel = pixel + add * (Color{1, 1, 1} -
                             Color{Clamp01(pixel.x), Clamp01(pixel.y), Clamp01(pixel.z)} * 0.7F);
    }
  }
}

Texture PreviewSky(const SkyBox& box, const SkyRecipe& recipe, const Texture& sun,
                   std::uint32_t seed) {
  const bool sea = recipe.foreground == Foreground::kSea;
  const bool night = recipe.lights.stars > 0.0F;
  const Camera camera{recipe.heading, sea ? 0.80F : 0.84F, 82.0F, kWidth, kHeight};
  Canvas canvas(kWidth, kHeight);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      canvas.color[canvas.Place(x, y)] = Look(box, camera.Ray(F(x), F(y)));
    }
  }
  const Atmosphere air(recipe.air, Direction(recipe.azimuth, recipe.elevation));
  const Color light = air.SunLight();
  const Color tint = light * (1.0F / std::max(0.05F, std::max(light.x, light.z)));
  AddLight(canvas, camera, sun, Direction(recipe.azimuth, recipe.elevation), night ? 8.0F : 34.0F,
           night ? Color{1, 1, 1} : tint);
  if (sea) {
    DrawSea(canvas, camera, seed);
  } else {
    const auto& ridges = recipe.foreground == Foreground::kPeaks ? kPeakRidges : kHillRidges;
    for (int i = 0; i < 3; ++i) {
      DrawRidge(canvas, camera, box, ridges[i], i, seed);
    }
  }
  return Encode(canvas);
}

}  // namespace demo
