#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace nimbrel {

/// What the user asks of the command.
struct Request {
  enum class Task : std::uint8_t { kSetUp, kRestore, kRemove, kHelp, kVersion };
  Task task = Task::kSetUp;
  bool yes = false;    ///< every question is answered
  std::string pack;    ///< another pack than the one that came along
  std::string folder;  ///< empty: to be asked for
};

/// Empty for arguments that the usage does not allow.
std::optional<Request> ParseArguments(const std::vector<std::string>& arguments);

extern const char* const kUsageText;

}  // namespace nimbrel
