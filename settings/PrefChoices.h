#pragma once

// What the preferences dialog lets the user choose from, as keys for the locale service.

#include "settings/Prefs.h"

constexpr int32 kCommentEncodingCount = 5;
constexpr int32 kEncodingSeparator = 3;

/// How comment files are encoded, by comment_encoding; "-" is the separator.
extern const char LKK_MITEM_ENCODING[kCommentEncodingCount][32];

/// Which colour is edited, by pref_color.
extern const char LKK_POPMITEM_COL_TARGET[kPrefColorCount][32];
