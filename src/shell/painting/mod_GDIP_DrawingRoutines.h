#pragma once

#include <string_view>

#include "toolkit/gdiplus.h"

namespace nimbrel {

/// Painting onto any retained bitmap. Nothing here keeps state or refreshes the screen.

inline constexpr toolkit::ARGB kTitleColor = 0xFF708090;
inline constexpr toolkit::ARGB kFrameColor = 0xFF0372AC;
inline constexpr toolkit::ARGB kBorderColor = 0xFF404040;
inline constexpr toolkit::ARGB kShadowColor = 0x40000000;

/// One string in a layout rectangle. `width` or `height` of -1 is unbounded, `size` is in pixels.
void DrawPageText(const platform::HDC& hdc, toolkit::RectF layout, std::string_view text,
                  std::string_view font, float size, toolkit::FontStyle style,
                  toolkit::StringAlignment horizontal, toolkit::StringAlignment vertical,
                  toolkit::ARGB color, bool antialias);

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
void DrawFramedPicture(const platform::HDC& hdc, const toolkit::RectF& place,
                       const PictureFrame& frame, const toolkit::GpImage& image);

/// A frame at a fixed place with its shadow and borders drawn in advance, so that a picture in it
/// costs little more than the picture alone. The result is that of DrawFramedPicture without it.
struct ReadyFrame {
  toolkit::RectF place;
  PictureFrame frame{};
  toolkit::GpRegion inside;  ///< what an opaque picture covers
  toolkit::GpImage overlay;  ///< shadow and borders around and over such a picture
};
ReadyFrame MakeReadyFrame(const toolkit::RectF& place, const PictureFrame& frame);
void DrawFramedPicture(const platform::HDC& hdc, const ReadyFrame& ready,
                       const toolkit::GpImage& image);

/// The picture of the large preview: no offset shadow, rectangle (0, 5, 267, 200).
void DrawLargePicture(const platform::HDC& hdc, const toolkit::GpImage& image);

/// Outline of the randomizer's frame with the active tab (0 to 3).
void DrawTabFrame(const platform::HDC& hdc, int active);
/// Outline of one inactive tab.
void DrawTabOutline(const platform::HDC& hdc, int tab, int active);

/// The progress box, bar and text, `percent` from 0 to 100.
void DrawProgressBox(const platform::HDC& hdc, double percent);

}  // namespace nimbrel
