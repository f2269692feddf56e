#pragma once

#include <string_view>

#include "settings/Groups.h"
#include "shell/rings/RingPlan.h"

namespace nimbrel {

/// What the four round buttons of a ring page do. A turn brings another group to the front and
/// changes no selection; a step changes the front group's option and turns nothing.

void TurnRing(Family family, TurnDirection direction);

/// One option down (-1) or up (1), ending at 0 and at the group's highest index.
void StepOption(Family family, int step);

/// Does what a button of a ring page does. False if no ring page has this name.
bool RunRingClick(std::string_view form_name, std::string_view button_type);

/// Sets the page's arrows by the front group's option. Called after every step and turn, and at no
/// other time: a page that is opened keeps the states it had.
void UpdateCloudArrows();
void UpdateSkyArrows();
void UpdateWaterArrows();

/// Draws a page at rest with the group in front that it had when it was left.
void DrawAtRest(Family family);

}  // namespace nimbrel
