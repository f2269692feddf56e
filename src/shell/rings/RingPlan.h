#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "settings/Groups.h"

namespace nimbrel {

/// Where the pictures of the three rings are, in pixels of their pages, and in which order they are
/// drawn. Plain tables: nothing here paints.

struct OrbitSlot {
  std::int32_t left;
  std::int32_t top;
  std::int32_t width;
  std::int32_t height;
};

/// Slot 0 is the front, 5 the right, 10 the back, 15 the left.
inline constexpr std::array<OrbitSlot, 20> CloudOrbit{{
    {148, 107, 300, 225}, {224, 127, 270, 203}, {293, 125, 240, 180}, {352, 115, 210, 158},
    {396, 101, 180, 135}, {423, 83, 150, 113},  {411, 42, 150, 113},  {397, 29, 120, 90},
    {353, 8, 120, 90},    {314, 5, 90, 68},     {253, 1, 90, 68},     {192, 5, 90, 68},
    {123, 8, 120, 90},    {79, 29, 120, 90},    {35, 42, 150, 113},   {23, 83, 150, 113},
    {20, 101, 180, 135},  {34, 115, 210, 158},  {63, 125, 240, 180},  {102, 127, 270, 203},
}};

/// Slot 0 is the front, 5 the right, 10 the left.
inline constexpr std::array<OrbitSlot, 15> WaterOrbit{{
    {148, 107, 300, 225},
    {249, 128, 260, 195},
    {337, 119, 220, 165},
    {398, 99, 180, 135},
    {427, 69, 140, 105},
    {421, 47, 100, 75},
    {365, 16, 100, 75},
    {290, 0, 100, 75},
    {219, 0, 100, 75},
    {144, 16, 100, 75},
    {88, 47, 100, 75},
    {47, 69, 140, 105},
    {41, 99, 180, 135},
    {67, 119, 220, 165},
    {120, 128, 260, 195},
}};

/// Slots 0 to 13 are the rim, clockwise from the top; slot 14 is the centre.
inline constexpr int kRimSlots = 14;
inline constexpr std::array<OrbitSlot, kRimSlots + 1> SkyOrbit{{
    {282, 22, 31, 31},
    {338, 35, 31, 31},
    {383, 71, 31, 31},
    {407, 123, 31, 31},
    {407, 177, 31, 31},
    {383, 229, 31, 31},
    {338, 265, 31, 31},
    {282, 278, 31, 31},
    {226, 265, 31, 31},
    {181, 229, 31, 31},
    {159, 177, 31, 31},
    {159, 123, 31, 31},
    {181, 71, 31, 31},
    {226, 35, 31, 31},
    {198, 67, 200, 200},
}};

/// Corner radius of a picture by its slot, the same function of it on both rings.
inline constexpr std::array<std::int8_t, 20> kCornerRadius{10, 9, 8, 7, 6, 5, 5, 4, 4, 3,
                                                           3,  3, 4, 4, 5, 5, 6, 7, 8, 9};

/// A picture in a frame: `follower` 0 is the group that is in front after the turn, 1 the next one
/// in ring order, and so on.
struct PlacedPicture {
  int follower;
  int slot;
};

enum class TurnDirection : std::uint8_t { kCounterclockwise, kClockwise };
template <class Value>
using PerDirection = EnumArray<TurnDirection, Value, 2>;

/// A turn in one direction.
struct TurnPlan {
  /// 1: the next group in ring order comes to the front, -1: the one before. The sky ring goes the
  /// other way than the two others.
  int group_step;
  /// What each frame adds to the slot of every picture or, on a ring with a rim, to the start
  /// index of the rim.
  int frame_step;
  /// From this frame on the new front picture is drawn over all others.
  int front_on_top_from = kNever;

  static constexpr int kNever = 1000;
};

struct RingPlan {
  std::span<const OrbitSlot> orbit;
  std::span<const PlacedPicture> rest;  ///< back to front
  PerDirection<TurnPlan> turns;
  /// By group in front, the small picture that is in rim slot 0 at rest. Empty: no rim.
  std::span<const int> rim_start;

  bool HasRim() const { return !rim_start.empty(); }
};

/// The plan of a family's ring.
extern const PerFamily<RingPlan> kRingPlans;

/// What one frame shows, in drawing order.
struct RingFrame {
  std::vector<PlacedPicture> pictures;
  std::optional<int> rim_start;  ///< the small picture in rim slot 0
};
/// The ring at rest, with the group of index `front` in front.
RingFrame RestFrame(const RingPlan& ring, int front);
/// How many frames a turn shows before it comes to rest with `front` in front.
int TurnFrames(const RingPlan& ring, TurnDirection direction, int front);
/// Frame `frame` of that turn; frame 0 shows the ring as it was before.
RingFrame TurnFrame(const RingPlan& ring, TurnDirection direction, int front, int frame);

}  // namespace nimbrel
