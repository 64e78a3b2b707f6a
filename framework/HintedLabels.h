#pragma once

#include <string>

/// The format in force for the hints of keys in labels, as merge_accelerator_key() takes it. The
/// application gives it, since it knows the preferences that it shares with others (app/Globals.cpp).
/// May be called from any thread.
std::string accelerator_key_format();

/// Labels in the user's language with the hint for their key merged in, in the format in force
/// when it is made.
///
///     const THintedLabels labels;
///     button->SetLabel(labels("Defaults", "D").c_str());
///
/// May be used from any thread.
class THintedLabels {
public:
    THintedLabels();

    /// @param key    the label's key in the catalogues
    /// @param letter the key on the keyboard
    std::string operator()(const char* key, const char* letter) const;

    const std::string& Format() const { return fFormat; }
    /// The letter where labels have no hint, for menus to underline it; else 0, and it is the hint
    /// that counts.
    char Trigger(const char* letter) const;

private:
    std::string fFormat;
};
