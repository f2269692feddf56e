#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/FileStatus.h"
#include "settings/Choice.h"

namespace nimbrel {

/// A file that a run could not put in place.
struct FileFailure {
  std::string file;  ///< target from the simulator's root on, as the catalogue composes it
  platform::FileStatus status;
};

/// What an install did.
struct Report {
  Choice installed;                   ///< what was asked for
  std::size_t files = 0;              ///< how many files were put in place
  std::vector<FileFailure> failures;  ///< each file once, in the order of the run
  std::string error;                  ///< what ended the run early; empty if it ran to its end

  /// True if everything that was asked for is in place.
  bool Whole() const { return failures.empty() && error.empty(); }

  /// Counts one file, or keeps its failure. A missing source or destination folder is neither.
  void Add(const std::string& file, platform::FileStatus status);
};

}  // namespace nimbrel
