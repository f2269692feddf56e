#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>
#include <string_view>

#include "platform/gdi.h"

namespace toolkit {

/// The widget of a container: paints the retained bitmap or, as long as nothing was drawn, the
/// picture over the background colour, so that a container without drawings costs no bitmap.
class Surface : public QWidget {
 public:
  explicit Surface(QWidget* parent);

  /// The drawing context, with a 32-bit bitmap of the widget's size. The context stays the same
  /// object for the widget's life; a new size gives it another bitmap.
  platform::HDC Context();
  /// Gives an existing bitmap the widget's size; what was drawn stays where both overlap.
  void Fit();
  /// Puts the picture and the background in place of what was drawn.
  void Reset();
  /// A translucent picture is laid over the background. False if the file is missing or is not a
  /// picture.
  bool LoadPicture(std::string_view path);
  bool HasPicture() const { return !picture_.isNull(); }
  void SetBackground(const QColor& color);

  /// Makes the window system's window without showing it or making its children native.
  void CreateWindow() { create(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool HasBitmap() const { return context_ != nullptr && context_->bitmap != nullptr; }
  QSize BitmapSize() const;
  platform::HBITMAP NewBitmap() const;
  void PaintBase(QPainter& painter, const QRect& area) const;

  platform::HDC context_;
  QImage picture_;
  QColor background_;
};

}  // namespace toolkit
