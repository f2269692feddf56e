#include "toolkit/window_events.h"

#include <QCloseEvent>
#include <QEvent>
#include <QMouseEvent>
#include <algorithm>
#include <array>
#include <cmath>

#include "toolkit/forms_shown.h"
#include "toolkit/handlers.h"
#include "toolkit/native_window.h"

namespace toolkit {

namespace {

PointerState pointer_state;

std::int16_t Buttons(Qt::MouseButtons held) {
  int sum = kNoButton;
  sum += held.testFlag(Qt::LeftButton) ? kLeftButton : 0;
  sum += held.testFlag(Qt::RightButton) ? kRightButton : 0;
  sum += held.testFlag(Qt::MiddleButton) ? kMiddleButton : 0;
  return static_cast<std::int16_t>(sum);
}

MouseEvent ToMouseEvent(const QMouseEvent& event, std::int16_t button) {
  return {button, static_cast<int>(std::floor(event.position().x())),
          static_cast<int>(std::floor(event.position().y()))};
}

/// These act on the mouse themselves and run Click and DblClick in their own way.
bool ActsByItself(const NativeWindow& window) {
  constexpr std::array kKinds{ControlKind::kCheckBox, ControlKind::kComboBox, ControlKind::kListBox,
                              ControlKind::kTextBox};
  return std::find(kKinds.begin(), kKinds.end(), window.control->Kind()) != kKinds.end();
}

/// A label without handlers is a part of its container for the mouse.
bool LetsMouseThrough(const Control& control) {
  return control.Kind() == ControlKind::kLabel && !control.MouseDown && !control.MouseMove &&
         !control.MouseUp && !control.Click && !control.DblClick;
}

void OnPress(NativeWindow& window, const QMouseEvent& event, std::int16_t button) {
  window.pressed = static_cast<std::int16_t>(window.pressed | button);
  window.click_pending = button == kLeftButton;
  Call(window.control->MouseDown, ToMouseEvent(event, button));
}

/// Without a DblClick handler a fast second press is a press like the first.
void OnDoublePress(NativeWindow& window, const QMouseEvent& event, std::int16_t button) {
  if (button != kLeftButton || !window.control->DblClick || ActsByItself(window)) {
    OnPress(window, event, button);
    return;
  }
  window.pressed = static_cast<std::int16_t>(window.pressed | button);
  window.click_pending = false;
  Call(window.control->DblClick);
}

/// A release whose press was thrown away, or was another window's, is ignored.
void OnRelease(NativeWindow& window, const QMouseEvent& event, std::int16_t button) {
  if ((window.pressed & button) == 0) {
    return;
  }
  window.pressed = static_cast<std::int16_t>(window.pressed & ~button);
  const MouseEvent place = ToMouseEvent(event, button);
  const bool click = button == kLeftButton && window.click_pending && !ActsByItself(window) &&
                     VisibleRect(*window.widget).contains(place.x, place.y);
  const std::weak_ptr<char> alive = window.alive;
  Call(window.control->MouseUp, place);
  if (click && !alive.expired()) {
    window.click_pending = false;
    Call(window.control->Click);
  }
}

/// The toolkit reports no leaving while a button is held: the moves outside show it.
void LeaveWhereOutside() {
  for (NativeWindow* window : AllWindows()) {
    if (IsWindow(window) && window->leave_armed &&
        !VisibleRect(*window->widget)
             .contains(window->widget->mapFromGlobal(pointer_state.position))) {
      DeliverLeave(*window);
    }
  }
}

void Dispatch(NativeWindow& window, const QMouseEvent& event) {
  const std::int16_t button = Buttons(event.button());
  switch (event.type()) {
    case QEvent::MouseButtonPress:
      return OnPress(window, event, button);
    case QEvent::MouseButtonDblClick:
      return OnDoublePress(window, event, button);
    case QEvent::MouseButtonRelease:
      return OnRelease(window, event, button);
    default:
      Call(window.control->MouseMove, ToMouseEvent(event, Buttons(event.buttons())));
  }
}

void NotePointer(const QWidget& widget, const QMouseEvent& event) {
  pointer_state.position = event.globalPosition().toPoint();
  if (event.type() == QEvent::MouseButtonPress) {
    pointer_state.grip = pointer_state.position - widget.window()->pos();
  }
}

/// Returns true to keep the event from the widget itself.
bool OnMouse(NativeWindow& window, QMouseEvent& event) {
  NotePointer(*window.widget, event);
  if (LetsMouseThrough(*window.control)) {
    event.ignore();
    return true;
  }
  const bool by_itself = ActsByItself(window);
  const std::weak_ptr<char> alive = window.alive;
  Dispatch(window, event);
  if (event.type() == QEvent::MouseMove && event.buttons() != Qt::NoButton) {
    LeaveWhereOutside();
  }
  event.accept();
  return !by_itself || alive.expired();
}

/// The window manager, or the user by way of it, moved or sized the window.
void Follow(NativeWindow& form) {
  const QRect real = form.widget->geometry();
  if (real.left() != Pixels(form.place.left) || real.top() != Pixels(form.place.top)) {
    form.place.left = Twips(real.left());
    form.place.top = Twips(real.top());
  }
  if (real.width() != Pixels(form.place.width) || real.height() != Pixels(form.place.height)) {
    form.place.width = Twips(real.width());
    form.place.height = Twips(real.height());
    NotifyResize(form);
  }
}

void OnClose(NativeWindow& form) {
  if (!AwaitingWindow()) {
    Call(static_cast<Form*>(form.control)->QueryUnload);
  }
}

/// Returns true to keep the event from the form's widget.
bool OnFormEvent(NativeWindow& form, QEvent& event) {
  switch (event.type()) {
    case QEvent::Close:
      event.ignore();
      OnClose(form);
      return true;
    case QEvent::WindowActivate:
      NoteActivation(form);
      return false;
    case QEvent::Move:
    case QEvent::Resize:
      if (form.widget->isVisible()) {
        Follow(form);
      }
      return false;
    default:
      return false;
  }
}

class WindowEvents : public QObject {
 public:
  bool eventFilter(QObject* object, QEvent* event) override {
    NativeWindow* window = NativeOf(static_cast<QWidget*>(object));
    return window != nullptr && window->control != nullptr && OnEvent(*window, *event);
  }

 private:
  static bool OnEvent(NativeWindow& window, QEvent& event) {
    switch (event.type()) {
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonDblClick:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseMove:
        return OnMouse(window, static_cast<QMouseEvent&>(event));
      case QEvent::Leave:
      case QEvent::Hide:
        DeliverLeave(window);
        return false;
      default:
        return window.form_state != nullptr && OnFormEvent(window, event);
    }
  }
};

}  // namespace

void WatchEvents(QWidget& widget) {
  static WindowEvents events;
  widget.installEventFilter(&events);
}

const PointerState& LastPointer() { return pointer_state; }

}  // namespace toolkit
