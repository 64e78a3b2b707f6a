#pragma once

// What the parts of BString share: views that accept the arguments its functions accept.

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include <support/String.h>

namespace BPrivate {

inline std::size_t at_least_0(int32 number) {
    return static_cast<std::size_t>(std::max(number, 0));
}

inline std::string_view view_of(const char* string) {
    return string != nullptr ? std::string_view(string) : std::string_view();
}

/// At most `maxLength` bytes, which may have no NUL behind them.
inline std::string_view view_of(const char* string, int32 maxLength) {
    return string != nullptr ? std::string_view(string, strnlen(string, at_least_0(maxLength)))
                             : std::string_view();
}

inline std::string_view view_of(const BString& string) {
    return {string.String(), at_least_0(string.Length())};
}

inline std::string_view view_of(const BString& string, int32 maxLength) {
    return view_of(string).substr(0, at_least_0(maxLength));
}

/// The part of these bytes that lies inside.
inline std::string_view part_of(const std::string& bytes, int32 fromOffset, int32 length) {
    return std::string_view(bytes).substr(
        std::min(at_least_0(fromOffset), bytes.size()), at_least_0(length));
}

/// Whether a BString, which counts in int32, can be so long.
inline bool fits(std::size_t length) {
    return length <= static_cast<std::size_t>(INT32_MAX);
}

/// std::string copes with text that is a part of itself.
inline void insert_into(std::string& bytes, std::string_view text, int32 atOffset) {
    const auto offset = static_cast<std::size_t>(atOffset);
    if (atOffset >= 0 && offset <= bytes.size() && fits(bytes.size() + text.size()))
        bytes.insert(offset, text.data(), text.size());
}

/// In UTF-8 the upper two bits of every byte of a character but the first are 10.
inline bool begins_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

/// The offset of the character `count` characters after the one at `from`, or the end.
inline std::size_t character_offset(const std::string& bytes, std::size_t from, int32 count) {
    std::size_t offset = from;
    for (int32 left = count; left > 0 && offset < bytes.size(); left--) {
        do {
            offset++;
        } while (offset < bytes.size() && !begins_character(bytes[offset]));
    }
    return offset;
}

inline char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

}  // namespace BPrivate
