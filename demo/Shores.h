#pragma once

#include <cstdint>
#include <vector>

#include "WaterColors.h"

namespace demo {

/// Land and the bottom of the water beside it, 8 by 8 kilometres ahead of the eye, in metres.
class Land {
 public:
  struct Hit {
    bool met = false;
    float distance = 0.0F;
    Vec3 place;
    float height = 0.0F;  ///< of the ground there; below 0 if the ray met water
  };

  Land(Shore shore, std::uint32_t seed);

  /// Height of the eye in a picture of this shore.
  float Eye() const { return shore_ == Shore::kRiver ? 330.0F : 430.0F; }
  Hit Meet(const Vec3& ray, float eye) const;
  Color Shade(const Hit& hit, const Vec3& sun) const;
  /// By the depth of the water, from the textures of its kinds.
  Color WaterColor(const WaterSet& water, const Vec3& place, float height) const;

 private:
  float Height(float x, float y) const;
  float Form(float x, float y) const;

  Shore shore_;
  std::uint32_t seed_;
  std::vector<float> heights_;
  float highest_ = 0.0F;
};

}  // namespace demo
