#pragma once

namespace nimbrel {

/// Writes useDXT and useLowRes from chk_DXT and chk_Fast.
void WriteMainFlags();
/// Writes every inhibit flag of the catalogue, the sun's and the contrails'.
void WriteInhibitFlags();

}  // namespace nimbrel
