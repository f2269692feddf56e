#include "install/CopyFailures.h"

#include <algorithm>

#include "platform/text.h"
#include "settings/Functions_Configuration.h"

namespace nimbrel {
namespace {

constexpr std::size_t kNamedFailures = 3;  ///< what the message dialog has room for

std::string FromRoot(std::string_view target) {
  if (!SimulatorRoot.empty() && target.starts_with(SimulatorRoot)) {
    target.remove_prefix(SimulatorRoot.size());
  }
  return std::string(target);
}

}  // namespace

std::vector<CopyFailure> CopyFailures;

void NoteCopy(std::string_view target, platform::FileStatus status) {
  using platform::FileStatus;
  if (status == FileStatus::kOk || status == FileStatus::kNoSource ||
      status == FileStatus::kNoFolder) {
    return;
  }
  std::string file = FromRoot(target);
  const bool known = std::any_of(
      CopyFailures.begin(), CopyFailures.end(),
      [&](const CopyFailure& failure) { return platform::SameName(failure.file, file); });
  if (!known) {
    CopyFailures.push_back({std::move(file), status});
  }
}

std::string CopyFailureText() {
  if (CopyFailures.empty()) {
    return {};
  }
  const std::size_t count = CopyFailures.size();
  std::string text = count == 1
                         ? "One file could not be put into Flight Simulator."
                         : std::to_string(count) + " files could not be put into Flight Simulator.";
  text += " What stood there before is still in place.\r\r";
  for (std::size_t i = 0; i < std::min(count, kNamedFailures); ++i) {
    text += CopyFailures[i].file + " ";
    text += platform::Describe(CopyFailures[i].status);
    text += ".\r";
  }
  if (count > kNamedFailures) {
    text += "...\r";
  }
  return text + "\rPress the checkmark to continue.";
}

}  // namespace nimbrel
