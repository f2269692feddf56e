#pragma once

#include "Texture.h"

namespace demo {

/// Textures of the simulator that no install replaces: a concrete runway, a meadow, a tiled roof.
Texture PaintRunway(int side);
Texture PaintGrass(int side);
Texture PaintRoof(int side);

}  // namespace demo
