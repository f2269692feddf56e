#include <QApplication>
#include <QEventLoop>
#include <QIcon>
#include <QPixmap>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "toolkit/forms.h"
#include "toolkit/forms_shown.h"
#include "toolkit/input_guard.h"
#include "toolkit/native_window.h"
#include "toolkit/pictures.h"
#include "toolkit/surface.h"
#include "toolkit/window_events.h"

namespace toolkit {

namespace {

constexpr int kFirstWidth = 320;   // pixels, until the form's load sets its size
constexpr int kFirstHeight = 240;  // pixels

NativeWindow* NewForm(std::string_view name) {
  auto* surface = new Surface(nullptr);
  surface->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
  surface->setAttribute(Qt::WA_AlwaysShowToolTips);
  auto* window = new NativeWindow(surface, nullptr, name);
  window->form_state = std::make_unique<FormState>();
  return window;
}

QString ToText(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// Out of sight without ending what waits for it, so that it can come back as a dialog.
void PrepareModal(NativeWindow& form) {
  if (!IsTopLevel(form)) {
    SetParent(&form, nullptr);
  }
  if (form.widget->isVisible() && form.widget->windowModality() == Qt::NonModal) {
    form.widget->hide();
  }
  form.shown = true;
  DeliverLeavesOutside(form);
}

/// The loop of one ShowModal, known to the form so that hiding it ends the loop.
void RunModalLoop(NativeWindow& form) {
  const std::weak_ptr<char> alive = form.alive;
  QEventLoop loop;
  form.form_state->modal_loops.push_back(&loop);
  ShowTopLevel(form, Qt::ApplicationModal);
  loop.exec();
  if (!alive.expired()) {
    std::erase(form.form_state->modal_loops, &loop);
  }
}

/// Hides the dialog also if the loop ended because the program ends.
void LeaveModal(NativeWindow& form) {
  if (form.shown && form.form_state->modal_loops.empty() &&
      form.widget->windowModality() != Qt::NonModal) {
    HideForm(form);
  }
}

}  // namespace

Form::Form(std::string_view name) : Container(WindowOwner(NewForm(name))) {
  PlacePixels(0, 0, kFirstWidth, kFirstHeight);
}

void Form::SetCaption(std::string_view caption) {
  Native().widget->setWindowTitle(ToText(caption));
}

void Form::SetIconPicture(std::string_view path) {
  platform::FileStatus status = platform::FileStatus::kOk;
  const QImage picture = LoadPicture(path, status);
  if (!picture.isNull()) {
    Native().widget->setWindowIcon(QIcon(QPixmap::fromImage(picture)));
  }
}

void Form::CenterOnScreen() {
  SetLeft((Screen::Width() - Width()) / 2);
  SetTop((Screen::Height() - Height()) / 2);
}

void Form::Show() {
  if (Native().shown) {
    return;
  }
  Native().shown = true;
  if (IsTopLevel(Native())) {
    RequestShow(Native());
  } else {
    Native().widget->show();
  }
}

void Form::ShowModal() {
  NativeWindow& form = Native();
  const std::weak_ptr<char> alive = form.alive;
  const GuardPause answerable;
  PrepareModal(form);
  if (!alive.expired()) {
    RunModalLoop(form);
  }
  if (!alive.expired()) {
    LeaveModal(form);
  }
}

void Form::Hide() { HideForm(Native()); }

void Form::SetVisible(bool visible) {
  if (visible) {
    Show();
  } else {
    Hide();
  }
}

void Form::SetFocus() {
  QWidget& widget = *Native().widget;
  if (widget.window()->isVisible() && !widget.isActiveWindow()) {
    widget.activateWindow();
  }
  QWidget* inner = widget.focusWidget();
  const bool usable = inner != nullptr && inner->isVisibleTo(&widget) && inner->isEnabled();
  (usable ? inner : &widget)->setFocus();
}

void Form::Minimize() {
  if (IsTopLevel(Native()) && Native().shown) {
    Native().form_state->show_pending = false;
    Native().widget->showMinimized();
  }
}

void Form::Drag() {
  NativeWindow& form = Native();
  if ((form.pressed & kLeftButton) == 0 || !IsTopLevel(form)) {
    return;
  }
  QWindow* window = form.widget->windowHandle();
  if (window != nullptr && window->startSystemMove()) {
    form.pressed = kNoButton;  // the release goes to the window manager
  } else {
    form.widget->move(LastPointer().position - LastPointer().grip);
  }
}

const std::vector<Control*>& Form::Controls() const { return Native().form_state->controls; }

}  // namespace toolkit
