#pragma once

#include <functional>

namespace toolkit {

/// While one lives, a handler of the program is on the stack: windows that it drops are taken apart
/// later, because the toolkit may still be delivering an event to them.
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
