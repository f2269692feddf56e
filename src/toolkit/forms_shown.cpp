#include "toolkit/forms_shown.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <algorithm>

#include "toolkit/surface.h"

namespace toolkit {

namespace {

constexpr int kLongestExposureWait = 1000;  // milliseconds

/// Top-level forms that were active, the latest last.
std::vector<NativeWindow*>& Activations() {
  static std::vector<NativeWindow*> activations;
  return activations;
}

int waits = 0;

bool CanOwn(const NativeWindow& owner, const NativeWindow& form) {
  return &owner != &form && owner.widget->isVisible() && IsTopLevel(owner) &&
         owner.form_state->modal_loops.empty() && owner.widget->windowHandle() != nullptr;
}

QWindow* OwnerFor(const NativeWindow& form) {
  const auto& active = Activations();
  const auto found = std::find_if(active.rbegin(), active.rend(),
                                  [&form](const auto* owner) { return CanOwn(*owner, form); });
  return found == active.rend() ? nullptr : (*found)->widget->windowHandle();
}

/// Window managers keep a window above the one it belongs to.
void AttachToOwner(NativeWindow& form) {
  static_cast<Surface*>(form.widget.data())->CreateWindow();
  QWindow* owner = OwnerFor(form);
  for (const QWindow* above = owner; above != nullptr; above = above->transientParent()) {
    if (above == form.widget->windowHandle()) {
      return;
    }
  }
  form.widget->windowHandle()->setTransientParent(owner);
}

/// Windows that opened above the hidden one no longer depend on it.
void ReleaseOwned(const QWindow* hidden) {
  for (const NativeWindow* other : AllWindows()) {
    QWindow* window = other->widget->windowHandle();
    if (hidden != nullptr && window != nullptr && window->transientParent() == hidden) {
      window->setTransientParent(nullptr);
    }
  }
}

/// Otherwise the toolkit gives the focus to the next control.
void ClearFocusWithin(const QWidget& widget) {
  QWidget* focused = QApplication::focusWidget();
  if (focused != nullptr && (focused == &widget || widget.isAncestorOf(focused))) {
    focused->clearFocus();
  }
}

bool IsAwaited(const QPointer<QWindow>& window) {
  return window != nullptr && window->isVisible() && !window->isExposed();
}

void AwaitExposure(const QPointer<QWindow>& window) {
  ++waits;
  QElapsedTimer clock;
  clock.start();
  while (IsAwaited(window) && clock.elapsed() < kLongestExposureWait) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
    if (IsAwaited(window)) {
      QThread::msleep(1);
    }
  }
  --waits;
}

}  // namespace

bool AwaitingWindow() { return waits > 0; }

void RequestShow(NativeWindow& form) {
  form.form_state->show_pending = true;
  QTimer::singleShot(0, qApp, FlushPendingShows);
}

void FlushPendingShows() {
  for (NativeWindow* window : AllWindows()) {
    if (IsWindow(window) && window->form_state != nullptr && window->form_state->show_pending) {
      ShowTopLevel(*window, Qt::NonModal);
    }
  }
}

void ShowTopLevel(NativeWindow& form, Qt::WindowModality modality) {
  form.form_state->show_pending = false;
  form.form_state->await_exposure = true;
  form.widget->setWindowModality(modality);
  AttachToOwner(form);
  NoteActivation(form);
  form.widget->show();
  form.widget->raise();
  form.widget->activateWindow();
}

void DetachForm(NativeWindow& form) {
  form.form_state->show_pending = false;
  form.form_state->await_exposure = false;
  ClearFocusWithin(*form.widget);
  form.widget->hide();
  if (IsTopLevel(form)) {
    form.widget->setWindowModality(Qt::NonModal);
    ReleaseOwned(form.widget->windowHandle());
  }
}

void HideForm(NativeWindow& form) {
  form.shown = false;
  DetachForm(form);
  for (QEventLoop* loop : form.form_state->modal_loops) {
    loop->exit();
  }
}

void AwaitWindow(const QWidget& widget) {
  NativeWindow* top = NativeOf(widget.window());
  if (top == nullptr || top->form_state == nullptr) {
    return;
  }
  if (top->form_state->show_pending) {
    ShowTopLevel(*top, Qt::NonModal);
  }
  if (!top->form_state->await_exposure || AwaitingWindow()) {
    return;
  }
  top->form_state->await_exposure = false;
  AwaitExposure(top->widget->windowHandle());
}

void ForgetForm(NativeWindow& window) {
  std::erase(Activations(), &window);
  if (window.form_state == nullptr) {
    return;
  }
  for (QEventLoop* loop : window.form_state->modal_loops) {
    loop->exit();
  }
  if (window.widget != nullptr) {
    ReleaseOwned(window.widget->windowHandle());
  }
}

void NoteActivation(NativeWindow& form) {
  std::erase(Activations(), &form);
  Activations().push_back(&form);
}

}  // namespace toolkit
