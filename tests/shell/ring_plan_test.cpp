#include "shell/RingPlan.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace nimbrel {
namespace {

using Slots = std::vector<std::pair<int, int>>;  ///< follower, slot, in drawing order

Slots Frame(const RingPlan& ring, TurnDirection direction, int frame) {
  const FramePlan plan = TurnFrame(ring, direction, frame);
  Slots slots;
  for (std::size_t i = 0; i < plan.count; ++i) {
    slots.emplace_back(plan.pictures[i].follower, plan.pictures[i].slot);
  }
  return slots;
}

TEST(RingPlan, FramesStandWhereTheTurnHasThemInTheirOrder) {
  constexpr auto kUp = TurnDirection::kCounterclockwise;
  constexpr auto kDown = TurnDirection::kClockwise;
  const struct {
    const RingPlan& ring;
    TurnDirection direction;
    int frame;
    Slots expected;
  } rows[] = {
      {kCloudRing, kUp, 0, {{2, 5}, {3, 10}, {0, 15}, {1, 0}}},
      {kCloudRing, kUp, 2, {{2, 7}, {3, 12}, {0, 17}, {1, 2}}},
      {kCloudRing, kUp, 3, {{2, 8}, {3, 13}, {1, 3}, {0, 18}}},
      {kCloudRing, kUp, 4, {{2, 9}, {3, 14}, {1, 4}, {0, 19}}},
      {kCloudRing, kDown, 0, {{0, 5}, {1, 10}, {2, 15}, {3, 0}}},
      {kCloudRing, kDown, 4, {{0, 1}, {1, 6}, {2, 11}, {3, 16}}},
      {kWaterRing, kUp, 0, {{2, 5}, {0, 10}, {1, 0}}},
      {kWaterRing, kUp, 4, {{2, 9}, {0, 14}, {1, 4}}},
      {kWaterRing, kDown, 0, {{0, 5}, {1, 10}, {2, 0}}},
      {kWaterRing, kDown, 4, {{0, 1}, {1, 6}, {2, 11}}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.expected, Frame(row.ring, row.direction, row.frame)) << row.frame;
  }
}

/// Frame 0 shows the ring as it stood, so a turn never jumps at its start.
TEST(RingPlan, ATurnBeginsWithTheRingAtRest) {
  for (const RingPlan* ring : {&kCloudRing, &kWaterRing}) {
    const int groups = static_cast<int>(ring->rest.size());
    for (const bool up : {true, false}) {
      // The new front group is the one after the old in a clockwise turn, the one before else.
      const int shift = up ? groups - 1 : 1;
      for (const auto& [follower, slot] :
           Frame(*ring, up ? TurnDirection::kCounterclockwise : TurnDirection::kClockwise, 0)) {
        const int before = (follower + shift) % groups;
        EXPECT_EQ(before == 0 ? 0 : before * 5, slot) << follower;
      }
    }
  }
}

TEST(RingPlan, ASkyTurnEndsAtTheStartIndexOfItsTarget) {
  for (std::size_t from = 0; from < 4; ++from) {
    EXPECT_EQ(kRimStart[(from + 1) % 4], (kRimStart[from] + kCounterLastStep[from]) % 14);
    EXPECT_EQ(kRimStart[(from + 3) % 4], (kRimStart[from] + 14 - kClockLastStep[from]) % 14);
  }
}

}  // namespace
}  // namespace nimbrel
