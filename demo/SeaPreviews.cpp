#include "SeaPreviews.h"

#include "SeaSurface.h"
#include "Shores.h"

namespace demo {

namespace {

constexpr int kWidth = 400;
constexpr int kHeight = 300;
constexpr float kBaseTile = 900.0F;  ///< metres that a texture of the water's colour covers

Color SkyAt(const SeaTextures& textures, const Camera& camera, float x, float y) {
  Camera turned = camera;
  turned.heading += textures.sky_turn;
  return Look(textures.sky, turned.Ray(x, y));
}

struct Eye {
  Camera camera;
  float height;
};

/// One picture point of open water.
Color SeaColor(const SeaTextures& textures, const SeaSurface& sea, const Eye& eye, float x,
               float y) {
  const Vec3 ray = eye.camera.Ray(x, y);
  const float distance = std::max(1.0F, sea.Meet(ray, eye.height));
  Vec3 place = ray * distance;
  place.z += eye.height;
  const float footprint = distance / eye.camera.Scale() / std::sqrt(std::max(0.02F, -ray.z)) * 0.8F;
  const Color base =
      textures.water[kOcean].Repeated(place.x / kBaseTile, place.y / kBaseTile).color *
      textures.light;
  const Color seen = sea.Shade({place, ray, distance, footprint, base});
  const Color air = SkyAt(textures, eye.camera, x, eye.camera.Horizon() - 3.0F);
  return Mix(seen, air, 1.0F - std::exp(-distance / 9000.0F));
}

}  // namespace

Texture PreviewSea(const SeaTextures& textures, float eye, float heading) {
  const SeaSurface sea(textures.waves, textures.reflection, textures.sun, textures.behind);
  const Eye view{{heading, 0.36F, 60.0F, kWidth, kHeight}, eye};
  Canvas canvas(kWidth, kHeight);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      Color& pixel = canvas.color[canvas.Place(x, y)];
      if (F(y) + 0.5F <= view.camera.Horizon()) {
        pixel = SkyAt(textures, view.camera, F(x), F(y));
        continue;
      }
      pixel = (SeaColor(textures, sea, view, F(x), F(y) - 0.25F) +
               SeaColor(textures, sea, view, F(x) + 0.5F, F(y) + 0.25F)) *
              0.5F;
    }
  }
  return Encode(canvas);
}

Texture PreviewShore(const SeaTextures& textures, Shore shore, std::uint32_t seed) {
  const SeaSurface sea(textures.waves, textures.reflection, textures.sun, textures.behind);
  const Land land(shore, seed);
  const Eye view{{0.0F, 0.24F, 58.0F, kWidth, kHeight}, land.Eye()};
  Canvas canvas(kWidth, kHeight);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      Color& pixel = canvas.color[canvas.Place(x, y)];
      const Vec3 ray = view.camera.Ray(F(x), F(y));
      const Color sky =
          SkyAt(textures, view.camera, F(x), std::min(F(y), view.camera.Horizon() - 3.0F));
      const Land::Hit hit = land.Meet(ray, view.height);
      if (!hit.met) {
        pixel = sky;
        continue;
      }
      Color seen = land.Shade(hit, textures.sun);
      if (hit.height <= 0.0F) {
        const float footprint =
            hit.distance / view.camera.Scale() / std::sqrt(std::max(0.02F, -ray.z));
        const Vec3 place{hit.place.x, hit.place.y, 0.0F};
        const Color base = land.WaterColor(textures.water, hit.place, hit.height);
        const Color water = sea.Shade({place, ray, hit.distance, footprint, base});
        seen = Mix(water, seen, Slope(-0.7F, 0.0F, hit.height));
      }
      pixel = Mix(seen, sky * 0.94F, 1.0F - std::exp(-hit.distance / 16000.0F));
    }
  }
  return Encode(canvas);
}

}  // namespace demo
