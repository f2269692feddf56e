#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace nimbrel {

enum class FormId : std::uint8_t {
  kMain,
  kMsg,
  kAddFavorite,
  kCloudPage,
  kSkyPage,
  kWaterPage,
  kRandomizerOverview,
  kRandomizerCloud,
  kRandomizerSky,
  kRandomizerWater,
  kFavorite,
  kAbout,
  kSplash,
  kPreview,
  kCount
};

/// Which forms exist. Each form's load sets its own flag; shutdown and page navigation read them.
inline std::array<bool, static_cast<std::size_t>(FormId::kCount)> FormLoaded{};

inline void SetFormLoaded(FormId form) { FormLoaded[static_cast<std::size_t>(form)] = true; }
inline void ClearFormLoaded(FormId form) { FormLoaded[static_cast<std::size_t>(form)] = false; }
inline bool IsFormLoaded(FormId form) { return FormLoaded[static_cast<std::size_t>(form)]; }

}  // namespace nimbrel
