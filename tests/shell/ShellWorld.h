#pragma once

#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "support/World.h"
#include "toolkit/forms.h"

/// A simulator with the program's pack of three options in each group, and an interface that knows
/// its folders. Nothing is started yet. At the end the interface is as new. The child process of a
/// death test works in its parent's simulator.
class ShellWorld : public World {
 public:
  ShellWorld();
  ShellWorld(const ShellWorld&) = delete;
  ShellWorld& operator=(const ShellWorld&) = delete;
  ~ShellWorld();

  /// Paths below the simulator that are not as they were when it was made or last marked.
  std::vector<std::string> Changed() const { return Changes(before_, Files(Simulator())); }
  void MarkUnchanged() { before_ = Files(Simulator()); }

 private:
  Tree before_;
};

std::string OptionTitle(nimbrel::Group group, int option);

/// A pixel of what is drawn on the form or picture box, as 0x00RRGGBB.
std::uint32_t ColorAt(const toolkit::Container& surface, QPoint at);

/// The native window of a control; fails the test if it is not found.
QWidget* Window(std::string_view form, std::string_view control = {});
/// Presses and releases the left button over a control, of a skinned button over its strip.
void Press(std::string_view form, std::string_view control = {});
/// Presses a button that opens a modal dialog, and runs `then` once the dialog is open.
void PressAndThen(std::string_view form, std::string_view button, std::function<void()> then);
/// Clicks on a row of a list, `right` pixels from its left end.
void ClickRow(std::string_view form, std::string_view list, int row, int right = 10);

/// While one lives, every message is answered with its OK button as soon as it is shown.
class Answers {
 public:
  Answers();
  std::vector<std::string> titles;
  std::vector<std::string> texts;
  std::function<void(const std::string& text)> on_text;  ///< before the press

 private:
  void Answer();
  QTimer timer_;
  bool pressing_ = false;
};
