#pragma once

#include <functional>
#include <string>
#include <vector>

/// What the lower layers asked of the shell and of shutdown, which these tests go without.

struct ShownMessage {
  std::string kind;
  std::string title;
  std::string text;
  bool ok;
  bool cancel;
  bool progress;
};

struct ShownUpdate {
  std::string title;
  std::string text;
  double percent;
};

struct RecordedCalls {
  std::vector<ShownMessage> messages;
  std::vector<ShownUpdate> updates;
  std::vector<double> percents;  ///< of updates and of single draws of the bar, in their order
  int hides = 0;
  int refreshes = 0;
  int endings = 0;
  std::function<void()> on_message;  ///< called in each of `messages`, to answer it
  std::function<void()> on_percent;  ///< called at each of `percents`
  std::function<void()> on_ending;   ///< called as ShutDownProgram begins
};
extern RecordedCalls Recorded;

/// Thrown where the program would end. No std::exception: nothing may take it for a failure.
struct ProgramEnded {};
