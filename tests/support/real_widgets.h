#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <string_view>

/// The user's side of a window: real widgets found by the names of their controls, and presses that
/// take the whole way through the window system's queue, modality and implicit capture included.

inline QString ObjectName(std::string_view name) {
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

inline QWidget* FindWidget(std::string_view name) {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->objectName() == ObjectName(name)) {
      return widget;
    }
  }
  return nullptr;
}

/// Fails the test and gives a stray widget if no widget has that name.
inline QWidget& Widget(std::string_view name) {
  static QWidget stray;
  QWidget* found = FindWidget(name);
  EXPECT_NE(nullptr, found) << name;
  return found != nullptr ? *found : stray;
}

inline QPoint InWindow(const QWidget& widget, QPoint at) {
  return widget.mapTo(widget.window(), at);
}

inline void Press(QWidget& widget, QPoint at = {2, 2}, Qt::MouseButton button = Qt::LeftButton) {
  QTest::mousePress(widget.window()->windowHandle(), button, {}, InWindow(widget, at));
}
inline void Release(QWidget& widget, QPoint at = {2, 2}, Qt::MouseButton button = Qt::LeftButton) {
  QTest::mouseRelease(widget.window()->windowHandle(), button, {}, InWindow(widget, at));
}
inline void PressAndRelease(QWidget& widget, QPoint at = {2, 2}) {
  Press(widget, at);
  Release(widget, at);
}
inline void MoveTo(QWidget& widget, QPoint at) {
  QTest::mouseMove(widget.window()->windowHandle(), InWindow(widget, at));
}

/// Press, release, second press, release, close enough in time.
inline void DoublePress(QWidget& widget, QPoint at = {2, 2}) {
  QTest::mouseDClick(widget.window()->windowHandle(), Qt::LeftButton, {}, InWindow(widget, at));
}

inline QRgb PixelOf(QWidget& widget, int x, int y) { return widget.grab().toImage().pixel(x, y); }
