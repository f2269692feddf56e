#include "Sprite.h"

namespace demo {

namespace {

/// Premultiplied colour and alpha, interpolated between the pixels; clear outside.
Sample Between(const Canvas& canvas, float x, float y) {
  const int x0 = Floor(x);
  const int y0 = Floor(y);
  Sample sum{{}, 0.0F};
  for (int n = 0; n < 4; ++n) {
    const int column = x0 + n % 2;
    const int row = y0 + n / 2;
    if (column < 0 || row < 0 || column >= canvas.width || row >= canvas.height) {
      continue;
    }
    const std::size_t at = canvas.Place(column, row);
    const float share =
        canvas.alpha[at] * (1.0F - std::abs(x - F(column))) * (1.0F - std::abs(y - F(row)));
    sum.color += canvas.color[at] * share;
    sum.alpha += share;
  }
  return sum;
}

}  // namespace

Sprite::Sprite(const Texture& sheet, const SheetCell& cell) {
  Canvas whole(cell.width, cell.height);
  for (int y = 0; y < cell.height; ++y) {
    for (int x = 0; x < cell.width; ++x) {
      const Sample sample = sheet.At(cell.left + x, cell.top + y);
      whole.color[whole.Place(x, y)] = sample.color;
      whole.alpha[whole.Place(x, y)] = sample.alpha;
    }
  }
  sizes_.push_back(std::move(whole));
  while (sizes_.back().height > 8) {
    sizes_.push_back(Halve(sizes_.back()));
  }
}

void Sprite::Draw(Canvas& canvas, float x, float y, float width, const Haze& haze) const {
  std::size_t size = 0;
  while (size + 1 < sizes_.size() && F(sizes_[size].width) > width * 1.5F) {
    ++size;
  }
  const Canvas& picture = sizes_[size];
  const float step = F(picture.width) / width;
  const float height = width / Aspect();
  const int last_row = std::min(canvas.height - 1, Floor(y + height));
  const int last_column = std::min(canvas.width - 1, Floor(x + width));
  for (int row = std::max(0, Floor(y)); row <= last_row; ++row) {
    for (int column = std::max(0, Floor(x)); column <= last_column; ++column) {
      const Sample sample =
          Between(picture, (F(column) + 0.5F - x) * step - 0.5F, (F(row) + 0.5F - y) * step - 0.5F);
      Color& pixel = canvas.color[canvas.Place(column, row)];
      pixel =
          pixel * (1.0F - sample.alpha) + Mix(sample.color, haze.color * sample.alpha, haze.share);
    }
  }
}

}  // namespace demo
