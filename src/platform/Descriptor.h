#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace platform {

/// Owns a file descriptor of the host.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

  /// The errno value of a failed close, else 0: some file systems report lost data only here. An
  /// interruption is no failure, since the system has closed the descriptor by then.
  int Close() {
    const int number = std::exchange(number_, -1);
    return number >= 0 && close(number) != 0 && errno != EINTR ? errno : 0;
  }

 private:
  int number_ = -1;
};

/// Flags to open for reading that never wait, not even for a pipe or a device.
inline constexpr int kOpenToRead = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

}  // namespace platform
