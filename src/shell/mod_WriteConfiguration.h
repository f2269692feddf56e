#pragma once

namespace nimbrel {

/// The doors to what the information file stores. Both do nothing until the configuration is
/// loaded: check boxes and flags would overwrite the user's own by values never read.

/// Writes useDXT and useLowRes from chk_DXT and chk_Fast. Tells if the file is missing.
void WriteMainFlags();
/// Writes every inhibit flag of the catalogue, the sun's and the contrails'. Tells if the file is
/// missing, and ends the program.
void WriteInhibitFlags();

}  // namespace nimbrel
