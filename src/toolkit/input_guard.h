#pragma once

namespace toolkit {

/// While one lives, the InputGuards that stand let everything through.
class GuardPause {
 public:
  GuardPause();
  GuardPause(const GuardPause&) = delete;
  GuardPause& operator=(const GuardPause&) = delete;
  ~GuardPause();

 private:
  int suspended_;
};

}  // namespace toolkit
