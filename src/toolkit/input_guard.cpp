#include "toolkit/input_guard.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QThread>

#include "toolkit/forms.h"

namespace toolkit {

namespace {

constexpr int kRounds = 4;
constexpr int kRoundTime = 50;   // milliseconds at most, for events that are waiting
constexpr int kArrivalTime = 2;  // milliseconds, for events on their way from the window system

int guards = 0;

bool IsUserInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::Close:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::Drop:
      return true;
    default:
      return false;
  }
}

/// Drops the events of widgets, not those of their windows: there the toolkit records which buttons
/// are pressed, and has to see every release.
class Filter : public QObject {
 public:
  bool eventFilter(QObject* object, QEvent* event) override {
    if (guards == 0 || !object->isWidgetType() || !IsUserInput(event->type())) {
      return false;
    }
    event->setAccepted(event->type() != QEvent::Close);
    return true;
  }
};

void InstallFilter() {
  static Filter* filter = nullptr;
  static const QObject* application = nullptr;
  if (application != qApp) {
    filter = new Filter();
    filter->setParent(qApp);
    qApp->installEventFilter(filter);
    application = qApp;
  }
}

void DropWaiting() {
  for (int round = 0; round < kRounds; ++round) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, kRoundTime);
    QThread::msleep(kArrivalTime);
  }
  QCoreApplication::processEvents(QEventLoop::AllEvents, kRoundTime);
}

}  // namespace

InputGuard::InputGuard() {
  InstallFilter();
  ++guards;
}

InputGuard::~InputGuard() {
  if (guards == 1) {
    DropWaiting();
  }
  --guards;
}

GuardPause::GuardPause() : suspended_(guards) { guards = 0; }
GuardPause::~GuardPause() { guards = suspended_; }

}  // namespace toolkit
