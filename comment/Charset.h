#pragma once

// Telling how a text is written from its bytes. Texts end at their NUL.

#include <support/SupportDefs.h>

/// The conversion that makes UTF-8 of the text: `B_JIS_CONVERSION` when an escape byte stands
/// anywhere in it, else `B_SJIS_CONVERSION` when it is not UTF-8, else 0, for none.
uint32 detect_charset(const char* text);

/// How lines end, by what most of them have: 0 with LF or when there is only one line, 1 with both
/// CR and LF, 2 with CR.
int detect_cr_type(const char* text);
