#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/gdi.h"

namespace platform {
namespace {

/// One direction of a copy, clipped to both bitmaps: source[i] is the source's pixel for the
/// target's pixel first + i.
struct Axis {
  std::size_t first = 0;
  std::vector<std::size_t> source;
};

/// The n-th pixel of the target's length takes the source's pixel n * source_size / target_size.
Axis ClipAxis(std::int64_t target, std::int64_t target_size, std::int64_t target_end,
              std::int64_t source, std::int64_t source_size, std::int64_t source_end) {
  Axis axis;
  const std::int64_t from = std::max<std::int64_t>(0, -target);
  const std::int64_t to = std::min(target_size, target_end - target);
  for (std::int64_t n = from; n < to; ++n) {
    const std::int64_t pixel = source + n * source_size / target_size;
    if (pixel < 0 || pixel >= source_end) {
      continue;
    }
    if (axis.source.empty()) {
      axis.first = static_cast<std::size_t>(target + n);
    }
    axis.source.push_back(static_cast<std::size_t>(pixel));
  }
  return axis;
}

/// Finds the nearest entry of a colour table, the lowest index of equal ones. Remembers the latest
/// answer, since neighbours in a picture are often alike.
class ColorMatcher {
 public:
  explicit ColorMatcher(const std::array<RGBQuad, 256>& table) : table_(table) {}

  std::uint8_t Nearest(const RGBQuad& color) {
    if (!known_ || color != latest_) {
      latest_ = color;
      known_ = true;
      const auto distance = [&](const RGBQuad& entry) { return Distance(entry, color); };
      answer_ = static_cast<std::uint8_t>(
          std::ranges::distance(table_.begin(), std::ranges::min_element(table_, {}, distance)));
    }
    return answer_;
  }

 private:
  static int Distance(const RGBQuad& a, const RGBQuad& b) {
    const int blue = a.blue - b.blue;
    const int green = a.green - b.green;
    const int red = a.red - b.red;
    return blue * blue + green * green + red * red;
  }

  const std::array<RGBQuad, 256>& table_;
  RGBQuad latest_;
  bool known_ = false;
  std::uint8_t answer_ = 0;
};

RGBQuad ColorAt(const Bitmap& bitmap, std::size_t x, std::size_t y) {
  const std::uint8_t* row = bitmap.bits.data() + y * bitmap.stride;
  if (bitmap.bit_count == 8) {
    return bitmap.colors[row[x]];
  }
  const std::uint8_t* pixel = row + x * (static_cast<unsigned>(bitmap.bit_count) / 8);
  return {pixel[0], pixel[1], pixel[2], 0};
}

/// Copies runs of pixels of one row to a bitmap of 8 or 24 bits.
class RowCopier {
 public:
  RowCopier(Bitmap& target, const Bitmap& source)
      : target_(target),
        source_(source),
        pixel_bytes_(static_cast<unsigned>(target.bit_count) / 8),
        same_format_(target.bit_count == source.bit_count &&
                     (target.bit_count != 8 || target.colors == source.colors)),
        matcher_(target.colors) {
    if (target.bit_count == 8 && source.bit_count == 8) {
      std::ranges::transform(source.colors, index_map_.begin(),
                             [this](const RGBQuad& color) { return matcher_.Nearest(color); });
    }
  }

  void Copy(std::size_t target_y, std::size_t source_y, const Axis& axis, bool scaled) {
    std::uint8_t* out = target_.bits.data() + target_y * target_.stride + axis.first * pixel_bytes_;
    const std::uint8_t* row = source_.bits.data() + source_y * source_.stride;
    if (same_format_ && !scaled) {
      std::memcpy(out, row + axis.source.front() * pixel_bytes_, axis.source.size() * pixel_bytes_);
      return;
    }
    for (const std::size_t x : axis.source) {
      if (same_format_) {
        std::memcpy(out, row + x * pixel_bytes_, pixel_bytes_);
      } else {
        Convert(out, row, x, source_y);
      }
      out += pixel_bytes_;
    }
  }

 private:
  void Convert(std::uint8_t* out, const std::uint8_t* row, std::size_t x, std::size_t y) {
    if (pixel_bytes_ == 1 && source_.bit_count == 8) {
      out[0] = index_map_[row[x]];
      return;
    }
    const RGBQuad color = ColorAt(source_, x, y);
    if (pixel_bytes_ == 1) {
      out[0] = matcher_.Nearest(color);
      return;
    }
    out[0] = color.blue;
    out[1] = color.green;
    out[2] = color.red;
  }

  Bitmap& target_;
  const Bitmap& source_;
  std::size_t pixel_bytes_;
  bool same_format_;
  ColorMatcher matcher_;
  std::array<std::uint8_t, 256> index_map_{};  ///< target's entry for each of the source's
};

/// The table of an 8-bit context from entry `start`; empty if it has none.
std::span<RGBQuad> TableFrom(const HDC& dc, unsigned start) {
  if (!dc || !dc->bitmap || dc->bitmap->bit_count != 8 || start >= dc->bitmap->colors.size()) {
    return {};
  }
  return std::span(dc->bitmap->colors).subspan(start);
}

}  // namespace

bool StretchBlt(const HDC& target, int x, int y, int width, int height, const HDC& source,
                int source_x, int source_y, int source_width, int source_height,
                std::uint32_t operation) {
  if (!target || !target->bitmap || !source || !source->bitmap || operation != SRCCOPY ||
      width < 1 || height < 1 || source_width < 1 || source_height < 1 ||
      target->bitmap->bit_count == 32 || target->bitmap == source->bitmap) {
    return false;
  }
  Bitmap& to = *target->bitmap;
  const Bitmap& from = *source->bitmap;
  const Axis columns = ClipAxis(x, width, to.width, source_x, source_width, from.width);
  const Axis rows = ClipAxis(y, height, to.height, source_y, source_height, from.height);
  if (columns.source.empty()) {
    return true;
  }
  RowCopier copier(to, from);
  for (std::size_t i = 0; i < rows.source.size(); ++i) {
    copier.Copy(rows.first + i, rows.source[i], columns, width != source_width);
  }
  return true;
}

int GetDIBits(const HDC& dc, const HBITMAP& bitmap, unsigned start, unsigned lines,
              std::span<std::uint8_t> pixels, BitmapInfo& info) {
  if (!dc || !bitmap || info.header.bit_count != bitmap->bit_count ||
      info.header.width != bitmap->width || info.header.height != bitmap->height || start != 0 ||
      std::cmp_not_equal(lines, bitmap->height) || pixels.size() < bitmap->bits.size()) {
    return 0;
  }
  const std::size_t stride = bitmap->stride;
  for (std::size_t row = 0; row < lines; ++row) {
    std::memcpy(pixels.data() + row * stride, bitmap->bits.data() + (lines - 1 - row) * stride,
                stride);
  }
  info.header.size_image = static_cast<std::uint32_t>(bitmap->bits.size());
  if (bitmap->bit_count == 8) {
    info.colors = bitmap->colors;
  }
  return bitmap->height;
}

unsigned GetDIBColorTable(const HDC& dc, unsigned start, std::span<RGBQuad> colors) {
  const std::span<RGBQuad> table = TableFrom(dc, start);
  const std::size_t count = std::min(table.size(), colors.size());
  std::ranges::copy(table.first(count), colors.begin());
  return static_cast<unsigned>(count);
}

unsigned SetDIBColorTable(const HDC& dc, unsigned start, std::span<const RGBQuad> colors) {
  const std::span<RGBQuad> table = TableFrom(dc, start);
  const std::size_t count = std::min(table.size(), colors.size());
  std::ranges::copy(colors.first(count), table.begin());
  return static_cast<unsigned>(count);
}

ColorRef GetPixel(const HDC& dc, int x, int y) {
  if (!dc || !dc->bitmap || x < 0 || y < 0 || x >= dc->bitmap->width || y >= dc->bitmap->height) {
    return kInvalidColor;
  }
  const RGBQuad color =
      ColorAt(*dc->bitmap, static_cast<std::size_t>(x), static_cast<std::size_t>(y));
  return RGB(color.red, color.green, color.blue);
}

}  // namespace platform
