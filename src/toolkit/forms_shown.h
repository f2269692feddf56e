#pragma once

#include <Qt>

#include "toolkit/native_window.h"

namespace toolkit {

/// Shown and hidden forms. A form that is shown gets its window at the next turn only, so that one
/// which is handed to SetParent, or hidden again, within the same action never flashes.

/// Notes that the top-level form is to appear.
void RequestShow(NativeWindow& form);
/// The windows that were noted appear now.
void FlushPendingShows();
/// The top-level window appears now, above the other forms.
void ShowTopLevel(NativeWindow& form, Qt::WindowModality modality);
/// Out of sight, and every ShowModal on it ends.
void HideForm(NativeWindow& form);
/// Takes a form off the screen that is about to change its parent; it counts as shown as before.
void DetachForm(NativeWindow& form);
/// Makes the widget's window ready for painting: a noted one appears, and one that just did is
/// awaited, at most a second, without handling the user's events.
void AwaitWindow(const QWidget& widget);
/// A window that is being destroyed: its ShowModal calls end.
void ForgetForm(NativeWindow& window);
/// The form that had the user's attention last, for what opens above it.
void NoteActivation(NativeWindow& form);
/// Whether a wait for a window is under way, in which nothing of the user's may be handled.
bool AwaitingWindow();

}  // namespace toolkit
