#pragma once

#include <cstdint>
#include <memory>

#include "settings/Groups.h"
#include "toolkit/forms.h"

namespace nimbrel {

struct Choice;

/// What three pages show of each of the eleven groups: the title of its option and, on two of them,
/// its small preview picture.

/// The labels lbl_Cloud_Solid and so on.
using TitleLabels = PerGroup<std::unique_ptr<toolkit::Label>>;
/// Makes the labels in the container; `top` is that of a group's label, in pixels.
TitleLabels MakeTitleLabels(toolkit::Container& container, int left, int width,
                            int (*top)(const GroupFacts& group));
/// Shows the titles of the options; those outside the catalogue have none.
void ShowTitles(const TitleLabels& titles, const Choice& choice);

/// Places of the small previews: a column for each index of a group and a row for each family.
struct PreviewGrid {
  int left;  ///< of the whole, in pixels
  int top;
  int row_step;  ///< from row to row

  constexpr int Left(Group group) const { return left + 60 * IndexInFamily(group); }
  constexpr int Top(Group group) const {
    return top + row_step * static_cast<int>(FamilyOf(group));
  }
};
inline constexpr int kMiniWidth = 47;
inline constexpr int kMiniHeight = 35;
/// Paints the preview pictures of the options by `draw`, one of the routines of PagePainting.
void DrawPreviews(toolkit::Container& surface, const PreviewGrid& grid, const Choice& choice,
                  void (*draw)(toolkit::Container& surface, int left, int top, int width,
                               int height, Group group, std::int16_t option));

/// Transparent labels over the small previews, which take the clicks on them: the control arrays
/// lbl_CloudPreview, lbl_SkyPreview and lbl_WaterPreview. A click is dispatched as that of a small
/// button of `form`, of type "preview_" and the group's prefix.
using PreviewSpots = PerGroup<std::unique_ptr<toolkit::Label>>;
PreviewSpots MakePreviewSpots(toolkit::Container& container, const PreviewGrid& grid,
                              const toolkit::Form& form);
inline constexpr char kPreviewType[] = "preview_";

/// What the hint labels of the pages with small previews say.
inline constexpr char kPreviewClosedText[] =
    "Click on the small preview pictures to open a larger preview picture";
inline constexpr char kPreviewOpenText[] = "Click on the preview picture to Close the picture";

}  // namespace nimbrel
