#pragma once

#include <array>
#include <cstdint>

#include "CloudSheets.h"
#include "SkyBox.h"

namespace demo {

inline constexpr int kPreviewWidth = 400;
inline constexpr int kPreviewHeight = 300;

/// The cells of the sheet as puffs over the land, before that sky.
Texture PreviewClouds(CloudGroup group, const Texture& sheet, const SkyBox& sky,
                      std::uint32_t seed);
/// The wisps round the heaps of another sheet.
Texture PreviewWisps(const Texture& sheet, const Texture& heaps, const SkyBox& sky,
                     std::uint32_t seed);
/// The textures as a ceiling high over the eye.
Texture PreviewCirrus(const std::array<Texture, 3>& textures, const SkyBox& sky, float heading);

/// The sky and, below it, a land of fields in its haze.
Canvas PaintLandscape(const Camera& camera, const SkyBox& sky, std::uint32_t seed);

}  // namespace demo
