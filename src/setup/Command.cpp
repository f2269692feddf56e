#include "setup/Command.h"

#include <istream>
#include <new>
#include <ostream>

#include "settings/Failure.h"
#include "settings/Version.h"
#include "setup/Arguments.h"
#include "setup/Disk.h"
#include "setup/Tasks.h"

namespace nimbrel {
namespace {

bool Perform(const Request& request, SetupSources sources, const Console& console) {
  Disk disk;
  if (!request.pack.empty()) {
    sources.pack = request.pack;
  }
  std::string real;
  if (platform::RealPath(sources.pack, real) == platform::FileStatus::kOk) {
    sources.pack = real;
  }
  const Job job{disk, FindPlaces(disk, request.folder), sources, request.yes, console};
  switch (request.task) {
    case Request::Task::kRestore:
      return RestoreOriginals(job);
    case Request::Task::kRemove:
      return RemoveNimbrel(job);
    default:
      return SetUp(job);
  }
}

int PerformAndTell(const Request& request, const SetupSources& sources, const Console& console) {
  std::string reason;
  try {
    return Perform(request, sources, console) ? kDone : kFailed;
  } catch (const ActionFailed& failure) {
    reason = failure.what();
  } catch (const std::bad_alloc&) {
    reason = "there is not enough memory";
  }
  console.err << "nimbrelctl: " << reason << ".\n";
  return kFailed;
}

/// Started from a menu there is no argument: asks for the folder, and waits for Enter because the
/// terminal closes on return.
int AskAndPerform(Request request, const SetupSources& sources, const Console& console) {
  console.out << "The folder of Flight Simulator 2004: " << std::flush;
  if (!std::getline(console.in, request.folder) || request.folder.empty()) {
    console.err << '\n' << request.usage;
    return kUsage;
  }
  const int status = PerformAndTell(request, sources, console);
  console.out << "Press Enter to close." << std::flush;
  std::string line;
  std::getline(console.in, line);
  return status;
}

int ComplainOf(const Request& request, const Console& console) {
  if (!request.complaint.empty()) {
    console.err << "nimbrelctl: " << request.complaint << ".\n\n";
  }
  console.err << request.usage;
  return kUsage;
}

}  // namespace

int RunCommand(const std::vector<std::string>& arguments, const SetupSources& sources,
               const Console& console) {
  const Request request = ParseArguments(arguments);
  switch (request.task) {
    case Request::Task::kMisused:
      return ComplainOf(request, console);
    case Request::Task::kShowHelp:
      console.out << request.usage;
      return kDone;
    case Request::Task::kShowVersion:
      console.out << "nimbrelctl " << kVersion << '\n';
      return kDone;
    default:
      return request.folder.empty() ? AskAndPerform(request, sources, console)
                                    : PerformAndTell(request, sources, console);
  }
}

}  // namespace nimbrel
