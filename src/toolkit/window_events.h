#pragma once

#include <QPoint>

class QWidget;

namespace toolkit {

/// Turns the toolkit's events of a window into the events of its control.
void WatchEvents(QWidget& widget);

/// The pointer as the latest mouse event of any window showed it.
struct PointerState {
  QPoint position;  ///< on the screen
  QPoint grip;      ///< of the latest press, in its top-level window
};
const PointerState& LastPointer();

}  // namespace toolkit
