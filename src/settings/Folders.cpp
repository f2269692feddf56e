#include "settings/Folders.h"

namespace nimbrel {

Folders FoldersOf(std::string_view program) {
  return {std::string(program), std::string(program) + "\\..\\..\\"};
}

std::string InformationFile(const Folders& folders) {
  return folders.program + "\\NB_Information.cfg";
}

}  // namespace nimbrel
