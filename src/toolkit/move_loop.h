#pragma once

class QWidget;

namespace toolkit {

/// Moves the widget's top-level window with the pointer until no button is held. Returns at once
/// when none is.
void RunMoveLoop(QWidget& widget);

}  // namespace toolkit
