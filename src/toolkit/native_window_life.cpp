// How a native window comes into being and goes: the parts that need what is built on it.

#include <QEventLoop>

#include "toolkit/forms_shown.h"
#include "toolkit/handlers.h"
#include "toolkit/native_window.h"
#include "toolkit/window_events.h"

namespace toolkit {

namespace {

void LeaveForm(NativeWindow& window) {
  if (window.form != nullptr) {
    std::erase(window.form->form_state->controls, window.control);
  }
  if (window.form_state != nullptr) {
    for (const Control* control : window.form_state->controls) {
      control->hWnd()->form = nullptr;
    }
  }
}

/// Controls that outlive their container keep a widget of their own, out of sight.
void OrphanChildren(const NativeWindow& window) {
  for (NativeWindow* other : AllWindows()) {
    if (other->widget != nullptr && other->widget->parentWidget() == window.widget) {
      other->widget->setParent(nullptr);
    }
  }
}

void DisposeOfWidget(QWidget& widget) {
  widget.setObjectName(QString());
  widget.hide();
  if (HandlerScope::Active()) {
    widget.deleteLater();
  } else {
    delete &widget;
  }
}

}  // namespace

NativeWindow::NativeWindow(QWidget* made, NativeWindow* container, std::string_view window_name)
    : widget(made), name(window_name) {
  widget->setObjectName(QString::fromStdString(name));
  widget->setMouseTracking(true);
  Register(*made, *this);
  WatchEvents(*made);
  if (container != nullptr) {
    form = container->form_state != nullptr ? container : container->form;
    shown = true;
    widget->show();
  }
}

NativeWindow::~NativeWindow() {
  alive.reset();
  LeaveForm(*this);
  ForgetForm(*this);
  Unregister(*this);
  if (widget != nullptr) {
    OrphanChildren(*this);
    DisposeOfWidget(*widget);
  }
}

}  // namespace toolkit
