#pragma once

namespace nimbrel {

struct CopyRun;

/// On: copies the replacement sun into the simulator; off: copies its own three files back.
void ApplySun(const CopyRun& run, bool on);
/// Sets how long the contrail particles of both effects live.
void ApplyContrails(const CopyRun& run, bool on);

}  // namespace nimbrel
