#pragma once

// The hint of a keyboard shortcut within a label, such as the "(O)" of "Open(O)...".
//
// A format is a string whose first byte says where the hint goes (1 before the label, 2 after
// it) and whose rest is the hint, with the letter "a" in place of the key. The empty format gives
// no hint.

#include <string>

class BButton;

/// The label with the hint for `key` merged in. A hint after the label stands before what
/// decorates its end: "...", " [Space]", a colon.
std::string merge_accelerator_key(
    const std::string& format, const std::string& key, const std::string& label);

/// The key a merged label shows, in lower case so that it compares with a key press's "raw_char";
/// 0 if it shows none.
char short_cut_from_label(const std::string& label);

/// Presses the button visibly for a twentieth of a second, then invokes it. Its window's thread,
/// which sleeps for that time.
void click_button(BButton* button);
