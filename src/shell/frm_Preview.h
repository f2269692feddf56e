#pragma once

#include <cstdint>

#include "platform/forms.h"

namespace nimbrel {

struct frm_Preview {
  frm_Preview();
  platform::Form form;
};
/// The form, loaded at the first call.
frm_Preview& PreviewForm();

/// Shows an option's picture at `left`, `top` pixels of the page, or swaps the picture when it is
/// open already, and sets the hint label.
void OpenPreview(std::int16_t family, std::int16_t group, std::int16_t option, platform::Form& page,
                 int left, int top);
/// Takes it out of its page and hides it; does nothing when it is closed.
void ClosePreview();
bool PreviewIsOpen();
/// For shutdown: gives it its old parent back and hides it, nothing else.
void ReleasePreview();

}  // namespace nimbrel
