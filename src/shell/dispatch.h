#pragma once

#include <string>

#include "widgets/SkinnedButtons.h"

namespace nimbrel {

/// The action of every click that the ButtonContext of the shell dispatches: of skinned buttons,
/// and of the labels that act like one.
void RunClick(ButtonClass button_class, const std::string& form_name,
              const std::string& button_type);

}  // namespace nimbrel
