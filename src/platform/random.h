#pragma once

#include <cstdint>

namespace platform {

/// Seeds for a pseudo-random generator, each taken from the clock at the moment of the call. A
/// count of the calls is mixed in, so two seeds of one object differ within one tick too.
class ClockSeed {
 public:
  std::uint64_t Next();

 private:
  std::uint64_t calls_ = 0;
};

}  // namespace platform
