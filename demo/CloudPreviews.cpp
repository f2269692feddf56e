#include "CloudPreviews.h"

#include "Noise.h"
#include "Random.h"
#include "Sprite.h"

namespace demo {

namespace {

constexpr Camera kView{20.0F, 0.80F, 66.0F, kPreviewWidth, kPreviewHeight};
constexpr float kHaze = 0.055F;  ///< of the way to the sky's colour over a kilometre

/// The place of a puff: kilometres ahead and to the right, its base over the eye, its width.
struct Puff {
  float ahead;
  float right;
  float base;
  float width;
  std::size_t cell;
};

std::vector<Sprite> Sprites(const Texture& sheet, CloudGroup group) {
  std::vector<Sprite> sprites;
  for (const SheetCell& cell : CloudCells(group)) {
    sprites.emplace_back(sheet, cell);
  }
  return sprites;
}

void DrawPuff(Canvas& canvas, const Camera& camera, const SkyBox& sky, const Sprite& sprite,
              const Puff& puff) {
  const float scale = camera.Scale() / puff.ahead;
  const float width = puff.width * scale;
  const float height = width / sprite.Aspect();
  const float x = F(camera.width) * 0.5F + puff.right * scale - width * 0.5F;
  const float foot = camera.Horizon() - puff.base * scale;
  const Color air = Look(sky, camera.Ray(x + width * 0.5F, camera.Horizon() - 6.0F));
  sprite.Draw(canvas, x, foot - height, width, {air, 1.0F - std::exp(-kHaze * puff.ahead)});
}

/// From the farthest to the nearest, spread evenly so that none hides all others.
template <typename Make>
void DrawField(Canvas& canvas, const SkyBox& sky, const std::vector<Sprite>& sprites, int count,
               float far, float near, const Make& make) {
  for (int i = 0; i < count; ++i) {
    const float ahead = far * std::pow(near / far, F(i) / F(count - 1));
    const Puff puff = make(i, ahead);
    DrawPuff(canvas, kView, sky, sprites[puff.cell], puff);
  }
}

/// An even walk over the width of the view, for the i-th of a row.
float Across(int i, float ahead, Random& random) {
  const float step = F(i) * 0.618034F;
  const float share = step - F(Floor(step)) + random.Between(-0.08F, 0.08F);
  return (share - 0.5F) * 1.45F * ahead;
}

Color LandColor(float right, float ahead, std::uint32_t seed) {
  const Period period{1 << 14, 1 << 14};
  const float fields = Perlin(right * 1.3F + 900.0F, ahead * 1.3F, period, seed);
  const float woods = Fbm(right * 0.5F + 900.0F, ahead * 0.5F, period, 4, seed + 3U);
  const Color field =
      Mix(Color{0.10F, 0.13F, 0.045F}, Color{0.19F, 0.17F, 0.075F}, Slope(-0.2F, 0.25F, fields));
  return Mix(field, Color{0.022F, 0.045F, 0.020F}, Slope(-0.02F, 0.12F, woods));
}

}  // namespace

Canvas PaintLandscape(const Camera& camera, const SkyBox& sky, std::uint32_t seed) {
  constexpr float kEye = 0.45F;  ///< kilometres over the land
  Canvas canvas(camera.width, camera.height);
  for (int y = 0; y < camera.height; ++y) {
    for (int x = 0; x < camera.width; ++x) {
      Color& pixel = canvas.color[canvas.Place(x, y)];
      const float down = F(y) + 0.5F - camera.Horizon();
      const float low = std::min(F(y), camera.Horizon() - 3.0F);
      pixel = Look(sky, camera.Ray(F(x), low));
      if (down > 0.0F) {
        const float ahead = kEye * camera.Scale() / down;
        const float right = (F(x) - F(camera.width) * 0.5F) * ahead / camera.Scale();
        const float clear = std::exp(-ahead * 0.11F);
        pixel = Mix(pixel * 0.86F, LandColor(right, ahead, seed), clear);
      }
    }
  }
  return canvas;
}

Texture PreviewClouds(CloudGroup group, const Texture& sheet, const SkyBox& sky,
                      std::uint32_t seed) {
  Canvas canvas = PaintLandscape(kView, sky, seed);
  const std::vector<Sprite> sprites = Sprites(sheet, group);
  Random random(seed);
  if (group == CloudGroup::kSolid) {
    DrawField(canvas, sky, sprites, 26, 19.0F, 2.1F, [&](int i, float ahead) {
      const std::size_t cell = ahead < 3.4F ? 0 : random.Next() % 3;
      const float width = (cell == 0   ? 1.9F
                           : cell == 1 ? 2.0F
                                       : 1.1F) *
                          random.Between(0.85F, 1.2F);
      const float base = 0.42F - 0.14F * width;  // the cells' clear margin
      return Puff{ahead, Across(i, ahead, random), base, width, cell};
    });
  } else {
    DrawField(canvas, sky, sprites, 42, 22.0F, 1.7F, [&](int i, float ahead) {
      const std::size_t cell = random.Next() % 3 == 0 ? 1 : 0;
      const float width = (cell == 0 ? 3.2F : 1.6F) * random.Between(0.8F, 1.25F);
      return Puff{ahead, Across(i, ahead, random), random.Between(0.10F, 0.50F), width, cell};
    });
  }
  return Encode(canvas);
}

Texture PreviewWisps(const Texture& sheet, const Texture& heaps, const SkyBox& sky,
                     std::uint32_t seed) {
  Canvas canvas = PaintLandscape(kView, sky, seed);
  const std::vector<Sprite> solid = Sprites(heaps, CloudGroup::kSolid);
  const std::vector<Sprite> wispy = Sprites(sheet, CloudGroup::kWispy);
  Random random(seed);
  constexpr std::array<Puff, 6> kHeaps{{{14.0F, -5.6F, 0.2F, 2.6F, 1},
                                        {11.0F, 4.0F, 0.2F, 2.4F, 0},
                                        {8.0F, -1.2F, 0.15F, 2.2F, 1},
                                        {5.4F, -2.7F, 0.15F, 1.8F, 0},
                                        {4.6F, 2.2F, 0.1F, 1.9F, 0},
                                        {3.0F, -0.35F, 0.0F, 1.75F, 0}}};
  for (const Puff& heap : kHeaps) {
    const float high = heap.width / solid[heap.cell].Aspect();
    DrawPuff(canvas, kView, sky, solid[heap.cell], heap);
    for (int i = 0; i < 4; ++i) {
      const std::size_t cell = random.Next() % 2;
      const float turn = F(i) * 1.7F + random.Between(-0.4F, 0.4F);
      const float width = heap.width * random.Between(0.55F, 0.9F);
      const Puff wisp{heap.ahead - 0.05F, heap.right + 0.42F * heap.width * std::cos(turn),
                      heap.base + high * (0.15F + 0.22F * std::sin(turn)), width, cell};
      DrawPuff(canvas, kView, sky, wispy[cell], wisp);
    }
  }
  return Encode(canvas);
}

Texture PreviewCirrus(const std::array<Texture, 3>& textures, const SkyBox& sky, float heading) {
  Camera camera = kView;
  camera.heading = heading;
  camera.horizon = 0.88F;
  camera.field = 80.0F;
  Canvas canvas = PaintLandscape(camera, sky, 5);
  for (int y = 0; y < static_cast<int>(camera.Horizon()); ++y) {
    for (int x = 0; x < camera.width; ++x) {
      const Vec3 ray = camera.Ray(F(x), F(y));
      Color& pixel = canvas.color[canvas.Place(x, y)];
      const float fade = Slope(0.01F, 0.16F, ray.z);
      const Vec3 at = ray * (0.24F / (ray.z + 0.02F));
      const Sample high = textures[0].Repeated(at.x + 0.3F, at.y);
      const Sample middle = textures[1].Repeated(at.x * 0.7F + 0.1F, at.y * 0.7F + 0.6F);
      const Sample low = textures[2].Repeated(at.x * 1.3F + 0.5F, at.y * 1.3F + 0.2F);
      pixel = Mix(pixel, middle.color, middle.alpha * fade * 0.6F);
      pixel = Mix(pixel, low.color, low.alpha * fade * 0.35F);
      pixel = Mix(pixel, high.color, high.alpha * fade);
    }
  }
  return Encode(canvas);
}

}  // namespace demo
