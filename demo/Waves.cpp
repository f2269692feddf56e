#include "Waves.h"

#include "Fourier.h"
#include "Random.h"

namespace demo {

namespace {

constexpr WaveRecipe kRecipes[] = {
    {1.9F, 20, 2.0F, 0.05F, 0.3F, 0.14F, 48},  {3.3F, 35, 2.0F, 0.34F, 0.8F, 0.10F, 48},
    {5.0F, 15, 3.0F, 1.00F, 0.9F, 0.20F, 48},  {2.4F, 60, 2.0F, 0.12F, 0.6F, 1.70F, 48},
    {6.4F, 25, 3.0F, 1.80F, 1.05F, 0.50F, 48}, {8.2F, 20, 4.0F, 3.20F, 1.10F, 1.00F, 96},
    {4.0F, 0, 2.0F, 0.30F, 0.0F, 0.0F, 48},
};
constexpr float kGravity = 9.81F;

using Field = std::vector<float>;

/// Phillips' spectrum of a sea under a steady wind, as Tessendorf uses it, without its constant
/// factor.
float Phillips(float kx, float ky, const WaveRecipe& recipe) {
  const float k = std::hypot(kx, ky);
  const float longest = recipe.wind * recipe.wind / kGravity;
  const float a = Radians(recipe.heading);
  const float along = (kx * std::cos(a) + ky * std::sin(a)) / k;
  const float facing = std::pow(std::abs(along), recipe.spread) * (along < 0.0F ? 0.15F : 1.0F);
  const float smallest = 0.12F;
  return std::exp(-1.0F / (k * k * longest * longest) - k * k * smallest * smallest) /
         (k * k * k * k) * facing;
}

/// A narrow peak round the swell's length, a little across the wind.
float Swell(float kx, float ky, const WaveRecipe& recipe) {
  const float k0 = 2.0F * kPi / recipe.swell_length;
  const float a = Radians(recipe.heading + 25.0F);
  const float dx = kx - k0 * std::cos(a);
  const float dy = ky - k0 * std::sin(a);
  return std::exp(-(dx * dx + dy * dy) / (0.25F * k0 * k0));
}

struct Spectrum {
  int side;
  std::vector<Complex> values;

  float Wave(std::size_t index) const {
    const int i = static_cast<int>(index);
    return F(i < side / 2 ? i : i - side) * (2.0F * kPi / kWaveTile);
  }
  /// The real field of the spectrum with each value times `factor` of its wave vector.
  template <typename Factor>
  Field Make(Factor factor) const {
    std::vector<Complex> turned(values.size());
    const auto count = static_cast<std::size_t>(side);
    for (std::size_t i = 1; i < values.size(); ++i) {
      const Complex f = factor(Wave(i % count), Wave(i / count));
      const Complex v = values[i];
      turned[i] = {v.real() * f.real() - v.imag() * f.imag(),
                   v.real() * f.imag() + v.imag() * f.real()};
    }
    InverseFourier(turned, side);
    Field field(values.size());
    std::transform(turned.begin(), turned.end(), field.begin(),
                   [](const Complex& value) { return value.real(); });
    return field;
  }
};

/// Random phases under one shape, scaled to a significant height: four deviations of the surface.
template <typename Shape>
void AddWaves(Spectrum& spectrum, Shape shape, float height, Random& random) {
  std::vector<Complex> part(spectrum.values.size());
  const auto count = static_cast<std::size_t>(spectrum.side);
  float power = 0.0F;
  for (std::size_t i = 1; i < part.size(); ++i) {
    const float root = std::sqrt(shape(spectrum.Wave(i % count), spectrum.Wave(i / count)));
    const float a = random.Gauss();
    part[i] = Complex{a, random.Gauss()} * root;
    power += 0.5F * (part[i].real() * part[i].real() + part[i].imag() * part[i].imag());
  }
  const float scale = power > 0.0F ? height / 4.0F / std::sqrt(power) : 0.0F;
  for (std::size_t i = 0; i < part.size(); ++i) {
    spectrum.values[i] += part[i] * scale;
  }
}

/// A field looked up between its points; it repeats.
float At(const Field& field, int side, float x, float y) {
  const int x0 = Floor(x);
  const int y0 = Floor(y);
  const auto at = [&](int i, int j) {
    const int place = ((y0 + j) & (side - 1)) * side + ((x0 + i) & (side - 1));
    return field[static_cast<std::size_t>(place)];
  };
  const float tx = x - F(x0);
  return Mix(Mix(at(0, 0), at(1, 0), tx), Mix(at(0, 1), at(1, 1), tx), y - F(y0));
}

struct Sea {
  int side;
  float step;  ///< metres between two points
  Field height;
  Field shift_x;
  Field shift_y;
};

Sea MakeSea(const WaveRecipe& recipe, int side, std::uint32_t seed) {
  Random random(seed);
  Spectrum spectrum{
      side, std::vector<Complex>(static_cast<std::size_t>(side) * static_cast<std::size_t>(side))};
  AddWaves(
      spectrum, [&](float x, float y) { return Phillips(x, y, recipe); }, recipe.height, random);
  AddWaves(
      spectrum, [&](float x, float y) { return Swell(x, y, recipe); }, recipe.swell_height, random);
  const auto sideways = [&](bool along_x) {
    return spectrum.Make([&](float x, float y) {
      return Complex{0.0F, -(along_x ? x : y) / std::hypot(x, y) * recipe.choppiness};
    });
  };
  return {side, kWaveTile / F(side), spectrum.Make([](float, float) {
            return Complex{1.0F, 0.0F};
          }),
          sideways(true), sideways(false)};
}

/// The rest position of the water that the waves carry to this place, both in points of the grid.
struct Rest {
  float x;
  float y;
};
Rest RestOf(const Sea& sea, int x, int y) {
  Rest rest{F(x), F(y)};
  for (int round = 0; round < 4; ++round) {
    const float dx = At(sea.shift_x, sea.side, rest.x, rest.y) / sea.step;
    const float dy = At(sea.shift_y, sea.side, rest.x, rest.y) / sea.step;
    rest = {F(x) - dx, F(y) - dy};
  }
  return rest;
}

/// The surface breaks where it is compressed: the determinant of the shift, after Tessendorf.
float Foam(const Sea& sea, const Rest& at) {
  const auto slope = [&](const Field& field, float dx, float dy) {
    return (At(field, sea.side, at.x + dx, at.y + dy) - At(field, sea.side, at.x - dx, at.y - dy)) /
           (2.0F * sea.step);
  };
  const float xx = 1.0F + slope(sea.shift_x, 1, 0);
  const float yy = 1.0F + slope(sea.shift_y, 0, 1);
  const float xy = slope(sea.shift_x, 0, 1);
  return Slope(0.72F, 0.30F, xx * yy - xy * xy);
}

}  // namespace

std::span<const WaveRecipe> WaveRecipes() { return kRecipes; }

WaveSet PaintWaves(const WaveRecipe& recipe, int side, std::uint32_t seed) {
  const Sea sea = MakeSea(recipe, side, seed);
  Canvas surface(side, side);
  Canvas height(side, side);
  Field heights(height.color.size());
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const Rest rest = RestOf(sea, x, y);
      const std::size_t at = height.Place(x, y);
      heights[at] = At(sea.height, side, rest.x, rest.y);
      surface.alpha[at] = Foam(sea, rest);
      const float grey = 0.5F + heights[at] / (2.0F * kWaveRange);
      height.color[at] = {grey, grey, grey};
    }
  }
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const float dx = At(heights, side, F(x) + 1, F(y)) - At(heights, side, F(x) - 1, F(y));
      const float dy = At(heights, side, F(x), F(y) + 1) - At(heights, side, F(x), F(y) - 1);
      const Vec3 up = Normalize({-dx / (2.0F * sea.step), -dy / (2.0F * sea.step), 1.0F});
      surface.color[surface.Place(x, y)] = up * 0.5F + Vec3{0.5F, 0.5F, 0.5F};
    }
  }
  return {EncodePlain(surface), EncodePlain(height)};
}

}  // namespace demo
