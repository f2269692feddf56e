#pragma once

#include <cstdint>
#include <string_view>

#include "settings/Groups.h"

namespace toolkit {
class Container;
class Form;
class PictureBox;
struct RectF;
}  // namespace toolkit

namespace nimbrel {

/// Painting onto the program's own pages, which the caller passes. Places are pixels of the page.
/// Clearing and refreshing are the caller's unless said otherwise.

/// Title and icon at the head of a form, which it clears; shown at the next repaint. Without its
/// file the icon is hidden: that of the page before would name the wrong page.
void DrawHead(toolkit::Form& form, toolkit::PictureBox& icon, const toolkit::RectF& place,
              std::string_view title, std::string_view icon_file);

/// One small preview on the main page's picture box.
void DrawSummaryPreview(toolkit::Container& surface, int left, int top, int width, int height,
                        Group group, std::int16_t option);
/// One small preview on the randomizer's overview.
void DrawOverviewPreview(toolkit::Container& surface, int left, int top, int width, int height,
                         Group group, std::int16_t option);
/// The picture of the large preview.
void DrawLargePreview(toolkit::Container& surface, Group group, std::int16_t option);

}  // namespace nimbrel
