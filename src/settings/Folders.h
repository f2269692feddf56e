#pragma once

#include <string>
#include <string_view>

namespace nimbrel {

/// Begins the name of every temporary file that the program and the console command write.
inline constexpr const char* kTemporaryPrefix = "~nimbrel-";

/// Where a program and its simulator are; passed to whoever reads or writes files.
struct Folders {
  std::string program;    ///< the ApplicationFolder, without a separator at the end
  std::string simulator;  ///< the SimulatorRoot, with a separator at the end
};

/// Those of the program in `program`, which stands two levels below the simulator's root.
Folders FoldersOf(std::string_view program);

/// The file in the program's folder that holds the catalogue and the settings.
std::string InformationFile(const Folders& folders);

}  // namespace nimbrel
