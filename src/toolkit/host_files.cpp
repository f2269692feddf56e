#include "toolkit/host_files.h"

#include "platform/FileSystem.h"

namespace toolkit {

platform::FileSystem& Files() {
  static platform::FileSystem files("~toolkit-");
  return files;
}

}  // namespace toolkit
