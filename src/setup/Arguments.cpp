#include "setup/Arguments.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace nimbrel {

const char* const kUsageText =
    "usage: nimbrel-setup [--yes] [--pack PACK] [FOLDER]\n"
    "       nimbrel-setup [--yes] --restore [--remove] [FOLDER]\n"
    "       nimbrel-setup --help | --version\n"
    "\n"
    "Puts Nimbrel into the Flight Simulator 2004 in FOLDER, which is asked for when it is left "
    "out.\n"
    "What it will do is said and asked for before it is done.\n"
    "\n"
    "  --pack PACK  put the texture pack in the folder PACK there, not the one that came along\n"
    "  --restore    bring every file that Nimbrel has changed back as it was before\n"
    "  --remove     the same, and take Nimbrel out\n"
    "  --yes        ask nothing, take every answer for yes\n";

namespace {

struct Option {
  std::string_view text;
  void (*take)(Request& request);
};

/// A second task does not undo the first: --restore --remove in either order removes.
void Raise(Request& request, Request::Task task) { request.task = std::max(request.task, task); }

constexpr Option kOptions[] = {
    {"--restore", [](Request& request) { Raise(request, Request::Task::kRestore); }},
    {"--remove", [](Request& request) { Raise(request, Request::Task::kRemove); }},
    {"--help", [](Request& request) { Raise(request, Request::Task::kHelp); }},
    {"-h", [](Request& request) { Raise(request, Request::Task::kHelp); }},
    {"--version", [](Request& request) { Raise(request, Request::Task::kVersion); }},
    {"--yes", [](Request& request) { request.yes = true; }},
    {"-y", [](Request& request) { request.yes = true; }},
};

bool TakeOption(const std::string& text, Request& request) {
  const auto* const option =
      std::find_if(std::begin(kOptions), std::end(kOptions),
                   [&](const Option& candidate) { return candidate.text == text; });
  if (option == std::end(kOptions)) {
    return false;
  }
  option->take(request);
  return true;
}

}  // namespace

std::optional<Request> ParseArguments(const std::vector<std::string>& arguments) {
  Request request;
  std::vector<std::string> folders;
  bool options = true;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    if (options && *argument == "--") {
      options = false;
    } else if (options && *argument == "--pack") {
      if (++argument == arguments.end() || argument->empty()) {
        return std::nullopt;
      }
      request.pack = *argument;
    } else if (!options || !argument->starts_with('-')) {
      folders.push_back(*argument);
    } else if (!TakeOption(*argument, request)) {
      return std::nullopt;
    }
  }
  const bool setting_up = request.task == Request::Task::kSetUp;
  if (folders.size() > 1 || (folders.size() == 1 && folders.front().empty()) ||
      (!request.pack.empty() && !setting_up)) {
    return std::nullopt;
  }
  request.folder = folders.empty() ? std::string() : folders.front();
  return request;
}

}  // namespace nimbrel
