#pragma once

#include <string_view>

namespace nimbrel {

/// What a run tells while it works. Every call comes from the run's own thread.
class Progress {
 public:
  virtual ~Progress() = default;
  /// A stage begins: the sentence that says what is copied, and percent done, 0 to 100.
  virtual void Announce(std::string_view sentence, double percent) = 0;
  /// Percent done, 0 to 100, within the stage last announced.
  virtual void Advance(double percent) = 0;
  /// Comes after every file and in every wait for a file that another process holds open.
  virtual void Breathe() = 0;
};

}  // namespace nimbrel
