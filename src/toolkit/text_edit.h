#pragma once

#include <QFocusEvent>
#include <QMouseEvent>
#include <QShowEvent>
#include <QString>
#include <utility>

#include "toolkit/forms.h"
#include "toolkit/handlers.h"
#include "toolkit/native_window.h"

namespace toolkit {

/// What the two edit widgets of the toolkit have in common. Places are units of the raw text, in
/// which a line break is one unit.
struct EditText {
  virtual ~EditText() = default;
  virtual QString Raw() const = 0;
  virtual void SetRaw(const QString& raw) = 0;
  virtual int Caret() const = 0;
  virtual void Mark(int from, int to) = 0;
  virtual void Remove(int from, int to) = 0;
  /// Replaces characters that the field can't hold.
  virtual void Tidy() {}

  int limit = 0;         ///< stored characters; 0: none
  bool cutting = false;  ///< its text is being cut to the limit
};

/// An edit widget that runs the GotFocus and DblClick of its TextBox after it has acted on the
/// event itself: a press or a second click that sets the caret would undo what a handler selects.
template <class Base>
class EditWidget : public Base, public EditText {
 public:
  using Base::Base;

 protected:
  void showEvent(QShowEvent* event) override {
    if (!event->spontaneous()) {
      resting_ = false;
    }
    Base::showEvent(event);
  }

  void focusOutEvent(QFocusEvent* event) override {
    resting_ = IsAboutWindows(event->reason());
    Base::focusOutEvent(event);
  }

  void focusInEvent(QFocusEvent* event) override {
    Base::focusInEvent(event);
    const bool back = std::exchange(resting_, false) && IsAboutWindows(event->reason());
    if (event->reason() == Qt::MouseFocusReason) {
      focus_by_press_ = true;
    } else if (!back) {
      TellFocus();
    }
  }

  void mousePressEvent(QMouseEvent* event) override {
    Base::mousePressEvent(event);
    if (std::exchange(focus_by_press_, false)) {
      keep_selection_ = true;
      TellFocus();
    }
  }

  void mouseMoveEvent(QMouseEvent* event) override {
    if (!keep_selection_) {
      Base::mouseMoveEvent(event);
    }
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    keep_selection_ = false;
    Base::mouseReleaseEvent(event);
  }

  void mouseDoubleClickEvent(QMouseEvent* event) override {
    Base::mouseDoubleClickEvent(event);
    const NativeWindow* window = NativeOf(this);
    if (window != nullptr && event->button() == Qt::LeftButton && window->control->DblClick) {
      keep_selection_ = true;
      Call(window->control->DblClick);
    }
  }

 private:
  static bool IsAboutWindows(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
  }

  void TellFocus() {
    if (const NativeWindow* window = NativeOf(this); window != nullptr) {
      Call(static_cast<TextBox*>(window->control)->GotFocus);
    }
  }

  bool resting_ = false;         ///< lost the keyboard to another window
  bool focus_by_press_ = false;  ///< the press that brought the keyboard follows
  bool keep_selection_ = false;  ///< until the release, against a shaking hand
};

}  // namespace toolkit
