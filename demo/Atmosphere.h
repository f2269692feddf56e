#pragma once

#include <vector>

#include "Vec.h"

namespace demo {

/// What a day's air is made of, 1 for clean mid-latitude air.
struct Air {
  float molecules = 1.0F;  ///< scatters blue (Rayleigh)
  float haze = 1.0F;       ///< dust and droplets, scatters all colours forward (Mie)
  float ozone = 1.0F;      ///< absorbs orange: the deep blue overhead of dusk
  float forward = 0.76F;   ///< of the Henyey-Greenstein phase function, 0 even to 1 straight on
  Color dust{1.0F, 1.0F, 1.0F};
};

/// The light of one sun (or moon) scattered once in a round shell of air, with an even share for
/// the light scattered more often. Seen from 200 m above the ground.
class Atmosphere {
 public:
  Atmosphere(const Air& air, const Vec3& sun);

  /// For a direction at or above the horizon, where the sun's own light is 1.
  Color Radiance(const Vec3& direction) const;
  /// What is left of the sun's light at the ground.
  Color SunLight() const { return sun_light_; }

 private:
  struct Light {
    Color molecules;
    Color haze;
    Color even;
  };

  Light Gather(const Vec3& direction) const;
  Color Depth(float height, float cosine) const;
  Color Transmittance(float height, float cosine) const;
  Color Extinction(float height) const;
  void FillDepths();

  Air air_;
  Vec3 sun_;
  Color sun_light_;
  std::vector<Color> depths_;  ///< optical depth to space by height and angle
  std::vector<Light> sky_;     ///< by elevation and azimuth from the sun
};

}  // namespace demo
