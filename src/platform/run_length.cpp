#include "platform/run_length.h"

#include <algorithm>
#include <cstdint>

#include "platform/gdi.h"

namespace platform {
namespace {

enum Escape : unsigned { kEndOfLine = 0, kEndOfBitmap = 1, kDelta = 2 };

/// Reads one code and keeps the place of the next pixel, which may lie outside the picture.
class RunReader {
 public:
  RunReader(std::span<const std::byte> code, unsigned depth, RowOrder order, Bitmap& bitmap)
      : code_(code),
        depth_(depth),
        order_(order),
        bitmap_(bitmap),
        width_(static_cast<std::size_t>(bitmap.width)),
        height_(static_cast<std::size_t>(bitmap.height)) {}

  bool Read() {
    while (!ended_ && y_ < height_) {
      if (code_.size() < 2) {
        return y_ + 1 == height_ && x_ >= width_;  // all that is missing is the end mark
      }
      const unsigned count = Take();
      const unsigned value = Take();
      if (count > 0) {
        Repeat(count, value);
      } else if (!Obey(value)) {
        return false;
      }
    }
    return true;
  }

 private:
  unsigned Take() {
    const auto byte = std::to_integer<unsigned>(code_.front());
    code_ = code_.subspan(1);
    return byte;
  }

  /// The pixel of even or odd number in a byte of code, the first of two in the higher bits.
  std::uint8_t Pixel(unsigned byte, std::size_t number) const {
    const unsigned value = depth_ == 8 ? byte : number % 2 == 0 ? byte >> 4U : byte & 0xFU;
    return static_cast<std::uint8_t>(value);
  }

  void Put(std::uint8_t pixel) {
    if (x_ < width_) {
      const std::size_t row = order_ == RowOrder::kTopDown ? y_ : height_ - 1 - y_;
      bitmap_.bits[row * bitmap_.stride + x_] = pixel;
    }
    ++x_;
  }

  void Repeat(unsigned count, unsigned byte) {
    for (std::size_t i = 0; i < count; ++i) {
      Put(Pixel(byte, i));
    }
  }

  bool Obey(unsigned escape) {
    switch (escape) {
      case kEndOfLine:
        x_ = 0;
        ++y_;
        return true;
      case kEndOfBitmap:
        ended_ = true;
        return true;
      case kDelta:
        return Move();
      default:
        return Copy(escape);
    }
  }

  bool Move() {
    if (code_.size() < 2) {
      return false;
    }
    x_ += Take();
    y_ += Take();
    return true;
  }

  /// `count` pixels as they are, filled up to a whole number of 16-bit words.
  bool Copy(std::size_t count) {
    const std::size_t words = (count * depth_ + 15) / 16;
    if (code_.size() < words * 2) {
      return false;
    }
    for (std::size_t i = 0; i < count; ++i) {
      Put(Pixel(std::to_integer<unsigned>(code_[i * depth_ / 8]), i));
    }
    code_ = code_.subspan(words * 2);
    return true;
  }

  std::span<const std::byte> code_;
  unsigned depth_;
  RowOrder order_;
  Bitmap& bitmap_;
  std::size_t width_;
  std::size_t height_;
  std::size_t x_ = 0;
  std::size_t y_ = 0;  ///< in the order of the file
  bool ended_ = false;
};

}  // namespace

bool DecodeRuns(std::span<const std::byte> code, unsigned depth, RowOrder order, Bitmap& bitmap) {
  return RunReader(code, depth, order, bitmap).Read();
}

}  // namespace platform
