#pragma once

// Texts of the locale service with placeholders such as "%AppName%". They are replaced after the
// translation, so that one entry of a catalogue serves every value.

#include <string>

/// The text for the key, with every `placeholder` replaced by the value as it stands.
std::string local_text_with(const char* key, const char* placeholder, const std::string& value);

/// A name as the user's language writes it; an empty one stays empty.
std::string local_name(const std::string& name);

/// The text for the key with the application's name, itself localised, for "%AppName%".
std::string local_text_with_app(const char* key);

/// The text for the key, a label, without the colon that leads to what it labels.
std::string local_caption(const char* key);

/// What the name of a relabelled control holds: its shortcut character, and after it the key of
/// its label, which is empty when the name is a single character.
struct TNamedLabel {
    std::string shortcut;
    std::string key;
};
TNamedLabel named_label(const std::string& viewName);
