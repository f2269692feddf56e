#pragma once

#include <QTimer>
#include <QWidget>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/gdi.h"
#include "support/TempFolder.h"

/// A simulator tree with the program two levels below its root, and a catalogue of three options in
/// each of the eleven groups. Nothing is started yet. At the end every form is given back. The
/// child process of a death test takes its parent's tree over.
class ShellWorld {
 public:
  ShellWorld();
  ShellWorld(const ShellWorld&) = delete;
  ShellWorld& operator=(const ShellWorld&) = delete;
  ~ShellWorld();

  std::filesystem::path Simulator() const { return root_ / "sim"; }
  std::filesystem::path Program() const { return Simulator() / "Addons" / "Nimbrel"; }
  /// Every file of the tree with its bytes, by its path in the program's folder.
  std::map<std::string, std::string> Files() const;
  /// The files that are not as they were in `before`.
  std::vector<std::string> Changes(const std::map<std::string, std::string>& before) const;

 private:
  std::optional<TempFolder> folder_;  ///< the child process would leave one behind
  std::filesystem::path root_;
};

/// The colour of the preview picture of an option, by (family, group, option).
platform::ColorRef OptionColor(int family, int group, int option);
std::string OptionTitle(int family, int group, int option);

/// The native window of a control; fails the test when there is none.
QWidget* Window(std::string_view form, std::string_view control = {});
/// Presses and releases the left button over a skinned button.
void Press(std::string_view form, std::string_view button);
void ClickOn(std::string_view form, std::string_view control);

/// While one lives, every message is answered with its OK button as soon as it stands, and the
/// system's own error box is closed.
class Answers {
 public:
  Answers();
  std::vector<std::string> titles;
  std::vector<std::string> texts;

 private:
  void Answer();
  QTimer timer_;
  bool pressing_ = false;
};
