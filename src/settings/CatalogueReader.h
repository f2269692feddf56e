#pragma once

#include <cstdint>
#include <string>

namespace nimbrel {

/// Whether the preview pictures are wanted: a run without windows has no use for them.
enum class Pictures : bool { kSkip, kLoad };

/// Reads one family of the Catalogue (kCloud, kSky or kWater) from an information file. Throws
/// RunTimeFailure at what it can't take, and leaves the family half read then.
void ReadCatalogueFamily(std::int16_t number, const std::string& file, Pictures pictures);

}  // namespace nimbrel
