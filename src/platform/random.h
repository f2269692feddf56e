#pragma once

#include <cstdint>

namespace platform {

/// A seed for a pseudo-random generator, taken from the clock at the moment of the call. A count of
/// the calls is mixed in, so two seeds within one tick differ.
std::uint64_t ClockSeed();
/// For tests: seeds to use instead; null asks the clock again.
void SetSeedSource(std::uint64_t (*next)());

}  // namespace platform
