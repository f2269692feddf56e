#include <algorithm>
#include <utility>

#include "platform/little_endian.h"
#include "toolkit/region.h"

namespace toolkit {
namespace {

/// Pieces that one operation may cut its rectangles into at band edges. An 800 x 600 picture with
/// every second pixel cut out has 240,000; a record that needs millions is no window's outline, and
/// taking it apart would hang the program.
constexpr std::size_t kMostPieces = 2'000'000;

constexpr std::uint32_t kRecordHeaderBytes = 32;
constexpr std::uint32_t kRectangles = 1;  // RDH_RECTANGLES
constexpr std::size_t kRectBytes = 16;

/// Left and right of a run of pixels, the right one exclusive.
using Span = std::pair<int, int>;
using Spans = std::vector<Span>;

bool IsEmpty(const Rect& rect) { return rect.left >= rect.right || rect.top >= rect.bottom; }

/// Collects bands from top to bottom, and joins one to the band above when both touch and hold the
/// same spans.
class BandWriter {
 public:
  void Append(int top, int bottom, const Spans& spans) {
    if (spans.empty()) {
      return;
    }
    if (ContinuesLastBand(top, spans)) {
      std::for_each(LastBand(), rects_.end(), [bottom](Rect& rect) { rect.bottom = bottom; });
      return;
    }
    last_band_ = rects_.size();
    for (const auto& [left, right] : spans) {
      rects_.push_back({left, top, right, bottom});
    }
  }

  /// Bands that are known to join neither the ones above nor each other.
  void AppendWhole(std::span<const Rect> bands) {
    if (bands.empty()) {
      return;
    }
    rects_.insert(rects_.end(), bands.begin(), bands.end());
    const int top = bands.back().top;
    last_band_ = static_cast<std::size_t>(
        std::ranges::partition_point(rects_, [top](const Rect& r) { return r.top < top; }) -
        rects_.begin());
  }

  std::vector<Rect> Take() { return std::move(rects_); }

 private:
  std::vector<Rect>::iterator LastBand() {
    return rects_.begin() + static_cast<std::ptrdiff_t>(last_band_);
  }

  bool ContinuesLastBand(int top, const Spans& spans) {
    return !rects_.empty() && rects_.back().bottom == top &&
           std::equal(LastBand(), rects_.end(), spans.begin(), spans.end(),
                      [](const Rect& rect, const Span& span) {
                        return rect.left == span.first && rect.right == span.second;
                      });
  }

  std::vector<Rect> rects_;
  std::size_t last_band_ = 0;
};

/// Where bands may begin and end: every top and bottom, each once, in order.
void AddEdges(std::span<const Rect> rects, std::vector<int>& edges) {
  for (const Rect& rect : rects) {
    edges.push_back(rect.top);
    edges.push_back(rect.bottom);
  }
  std::ranges::sort(edges);
  edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
}

std::size_t EdgeIndex(const std::vector<int>& edges, int y) {
  return static_cast<std::size_t>(std::ranges::lower_bound(edges, y) - edges.begin());
}

/// The spans of the rectangles in each strip between two edges, sorted and joined. Empty optional
/// when that takes too many pieces.
std::optional<std::vector<Spans>> CutAtEdges(std::span<const Rect> rects,
                                             const std::vector<int>& edges) {
  std::vector<Spans> strips(edges.empty() ? 0 : edges.size() - 1);
  std::size_t pieces = 0;
  for (const Rect& rect : rects) {
    const std::size_t end = EdgeIndex(edges, rect.bottom);
    for (std::size_t strip = EdgeIndex(edges, rect.top); strip < end; ++strip) {
      if (++pieces > kMostPieces) {
        return {};
      }
      strips[strip].emplace_back(rect.left, rect.right);
    }
  }
  for (Spans& spans : strips) {
    std::ranges::sort(spans);
    Spans joined;
    for (const Span& span : spans) {
      if (joined.empty() || span.first > joined.back().second) {
        joined.push_back(span);
      } else {
        joined.back().second = std::max(joined.back().second, span.second);
      }
    }
    spans = std::move(joined);
  }
  return strips;
}

Spans Subtract(const Spans& from, const Spans& holes) {
  Spans rest;
  auto hole = holes.begin();
  for (auto [left, right] : from) {
    while (hole != holes.end() && hole->second <= left) {
      ++hole;
    }
    for (auto cut = hole; cut != holes.end() && cut->first < right && left < right; ++cut) {
      if (cut->first > left) {
        rest.emplace_back(left, cut->first);
      }
      left = cut->second;
    }
    if (left < right) {
      rest.emplace_back(left, right);
    }
  }
  return rest;
}

/// Any rectangles as the bands of one region.
HRGN Unite(std::span<const Rect> rects) {
  std::vector<int> edges;
  AddEdges(rects, edges);
  const auto strips = CutAtEdges(rects, edges);
  if (!strips) {
    return {};
  }
  BandWriter writer;
  for (std::size_t i = 0; i < strips->size(); ++i) {
    writer.Append(edges[i], edges[i + 1], (*strips)[i]);
  }
  return Region(writer.Take());
}

/// The bands below a changed part: the first may continue the last band above it.
void AppendBelow(BandWriter& writer, std::span<const Rect> bands) {
  const auto next_band =
      std::ranges::find_if(bands, [&](const Rect& r) { return r.top != bands.front().top; });
  const std::span<const Rect> first(bands.begin(), next_band);
  Spans spans;
  for (const Rect& rect : first) {
    spans.emplace_back(rect.left, rect.right);
  }
  if (!first.empty()) {
    writer.Append(first.front().top, first.front().bottom, spans);
  }
  writer.AppendWhole({next_band, bands.end()});
}

/// Appends what is left of some bands. False when that takes too many pieces.
bool AppendRest(BandWriter& writer, std::span<const Rect> bands, std::span<const Rect> holes) {
  std::vector<int> edges;
  AddEdges(bands, edges);
  AddEdges(holes, edges);
  const auto kept_strips = CutAtEdges(bands, edges);
  const auto hole_strips = CutAtEdges(holes, edges);
  if (!kept_strips || !hole_strips) {
    return false;
  }
  for (std::size_t i = 0; i < kept_strips->size(); ++i) {
    writer.Append(edges[i], edges[i + 1], Subtract((*kept_strips)[i], (*hole_strips)[i]));
  }
  return true;
}

/// Only the bands that the second region reaches are taken apart: a shape scanned from a picture
/// subtracts thousands of rows one by one.
HRGN Difference(const Region& first, const Region& second) {
  const std::span<const Rect> all = first.Rects();
  const Rect reach = second.Bounds();
  const auto begin =
      std::ranges::partition_point(all, [&](const Rect& r) { return r.bottom <= reach.top; });
  const auto end =
      std::ranges::partition_point(all, [&](const Rect& r) { return r.top < reach.bottom; });
  if (second.Rects().empty() || begin >= end) {
    return first;
  }
  BandWriter writer;
  writer.AppendWhole({all.begin(), begin});
  if (!AppendRest(writer, {begin, end}, second.Rects())) {
    return {};
  }
  AppendBelow(writer, {end, all.end()});
  return Region(writer.Take());
}

int Cut(std::int32_t coordinate) { return std::clamp<int>(coordinate, -32768, 32767); }

Rect ReadRect(std::span<const std::byte> data, std::size_t at) {
  return {Cut(platform::ReadLittle<std::int32_t>(data, at)),
          Cut(platform::ReadLittle<std::int32_t>(data, at + 4)),
          Cut(platform::ReadLittle<std::int32_t>(data, at + 8)),
          Cut(platform::ReadLittle<std::int32_t>(data, at + 12))};
}

void AppendRect(std::vector<std::byte>& data, const Rect& rect) {
  for (const std::int32_t side : {rect.left, rect.top, rect.right, rect.bottom}) {
    platform::AppendLittle(data, side);
  }
}

}  // namespace

Rect Region::Bounds() const {
  if (rects_.empty()) {
    return {};
  }
  Rect bounds = rects_.front();
  bounds.bottom = rects_.back().bottom;
  for (const Rect& rect : rects_) {
    bounds.left = std::min(bounds.left, rect.left);
    bounds.right = std::max(bounds.right, rect.right);
  }
  return bounds;
}

bool Region::Contains(int x, int y) const {
  auto rect = std::ranges::partition_point(rects_, [y](const Rect& r) { return r.bottom <= y; });
  for (; rect != rects_.end() && rect->top <= y; ++rect) {
    if (x >= rect->left && x < rect->right) {
      return true;
    }
  }
  return false;
}

HRGN CreateRectRgn(int left, int top, int right, int bottom) {
  const Rect rect{std::min(left, right), std::min(top, bottom), std::max(left, right),
                  std::max(top, bottom)};
  return IsEmpty(rect) ? Region() : Region({rect});
}

bool CombineRgn(HRGN& target, const HRGN& first, const HRGN& second, int mode) {
  if (!first || !second || mode != RGN_DIFF) {
    return false;
  }
  HRGN difference = Difference(*first, *second);
  if (!difference) {
    return false;
  }
  target = std::move(difference);
  return true;
}

std::vector<std::byte> GetRegionData(const HRGN& region) {
  if (!region) {
    return {};
  }
  const std::vector<Rect>& rects = region->Rects();
  const auto rect_bytes = static_cast<std::uint32_t>(rects.size() * kRectBytes);
  std::vector<std::byte> data;
  data.reserve(kRecordHeaderBytes + rect_bytes);
  for (const std::uint32_t field :
       {kRecordHeaderBytes, kRectangles, static_cast<std::uint32_t>(rects.size()), rect_bytes}) {
    platform::AppendLittle(data, field);
  }
  AppendRect(data, region->Bounds());
  for (const Rect& rect : rects) {
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
  std::vector<Rect> rects;
  rects.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const Rect rect = ReadRect(data, kRecordHeaderBytes + i * kRectBytes);
    if (!IsEmpty(rect)) {
      rects.push_back(rect);
    }
  }
  return Unite(rects);
}

}  // namespace toolkit
