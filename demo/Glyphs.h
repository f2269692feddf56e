#pragma once

#include <QPainter>
#include <QRectF>
#include <string_view>

namespace demo {

/// Draws the sign of a button or an icon inside `box`. The name is that of the artwork without its
/// "btn_" or "icon_"; an unknown one draws nothing.
void DrawGlyph(QPainter& painter, std::string_view name, const QRectF& box, const QColor& color);

}  // namespace demo
