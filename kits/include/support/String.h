#pragma once

// A string of bytes, ended by a NUL when seen as a C string, and meant to be UTF-8.
//
// Lengths and offsets are in bytes unless a name says `Chars`; a character is a UTF-8 sequence.
// A null `const char*` is taken as an empty string, an offset outside is brought inside, and
// where a function takes a `maxLength` the C string may also end earlier. Cases are those of the
// letters A to Z; other characters have one case only. An argument may be (a part of) the string
// itself. Not for use from several threads without a lock.

#include <compare>
#include <string>

#include <support/SupportDefs.h>

class BString {
public:
    BString() = default;
    BString(const char* string);
    BString(const char* string, int32 maxLength);
    BString(const BString& string) = default;
    BString(BString&& string) noexcept = default;
    ~BString() = default;

    const char* String() const { return fData.c_str(); }
    int32 Length() const { return static_cast<int32>(fData.size()); }
    bool IsEmpty() const { return fData.empty(); }
    /// How many characters: every byte that does not continue one begins one.
    int32 CountChars() const;
    /// How many bytes `charCount` characters take from the character at `fromCharOffset` on.
    int32 CountBytes(int32 fromCharOffset, int32 charCount) const;
    /// 0 outside.
    char ByteAt(int32 offset) const;
    void SetByteAt(int32 offset, char to);
    char operator[](int32 offset) const { return fData[static_cast<std::size_t>(offset)]; }
    char& operator[](int32 offset) { return fData[static_cast<std::size_t>(offset)]; }
    /// Equal for equal strings.
    uint32 HashValue() const;

    // Assigning

    BString& operator=(const BString& string) = default;
    BString& operator=(BString&& string) noexcept = default;
    BString& operator=(const char* string) { return SetTo(string); }
    BString& operator=(char c) { return SetTo(c, 1); }
    BString& SetTo(const char* string);
    BString& SetTo(const char* string, int32 maxLength);
    BString& SetTo(const BString& from);
    BString& SetTo(const BString& from, int32 length);
    BString& SetTo(char c, int32 count);
    /// Takes the other's text and leaves it empty.
    BString& Adopt(BString& from);
    BString& Adopt(BString& from, int32 length);
    /// As printf() would write it.
    BString& SetToFormat(const char* format, ...) __attribute__((format(printf, 2, 3)));

    /// Copies a part into another string, or into a buffer, which gets no NUL.
    BString& CopyInto(BString& into, int32 fromOffset, int32 length) const;
    void CopyInto(char* into, int32 fromOffset, int32 length) const;
    /// The same, and removes the part here.
    BString& MoveInto(BString& into, int32 fromOffset, int32 length);
    void MoveInto(char* into, int32 fromOffset, int32 length);

    // Adding. Numbers are written in decimal; `float` and `double` with two places after a point.

    BString& operator+=(const BString& string) { return Append(string); }
    BString& operator+=(const char* string) { return Append(string); }
    BString& operator+=(char c) { return Append(c, 1); }
    BString& Append(const BString& string);
    BString& Append(const BString& string, int32 length);
    BString& Append(const char* string);
    BString& Append(const char* string, int32 maxLength);
    BString& Append(char c, int32 count);
    BString& Prepend(const BString& string);
    BString& Prepend(const BString& string, int32 length);
    BString& Prepend(const char* string);
    BString& Prepend(const char* string, int32 maxLength);
    BString& Prepend(char c, int32 count);
    /// Changes nothing when `atOffset` is outside.
    BString& Insert(const char* string, int32 atOffset);
    BString& Insert(const char* string, int32 maxLength, int32 atOffset);
    BString& Insert(const BString& string, int32 atOffset);
    BString& Insert(const BString& string, int32 length, int32 atOffset);
    BString& Insert(char c, int32 count, int32 atOffset);

    BString& operator<<(const char* string) { return Append(string); }
    BString& operator<<(const BString& string) { return Append(string); }
    BString& operator<<(char c) { return Append(c, 1); }
    BString& operator<<(bool value) { return Append(value ? "true" : "false"); }
    BString& operator<<(int value);
    BString& operator<<(unsigned int value);
    BString& operator<<(long value);
    BString& operator<<(unsigned long value);
    BString& operator<<(long long value);
    BString& operator<<(unsigned long long value);
    BString& operator<<(float value);
    BString& operator<<(double value);

    // Removing

    /// Cuts the string to at most this length. `lazy` is a hint that is not needed.
    BString& Truncate(int32 newLength, bool lazy = true);
    BString& TruncateChars(int32 newCharCount, bool lazy = true);
    BString& Remove(int32 fromOffset, int32 length);
    BString& RemoveChars(int32 fromCharOffset, int32 charCount);
    BString& RemoveFirst(const BString& string) { return RemoveFirst(string.String()); }
    BString& RemoveLast(const BString& string) { return RemoveLast(string.String()); }
    BString& RemoveAll(const BString& string) { return RemoveAll(string.String()); }
    BString& RemoveFirst(const char* string);
    BString& RemoveLast(const char* string);
    BString& RemoveAll(const char* string);
    /// Removes every byte that is one of `set`.
    BString& RemoveSet(const char* set);
    /// Removes white space at both ends.
    BString& Trim();

    // Comparing: less than, equal to or more than 0, by the bytes' values. `length`: at most so
    // many bytes of each.

    bool operator==(const BString& string) const { return fData == string.fData; }
    bool operator==(const char* string) const { return Compare(string) == 0; }
    std::strong_ordering operator<=>(const BString& string) const { return Compare(string) <=> 0; }
    std::strong_ordering operator<=>(const char* string) const { return Compare(string) <=> 0; }
    int Compare(const BString& string) const;
    int Compare(const char* string) const;
    int Compare(const BString& string, int32 length) const;
    int Compare(const char* string, int32 length) const;
    int ICompare(const BString& string) const;
    int ICompare(const char* string) const;
    int ICompare(const BString& string, int32 length) const;
    int ICompare(const char* string, int32 length) const;
    bool StartsWith(const BString& string) const { return StartsWith(string.String()); }
    bool StartsWith(const char* string) const;
    bool IStartsWith(const BString& string) const { return IStartsWith(string.String()); }
    bool IStartsWith(const char* string) const;
    bool EndsWith(const BString& string) const { return EndsWith(string.String()); }
    bool EndsWith(const char* string) const;
    bool IEndsWith(const BString& string) const { return IEndsWith(string.String()); }
    bool IEndsWith(const char* string) const;

    // Finding: the offset of the first or last place, or `B_ERROR`; `B_BAD_VALUE` for null. An
    // occurrence counts if it begins at `fromOffset` or later, or ends at `beforeOffset` or
    // earlier.

    int32 FindFirst(const BString& string) const { return FindFirst(string.String(), 0); }
    int32 FindFirst(const char* string) const { return FindFirst(string, 0); }
    int32 FindFirst(char c) const { return FindFirst(c, 0); }
    int32 FindFirst(const BString& s, int32 fromOffset) const {
        return FindFirst(s.String(), fromOffset);
    }
    int32 FindFirst(const char* string, int32 fromOffset) const;
    int32 FindFirst(char c, int32 fromOffset) const;
    int32 FindLast(const BString& string) const { return FindLast(string.String(), Length()); }
    int32 FindLast(const char* string) const { return FindLast(string, Length()); }
    int32 FindLast(char c) const { return FindLast(c, Length()); }
    int32 FindLast(const BString& s, int32 beforeOffset) const {
        return FindLast(s.String(), beforeOffset);
    }
    int32 FindLast(const char* string, int32 beforeOffset) const;
    int32 FindLast(char c, int32 beforeOffset) const;
    int32 IFindFirst(const BString& string) const { return IFindFirst(string.String(), 0); }
    int32 IFindFirst(const char* string) const { return IFindFirst(string, 0); }
    int32 IFindFirst(const BString& s, int32 fromOffset) const {
        return IFindFirst(s.String(), fromOffset);
    }
    int32 IFindFirst(const char* string, int32 fromOffset) const;
    int32 IFindLast(const BString& string) const { return IFindLast(string.String(), Length()); }
    int32 IFindLast(const char* string) const { return IFindLast(string, Length()); }
    int32 IFindLast(const BString& s, int32 beforeOffset) const {
        return IFindLast(s.String(), beforeOffset);
    }
    int32 IFindLast(const char* string, int32 beforeOffset) const;

    // Replacing: places are looked for from `fromOffset` on, and not in what was put in. An
    // empty or null text to replace changes nothing.

    BString& ReplaceFirst(char replaceThis, char withThis);
    BString& ReplaceLast(char replaceThis, char withThis);
    BString& ReplaceAll(char replaceThis, char withThis, int32 fromOffset = 0);
    BString& Replace(char replaceThis, char withThis, int32 maxCount, int32 fromOffset = 0);
    BString& ReplaceFirst(const char* replaceThis, const char* withThis);
    BString& ReplaceLast(const char* replaceThis, const char* withThis);
    BString& ReplaceAll(const char* replaceThis, const char* withThis, int32 fromOffset = 0);
    BString& Replace(
        const char* replaceThis, const char* withThis, int32 maxCount, int32 fromOffset = 0);
    BString& IReplaceFirst(char replaceThis, char withThis);
    BString& IReplaceLast(char replaceThis, char withThis);
    BString& IReplaceAll(char replaceThis, char withThis, int32 fromOffset = 0);
    BString& IReplace(char replaceThis, char withThis, int32 maxCount, int32 fromOffset = 0);
    BString& IReplaceFirst(const char* replaceThis, const char* withThis);
    BString& IReplaceLast(const char* replaceThis, const char* withThis);
    BString& IReplaceAll(const char* replaceThis, const char* withThis, int32 fromOffset = 0);
    BString& IReplace(
        const char* replaceThis, const char* withThis, int32 maxCount, int32 fromOffset = 0);
    /// Replaces every byte that is one of `set`.
    BString& ReplaceSet(const char* set, char with);
    BString& ReplaceSet(const char* set, const char* with);

    // Cases and escapes

    BString& ToLower();
    BString& ToUpper();
    BString& Capitalize();
    BString& CapitalizeEachWord();
    /// Puts `escapeWith` before every byte that is one of `set`; of `original`, or of this.
    BString& CharacterEscape(const char* original, const char* set, char escapeWith);
    BString& CharacterEscape(const char* set, char escapeWith);
    /// Takes it away again: the byte after each `escapeChar` stays as it is.
    BString& CharacterDeescape(const char* original, char escapeChar);
    BString& CharacterDeescape(char escapeChar);

    // Direct access

    /// A buffer that holds the string and has room for `maxLength` bytes and a NUL. The string
    /// must not be used before `UnlockBuffer()`. Null if there is no such memory.
    char* LockBuffer(int32 maxLength);
    /// Takes what is in the buffer: `length` bytes, or up to the first NUL if negative.
    BString& UnlockBuffer(int32 length = -1);

private:
    std::string fData;
};

/// The same orderings with the C string first, for sorting functions that take pointers.
int Compare(const BString& a, const BString& b);
int ICompare(const BString& a, const BString& b);
int Compare(const BString* a, const BString* b);
int ICompare(const BString* a, const BString* b);

inline BString operator+(const BString& a, const BString& b) {
    return BString(a).Append(b);
}
inline BString operator+(const BString& a, const char* b) {
    return BString(a).Append(b);
}
inline BString operator+(const char* a, const BString& b) {
    return BString(a).Append(b);
}
