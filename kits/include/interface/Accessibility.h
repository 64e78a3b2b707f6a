#pragma once

class BView;

// What assistive programs, such as screen readers, tell people of a view, in the user's language.
// The platform has nothing of the kind: where the kits are the system's own, both do nothing.
//
// A control is called by its label without this, a text by what it says. A view that draws itself
// is not told of until it has a name; then it is told of as a picture.
//
// Under the lock of the view's window. Null is no text.

/// What the view is called.
void set_accessible_name(BView* view, const char* name);

/// What there is to know besides: what a text stands for, what a picture is of.
void set_accessible_description(BView* view, const char* description);
