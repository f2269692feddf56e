#include <utility>

#include "toolkit/cursor.h"
#include "toolkit/fonts.h"
#include "toolkit/forms.h"
#include "toolkit/native_window.h"

namespace toolkit {

namespace {

void ApplyPointer(NativeWindow& window) {
  if (window.pointer == kPointerHourglass) {
    window.widget->setCursor(Qt::WaitCursor);
  } else if (window.pointer == kPointerCustom && window.icon != nullptr) {
    window.widget->setCursor(window.icon->cursor);
  } else {
    window.widget->unsetCursor();
  }
}

void ApplyFont(NativeWindow& window) { window.widget->setFont(MakeFont(window.font)); }

/// Moves and sizes the window; the Resize handler runs at most once.
void Replace(NativeWindow& window, const Place& place) {
  const Place before = std::exchange(window.place, place);
  if (before.left != place.left || before.top != place.top) {
    ApplyPosition(window);
  }
  if (before.width != place.width || before.height != place.height) {
    ApplySize(window);
    NotifyResize(window);
  }
}

}  // namespace

void Control::WindowDeleter::operator()(NativeWindow* window) const { delete window; }

Control::Control(WindowOwner window) : window_(std::move(window)) {
  window_->control = this;
  if (window_->form != nullptr) {
    window_->form->form_state->controls.push_back(this);
  }
  ApplyFont(*window_);
}

Control::~Control() = default;

const std::string& Control::Name() const { return window_->name; }

float Control::Left() const { return window_->place.left; }
float Control::Top() const { return window_->place.top; }
float Control::Width() const { return window_->place.width; }
float Control::Height() const { return window_->place.height; }

void Control::SetLeft(float twips) {
  Place place = window_->place;
  place.left = twips;
  Replace(*window_, place);
}

void Control::SetTop(float twips) {
  Place place = window_->place;
  place.top = twips;
  Replace(*window_, place);
}

void Control::SetWidth(float twips) {
  Place place = window_->place;
  place.width = twips;
  Replace(*window_, place);
}

void Control::SetHeight(float twips) {
  Place place = window_->place;
  place.height = twips;
  Replace(*window_, place);
}

void Control::PlacePixels(double left, double top, double width, double height) {
  Replace(*window_, {Twips(left), Twips(top), Twips(width), Twips(height)});
}

bool Control::Visible() const { return window_->shown; }

void Control::SetVisible(bool visible) {
  window_->shown = visible;
  window_->widget->setVisible(visible);
}

void Control::SetEnabled(bool enabled) { window_->widget->setEnabled(enabled); }

void Control::ZOrder() { window_->widget->raise(); }

const Font& Control::GetFont() const { return window_->font; }

void Control::SetFont(const Font& font) {
  window_->font = font;
  ApplyFont(*window_);
}

MousePointerCode Control::MousePointer() const { return window_->pointer; }

void Control::SetMousePointer(MousePointerCode code) {
  window_->pointer = code;
  ApplyPointer(*window_);
}

void Control::SetMouseIcon(CursorHandle icon) {
  window_->icon = std::move(icon);
  ApplyPointer(*window_);
}

platform::ColorRef Control::BackColor() const { return window_->back_color; }

void Control::SetBackColor(platform::ColorRef color) {
  window_->back_color = color;
  QPalette palette = window_->widget->palette();
  palette.setColor(QPalette::Window, ToColor(color));
  window_->widget->setPalette(palette);
}

}  // namespace toolkit
