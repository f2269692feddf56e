#include "shell/rings/RingPlan.h"

#include <algorithm>

namespace nimbrel {
namespace {

/// Frames of a turn of the two rings whose pictures orbit: as many as there are slots between two
/// groups.
constexpr int kOrbitFrames = 5;

constexpr std::array<PlacedPicture, 4> kCloudRest{{{1, 5}, {2, 10}, {3, 15}, {0, 0}}};
constexpr std::array<PlacedPicture, 3> kWaterRest{{{1, 5}, {2, 10}, {0, 0}}};
constexpr std::array<PlacedPicture, 1> kSkyRest{{{0, kRimSlots}}};
constexpr std::array<int, 4> kSkyRimStart{2, 6, 10, 13};

/// `value` in the range 0 to count - 1; at most one round outside it before.
int Wrapped(int value, int count) { return (value + count) % count; }

template <class Value>
int SizeOf(std::span<const Value> values) {
  return static_cast<int>(values.size());
}

/// The rim's start index `frames` frames before a turn comes to rest.
int RimStart(const RingPlan& ring, const TurnPlan& turn, int front, int frames) {
  return Wrapped(ring.rim_start[static_cast<std::size_t>(front)] - turn.frame_step * frames,
                 kRimSlots);
}

}  // namespace

constinit const PerFamily<RingPlan> kRingPlans{{{
    {CloudOrbit, kCloudRest, {{{{-1, 1, 3}, {1, -1}}}}, {}},
    {SkyOrbit, kSkyRest, {{{{1, 1}, {-1, -1}}}}, kSkyRimStart},
    {WaterOrbit, kWaterRest, {{{{-1, 1}, {1, -1}}}}, {}},
}}};

RingFrame RestFrame(const RingPlan& ring, int front) {
  RingFrame frame{{ring.rest.begin(), ring.rest.end()}, {}};
  if (ring.HasRim()) {
    frame.rim_start = ring.rim_start[static_cast<std::size_t>(front)];
  }
  return frame;
}

int TurnFrames(const RingPlan& ring, TurnDirection direction, int front) {
  if (!ring.HasRim()) {
    return kOrbitFrames;
  }
  const TurnPlan& turn = ring.turns[direction];
  const int before = Wrapped(front - turn.group_step, SizeOf(ring.rim_start));
  const int way = ring.rim_start[static_cast<std::size_t>(front)] -
                  ring.rim_start[static_cast<std::size_t>(before)];
  return Wrapped(turn.frame_step * way, kRimSlots);
}

RingFrame TurnFrame(const RingPlan& ring, TurnDirection direction, int front, int frame) {
  const TurnPlan& turn = ring.turns[direction];
  RingFrame shown = RestFrame(ring, front);
  if (ring.HasRim()) {
    // The centre shows the new picture from the first frame on.
    shown.rim_start = RimStart(ring, turn, front, TurnFrames(ring, direction, front) - frame);
    return shown;
  }
  for (PlacedPicture& placed : shown.pictures) {
    placed.follower = Wrapped(placed.follower - turn.group_step, SizeOf(ring.rest));
    placed.slot = Wrapped(placed.slot + turn.frame_step * frame, SizeOf(ring.orbit));
  }
  if (frame >= turn.front_on_top_from) {
    std::stable_partition(shown.pictures.begin(), shown.pictures.end(),
                          [](const PlacedPicture& placed) { return placed.follower != 0; });
  }
  return shown;
}

}  // namespace nimbrel
