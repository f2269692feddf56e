#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/gdi.h"
#include "toolkit/window.h"

namespace toolkit {

/// Forms and controls. Places and sizes are twips, 15 to a logical pixel (the display's density is
/// the toolkit's own business), relative to the container. All calls are for the one
/// user-interface thread, while an Application exists.

inline constexpr float kTwipsPerPixel = 15.0F;
constexpr float Twips(double pixels) { return static_cast<float>(pixels * kTwipsPerPixel); }

/// Owns the toolkit. One, made first in main, before any control.
class Application {
 public:
  Application(int& argc, char** argv);
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;
  ~Application();
  /// Runs events until the process ends.
  static int Run();
};

/// Handles the waiting events and returns.
void DoEvents();

/// While one exists, the user's mouse, keyboard, wheel and close events are thrown away; painting
/// and leaving go on. Its end first drops the events that still wait. A ShowModal inside suspends
/// it: a dialog that could not be answered would hold the program for ever.
class InputGuard {
 public:
  InputGuard();
  InputGuard(const InputGuard&) = delete;
  InputGuard& operator=(const InputGuard&) = delete;
  ~InputGuard();
};

enum MousePointerCode : std::int16_t {
  kPointerDefault = 0,
  kPointerHourglass = 11,
  kPointerCustom = 99,
};

/// The screen: its pointer overrides every window's own.
struct Screen {
  static float TwipsPerPixelX() { return kTwipsPerPixel; }
  static float TwipsPerPixelY() { return kTwipsPerPixel; }
  static float Width();  ///< of the primary screen's work area, twips
  static float Height();
  static void SetMousePointer(MousePointerCode code);
  static MousePointerCode MousePointer();
};

enum MouseButton : std::int16_t {
  kNoButton = 0,
  kLeftButton = 1,
  kRightButton = 2,
  kMiddleButton = 4
};

/// A mouse event in a control: the button pressed or released, or for a move the buttons held (a
/// sum), and the place in pixels of the control.
struct MouseEvent {
  std::int16_t button = kNoButton;
  int x = 0;
  int y = 0;
};

struct Font {
  std::string name = "Verdana";
  float size = 8.25F;  ///< points
  std::int16_t weight = 400;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;
};

enum class ControlKind : std::uint8_t {
  kForm,
  kPictureBox,
  kUserControl,
  kLabel,
  kCheckBox,
  kComboBox,
  kListBox,
  kTextBox,
};

/// A picture for a pointer; empty if it failed to load.
struct CursorPicture;
using CursorHandle = std::shared_ptr<CursorPicture>;
/// A .cur file with its own hot spot. Empty handle if it is missing or malformed.
CursorHandle LoadCursorFile(std::string_view path);
/// The 32 by 32 pointing hand, hot spot (12, 1).
CursorHandle HandCursor();

class Container;

/// What every control can do. A control registers with its container's form and lives as long as
/// its owner keeps it; the native window goes with it.
class Control {
 public:
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  virtual ControlKind Kind() const = 0;
  HWND hWnd() const { return window_.get(); }
  const std::string& Name() const;  ///< also the native window's object name

  float Left() const;
  float Top() const;
  float Width() const;
  float Height() const;
  virtual void SetLeft(float twips);
  virtual void SetTop(float twips);
  void SetWidth(float twips);
  void SetHeight(float twips);
  /// All four at once, in pixels.
  void PlacePixels(double left, double top, double width, double height);

  bool Visible() const;  ///< as set, whatever the container's state
  virtual void SetVisible(bool visible);
  void SetEnabled(bool enabled);

  /// Brings it above its siblings.
  void ZOrder();

  const Font& GetFont() const;
  virtual void SetFont(const Font& font);

  MousePointerCode MousePointer() const;
  void SetMousePointer(MousePointerCode code);  ///< kPointerCustom shows the mouse icon
  void SetMouseIcon(CursorHandle icon);

  platform::ColorRef BackColor() const;
  virtual void SetBackColor(platform::ColorRef color);

  // Events. An exception that leaves a handler is dropped.
  std::function<void(const MouseEvent&)> MouseDown;
  std::function<void(const MouseEvent&)> MouseMove;
  std::function<void(const MouseEvent&)> MouseUp;
  std::function<void()> Click;     ///< after MouseUp inside the control
  std::function<void()> DblClick;  ///< instead of the second MouseDown

 protected:
  struct WindowDeleter {
    void operator()(NativeWindow* window) const;
  };
  using WindowOwner = std::unique_ptr<NativeWindow, WindowDeleter>;
  explicit Control(WindowOwner window);
  NativeWindow& Native() const { return *window_; }

 private:
  WindowOwner window_;
};

/// A control that holds others, with a retained bitmap below them for its picture and for drawing.
class Container : public Control {
 public:
  /// The context of the retained bitmap: 32-bit, the size of the client area. Drawing shows at the
  /// next Refresh or repaint.
  platform::HDC hDC() const;
  /// Resets the retained bitmap to the picture over the background colour, and marks it for
  /// repainting.
  void Cls();
  /// Puts the retained bitmap and the controls above it on the screen at once, whole, without
  /// running the user's events.
  void Refresh();
  /// Loads the background picture, drawn at the top left unscaled, and does Cls. False, and the
  /// picture as it was, if the file is missing or is not a picture.
  bool SetPicture(std::string_view path);
  bool HasPicture() const;
  void SetBackColor(platform::ColorRef color) override;

  float ScaleWidth() const;  ///< client area in pixels
  float ScaleHeight() const;

  std::function<void()> Resize;

 protected:
  using Control::Control;
};

/// A window of its own without a system frame, hidden until shown, or a page inside another window
/// after SetParent. Showing a form that is then handed to SetParent at once never flashes: the
/// window appears at the next Refresh or event.
class Form : public Container {
 public:
  explicit Form(std::string_view name);
  ControlKind Kind() const override { return ControlKind::kForm; }

  void SetCaption(std::string_view caption);
  void SetIconPicture(std::string_view path);

  void CenterOnScreen();

  void Show();
  /// Shows it above all others, lets no other window of the program take input, and returns when
  /// it has been hidden. May nest, also on the same form: the outer call returns after the inner.
  void ShowModal();
  void Hide();
  void SetVisible(bool visible) override;
  void SetFocus();
  void Minimize();
  /// For MouseMove: moves the window with the pointer as long as the left button is held that was
  /// pressed on the form.
  void Drag();

  /// Every control of the form, nested ones too, in the order of their creation.
  const std::vector<Control*>& Controls() const;

  /// The window manager asks to close the window. Nothing is closed by itself.
  std::function<void()> QueryUnload;
};

class PictureBox : public Container {
 public:
  PictureBox(Container& container, std::string_view name);
  ControlKind Kind() const override { return ControlKind::kPictureBox; }

 protected:
  PictureBox(WindowOwner window) : Container(std::move(window)) {}
};

/// A control made of other controls.
class UserControl : public PictureBox {
 public:
  UserControl(Container& container, std::string_view name);
  ControlKind Kind() const override { return ControlKind::kUserControl; }
};

enum Alignment : std::uint8_t { kAlignLeft, kAlignCenter };

/// Plain text, wrapped at words, cut at its own rectangle, transparent or on its background.
class Label : public Control {
 public:
  Label(Container& container, std::string_view name);
  ControlKind Kind() const override { return ControlKind::kLabel; }
  const std::string& Caption() const;
  /// Carriage returns and line feeds break lines; an ampersand is shown as one.
  void SetCaption(std::string_view caption);
  void SetForeColor(platform::ColorRef color);
  platform::ColorRef ForeColor() const;
  void SetAlignment(Alignment alignment);
  void SetTransparent(bool transparent);
};

class CheckBox : public Control {
 public:
  CheckBox(Container& container, std::string_view name);
  ControlKind Kind() const override { return ControlKind::kCheckBox; }
  std::int16_t Value() const;  ///< 1 checked, 0 not
  void SetValue(std::int16_t value);
  void SetCaption(std::string_view caption);
  void SetTransparent(bool transparent);
};

/// A drop-down list without an edit field. Rows carry a number.
class ComboBox : public Control {
 public:
  ComboBox(Container& container, std::string_view name);
  ControlKind Kind() const override { return ControlKind::kComboBox; }
  void Clear();
  void AddItem(std::string_view text, std::int32_t item_data);
  int ListCount() const;
  std::string List(int row) const;       ///< empty text outside the list
  std::int32_t ItemData(int row) const;  ///< 0 outside the list
  int ListIndex() const;                 ///< -1: no selection
  void SetListIndex(int row);
};

enum ListStyle : std::uint8_t {
  kPlainList = 0,
  kCheckedList = 1,  ///< a check box in each row, which a click anywhere on the row toggles
  kSortedList = 2,   ///< by text without case, independent of the locale, equal texts as they came
};

/// A list of rows, each with a number. Click comes after the user has picked a row by mouse or
/// keyboard, also the one that is picked already; never for what the program does. There are no
/// mouse events.
class ListBox : public Control {
 public:
  /// `style` is a sum of ListStyle.
  ListBox(Container& container, std::string_view name, unsigned style = kPlainList);
  ControlKind Kind() const override { return ControlKind::kListBox; }
  void Clear();
  /// Returns the row where the list has put the item. The selection stays.
  int AddItem(std::string_view text, std::int32_t item_data = 0);
  int ListCount() const;
  std::string List(int row) const;       ///< empty text outside the list
  std::int32_t ItemData(int row) const;  ///< 0 outside the list
  int ListIndex() const;                 ///< -1: no selection
  void SetListIndex(int row);
  int TopIndex() const;  ///< the first visible row; -1 in an empty list
  void SetTopIndex(int row);
  /// Whether the row's box is checked; in a list without boxes, whether it is the selected row.
  bool Selected(int row) const;
  void SetSelected(int row, bool selected);
  void SetForeColor(platform::ColorRef color);
  void SetBackColor(platform::ColorRef color) override;

  /// The user has checked or unchecked the row's box; a Click may follow.
  std::function<void(int row)> ItemCheck;
};

enum class TextLines : std::uint8_t { kOne, kSeveral };

/// An edit field. Positions and lengths are characters of Text, in which a line end is two, CR and
/// LF. DblClick is its only mouse event.
class TextBox : public Control {
 public:
  TextBox(Container& container, std::string_view name, TextLines lines = TextLines::kOne);
  ControlKind Kind() const override { return ControlKind::kTextBox; }
  std::string Text() const;
  /// CR, LF and CRLF are line ends; one line shows them as blanks.
  void SetText(std::string_view text);
  /// The most that Text may hold, whoever enters it: characters as code page 1252 stores them, one
  /// byte each. Text beyond it is cut off. 0: no limit.
  void SetMaxLength(int characters);
  void Select(int start, int length);
  void SetFocus();
  void SetForeColor(platform::ColorRef color);
  void SetBackColor(platform::ColorRef color) override;

  /// The field has got the keyboard from another control of the program's windows, not with its
  /// window.
  std::function<void()> GotFocus;
};

}  // namespace toolkit
