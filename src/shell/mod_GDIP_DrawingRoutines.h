#pragma once

#include <string_view>

#include "platform/gdiplus.h"

namespace nimbrel {

/// Painting onto any retained bitmap. Nothing here keeps state or refreshes the screen.

inline constexpr platform::ARGB kTitleColor = 0xFF708090;
inline constexpr platform::ARGB kFrameColor = 0xFF0372AC;
inline constexpr platform::ARGB kBorderColor = 0xFF404040;
inline constexpr platform::ARGB kShadowColor = 0x40000000;

/// One string in a layout rectangle. `width` or `height` of -1 is unbounded, `size` is in pixels.
void DrawPageText(const platform::HDC& hdc, platform::RectF layout, std::string_view text,
                  std::string_view font, float size, platform::FontStyle style,
                  platform::StringAlignment horizontal, platform::StringAlignment vertical,
                  platform::ARGB color, bool antialias);

/// How a preview is framed: corner radius and diameter, offset of its shadow and width of the last
/// border, all in pixels.
struct PictureFrame {
  float radius;
  float diameter;
  float shadow;
  float border;
};
inline constexpr PictureFrame kSummaryFrame{2, 4, 2, 1};

/// A picture clipped to a rounded rectangle over its translucent shadow; with an empty image the
/// background stays inside the border.
void DrawFramedPicture(const platform::HDC& hdc, const platform::RectF& place,
                       const PictureFrame& frame, const platform::GpImage& image);

/// A frame at a fixed place with its shadow and borders drawn ahead, so that a picture in it costs
/// little more than the picture alone. Shows what DrawFramedPicture shows without it.
struct ReadyFrame {
  platform::RectF place;
  PictureFrame frame{};
  platform::GpRegion inside;  ///< what an opaque picture covers
  platform::GpImage overlay;  ///< all that stands round and on such a picture
};
ReadyFrame MakeReadyFrame(const platform::RectF& place, const PictureFrame& frame);
void DrawFramedPicture(const platform::HDC& hdc, const ReadyFrame& ready,
                       const platform::GpImage& image);

/// The picture of the large preview: no offset shadow, rectangle (0, 5, 267, 200).
void DrawLargePicture(const platform::HDC& hdc, const platform::GpImage& image);

/// Outline of the randomizer's frame with the active tab (0 to 3).
void DrawTabFrame(const platform::HDC& hdc, int active);
/// Outline of one inactive tab.
void DrawTabOutline(const platform::HDC& hdc, int tab, int active);

/// The progress box, bar and text, `percent` from 0 to 100.
void DrawProgressBox(const platform::HDC& hdc, double percent);

}  // namespace nimbrel
