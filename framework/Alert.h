#pragma once

#include <interface/Alert.h>
#include <support/SupportDefs.h>

/// Asks the user, and waits for the answer in the calling thread; all windows but the caller's own
/// go on. The alert bears the application's name, and shows `text` and, two line ends below it,
/// `hint`.
///
/// A null button ends the list. Each button answers to the letter its label shows. The one at
/// `escapeIndex`, which is to be the one that changes nothing, answers to Escape as well, and to
/// Enter until the user moves the focus; without it Enter is for the last.
///
/// @return the index of the button chosen; `escapeIndex` when the application quits unanswered, so
/// that nobody takes the end for an agreement, or -1 when no button has that index
int32 show_alert(const char* text, const char* hint, const char* button0, const char* button1,
    const char* button2, int32 escapeIndex, alert_type type);

/// Tells the user of a failure, with one button to say that it was understood.
void show_error(const char* text, const char* hint);
