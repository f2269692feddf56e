#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "platform/system.h"
#include "setup/Setup.h"

namespace {

namespace fs = std::filesystem;

/// Program and pack as an installation has them, PREFIX/bin beside PREFIX/lib and PREFIX/share, or
/// as a build folder has them, beside the command.
nimbrel::SetupSources FindSources() {
  const fs::path here = platform::ApplicationFolder();
  const fs::path prefix = here.parent_path();
  if (fs::exists(prefix / "lib/nimbrel/nimbrel")) {
    return {(prefix / "lib/nimbrel/nimbrel").string(), (prefix / "share/nimbrel/pack").string()};
  }
  return {(here / "nimbrel").string(), (here / "pack").string()};
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  return nimbrel::RunSetup(arguments, FindSources(), {std::cin, std::cout, std::cerr});
}
