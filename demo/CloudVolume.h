#pragma once

#include <cstdint>
#include <vector>

#include "Texture.h"

namespace demo {

/// A ball of cloud. Lengths count in heights of the picture: x from 0 to its width over its height,
/// y from 0 at the lower edge to 1, z away from the eye with 0 in the middle.
struct Blob {
  Vec3 centre;
  float radius;
};

/// What the balls are made of and how they are lit.
struct CloudLook {
  float base;      ///< height of the flat underside; negative for none
  float flat;      ///< how much lower than wide the balls are, 1 for round ones
  float billow;    ///< depth of the clefts between the heads
  float cells;     ///< heads along one height
  float wisp;      ///< how far the wind has drawn the edges out
  float stretch;   ///< length of the noise along the wind over its height, 1 for even
  float softness;  ///< thickness of the skin in which the cloud thins out
  float density;   ///< extinction over one height
  Vec3 sun;        ///< towards it, y up, z away from the eye; y must be above 0
  Color sunlight;
  Color skylight;
  Color underlight;  ///< from the ground
};

/// Light scattered in the cloud over a black ground. Alpha is the share of the ground that the
/// cloud hides; it fades to 0 before the edges of the picture.
Canvas RenderCloud(const std::vector<Blob>& blobs, const CloudLook& look, int width, int height,
                   std::uint32_t seed);

}  // namespace demo
