#pragma once

#include <stdexcept>
#include <string_view>

#include "platform/FileStatus.h"

namespace nimbrel {

/// Ends the user's current action. what() is a sentence for the user, without a full stop if it is
/// made from a path and a status.
class ActionFailed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  /// "PATH is read-only" and the like.
  ActionFailed(std::string_view path, platform::FileStatus status);
};

}  // namespace nimbrel
