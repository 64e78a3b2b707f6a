#pragma once

// The locale service: the texts that the user reads, in the user's language.
//
// All of it may be used from any thread at any time, also while the catalogue is exchanged.

/// Looks texts up in the catalogue of the current language.
class BLocale {
public:
    /// The text for a key: an entry of the catalogue, or the key itself (the very pointer) if
    /// there is none. What the catalogue answers stays valid until the program ends. Null gives
    /// an empty string.
    const char* GetString(const char* key) const;
};

/// The one locale of the program.
extern BLocale* be_locale;
