#include "kits/support/JisReader.h"

#include <string_view>

namespace BPrivate {

namespace {

constexpr unsigned char kEscape = 0x1b;
constexpr unsigned char kOut = 0x0e;
constexpr unsigned char kIn = 0x0f;

struct Sequence {
    std::string_view bytes;  // behind the escape
    JisReader::Set set;
};

constexpr Sequence kSequences[] = {
    {"(B", JisReader::kAscii}, {"(J", JisReader::kRoman},
    {"(H", JisReader::kRoman},                                // wrong, but old programs wrote it
    {"(I", JisReader::kKatakana}, {"$@", JisReader::kKanji},  // JIS C 6226-1978
    {"$B", JisReader::kKanji},                                // JIS X 0208-1983
    {"$(@", JisReader::kKanji}, {"$(B", JisReader::kKanji},
    {"&@\x1b$B", JisReader::kKanji},  // JIS X 0208-1990
    {"$(D", JisReader::kUnknown},     // JIS X 0212
};

bool IsKanjiByte(unsigned char byte) {
    return byte >= 0x21 && byte <= 0x7e;
}

/// Rows of 94 become half-rows of 188; the trail bytes leave out 0x7f.
void ToShiftJis(unsigned char row, unsigned char cell, char* bytes) {
    const int lead = ((row - 0x21) >> 1) + (row < 0x5f ? 0x81 : 0xc1);
    int trail = 0;
    if (row % 2 != 0)
        trail = cell + (cell < 0x60 ? 0x1f : 0x20);
    else
        trail = cell + 0x7e;
    bytes[0] = static_cast<char>(lead);
    bytes[1] = static_cast<char>(trail);
}

}  // namespace

std::optional<JisReader::Character> JisReader::Next(std::span<const char> text) {
    const auto byte = static_cast<unsigned char>(text[0]);
    switch (byte) {
    case kEscape: return Escape(text);
    case kOut: fState |= kShiftOut; return Character{.read = 1};
    case kIn: fState &= ~kShiftOut; return Character{.read = 1};
    case '\n':
    case '\r':
        // Every line begins in ASCII, whatever was left open by a damaged one.
        fState = kAscii;
        return Character{1, 1, {text[0], 0}};
    default: break;
    }
    if (byte <= 0x20 || byte == 0x7f)
        return Character{1, 1, {text[0], 0}};
    if (byte >= 0xa1 && byte <= 0xdf)
        return Character{1, 1, {text[0], 0}};
    if (byte >= 0x80)
        return Character{.read = 1, .bad = true};
    if ((fState & kShiftOut) != 0 || fState == kKatakana) {
        if (byte > 0x5f)
            return Character{.read = 1, .bad = true};
        return Character{1, 1, {static_cast<char>(byte | 0x80), 0}};
    }
    if (fState == kAscii || fState == kRoman)
        return Character{1, 1, {text[0], 0}};
    // Two bytes a character.
    if (text.size() < 2)
        return std::nullopt;
    const auto second = static_cast<unsigned char>(text[1]);
    if (!IsKanjiByte(second))
        return Character{.read = 1, .bad = true};
    if (fState == kUnknown)
        return Character{.read = 2, .bad = true};
    Character character{.read = 2, .length = 2};
    ToShiftJis(byte, second, character.bytes);
    return character;
}

std::optional<JisReader::Character> JisReader::Escape(std::span<const char> text) {
    const std::string_view rest(text.data() + 1, text.size() - 1);
    for (const Sequence& sequence : kSequences) {
        if (rest.starts_with(sequence.bytes)) {
            fState = sequence.set;
            return Character{.read = static_cast<int32>(sequence.bytes.size()) + 1};
        }
    }
    for (const Sequence& sequence : kSequences) {
        if (sequence.bytes.starts_with(rest))
            return std::nullopt;
    }
    return Character{.read = 1, .bad = true};
}

}  // namespace BPrivate
