#pragma once

#include <QEvent>
#include <QPoint>
#include <cstdint>

#include "toolkit/native_window.h"

namespace toolkit {

/// The native tooltip class: windows that show a text while the pointer rests on a tool.

NativeWindow* CreateTooltip(NativeWindow* parent);
bool DestroyTooltip(NativeWindow& tooltip);
/// The messages that a tooltip serves; 0 for others and for windows of another class.
std::intptr_t TooltipMessage(NativeWindow& window, std::uint32_t message, std::uintptr_t wparam,
                             std::intptr_t lparam);

/// A mouse event, leaving or hiding of a window that may be a tool or lie on one.
void TipsSeeMouse(const NativeWindow& window, QEvent::Type type, QPoint position);
/// A window is being destroyed: it is no tool any more, and tooltips that belong to it go.
void ForgetTool(NativeWindow& window);

}  // namespace toolkit
