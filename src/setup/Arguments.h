#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace nimbrel {

/// What the user asks of the command.
struct Request {
  enum class Task : std::uint8_t { kSetUp, kRestore, kRemove, kShowHelp, kShowVersion, kMisused };
  Task task = Task::kMisused;
  bool yes = false;        ///< every question is answered with yes
  std::string pack;        ///< another pack than the one that came along
  std::string folder;      ///< empty: to be asked for
  const char* usage = "";  ///< of the subcommand, or of the command if none is named
  std::string complaint;   ///< of kMisused: what can't be accepted; empty without arguments
};

/// `arguments` without the command's own name.
Request ParseArguments(const std::vector<std::string>& arguments);

}  // namespace nimbrel
