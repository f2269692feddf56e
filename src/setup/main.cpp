#include <iostream>
#include <string>
#include <vector>

#include "platform/FileTree.h"
#include "setup/Command.h"

namespace {

using platform::FileStatus;

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

/// Program and pack as an installation has them, PREFIX/bin beside PREFIX/lib and PREFIX/share, or
/// as a build folder has them, beside the command.
nimbrel::SetupSources FindSources() {
  std::string command;
  if (platform::RealPath("/proc/self/exe", command) != FileStatus::kOk) {
    return {};
  }
  const std::string here = FolderOf(command);
  const std::string prefix = FolderOf(here);
  std::string installed;
  if (platform::RealPath(prefix + "/lib/nimbrel/nimbrel", installed) == FileStatus::kOk) {
    return {prefix + "/lib/nimbrel/nimbrel", prefix + "/share/nimbrel/pack"};
  }
  return {here + "/nimbrel", here + "/pack"};
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  return nimbrel::RunCommand(arguments, FindSources(), {std::cin, std::cout, std::cerr});
}
