#include "toolkit/forms.h"
#include "toolkit/forms_shown.h"
#include "toolkit/native_window.h"
#include "toolkit/surface.h"

namespace toolkit {

namespace {

Surface& SurfaceOf(const NativeWindow& window) {
  return *static_cast<Surface*>(window.widget.data());
}

}  // namespace

platform::HDC Container::hDC() const { return SurfaceOf(Native()).Context(); }

void Container::Cls() { SurfaceOf(Native()).Reset(); }

void Container::Refresh() {
  const std::weak_ptr<char> alive = Native().alive;
  AwaitWindow(*Native().widget);
  if (!alive.expired()) {
    Native().widget->repaint();
  }
}

bool Container::SetPicture(std::string_view path) { return SurfaceOf(Native()).LoadPicture(path); }

bool Container::HasPicture() const { return SurfaceOf(Native()).HasPicture(); }

// The palette stays as it is: labels and boxes on the container have colours of their own.
void Container::SetBackColor(platform::ColorRef color) {
  Native().back_color = color;
  SurfaceOf(Native()).SetBackground(ToColor(color));
}

float Container::ScaleWidth() const { return Width() / kTwipsPerPixel; }
float Container::ScaleHeight() const { return Height() / kTwipsPerPixel; }

PictureBox::PictureBox(Container& container, std::string_view name)
    : PictureBox(WindowOwner(
          new NativeWindow(new Surface(container.hWnd()->widget), container.hWnd(), name))) {}

UserControl::UserControl(Container& container, std::string_view name)
    : PictureBox(WindowOwner(
          new NativeWindow(new Surface(container.hWnd()->widget), container.hWnd(), name))) {}

}  // namespace toolkit
