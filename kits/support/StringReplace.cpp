#include <algorithm>
#include <string_view>

#include <support/String.h>

#include "kits/support/StringBytes.h"

using namespace BPrivate;

namespace {

enum class Case { kExact, kIgnored };

int32 offset_or_error(std::size_t found) {
    return found == std::string::npos ? B_ERROR : static_cast<int32>(found);
}

int32 find_first(std::string_view text, std::string_view needle, int32 fromOffset) {
    return offset_or_error(text.find(needle, at_least_0(fromOffset)));
}

int32 find_last(std::string_view text, std::string_view needle, int32 beforeOffset) {
    return offset_or_error(text.substr(0, at_least_0(beforeOffset)).rfind(needle));
}

/// Replaces up to `maxCount` places. The text is written anew once, however many there are.
void replace(std::string& text, const char* replaceThis, const char* withThis, int32 maxCount,
    int32 fromOffset, Case letters) {
    const std::string_view asked = view_of(replaceThis);
    const std::string_view with = view_of(withThis);
    if (asked.empty())
        return;
    const bool ignored = letters == Case::kIgnored;
    const std::string needle = ignored ? lowered(asked) : std::string(asked);
    const std::string searched = ignored ? lowered(text) : std::string();
    const std::string& haystack = ignored ? searched : text;

    std::string result;
    std::size_t copied = 0;
    std::size_t found = haystack.find(needle, at_least_0(fromOffset));
    for (int32 left = maxCount; left > 0 && found != std::string::npos; left--) {
        result.append(text, copied, found - copied).append(with);
        copied = found + needle.size();
        found = haystack.find(needle, copied);
    }
    if (copied == 0)
        return;
    result.append(text, copied);
    if (fits(result.size()))
        text = std::move(result);
}

/// Replaces the place at `offset`, if it is one.
void replace_at(std::string& text, int32 offset, std::size_t length, const char* with) {
    const std::string_view added = view_of(with);
    if (offset >= 0 && length > 0 && fits(text.size() + added.size()))
        text.replace(static_cast<std::size_t>(offset), length, added.data(), added.size());
}

void replace_bytes(std::string& text, char replaceThis, char withThis, int32 maxCount,
    int32 fromOffset, Case letters) {
    const char needle = letters == Case::kIgnored ? lower(replaceThis) : replaceThis;
    int32 left = maxCount;
    for (std::size_t i = at_least_0(fromOffset); left > 0 && i < text.size(); i++) {
        if ((letters == Case::kIgnored ? lower(text[i]) : text[i]) == needle) {
            text[i] = withThis;
            left--;
        }
    }
}

}  // namespace

// #pragma mark - Finding

int32 BString::FindFirst(const char* string, int32 fromOffset) const {
    return string != nullptr ? find_first(fData, string, fromOffset) : B_BAD_VALUE;
}

int32 BString::FindFirst(char c, int32 fromOffset) const {
    return find_first(fData, {&c, 1}, fromOffset);
}

int32 BString::FindLast(const char* string, int32 beforeOffset) const {
    return string != nullptr ? find_last(fData, string, beforeOffset) : B_BAD_VALUE;
}

int32 BString::FindLast(char c, int32 beforeOffset) const {
    return find_last(fData, {&c, 1}, beforeOffset);
}

int32 BString::IFindFirst(const char* string, int32 fromOffset) const {
    return string != nullptr ? find_first(lowered(fData), lowered(string), fromOffset)
                             : B_BAD_VALUE;
}

int32 BString::IFindLast(const char* string, int32 beforeOffset) const {
    return string != nullptr ? find_last(lowered(fData), lowered(string), beforeOffset)
                             : B_BAD_VALUE;
}

// #pragma mark - Replacing

BString& BString::ReplaceFirst(char replaceThis, char withThis) {
    return Replace(replaceThis, withThis, 1);
}

BString& BString::ReplaceLast(char replaceThis, char withThis) {
    SetByteAt(FindLast(replaceThis), withThis);
    return *this;
}

BString& BString::ReplaceAll(char replaceThis, char withThis, int32 fromOffset) {
    return Replace(replaceThis, withThis, INT32_MAX, fromOffset);
}

BString& BString::Replace(char replaceThis, char withThis, int32 maxCount, int32 fromOffset) {
    replace_bytes(fData, replaceThis, withThis, maxCount, fromOffset, Case::kExact);
    return *this;
}

BString& BString::ReplaceFirst(const char* replaceThis, const char* withThis) {
    return Replace(replaceThis, withThis, 1);
}

BString& BString::ReplaceLast(const char* replaceThis, const char* withThis) {
    replace_at(fData, FindLast(replaceThis), view_of(replaceThis).size(), withThis);
    return *this;
}

BString& BString::ReplaceAll(const char* replaceThis, const char* withThis, int32 fromOffset) {
    return Replace(replaceThis, withThis, INT32_MAX, fromOffset);
}

BString& BString::Replace(
    const char* replaceThis, const char* withThis, int32 maxCount, int32 fromOffset) {
    replace(fData, replaceThis, withThis, maxCount, fromOffset, Case::kExact);
    return *this;
}

BString& BString::IReplaceFirst(char replaceThis, char withThis) {
    return IReplace(replaceThis, withThis, 1);
}

BString& BString::IReplaceLast(char replaceThis, char withThis) {
    const char needle[] = {replaceThis, '\0'};
    SetByteAt(IFindLast(needle), withThis);
    return *this;
}

BString& BString::IReplaceAll(char replaceThis, char withThis, int32 fromOffset) {
    return IReplace(replaceThis, withThis, INT32_MAX, fromOffset);
}

BString& BString::IReplace(char replaceThis, char withThis, int32 maxCount, int32 fromOffset) {
    replace_bytes(fData, replaceThis, withThis, maxCount, fromOffset, Case::kIgnored);
    return *this;
}

BString& BString::IReplaceFirst(const char* replaceThis, const char* withThis) {
    return IReplace(replaceThis, withThis, 1);
}

BString& BString::IReplaceLast(const char* replaceThis, const char* withThis) {
    replace_at(fData, IFindLast(replaceThis), view_of(replaceThis).size(), withThis);
    return *this;
}

BString& BString::IReplaceAll(const char* replaceThis, const char* withThis, int32 fromOffset) {
    return IReplace(replaceThis, withThis, INT32_MAX, fromOffset);
}

BString& BString::IReplace(
    const char* replaceThis, const char* withThis, int32 maxCount, int32 fromOffset) {
    replace(fData, replaceThis, withThis, maxCount, fromOffset, Case::kIgnored);
    return *this;
}

BString& BString::ReplaceSet(const char* set, char with) {
    const char text[] = {with, '\0'};
    return ReplaceSet(set, text);
}

BString& BString::ReplaceSet(const char* set, const char* with) {
    const std::string_view bytes = view_of(set);
    std::string result;
    for (const char c : fData) {
        if (bytes.find(c) != std::string_view::npos)
            result.append(view_of(with));
        else
            result.push_back(c);
    }
    if (fits(result.size()))
        fData = std::move(result);
    return *this;
}

// #pragma mark - Removing what was found

BString& BString::RemoveFirst(const char* string) {
    return ReplaceFirst(string, "");
}

BString& BString::RemoveLast(const char* string) {
    return ReplaceLast(string, "");
}

BString& BString::RemoveAll(const char* string) {
    return ReplaceAll(string, "");
}

BString& BString::RemoveSet(const char* set) {
    return ReplaceSet(set, "");
}

BString& BString::Trim() {
    constexpr const char* kSpaces = " \t\n\v\f\r";
    const std::size_t first = fData.find_first_not_of(kSpaces);
    if (first == std::string::npos) {
        fData.clear();
        return *this;
    }
    fData.resize(fData.find_last_not_of(kSpaces) + 1);
    fData.erase(0, first);
    return *this;
}

// #pragma mark - Cases and escapes

BString& BString::ToLower() {
    std::transform(fData.begin(), fData.end(), fData.begin(), lower);
    return *this;
}

BString& BString::ToUpper() {
    std::transform(fData.begin(), fData.end(), fData.begin(), upper);
    return *this;
}

BString& BString::Capitalize() {
    ToLower();
    if (!fData.empty())
        fData[0] = upper(fData[0]);
    return *this;
}

BString& BString::CapitalizeEachWord() {
    bool inWord = false;
    for (char& c : fData) {
        c = inWord ? lower(c) : upper(c);
        // A byte of a character beyond ASCII is a part of a word as much as a letter is.
        inWord = static_cast<unsigned char>(c) >= 0x80 || lower(c) != upper(c);
    }
    return *this;
}

BString& BString::CharacterEscape(const char* original, const char* set, char escapeWith) {
    const std::string_view bytes = view_of(set);
    std::string result;
    for (const char c : view_of(original)) {
        if (bytes.find(c) != std::string_view::npos)
            result.push_back(escapeWith);
        result.push_back(c);
    }
    if (fits(result.size()))
        fData = std::move(result);
    return *this;
}

BString& BString::CharacterEscape(const char* set, char escapeWith) {
    return CharacterEscape(fData.c_str(), set, escapeWith);
}

BString& BString::CharacterDeescape(const char* original, char escapeChar) {
    std::string result;
    bool escaped = false;
    for (const char c : view_of(original)) {
        escaped = !escaped && c == escapeChar;
        if (!escaped)
            result.push_back(c);
    }
    fData = std::move(result);
    return *this;
}

BString& BString::CharacterDeescape(char escapeChar) {
    return CharacterDeescape(fData.c_str(), escapeChar);
}
