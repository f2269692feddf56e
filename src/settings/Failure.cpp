#include "settings/Failure.h"

#include <string>

namespace nimbrel {

ActionFailed::ActionFailed(std::string_view path, platform::FileStatus status)
    : std::runtime_error(std::string(path) + " " + std::string(platform::Describe(status))) {}

}  // namespace nimbrel
