#include "CloudVolume.h"

#include <array>

#include "Noise.h"

namespace demo {

namespace {

/// Values on a grid in the order x, z, y, the x of one row side by side; y from the top of the
/// picture.
class Grid {
 public:
  Grid(int nx, int ny, int nz)
      : nx_(nx),
        ny_(ny),
        nz_(nz),
        values_(static_cast<std::size_t>(nx) * static_cast<std::size_t>(ny) *
                    static_cast<std::size_t>(nz),
                0.0F) {}
  int nx() const { return nx_; }
  int ny() const { return ny_; }
  int nz() const { return nz_; }
  float* Row(int y, int z) { return values_.data() + Place(y, z); }
  const float* Row(int y, int z) const { return values_.data() + Place(y, z); }

 private:
  std::size_t Place(int y, int z) const {
    return (static_cast<std::size_t>(y) * static_cast<std::size_t>(nz_) +
            static_cast<std::size_t>(z)) *
           static_cast<std::size_t>(nx_);
  }
  int nx_;
  int ny_;
  int nz_;
  std::vector<float> values_;
};

/// Depth of the volume as a share of the picture's height.
constexpr float kDepth = 0.5F;
constexpr int kCoarse = 4;  ///< the shape without its noise is computed at every fourth point

/// Offset into the noise, so that every cloud has heads of its own.
Vec3 Shift(std::uint32_t seed) {
  return {F(static_cast<int>(seed * 37U % 101U)) * 0.173F,
          F(static_cast<int>(seed * 53U % 103U)) * 0.191F,
          F(static_cast<int>(seed * 71U % 107U)) * 0.157F};
}

Vec3 Warped(const Vec3& p, const CloudLook& look, const Vec3& shift) {
  const Vec3 q = Vec3{p.x / look.stretch, p.y, p.z} * 0.55F + shift;
  const NoiseVolume& noise = Vapour();
  return p + Vec3{noise.At(q.x, q.y, q.z) * look.stretch, noise.At(q.y + 0.37F, q.z, q.x),
                  noise.At(q.z, q.x + 0.61F, q.y)} *
                 look.wisp;
}

/// Distance to the skin of the balls, negative inside.
float Distance(const std::vector<Blob>& blobs, const CloudLook& look, const Vec3& p) {
  constexpr float kBlend = 0.025F;
  float distance = 9.0F;
  for (const Blob& blob : blobs) {
    const Vec3 to = p - blob.centre;
    const float d = Length({to.x, to.y * look.flat, to.z}) - blob.radius;
    const float share = std::max(0.0F, kBlend - std::abs(distance - d)) / kBlend;
    distance = std::min(distance, d) - share * share * kBlend * 0.25F;
  }
  return distance;
}

Grid Distances(const std::vector<Blob>& blobs, const CloudLook& look, const Grid& fine,
               std::uint32_t seed) {
  Grid grid(fine.nx() / kCoarse + 2, fine.ny() / kCoarse + 2, fine.nz() / kCoarse + 2);
  const Vec3 shift = Shift(seed);
  const float unit = F(kCoarse) / F(fine.ny());
  for (int y = 0; y < grid.ny(); ++y) {
    for (int z = 0; z < grid.nz(); ++z) {
      float* row = grid.Row(y, z);
      for (int x = 0; x < grid.nx(); ++x) {
        const Vec3 p{F(x) * unit, 1.0F - F(y) * unit, F(z) * unit - kDepth * 0.5F};
        row[x] = Distance(blobs, look, Warped(p, look, shift));
      }
    }
  }
  return grid;
}

/// Coarse values interpolated for one fine row from the four coarse rows round it.
void Between(const Grid& coarse, int y, int z, std::vector<float>& row) {
  const int y0 = y / kCoarse;
  const int z0 = z / kCoarse;
  const float ty = F(y % kCoarse) / F(kCoarse);
  const float tz = F(z % kCoarse) / F(kCoarse);
  const float* a = coarse.Row(y0, z0);
  const float* b = coarse.Row(y0, z0 + 1);
  const float* c = coarse.Row(y0 + 1, z0);
  const float* d = coarse.Row(y0 + 1, z0 + 1);
  const auto at = [&](int i) { return Mix(Mix(a[i], b[i], tz), Mix(c[i], d[i], tz), ty); };
  for (int x = 0; x < static_cast<int>(row.size()); ++x) {
    const int i = x / kCoarse;
    row[static_cast<std::size_t>(x)] = Mix(at(i), at(i + 1), F(x % kCoarse) / F(kCoarse));
  }
}

/// Heads in two sizes. `p` in heights.
float Relief(const CloudLook& look, const Vec3& p, const Vec3& shift) {
  const float cells = look.cells / 4.0F;  // the volume is four heads long
  const Vec3 q = Vec3{p.x / look.stretch, p.y, p.z} * cells + shift;
  const float large = Billows().At(q.x, q.y, q.z);
  const float small = Billows().At(q.x * 3.1F, q.y * 3.1F, q.z * 3.1F);
  return large * 0.72F + small * 0.28F;
}

/// 1 inside, 0 at the picture's edges; what the wind draws out fades sooner.
float EdgeFade(int x, int y, int width, int height, float wisp) {
  const float wide = (0.085F + 0.8F * std::max(0.0F, wisp - 0.10F)) * F(height);
  const float near = F(std::min(std::min(x, width - 1 - x), std::min(y, height - 1 - y)));
  return Slope(0.0F, wide, near - 1.0F);
}

Grid Density(const std::vector<Blob>& blobs, const CloudLook& look, int width, int height,
             std::uint32_t seed) {
  Grid grid(width, height, static_cast<int>(F(height) * kDepth));
  const Grid coarse = Distances(blobs, look, grid, seed);
  const Vec3 shift = Shift(seed + 5U);
  const float unit = 1.0F / F(height);
  std::vector<float> skin(static_cast<std::size_t>(width));
  for (int y = 0; y < height; ++y) {
    for (int z = 0; z < grid.nz(); ++z) {
      Between(coarse, y, z, skin);
      float* row = grid.Row(y, z);
      for (int x = 0; x < width; ++x) {
        const float outside = skin[static_cast<std::size_t>(x)];
        const float reach = outside - look.billow * 0.55F;
        if (reach >= 0.0F) {
          continue;
        }
        const Vec3 p{F(x) * unit, 1.0F - F(y) * unit, F(z) * unit};
        const bool deep = outside < -look.billow * 0.6F - look.softness;
        const float head = deep ? 0.5F : Relief(look, p, shift);
        const float full = Clamp01((look.billow * (head - 0.45F) - outside) / look.softness);
        const float foot = look.base < 0.0F
                               ? 1.0F
                               : Slope(-0.012F, 0.05F, p.y - look.base + 0.05F * (head - 0.5F));
        row[x] =
            full * full * (3.0F - 2.0F * full) * foot * EdgeFade(x, y, width, height, look.wisp);
      }
    }
  }
  return grid;
}

/// Optical depth from each point to the light: the value of the layer above at the point where the
/// ray to the light crosses that layer, plus the layer's own part.
Grid DepthTowards(const Grid& density, const CloudLook& look, const Vec3& light) {
  Grid depth(density.nx(), density.ny(), density.nz());
  const float dx = light.x / light.y;
  const float dz = light.z / light.y;
  const float part = look.density / F(density.ny()) / light.y;
  const int sx = Floor(dx);
  const int sz = Floor(dz);
  const float tx = dx - F(sx);
  const float tz = dz - F(sz);
  for (int y = 1; y < density.ny(); ++y) {
    for (int z = 0; z < density.nz(); ++z) {
      const int z0 = std::clamp(z + sz, 0, density.nz() - 1);
      const int z1 = std::clamp(z + sz + 1, 0, density.nz() - 1);
      const float* near = depth.Row(y - 1, z0);
      const float* far = depth.Row(y - 1, z1);
      const float* own = density.Row(y, z);
      const float* above = density.Row(y - 1, z);
      float* row = depth.Row(y, z);
      for (int x = 0; x < density.nx(); ++x) {
        const int x0 = std::clamp(x + sx, 0, density.nx() - 1);
        const int x1 = std::clamp(x + sx + 1, 0, density.nx() - 1);
        row[x] = Mix(Mix(near[x0], near[x1], tx), Mix(far[x0], far[x1], tx), tz) +
                 0.5F * (own[x] + above[x]) * part;
      }
    }
  }
  return depth;
}

/// Henyey and Greenstein's phase function, 1 for even scattering.
float Phase(float cosine, float g) {
  const float base = 1.0F + g * g - 2.0F * g * cosine;
  return (1.0F - g * g) / (base * std::sqrt(base));
}

/// Light scattered once and more often: each time it is spread wider and absorbed less.
class Scattering {
 public:
  explicit Scattering(const CloudLook& look) {
    const float cosine = look.sun.z;  // the eye looks along z
    float share = 1.0F;
    float forward = 0.75F;
    for (float& weight : weights_) {
      weight = share * (0.72F * Phase(cosine, forward) + 0.28F * Phase(cosine, -0.3F * forward));
      share *= 0.62F;
      forward *= 0.5F;
    }
  }
  float At(float depth) const {
    float sum = 0.0F;
    float held = 1.0F;
    for (const float weight : weights_) {
      sum += weight * std::exp(-depth * held);
      held *= 0.36F;
    }
    return sum;
  }

 private:
  std::array<float, 4> weights_{};
};

struct Column {
  Color light;
  float clear = 1.0F;
};

}  // namespace

Canvas RenderCloud(const std::vector<Blob>& blobs, const CloudLook& look, int width, int height,
                   std::uint32_t seed) {
  const Grid density = Density(blobs, look, width, height, seed);
  const Grid sun = DepthTowards(density, look, look.sun);
  const Grid sky = DepthTowards(density, look, Normalize({0.0F, 1.0F, -0.55F}));
  const Scattering scattering(look);
  const float part = look.density / F(height);
  Canvas canvas(width, height);
  std::vector<Column> columns(static_cast<std::size_t>(width));
  for (int y = 0; y < height; ++y) {
    std::fill(columns.begin(), columns.end(), Column{});
    const float low = Clamp01(F(y) / F(height) * 1.2F);
    for (int z = 0; z < density.nz(); ++z) {
      const float* row = density.Row(y, z);
      for (int x = 0; x < width; ++x) {
        Column& column = columns[static_cast<std::size_t>(x)];
        if (row[x] <= 0.0F || column.clear < 0.004F) {
          continue;
        }
        const float passed = std::exp(-row[x] * part);
        const float shade = std::exp(-0.5F * sky.Row(y, z)[x]);
        const Color light = look.sunlight * scattering.At(sun.Row(y, z)[x]) +
                            look.skylight * (0.32F + 0.78F * shade) + look.underlight * low;
        column.light += light * (column.clear * (1.0F - passed));
        column.clear *= passed;
      }
    }
    for (int x = 0; x < width; ++x) {
      const Column& column = columns[static_cast<std::size_t>(x)];
      const float alpha = 1.0F - column.clear;
      const std::size_t at = canvas.Place(x, y);
      const Color thin = look.sunlight * 0.55F + look.skylight;
      canvas.color[at] = (column.light + thin * 0.02F) * (1.0F / (alpha + 0.02F));
      canvas.alpha[at] = alpha;
    }
  }
  return canvas;
}

}  // namespace demo
