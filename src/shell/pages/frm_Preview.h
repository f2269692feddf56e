#pragma once

#include <cstdint>
#include <optional>

#include "settings/Groups.h"
#include "toolkit/forms.h"

namespace nimbrel {

/// The large picture of one option, over a part of the page it was opened from. It exists once and
/// is never on a page that is not shown.
struct frm_Preview {
  frm_Preview();

  toolkit::Form form{"frm_Preview"};
  const toolkit::Form* page = nullptr;  ///< it was last opened on
  Group group{};                        ///< of the picture last shown
};

/// Shows an option's picture at `left`, `top` pixels of the page, or changes the picture if it is
/// open already, and sets the hint labels.
void OpenPreview(Group group, std::int16_t option, toolkit::Form& page, int left, int top);
/// Takes it out of its page, hides it and sets the hint labels; does nothing if it is closed.
void ClosePreview();
/// Like ClosePreview, but leaves the hint labels: for shutdown.
void ReleasePreview();
bool PreviewIsOpen();
/// The group whose picture is open on that page. A page that comes to show other options calls
/// OpenPreview for the group again, or the picture would be an old one.
std::optional<Group> PreviewedGroup(const toolkit::Form& page);

}  // namespace nimbrel
