#pragma once

#include <vector>

#include "Reflections.h"
#include "Waves.h"

namespace demo {

/// A point of the water as the eye sees it.
struct SeaPoint {
  Vec3 place;       ///< metres; z is the height over the mean
  Vec3 ray;         ///< from the eye
  float distance;   ///< metres
  float footprint;  ///< metres that a pixel covers there, across the ray
  Color base;       ///< light that comes out of the water
};

/// A sea of one set's waves under one reflection, both taken from their textures. Two copies of the
/// wave texture, in two sizes and directions, hide its repetition.
class SeaSurface {
 public:
  /// `behind` turns the map by half a turn, so that its sun is behind an eye that looks north.
  SeaSurface(const WaveSet& waves, const Texture& reflection, const Vec3& sun, bool behind);

  float Height(float x, float y) const;
  float Highest() const { return highest_; }
  Color Shade(const SeaPoint& point) const;
  /// Metres to the water along a ray from `eye` metres above it; 0 if there is no water within
  /// reach.
  float Meet(const Vec3& ray, float eye) const;

 private:
  /// Slopes in the two directions, their mean square, and foam.
  struct Slopes {
    float x = 0.0F;
    float y = 0.0F;
    float square = 0.0F;
    float foam = 0.0F;
  };
  struct Level {
    int side;
    std::vector<Slopes> points;
  };

  Slopes At(float x, float y, float footprint) const;
  static Slopes Between(const Level& level, float u, float v);
  Slopes Laid(float u, float v, float size) const;
  Color Mirror(const SeaPoint& point, const Slopes& slopes) const;

  std::vector<Level> levels_;
  std::vector<float> heights_;
  int side_;
  float highest_ = 0.0F;
  const Texture& reflection_;
  Vec3 sun_;
  float turn_;  ///< 1, or -1 for the map turned half round
};

}  // namespace demo
