#include "shell/RingPlan.h"

#include <algorithm>

namespace nimbrel {
namespace {

constexpr std::array<PlacedPicture, 4> kCloudRest{{{1, 5}, {2, 10}, {3, 15}, {0, 0}}};
constexpr std::array<PlacedPicture, 4> kCloudUpEarly{{{2, 5}, {3, 10}, {0, 15}, {1, 0}}};
constexpr std::array<PlacedPicture, 4> kCloudUpLate{{{2, 5}, {3, 10}, {1, 0}, {0, 15}}};
constexpr std::array<PlacedPicture, 4> kCloudDown{{{0, 5}, {1, 10}, {2, 15}, {3, 20}}};

constexpr std::array<PlacedPicture, 3> kWaterRest{{{1, 5}, {2, 10}, {0, 0}}};
constexpr std::array<PlacedPicture, 3> kWaterUp{{{2, 5}, {0, 10}, {1, 0}}};
constexpr std::array<PlacedPicture, 3> kWaterDown{{{0, 5}, {1, 10}, {2, 15}}};

}  // namespace

const RingPlan kCloudRing{
    CloudOrbit, kCloudRest, {kCloudUpEarly, kCloudUpLate, 3}, {kCloudDown, kCloudDown, 0}};
const RingPlan kWaterRing{
    WaterOrbit, kWaterRest, {kWaterUp, kWaterUp, 0}, {kWaterDown, kWaterDown, 0}};

FramePlan TurnFrame(const RingPlan& ring, TurnDirection direction, int frame) {
  const bool up = direction == TurnDirection::kCounterclockwise;
  const TurnPlan& turn = up ? ring.counterclockwise : ring.clockwise;
  const auto start = frame >= turn.late_from ? turn.late : turn.early;
  const int slots = static_cast<int>(ring.orbit.size());
  FramePlan plan{{}, start.size()};
  std::transform(start.begin(), start.end(), plan.pictures.begin(), [&](PlacedPicture placed) {
    const int slot = (placed.slot + (up ? frame : slots - frame)) % slots;
    return PlacedPicture{placed.follower, static_cast<std::uint8_t>(slot)};
  });
  return plan;
}

}  // namespace nimbrel
