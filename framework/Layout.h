#pragma once

#include <support/SupportDefs.h>

class BMessage;

/// Reads the layout of that name among the application's resources: the archive of a view.
/// @return `B_OK`; `B_NAME_NOT_FOUND` when there is none of that name, `B_BAD_DATA` when it is no
///     archive of a BView; the archive is left as it was then
status_t load_layout(const char* name, BMessage* archive);
