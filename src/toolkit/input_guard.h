#pragma once

namespace toolkit {

/// While one exists, the InputGuards made before it let everything through.
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
