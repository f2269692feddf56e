#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "toolkit/forms.h"

namespace nimbrel {

/// The large picture of one option, over a part of the page it was opened from. It exists once and
/// is never on a page that is not shown.
struct frm_Preview {
  frm_Preview();
  toolkit::Form form{"frm_Preview"};
};
/// The form, loaded at the first call.
frm_Preview& PreviewForm();

/// What the hint labels of the pages with small previews say.
inline constexpr char kPreviewClosedText[] =
    "Click on the small preview pictures to open a larger preview picture";
inline constexpr char kPreviewOpenText[] = "Click on the preview picture to Close the picture";

/// Shows an option's picture at `left`, `top` pixels of the page, or swaps the picture when it is
/// open already, and sets the hint label.
void OpenPreview(std::int16_t family, std::int16_t group, std::int16_t option, toolkit::Form& page,
                 int left, int top);
/// Takes it out of its page and hides it; does nothing when it is closed.
void ClosePreview();
bool PreviewIsOpen();
/// The place in kOptionGroups of the group whose picture stands large on that page, if one does. A
/// page that shows other options calls OpenPreview for it again: it would go on showing the old
/// one.
std::optional<std::size_t> PreviewedGroup(const toolkit::Form& page);
/// For shutdown: gives it its old parent back and hides it, nothing else.
void ReleasePreview();

}  // namespace nimbrel
