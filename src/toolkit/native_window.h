#pragma once

#include <QPointer>
#include <QRect>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/forms.h"
#include "toolkit/window.h"

class QEventLoop;

namespace toolkit {

/// Place in the container, or on the screen, in twips as the program set it.
struct Place {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;
  bool operator==(const Place&) const = default;
};

/// What only forms have.
struct FormState {
  std::vector<Control*> controls;
  std::vector<QEventLoop*> modal_loops;  ///< of the ShowModal calls under way, outermost first
  bool show_pending = false;    ///< shown for the program; its window appears at the next turn
  bool await_exposure = false;  ///< its window has appeared and is not painted yet
};

/// One native window: the widget and the state of its control. Owns the widget, which is deleted
/// with it, after the event under way.
struct NativeWindow {
  /// `container` is null for a form. The widget is its child already.
  NativeWindow(QWidget* made, NativeWindow* container, std::string_view window_name);
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;
  ~NativeWindow();

  QPointer<QWidget> widget;  ///< null only after the end of the Application
  std::string name;
  Control* control = nullptr;    ///< set by the control's constructor
  NativeWindow* form = nullptr;  ///< whose Controls it is among; null for a form
  std::unique_ptr<FormState> form_state;
  std::vector<SmartSubClass*> watchers;
  std::shared_ptr<char> alive = std::make_shared<char>();  ///< for handlers that may destroy it

  Place place;
  Font font;
  CursorHandle icon;
  std::string caption;  ///< of a label, as given
  platform::ColorRef back_color = platform::RGB(240, 240, 240);
  platform::ColorRef fore_color = platform::RGB(0, 0, 0);
  MousePointerCode pointer = kPointerDefault;
  std::int16_t pressed = kNoButton;  ///< buttons whose MouseDown it was given
  bool click_pending = false;        ///< the press under way may end in a Click
  bool resizing = false;             ///< its Resize handler runs
  bool leave_armed = false;          ///< owes one WM_MOUSELEAVE
  bool shown = false;                ///< as set by the program
};

/// The window that owns the widget; null for any other widget.
NativeWindow* NativeOf(const QWidget* widget);
/// Whether the window of the handle still exists.
bool IsWindow(const NativeWindow* window);
/// Every window, in no order.
std::vector<NativeWindow*> AllWindows();

/// Makes the window the one that NativeOf() finds for the widget, until it is unregistered.
void Register(const QWidget& widget, NativeWindow& window);
void Unregister(const NativeWindow& window);

/// Pixels of a measure in twips.
int Pixels(float twips);
/// Puts the widget where `place` says.
void ApplyPosition(NativeWindow& window);
void ApplySize(NativeWindow& window);
/// Runs the container's Resize handler, never within itself.
void NotifyResize(NativeWindow& window);
/// The part of the widget that its containers don't clip, in its own pixels.
QRect VisibleRect(const QWidget& widget);
bool IsTopLevel(const NativeWindow& window);

/// Delivers the WM_MOUSELEAVE that the window owes, if it does.
void DeliverLeave(NativeWindow& window);
/// The same for all windows that are not in `form`.
void DeliverLeavesOutside(const NativeWindow& form);

QColor ToColor(platform::ColorRef color);

}  // namespace toolkit
