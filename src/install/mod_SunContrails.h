#pragma once

namespace nimbrel {

/// On: puts the replacement sun into the simulator; off: brings its own three files back.
void ApplySun(bool on);
/// Sets how long the contrail particles of both effects live.
void ApplyContrails(bool on);

}  // namespace nimbrel
