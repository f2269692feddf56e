#pragma once

#include <cstdint>
#include <string>

#include "shell/RingPlan.h"

namespace nimbrel {

/// What the four round buttons of the ring pages do. A turn brings another group to the front and
/// changes no selection; a step changes the front group's option and turns nothing.

void TurnCloudRing(TurnDirection direction);
void TurnWaterRing(TurnDirection direction);
void TurnSkyRing(TurnDirection direction);

/// One option down (-1) or up (1), ending at 0 and at the group's HighestIndex.
void StepCloudOption(int step);
void StepWaterOption(int step);
void StepSkyOption(int step);

/// Sets the page's arrows by the front group's option. Called after every step and turn, and at no
/// other time: a page that is opened keeps the states it had.
void UpdateCloudArrows();
void UpdateSkyArrows();
void UpdateWaterArrows();

/// Draws a page at rest with the group in front that it had when it was left.
void DrawCloudPage();
void DrawSkyPage();
void DrawWaterPage();

}  // namespace nimbrel
