#pragma once

#include <optional>
#include <span>
#include <support/SupportDefs.h>

namespace BPrivate {

/// Reads ISO-2022-JP and its 7-bit and 8-bit relatives, character by character, as the bytes of
/// the same character in Shift-JIS.
///
/// By hand, because the C library's converter refuses what code page 932 adds to JIS X 0208, which
/// mail and text programs have always written in this encoding.
class JisReader {
public:
    /// What a text is in the middle of; all of it fits the state of convert_to_utf8().
    enum Set : int32 {
        kAscii = 0,
        kRoman,             // JIS X 0201, left half
        kKatakana,          // JIS X 0201, right half
        kKanji,             // JIS X 0208
        kUnknown,           // escape sequences of sets that cannot be shown
        kShiftOut = 0x100,  // a bit: half-width katakana until shift-in
    };

    explicit JisReader(int32 state) : fState(state) {}

    int32 State() const { return fState; }

    struct Character {
        int32 read = 0;    ///< bytes of the source
        int32 length = 0;  ///< bytes of `bytes`; 0 for what only changes the state
        char bytes[2] = {};
        bool bad = false;  ///< means nothing
    };

    /// The first character of the text, which is not empty; nothing when it is cut off.
    std::optional<Character> Next(std::span<const char> text);

private:
    std::optional<Character> Escape(std::span<const char> text);

    int32 fState;
};

}  // namespace BPrivate
