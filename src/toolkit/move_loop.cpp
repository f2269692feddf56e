#include "toolkit/move_loop.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include "toolkit/window_events.h"

namespace toolkit {

namespace {

constexpr int kCheckTime = 100;  // milliseconds between looks at a window that may have gone

/// Follows the pointer in place of the window below it, and eats the release that ends the move.
class Mover : public QObject {
 public:
  Mover(QWidget& window, QEventLoop& loop)
      : window_(&window), loop_(loop), grip_(LastPointer().position - window.pos()) {}

  bool eventFilter(QObject* object, QEvent* event) override {
    const bool mouse =
        event->type() == QEvent::MouseMove || event->type() == QEvent::MouseButtonRelease;
    if (!mouse || !object->isWidgetType()) {
      return false;
    }
    Follow(static_cast<const QMouseEvent&>(*event));
    event->accept();
    return true;
  }

  void Check() {
    if (window_ == nullptr || !window_->isVisible()) {
      loop_.quit();
    }
  }

 private:
  void Follow(const QMouseEvent& event) {
    if (window_ != nullptr && loop_.isRunning()) {
      window_->move(event.globalPosition().toPoint() - grip_);
    }
    if (!event.buttons().testFlag(Qt::LeftButton)) {
      loop_.quit();
    }
  }

  QPointer<QWidget> window_;
  QEventLoop& loop_;
  QPoint grip_;  ///< the pointer in the window
};

bool SystemMoves(QWidget& window) {
  return QGuiApplication::platformName().startsWith(QStringLiteral("wayland")) &&
         window.windowHandle() != nullptr && window.windowHandle()->startSystemMove();
}

}  // namespace

void RunMoveLoop(QWidget& widget) {
  QWidget& window = *widget.window();
  if (!window.isVisible() || !LastPointer().buttons.testFlag(Qt::LeftButton) ||
      SystemMoves(window)) {
    return;
  }
  QEventLoop loop;
  Mover mover(window, loop);
  QTimer check;
  QObject::connect(&check, &QTimer::timeout, &mover, [&mover] { mover.Check(); });
  check.start(kCheckTime);
  qApp->installEventFilter(&mover);
  loop.exec();
  qApp->removeEventFilter(&mover);
}

}  // namespace toolkit
