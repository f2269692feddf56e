#include "toolkit/surface.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "toolkit/pictures.h"

namespace toolkit {

namespace {

/// The bitmap's memory as an image, without a copy; the bitmap must outlive it.
QImage Wrap(platform::Bitmap& bitmap) {
  return {bitmap.bits.data(), bitmap.width, bitmap.height, static_cast<qsizetype>(bitmap.stride),
          QImage::Format_RGB32};
}

bool IsDrawable(const platform::Bitmap& bitmap) {
  return bitmap.bit_count == 32 && !bitmap.bits.empty();
}

QImage OverBackground(const QImage& picture, const QColor& background) {
  if (!picture.hasAlphaChannel()) {
    return picture;
  }
  QImage opaque(picture.size(), QImage::Format_RGB32);
  if (!opaque.isNull()) {
    opaque.fill(background);
    QPainter(&opaque).drawImage(0, 0, picture);
  }
  return opaque;
}

}  // namespace

Surface::Surface(QWidget* parent) : QWidget(parent), background_(240, 240, 240) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_NoSystemBackground);
}

QSize Surface::BitmapSize() const {
  return {std::clamp(width(), 1, kMaxPictureSide), std::clamp(height(), 1, kMaxPictureSide)};
}

platform::HBITMAP Surface::NewBitmap() const {
  const QSize size = BitmapSize();
  auto bitmap = std::make_shared<platform::Bitmap>();
  bitmap->width = size.width();
  bitmap->height = size.height();
  bitmap->bit_count = 32;
  bitmap->stride = static_cast<std::size_t>(size.width()) * 4;
  bitmap->bits.resize(bitmap->stride * static_cast<std::size_t>(size.height()));
  QImage image = Wrap(*bitmap);
  QPainter painter(&image);
  PaintBase(painter, image.rect());
  return bitmap;
}

platform::HDC Surface::Context() {
  if (context_ == nullptr) {
    context_ = std::make_shared<platform::DeviceContext>();
  }
  if (!HasBitmap()) {
    context_->bitmap = NewBitmap();
  }
  Fit();
  return context_;
}

void Surface::Fit() {
  if (!HasBitmap() || QSize(context_->bitmap->width, context_->bitmap->height) == BitmapSize()) {
    return;
  }
  const platform::HBITMAP old = context_->bitmap;
  const platform::HBITMAP fitted = NewBitmap();
  if (IsDrawable(*old)) {
    QImage image = Wrap(*fitted);
    QPainter(&image).drawImage(0, 0, Wrap(*old));
  }
  context_->bitmap = fitted;
}

void Surface::Reset() {
  if (HasBitmap() && IsDrawable(*context_->bitmap)) {
    QImage image = Wrap(*context_->bitmap);
    QPainter painter(&image);
    PaintBase(painter, image.rect());
  }
  update();
}

bool Surface::LoadPicture(std::string_view path) {
  platform::FileStatus status = platform::FileStatus::kOk;
  const QImage picture = toolkit::LoadPicture(path, status);
  if (picture.isNull()) {
    return false;
  }
  picture_ = OverBackground(picture, background_);
  Reset();
  return true;
}

void Surface::SetBackground(const QColor& color) {
  background_ = color;
  Reset();
}

void Surface::PaintBase(QPainter& painter, const QRect& area) const {
  if (!picture_.rect().contains(area)) {
    painter.fillRect(area, background_);
  }
  const QRect covered = area.intersected(picture_.rect());
  if (!covered.isEmpty()) {
    painter.drawImage(covered.topLeft(), picture_, covered);
  }
}

void Surface::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect area = event->rect();
  if (HasBitmap() && IsDrawable(*context_->bitmap)) {
    painter.drawImage(area.topLeft(), Wrap(*context_->bitmap), area);
  } else {
    PaintBase(painter, area);
  }
}

}  // namespace toolkit
