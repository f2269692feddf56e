#pragma once

#include <Qt>

#include "toolkit/native_window.h"

namespace toolkit {

/// Shown and hidden forms. A form that is shown gets its window at the next turn only, so that one
/// which is handed to SetParent, or hidden again, within the same action never flashes.

/// The top-level form appears at the next turn.
void RequestShow(NativeWindow& form);
/// The requested windows appear now.
void FlushPendingShows();
/// The top-level window appears now, above the other forms.
void ShowTopLevel(NativeWindow& form, Qt::WindowModality modality);
/// Out of sight, and every ShowModal on it ends.
void HideForm(NativeWindow& form);
/// Takes a form off the screen before it changes its parent. Its Visible stays as it was.
void DetachForm(NativeWindow& form);
/// Makes the widget's window ready for painting: shows it if that is pending, and waits up to a
/// second for a new window, without handling the user's events.
void AwaitWindow(const QWidget& widget);
/// For a window that is being destroyed: ends its ShowModal calls.
void ForgetForm(NativeWindow& window);
/// Notes the form that the user turned to last: the next one opens above it.
void NoteActivation(NativeWindow& form);
/// Whether AwaitWindow is waiting, so that no event of the user may be handled.
bool AwaitingWindow();

}  // namespace toolkit
