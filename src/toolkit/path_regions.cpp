#include <algorithm>
#include <cmath>
#include <vector>

#include "toolkit/gdiplus.h"
#include "toolkit/paint_objects.h"

namespace toolkit {
namespace {

/// Where a scan line meets an edge of the path, and which way the edge goes.
struct Crossing {
  double x;
  int turn;
};

/// Rounds a curve's point to 1/256 pixel, so that flattening a curve moves no point off a pixel's
/// centre.
QPointF Snap(const QPointF& point) {
  return {std::round(point.x() * 256) / 256, std::round(point.y() * 256) / 256};
}

/// Snapped, closed outlines of the path's figures.
std::vector<QPolygonF> Outlines(const QPainterPath& path) {
  std::vector<QPolygonF> outlines;
  for (QPolygonF polygon : path.toSubpathPolygons()) {
    std::transform(polygon.cbegin(), polygon.cend(), polygon.begin(), Snap);
    if (!polygon.isEmpty()) {
      polygon.append(polygon.front());
      outlines.push_back(std::move(polygon));
    }
  }
  return outlines;
}

/// Crossings of the centres of pixel row `y`, left to right. Each edge owns its upper end only.
std::vector<Crossing> CrossingsAt(int y, const std::vector<QPolygonF>& outlines) {
  std::vector<Crossing> crossings;
  for (const QPolygonF& outline : outlines) {
    for (qsizetype i = 1; i < outline.size(); ++i) {
      const QPointF a = outline[i - 1];
      const QPointF b = outline[i];
      if ((a.y() <= y) != (b.y() <= y)) {
        const double x = a.x() + (y - a.y()) * (b.x() - a.x()) / (b.y() - a.y());
        crossings.push_back({x, a.y() < b.y() ? 1 : -1});
      }
    }
  }
  std::sort(crossings.begin(), crossings.end(),
            [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
  return crossings;
}

/// The runs of pixels whose centres lie inside, appended as one row of rectangles.
void AppendRow(int y, const std::vector<Crossing>& crossings, Qt::FillRule rule,
               std::vector<QRect>& row) {
  int turns = 0;
  for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
    turns += rule == Qt::WindingFill ? crossings[i].turn : 1;
    const bool inside = rule == Qt::WindingFill ? turns != 0 : turns % 2 != 0;
    const int left = static_cast<int>(std::ceil(crossings[i].x));
    const int right = static_cast<int>(std::ceil(crossings[i + 1].x));
    if (!inside || left >= right) {
      continue;
    }
    if (!row.empty() && row.back().right() + 1 == left) {
      row.back().setRight(right - 1);
    } else {
      row.emplace_back(left, y, right - left, 1);
    }
  }
}

bool SameRuns(const std::vector<QRect>& band, const std::vector<QRect>& row) {
  return std::equal(band.begin(), band.end(), row.begin(), row.end(),
                    [](const QRect& a, const QRect& b) {
                      return a.left() == b.left() && a.right() == b.right();
                    });
}

/// The region of all pixels whose centre lies inside the path: left and upper edges belong to it,
/// right and lower ones don't.
QRegion PixelsInside(const QPainterPath& path) {
  const std::vector<QPolygonF> outlines = Outlines(path);
  const QRectF bounds = path.boundingRect();
  std::vector<QRect> banded;
  std::vector<QRect> band;
  const int end = static_cast<int>(std::floor(bounds.bottom())) + 1;
  for (int y = static_cast<int>(std::floor(bounds.top())); y <= end; ++y) {
    std::vector<QRect> row;
    AppendRow(y, CrossingsAt(y, outlines), path.fillRule(), row);
    if (!band.empty() && SameRuns(band, row)) {
      for (QRect& run : band) {
        run.setBottom(y);
      }
    } else {
      banded.insert(banded.end(), band.begin(), band.end());
      band = std::move(row);
    }
  }
  banded.insert(banded.end(), band.begin(), band.end());
  QRegion region;
  region.setRects(banded.data(), static_cast<int>(banded.size()));
  return region;
}

}  // namespace

Status GdipCreateRegionPath(const GpPath& path, GpRegion& region) {
  region.reset();
  if (path == nullptr) {
    return Status::InvalidParameter;
  }
  region = std::make_shared<Region>(Region{PixelsInside(path->path)});
  return Status::Ok;
}

}  // namespace toolkit
