#pragma once

#include <QPoint>
#include <Qt>

class QWidget;

namespace toolkit {

/// Turns the toolkit's events of a window into the events of its control.
void WatchEvents(QWidget& widget);

/// The pointer as the latest mouse event of any window showed it.
struct PointerState {
  QPoint position;  ///< on the screen
  Qt::MouseButtons buttons;
};
const PointerState& LastPointer();

}  // namespace toolkit
