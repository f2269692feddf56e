#pragma once

#include <cstdint>
#include <string_view>

namespace nimbrel {

/// Painting onto the program's own pages. Places are pixels of the page; family, group and option
/// address the catalogue. Clearing and refreshing are the caller's unless said otherwise.

/// Title and icon of the page on frm_Main, which it clears; shown at the next repaint.
void SetPageTitle(std::string_view title, std::string_view icon_file);
/// The same on frm_AddFavorite, shown at once.
void SetAddFavoriteTitle(std::string_view title, std::string_view icon_file);
/// One small preview on pic_Main.
void DrawSummaryPreview(int left, int top, int width, int height, std::int16_t family,
                        std::int16_t group, std::int16_t option);
/// One small preview on frm_RandomizerOverview.
void DrawOverviewPreview(int left, int top, int width, int height, std::int16_t family,
                         std::int16_t group, std::int16_t option);
/// The picture on frm_Preview.
void DrawLargePreview(std::int16_t family, std::int16_t group, std::int16_t option);

}  // namespace nimbrel
