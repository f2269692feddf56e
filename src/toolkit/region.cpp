#include "toolkit/region.h"

#include <QRegion>
#include <algorithm>

#include "platform/little_endian.h"
#include "toolkit/paint_objects.h"

namespace toolkit {
namespace {

/// Pieces that a record's rectangles may be cut into at the edges of all the others. An 800 x 600
/// picture with every second pixel cut out has 240,000; a record that needs millions is no window's
/// outline, and taking it apart would hang the program.
constexpr std::size_t kMaxPieces = 2'000'000;

constexpr std::uint32_t kRecordHeaderBytes = 32;
constexpr std::uint32_t kRectangles = 1;  // RDH_RECTANGLES
constexpr std::size_t kRectBytes = 16;

QRect ToRect(const Rect& rect) {
  return {QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1)};
}

HRGN NewRegion(QRegion pixels) { return std::make_shared<Region>(Region{std::move(pixels)}); }

/// Every top and bottom, each once, in order.
std::vector<int> EdgesOf(std::span<const QRect> rects) {
  std::vector<int> edges;
  for (const QRect& rect : rects) {
    edges.push_back(rect.top());
    edges.push_back(rect.bottom() + 1);
  }
  std::ranges::sort(edges);
  edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
  return edges;
}

bool FallsIntoTooManyPieces(std::span<const QRect> rects) {
  const std::vector<int> edges = EdgesOf(rects);
  const auto index = [&edges](int y) { return std::ranges::lower_bound(edges, y) - edges.begin(); };
  std::size_t pieces = 0;
  for (const QRect& rect : rects) {
    pieces += static_cast<std::size_t>(index(rect.bottom() + 1) - index(rect.top()));
    if (pieces > kMaxPieces) {
      return true;
    }
  }
  return false;
}

/// In halves, so that thousands of rectangles don't each copy all that came before.
QRegion Unite(std::span<const QRect> rects) {
  if (rects.size() < 2) {
    return rects.empty() ? QRegion() : QRegion(rects.front());
  }
  const std::size_t half = rects.size() / 2;
  return Unite(rects.first(half)).united(Unite(rects.subspan(half)));
}

int Cut(std::int32_t coordinate) { return std::clamp<int>(coordinate, -32768, 32767); }

Rect ReadRect(std::span<const std::byte> data, std::size_t at) {
  return {Cut(platform::ReadLittle<std::int32_t>(data, at)),
          Cut(platform::ReadLittle<std::int32_t>(data, at + 4)),
          Cut(platform::ReadLittle<std::int32_t>(data, at + 8)),
          Cut(platform::ReadLittle<std::int32_t>(data, at + 12))};
}

void AppendRect(std::vector<std::byte>& data, const QRect& rect) {
  for (const std::int32_t side : {rect.left(), rect.top(), rect.right() + 1, rect.bottom() + 1}) {
    platform::AppendLittle(data, side);
  }
}

}  // namespace

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
  return NewRegion(ToRect({std::min(left, right), std::min(top, bottom), std::max(left, right),
                           std::max(top, bottom)}));
}

bool CombineRgn(HRGN& target, const HRGN& first, const HRGN& second, int mode) {
  if (!first || !second || mode != RGN_DIFF) {
    return false;
  }
  target = NewRegion(first->pixels.subtracted(second->pixels));
  return true;
}

bool RectInRegion(const HRGN& region, const Rect& rect) {
  return region != nullptr && region->pixels.intersects(ToRect(rect));
}

std::vector<std::byte> GetRegionData(const HRGN& region) {
  if (!region) {
    return {};
  }
  const auto count = static_cast<std::uint32_t>(region->pixels.rectCount());
  const auto rect_bytes = static_cast<std::uint32_t>(count * kRectBytes);
  std::vector<std::byte> data;
  data.reserve(kRecordHeaderBytes + rect_bytes);
  for (const std::uint32_t field : {kRecordHeaderBytes, kRectangles, count, rect_bytes}) {
    platform::AppendLittle(data, field);
  }
  AppendRect(data, region->pixels.boundingRect());
  for (const QRect& rect : region->pixels) {
    AppendRect(data, rect);
  }
  return data;
}

HRGN ExtCreateRegion(std::span<const std::byte> data) {
  if (data.size() < kRecordHeaderBytes ||
      platform::ReadLittle<std::uint32_t>(data, 0) != kRecordHeaderBytes ||
      platform::ReadLittle<std::uint32_t>(data, 4) != kRectangles) {
    return {};
  }
  const std::size_t count = platform::ReadLittle<std::uint32_t>(data, 8);
  if ((data.size() - kRecordHeaderBytes) / kRectBytes < count) {
    return {};
  }
  std::vector<QRect> rects;
  rects.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const QRect rect = ToRect(ReadRect(data, kRecordHeaderBytes + i * kRectBytes));
    if (rect.isValid()) {
      rects.push_back(rect);
    }
  }
  return FallsIntoTooManyPieces(rects) ? HRGN() : NewRegion(Unite(rects));
}

}  // namespace toolkit
