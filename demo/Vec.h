#pragma once

#include <algorithm>
#include <cmath>

namespace demo {

/// A point, a direction or a linear colour (x red, y green, z blue).
struct Vec3 {
  float x = 0.0F;
  float y = 0.0F;
  float z = 0.0F;
};
using Color = Vec3;

constexpr Vec3 operator+(const Vec3& a, const Vec3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
constexpr Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
constexpr Vec3 operator*(const Vec3& a, const Vec3& b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }
constexpr Vec3 operator*(const Vec3& a, float s) { return {a.x * s, a.y * s, a.z * s}; }
constexpr Vec3& operator+=(Vec3& a, const Vec3& b) { return a = a + b; }

constexpr float Dot(const Vec3& a, const Vec3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline float Length(const Vec3& a) { return std::sqrt(Dot(a, a)); }
inline Vec3 Normalize(const Vec3& a) { return a * (1.0F / Length(a)); }
constexpr float Luminance(const Color& c) { return Dot(c, {0.2126F, 0.7152F, 0.0722F}); }
inline Vec3 Exp(const Vec3& a) { return {std::exp(a.x), std::exp(a.y), std::exp(a.z)}; }

constexpr float Mix(float a, float b, float t) { return a + (b - a) * t; }
constexpr Vec3 Mix(const Vec3& a, const Vec3& b, float t) { return a + (b - a) * t; }
constexpr float Clamp01(float v) { return std::clamp(v, 0.0F, 1.0F); }

/// 0 at or below `low`, 1 at or above `high`, a smooth slope between.
constexpr float Slope(float low, float high, float value) {
  const float t = Clamp01((value - low) / (high - low));
  return t * t * (3.0F - 2.0F * t);
}

inline constexpr float kPi = 3.14159265F;
constexpr float Radians(float degrees) { return degrees * (kPi / 180.0F); }

/// East is x, north y, up z; the azimuth runs clockwise from north, both in degrees.
inline Vec3 Direction(float azimuth, float elevation) {
  const float a = Radians(azimuth);
  const float e = Radians(elevation);
  return {std::sin(a) * std::cos(e), std::cos(a) * std::cos(e), std::sin(e)};
}

constexpr float F(int value) { return static_cast<float>(value); }
constexpr int Floor(float value) {
  const int whole = static_cast<int>(value);
  return F(whole) > value ? whole - 1 : whole;
}

}  // namespace demo
