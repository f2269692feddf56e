#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace nimbrel {

/// Files that an install could not put in place although their source and their destination folder
/// are there. Cleared at the start of a run, written by the copying routines, told to the user
/// after the run's closing message.
struct CopyFailure {
  std::string file;  ///< as the program composed it, from the SimulatorRoot on
  platform::FileStatus status;
};
extern std::vector<CopyFailure> CopyFailures;

/// Keeps the failure of one file. A missing source or destination folder is none, and is passed
/// over in silence.
void NoteCopy(std::string_view target, platform::FileStatus status);

/// What to tell the user of CopyFailures: how many, and the first few with the reason. Empty when
/// all went well.
std::string CopyFailureText();

}  // namespace nimbrel
