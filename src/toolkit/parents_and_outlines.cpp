#include "toolkit/forms_shown.h"
#include "toolkit/native_window.h"
#include "toolkit/paint_objects.h"
#include "toolkit/window.h"

namespace toolkit {

namespace {

/// The toolkit takes an empty mask for none at all: one pixel off the window hides it whole.
QRegion MaskOf(const Region& region) {
  return region.pixels.isEmpty() ? QRegion(-1, -1, 1, 1) : region.pixels;
}

void ShowAgain(NativeWindow& form) {
  if (!form.shown) {
    return;
  }
  if (IsTopLevel(form)) {
    RequestShow(form);
  } else {
    form.widget->show();
    form.widget->raise();
  }
}

}  // namespace

HWND SetParent(HWND child, HWND parent) {
  const HWND before = GetParent(child);
  if (before == parent) {
    return before;
  }
  DetachForm(*child);
  if (parent == nullptr) {
    child->widget->setParent(nullptr, Qt::Window | Qt::FramelessWindowHint);
  } else {
    child->widget->setParent(parent->widget, Qt::Widget);
  }
  ApplyPosition(*child);
  ShowAgain(*child);
  return before;
}

HWND GetParent(HWND window) {
  const bool inside = IsWindow(window) && !IsTopLevel(*window);
  return inside ? NativeOf(window->widget->parentWidget()) : nullptr;
}

bool SetWindowRgn(HWND window, const HRGN& region, bool redraw) {
  if (!IsWindow(window)) {
    return false;
  }
  if (region) {
    window->widget->setMask(MaskOf(*region));
  } else {
    window->widget->clearMask();
  }
  if (redraw) {
    window->widget->update();
  }
  return true;
}

}  // namespace toolkit
