#include "setup/Arguments.h"

#include <getopt.h>

#include <algorithm>
#include <climits>
#include <iterator>
#include <string_view>

namespace nimbrel {
namespace {

using Task = Request::Task;

constexpr const char* kUsage =
    "usage: nimbrelctl SUBCOMMAND [OPTION...] [FOLDER]\n"
    "       nimbrelctl --help | --version\n"
    "\n"
    "Installs Nimbrel in the Flight Simulator 2004 in FOLDER, and removes it.\n"
    "\n"
    "  setup    keep the simulator's originals, and install Nimbrel and a texture pack\n"
    "  restore  bring every file that Nimbrel has changed back as it was before\n"
    "  remove   the same, and remove Nimbrel\n"
    "\n"
    "nimbrelctl SUBCOMMAND --help lists the options of a subcommand.\n";
constexpr const char* kSetupUsage =
    "usage: nimbrelctl setup [--yes] [--pack PACK] [FOLDER]\n"
    "\n"
    "Keeps a copy of every file that Nimbrel could ever replace in the Flight Simulator 2004 in\n"
    "FOLDER, and installs Nimbrel and a texture pack there. Asks for FOLDER if it is left out. "
    "Says\n"
    "what it will do, and asks before it does it.\n"
    "\n"
    "  --pack PACK  install the texture pack in the folder PACK, not the one that came along\n"
    "  -y, --yes    answer yes to every question\n"
    "  -h, --help   print this text\n";
constexpr const char* kRestoreUsage =
    "usage: nimbrelctl restore [--yes] [FOLDER]\n"
    "\n"
    "Brings every file that Nimbrel has changed in the Flight Simulator 2004 in FOLDER back as it "
    "was\n"
    "before. Nimbrel stays. Asks for FOLDER if it is left out. Says what it will do, and asks "
    "before\n"
    "it does it.\n"
    "\n"
    "  -y, --yes   answer yes to every question\n"
    "  -h, --help  print this text\n";
constexpr const char* kRemoveUsage =
    "usage: nimbrelctl remove [--yes] [FOLDER]\n"
    "\n"
    "Brings every file that Nimbrel has changed in the Flight Simulator 2004 in FOLDER back as it "
    "was\n"
    "before, and removes Nimbrel. Asks for FOLDER if it is left out. Says what it will do, and "
    "asks\n"
    "before it does it, and once more for your own files.\n"
    "\n"
    "  -y, --yes   answer yes to every question\n"
    "  -h, --help  print this text\n";

/// Options without a short form.
enum LongOption : int { kVersionOption = UCHAR_MAX + 1, kPackOption };

constexpr option kHelp{"help", no_argument, nullptr, 'h'};
constexpr option kVersion{"version", no_argument, nullptr, kVersionOption};
constexpr option kYes{"yes", no_argument, nullptr, 'y'};
constexpr option kPack{"pack", required_argument, nullptr, kPackOption};
constexpr option kEnd{nullptr, 0, nullptr, 0};

constexpr option kCommandOptions[] = {kHelp, kVersion, kEnd};
constexpr option kSetupOptions[] = {kHelp, kYes, kPack, kEnd};
constexpr option kOtherOptions[] = {kHelp, kYes, kEnd};

/// A subcommand, or the command before it.
struct Syntax {
  const char* name;
  Task task;
  const char* letters;  ///< short options as getopt_long takes them; : makes it tell missing values
  const option* options;
  const char* usage;
};
/// + makes getopt_long stop at the subcommand.
constexpr Syntax kCommand{"", Task::kMisused, "+:h", kCommandOptions, kUsage};
constexpr Syntax kSubcommands[] = {
    {"setup", Task::kSetUp, ":hy", kSetupOptions, kSetupUsage},
    {"restore", Task::kRestore, ":hy", kOtherOptions, kRestoreUsage},
    {"remove", Task::kRemove, ":hy", kOtherOptions, kRemoveUsage},
};

Request Misused(const Syntax& syntax, std::string complaint) {
  Request request;
  request.usage = syntax.usage;
  request.complaint = std::move(complaint);
  return request;
}

/// The option that getopt_long has just refused, as the user wrote it.
std::string RefusedOption(const Syntax& syntax, const std::vector<char*>& arguments) {
  const bool is_letter =
      optopt > 0 && optopt <= UCHAR_MAX &&
      std::string_view(syntax.letters).find(static_cast<char>(optopt)) == std::string_view::npos;
  return is_letter ? std::string("-") + static_cast<char>(optopt)
                   : std::string(arguments[static_cast<std::size_t>(optind) - 1]);
}

int NextOption(const Syntax& syntax, std::vector<char*>& arguments) {
  const auto count = static_cast<int>(arguments.size()) - 1;
  // NOLINTNEXTLINE(concurrency-mt-unsafe): the command has one thread
  return getopt_long(count, arguments.data(), syntax.letters, syntax.options, nullptr);
}

/// Reads the options, moves the operands to the end, and leaves the first one's place in optind.
/// The first of `arguments` is the command's or subcommand's name, the last is null.
Request ParseOptions(const Syntax& syntax, std::vector<char*>& arguments) {
  Request request;
  request.task = syntax.task;
  request.usage = syntax.usage;
  opterr = 0;  // getopt_long writes no message of its own
  optind = 0;  // and begins anew
  for (;;) {
    switch (NextOption(syntax, arguments)) {
      case -1:
        return request;
      case 'h':
        request.task = Task::kShowHelp;
        break;
      case kVersionOption:
        request.task = Task::kShowVersion;
        break;
      case 'y':
        request.yes = true;
        break;
      case kPackOption:
        request.pack = optarg;
        if (!request.pack.empty()) {
          break;
        }
        [[fallthrough]];
      case ':':
        return Misused(syntax, "the option --pack needs a folder");
      default:
        return Misused(syntax, "unknown option " + RefusedOption(syntax, arguments));
    }
  }
}

Request ParseSubcommand(const Syntax& syntax, std::vector<char*> arguments) {
  Request request = ParseOptions(syntax, arguments);
  if (request.task != syntax.task) {
    return request;
  }
  const std::size_t operands = arguments.size() - 1 - static_cast<std::size_t>(optind);
  if (operands > 1) {
    return Misused(syntax, std::string("one folder is enough: ") + arguments[arguments.size() - 2]);
  }
  if (operands == 1) {
    request.folder = arguments[static_cast<std::size_t>(optind)];
    if (request.folder.empty()) {
      return Misused(syntax, "the name of the folder is empty");
    }
  }
  return request;
}

}  // namespace

Request ParseArguments(const std::vector<std::string>& arguments) {
  std::vector<std::string> texts = arguments;
  std::string name = "nimbrelctl";
  std::vector<char*> pointers{name.data()};
  for (std::string& text : texts) {
    pointers.push_back(text.data());
  }
  pointers.push_back(nullptr);
  Request request = ParseOptions(kCommand, pointers);
  const auto place = pointers.begin() + optind;
  if (request.task != kCommand.task || !request.complaint.empty() || *place == nullptr) {
    return request;
  }
  const auto* const subcommand =
      std::find_if(std::begin(kSubcommands), std::end(kSubcommands),
                   [&](const Syntax& syntax) { return syntax.name == std::string_view(*place); });
  return subcommand == std::end(kSubcommands)
             ? Misused(kCommand, std::string("unknown subcommand ") + *place)
             : ParseSubcommand(*subcommand, {place, pointers.end()});
}

}  // namespace nimbrel
