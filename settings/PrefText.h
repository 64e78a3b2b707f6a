#pragma once

// The texts of the preferences dialog's fields and the values they stand for. Pure functions.

#include <string>
#include <support/SupportDefs.h>

/// The nearest value of the range; the minimum for one that is no number.
float adjust_value(float value, float min, float max);

/// The whole number the text starts with, behind blanks; 0 when there is none. One too big for
/// any use is as big as can be.
float whole_number(const std::string& text);
/// The number the text starts with, its decimals behind a point or a comma; 0 when there is none.
float decimal_number(const std::string& text);

/// Without the decimals. Every value has a text, whatever a settings file holds.
std::string whole_text(float value);
/// With as many decimals as tell it from all other values.
std::string decimal_text(float value);

/// What the user typed as an extension of comment files: in lower case (of the letters A to Z: how
/// others change depends on the language, and a file's name is found byte by byte), without blanks
/// around it and dots before it. Empty when no file name can end with it.
std::string comment_file_ext(const std::string& typed);
