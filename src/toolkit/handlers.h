#pragma once

#include <functional>

namespace toolkit {

/// While one exists, a handler of the program is on the stack: widgets of windows that it destroys
/// are deleted later, because the toolkit may still deliver an event to them.
class HandlerScope {
 public:
  HandlerScope() { ++depth_; }
  HandlerScope(const HandlerScope&) = delete;
  HandlerScope& operator=(const HandlerScope&) = delete;
  ~HandlerScope() { --depth_; }
  static bool Active() { return depth_ > 0; }

 private:
  inline static int depth_ = 0;
};

/// Runs a handler of the program, from a copy because it may destroy the control that owns it. An
/// exception ends here: the toolkit can't carry one.
template <typename... Parameters, typename... Arguments>
void Call(const std::function<void(Parameters...)>& handler, Arguments&&... arguments) noexcept {
  if (!handler) {
    return;
  }
  const HandlerScope scope;
  try {
    const auto copy = handler;
    copy(arguments...);
  } catch (...) {  // NOLINT(bugprone-empty-catch): the published behaviour of an event handler
  }
}

}  // namespace toolkit
