#include "Atmosphere.h"

#include <cstddef>

namespace demo {

namespace {

// Lengths in kilometres, coefficients per kilometre for 680, 550 and 440 nm: the usual values of
// the published models of the Earth's air.
constexpr float kGround = 6360.0F;
constexpr float kTop = 6460.0F;
constexpr float kEye = 0.2F;
constexpr Color kRayleigh{0.005802F, 0.013558F, 0.0331F};
constexpr float kMieScattering = 0.003996F;
constexpr float kMieExtinction = 0.00444F;
constexpr Color kOzone{0.00070F, 0.00140F, 0.00012F};
constexpr float kRayleighHeight = 8.0F;
constexpr float kMieHeight = 1.2F;

constexpr int kHeights = 32;
constexpr int kAngles = 96;
constexpr int kElevations = 48;
constexpr int kAzimuths = 32;
constexpr float kLowestAngle = -0.6F;  ///< of the angle axis, whose square is the cosine

/// Share of the light that is scattered twice, from a higher sun.
constexpr float kManyTimes = 1.0F;
constexpr float kManyLift = 0.10F;

float Density(float height, float scale) {
  return std::exp(std::clamp(-height / scale, -80.0F, 4.0F));
}
/// A tent 30 km wide round a height of 25 km.
float OzoneDensity(float height) { return std::max(0.0F, 1.0F - std::abs(height - 25.0F) / 15.0F); }

/// Distance along a ray from `radius` under `cosine` to the top of the air.
float WayOut(float radius, float cosine) {
  const float b = radius * cosine;
  return -b + std::sqrt(std::max(0.0F, b * b - radius * radius + kTop * kTop));
}
/// Distance to the ground, or a negative number if the ray misses it.
float WayDown(float radius, float cosine) {
  const float b = radius * cosine;
  const float root = b * b - radius * radius + kGround * kGround;
  return cosine >= 0.0F || root < 0.0F ? -1.0F : -b - std::sqrt(root);
}

float RayleighPhase(float cosine) { return 3.0F / (16.0F * kPi) * (1.0F + cosine * cosine); }

float HenyeyGreenstein(float cosine, float g) {
  const float base = 1.0F + g * g - 2.0F * g * cosine;
  return (1.0F - g * g) / (4.0F * kPi * base * std::sqrt(base));
}

}  // namespace

Color Atmosphere::Extinction(float height) const {
  return kRayleigh * (air_.molecules * Density(height, kRayleighHeight)) +
         Color{1.0F, 1.0F, 1.0F} * (kMieExtinction * air_.haze * Density(height, kMieHeight)) +
         kOzone * (air_.ozone * OzoneDensity(height));
}

void Atmosphere::FillDepths() {
  constexpr int kSteps = 32;
  for (int i = 0; i < kHeights; ++i) {
    const float share = F(i) / F(kHeights - 1);
    const float radius = kGround + share * share * (kTop - kGround);
    for (int j = 0; j < kAngles; ++j) {
      const float axis = kLowestAngle + (1.0F - kLowestAngle) * F(j) / F(kAngles - 1);
      const float cosine = axis * std::abs(axis);
      const float way = WayOut(radius, cosine);
      Color sum;
      for (int s = 0; s < kSteps; ++s) {
        const float t = way * (F(s) + 0.5F) / F(kSteps);
        const float height =
            std::sqrt(radius * radius + t * t + 2.0F * radius * t * cosine) - kGround;
        sum += Extinction(height) * (way / F(kSteps));
      }
      depths_.push_back(sum);
    }
  }
}

Color Atmosphere::Depth(float height, float cosine) const {
  const float row = std::sqrt(Clamp01(height / (kTop - kGround))) * F(kHeights - 1);
  const float axis = std::copysign(std::sqrt(std::abs(cosine)), cosine);
  const float column = Clamp01((axis - kLowestAngle) / (1.0F - kLowestAngle)) * F(kAngles - 1);
  const int i = std::min(static_cast<int>(row), kHeights - 2);
  const int j = std::min(static_cast<int>(column), kAngles - 2);
  const Color* at = depths_.data() + static_cast<std::size_t>(i) * kAngles + j;
  const float t = column - F(j);
  return Mix(Mix(at[0], at[1], t), Mix(at[kAngles], at[kAngles + 1], t), row - F(i));
}

Color Atmosphere::Transmittance(float height, float cosine) const {
  return Exp(Depth(height, cosine) * -1.0F);
}

Atmosphere::Light Atmosphere::Gather(const Vec3& direction) const {
  constexpr int kSteps = 40;
  const float start = kGround + kEye;
  const float down = WayDown(start, direction.z);
  const float way = down > 0.0F ? down : WayOut(start, direction.z);
  Light light;
  Color passed;
  float before = 0.0F;
  for (int s = 1; s <= kSteps; ++s) {
    const float share = F(s) / F(kSteps);
    const float t = way * share * share;
    const float step = t - before;
    const float middle = before + step * 0.5F;
    before = t;
    const Vec3 place = Vec3{0.0F, 0.0F, start} + direction * middle;
    const float radius = Length(place);
    const float height = radius - kGround;
    const Color extinction = Extinction(height) * step;
    const Color through = Exp((passed + extinction * 0.5F) * -1.0F) * step;
    passed += extinction;
    const float cosine = Dot(place, sun_) / radius;
    const Color sun = through * Transmittance(height, cosine);
    const Color many = through * Transmittance(height, std::min(cosine + kManyLift, 1.0F));
    const Color molecules = kRayleigh * (air_.molecules * Density(height, kRayleighHeight));
    const Color haze = air_.dust * (kMieScattering * air_.haze * Density(height, kMieHeight));
    light.molecules += sun * molecules;
    light.haze += sun * haze;
    light.even += many * (molecules + haze * 0.4F) * (kManyTimes / (4.0F * kPi));
  }
  return light;
}

Atmosphere::Atmosphere(const Air& air, const Vec3& sun) : air_(air), sun_(sun) {
  FillDepths();
  sun_light_ = Transmittance(kEye, sun.z);
  const float azimuth = std::atan2(sun.x, sun.y) * (180.0F / kPi);
  for (int i = 0; i < kElevations; ++i) {
    const float share = F(i) / F(kElevations - 1);
    for (int j = 0; j < kAzimuths; ++j) {
      const float turn = 180.0F * F(j) / F(kAzimuths - 1);
      sky_.push_back(Gather(Direction(azimuth + turn, 90.0F * share * share)));
    }
  }
}

Color Atmosphere::Radiance(const Vec3& direction) const {
  const float elevation = std::asin(Clamp01(direction.z)) * (2.0F / kPi);
  const float row = std::sqrt(elevation) * F(kElevations - 1);
  const float flat = std::sqrt((direction.x * direction.x + direction.y * direction.y) *
                               (sun_.x * sun_.x + sun_.y * sun_.y));
  const float along = direction.x * sun_.x + direction.y * sun_.y;
  const float turn = flat > 1e-6F ? std::acos(std::clamp(along / flat, -1.0F, 1.0F)) / kPi : 0.0F;
  const float column = turn * F(kAzimuths - 1);
  const int i = std::min(static_cast<int>(row), kElevations - 2);
  const int j = std::min(static_cast<int>(column), kAzimuths - 2);
  const Light* at = sky_.data() + static_cast<std::size_t>(i) * kAzimuths + j;
  const float ti = row - F(i);
  const float tj = column - F(j);
  const auto between = [&](Color Light::*part) {
    return Mix(Mix(at[0].*part, at[1].*part, tj),
               Mix(at[kAzimuths].*part, at[kAzimuths + 1].*part, tj), ti);
  };
  const float cosine = Dot(direction, sun_);
  return between(&Light::molecules) * RayleighPhase(cosine) +
         between(&Light::haze) * HenyeyGreenstein(cosine, air_.forward) + between(&Light::even);
}

}  // namespace demo
