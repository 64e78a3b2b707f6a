#include <support/String.h>

#include <algorithm>
#include <charconv>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <functional>
#include <new>
#include <string_view>

#include "kits/support/StringBytes.h"

using namespace BPrivate;

BString::BString(const char* string) : fData(view_of(string)) {}

BString::BString(const char* string, int32 maxLength) : fData(view_of(string, maxLength)) {}

// #pragma mark - Characters

int32 BString::CountChars() const {
    return static_cast<int32>(std::count_if(fData.begin(), fData.end(), begins_character));
}

int32 BString::CountBytes(int32 fromCharOffset, int32 charCount) const {
    const std::size_t from = character_offset(fData, 0, fromCharOffset);
    return static_cast<int32>(character_offset(fData, from, charCount) - from);
}

char BString::ByteAt(int32 offset) const {
    return offset >= 0 && offset < Length() ? fData[static_cast<std::size_t>(offset)] : '\0';
}

void BString::SetByteAt(int32 offset, char to) {
    if (offset >= 0 && offset < Length())
        fData[static_cast<std::size_t>(offset)] = to;
}

uint32 BString::HashValue() const {
    return static_cast<uint32>(std::hash<std::string>()(fData));
}

// #pragma mark - Assigning

BString& BString::SetTo(const char* string) {
    fData.assign(view_of(string));
    return *this;
}

BString& BString::SetTo(const char* string, int32 maxLength) {
    fData.assign(view_of(string, maxLength));
    return *this;
}

BString& BString::SetTo(const BString& from) {
    fData = from.fData;
    return *this;
}

BString& BString::SetTo(const BString& from, int32 length) {
    fData.assign(view_of(from, length));
    return *this;
}

BString& BString::SetTo(char c, int32 count) {
    fData.assign(at_least_0(count), c);
    return *this;
}

BString& BString::Adopt(BString& from) {
    if (this != &from) {
        fData = std::move(from.fData);
        from.fData.clear();
    }
    return *this;
}

BString& BString::Adopt(BString& from, int32 length) {
    return Adopt(from).Truncate(length);
}

BString& BString::SetToFormat(const char* format, ...) {
    va_list args;
    va_start(args, format);
    va_list again;
    va_copy(again, args);
    const int length = std::vsnprintf(nullptr, 0, format, args);
    va_end(args);
    std::string text;
    if (length > 0) {
        text.resize(static_cast<std::size_t>(length));
        // The NUL goes where the string has its own.
        std::vsnprintf(text.data(), text.size() + 1, format, again);
    }
    va_end(again);
    fData = std::move(text);
    return *this;
}

BString& BString::CopyInto(BString& into, int32 fromOffset, int32 length) const {
    into.fData.assign(part_of(fData, fromOffset, length));
    return into;
}

void BString::CopyInto(char* into, int32 fromOffset, int32 length) const {
    const std::string_view part = part_of(fData, fromOffset, length);
    if (into != nullptr)
        std::copy(part.begin(), part.end(), into);
}

BString& BString::MoveInto(BString& into, int32 fromOffset, int32 length) {
    if (this == &into)
        return CopyInto(into, fromOffset, length);
    CopyInto(into, fromOffset, length);
    Remove(fromOffset, length);
    return into;
}

void BString::MoveInto(char* into, int32 fromOffset, int32 length) {
    CopyInto(into, fromOffset, length);
    Remove(fromOffset, length);
}

// #pragma mark - Adding

BString& BString::Append(const BString& string) {
    return Insert(string, Length());
}

BString& BString::Append(const BString& string, int32 length) {
    return Insert(string, length, Length());
}

BString& BString::Append(const char* string) {
    return Insert(string, Length());
}

BString& BString::Append(const char* string, int32 maxLength) {
    return Insert(string, maxLength, Length());
}

BString& BString::Append(char c, int32 count) {
    return Insert(c, count, Length());
}

BString& BString::Prepend(const BString& string) {
    return Insert(string, 0);
}

BString& BString::Prepend(const BString& string, int32 length) {
    return Insert(string, length, 0);
}

BString& BString::Prepend(const char* string) {
    return Insert(string, 0);
}

BString& BString::Prepend(const char* string, int32 maxLength) {
    return Insert(string, maxLength, 0);
}

BString& BString::Prepend(char c, int32 count) {
    return Insert(c, count, 0);
}

BString& BString::Insert(const char* string, int32 atOffset) {
    insert_into(fData, view_of(string), atOffset);
    return *this;
}

BString& BString::Insert(const char* string, int32 maxLength, int32 atOffset) {
    insert_into(fData, view_of(string, maxLength), atOffset);
    return *this;
}

BString& BString::Insert(const BString& string, int32 atOffset) {
    insert_into(fData, string.fData, atOffset);
    return *this;
}

BString& BString::Insert(const BString& string, int32 length, int32 atOffset) {
    insert_into(fData, view_of(string, length), atOffset);
    return *this;
}

BString& BString::Insert(char c, int32 count, int32 atOffset) {
    const std::size_t added = at_least_0(count);
    if (atOffset >= 0 && atOffset <= Length() && fits(fData.size() + added))
        fData.insert(static_cast<std::size_t>(atOffset), added, c);
    return *this;
}

BString& BString::operator<<(int value) {
    return *this << static_cast<long long>(value);
}

BString& BString::operator<<(unsigned int value) {
    return *this << static_cast<unsigned long long>(value);
}

BString& BString::operator<<(long value) {
    return *this << static_cast<long long>(value);
}

BString& BString::operator<<(unsigned long value) {
    return *this << static_cast<unsigned long long>(value);
}

BString& BString::operator<<(long long value) {
    return Append(std::to_string(value).c_str());
}

BString& BString::operator<<(unsigned long long value) {
    return Append(std::to_string(value).c_str());
}

BString& BString::operator<<(float value) {
    return *this << static_cast<double>(value);
}

BString& BString::operator<<(double value) {
    // Not printf(), which would write the point that the process's locale has. The largest
    // number has 309 digits before the point.
    char text[320];
    const auto [end, error] =
        std::to_chars(text, text + sizeof(text), value, std::chars_format::fixed, 2);
    return error == std::errc() ? Append(text, static_cast<int32>(end - text)) : *this;
}

// #pragma mark - Removing

BString& BString::Truncate(int32 newLength, bool) {
    if (newLength < Length())
        fData.resize(at_least_0(newLength));
    return *this;
}

BString& BString::TruncateChars(int32 newCharCount, bool) {
    fData.resize(character_offset(fData, 0, newCharCount));
    return *this;
}

BString& BString::Remove(int32 fromOffset, int32 length) {
    const std::string_view part = part_of(fData, fromOffset, length);
    fData.erase(static_cast<std::size_t>(part.data() - fData.data()), part.size());
    return *this;
}

BString& BString::RemoveChars(int32 fromCharOffset, int32 charCount) {
    const std::size_t from = character_offset(fData, 0, fromCharOffset);
    fData.erase(from, character_offset(fData, from, charCount) - from);
    return *this;
}

// #pragma mark - Direct access

char* BString::LockBuffer(int32 maxLength) {
    try {
        fData.resize(std::max(at_least_0(maxLength), fData.size()));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return fData.data();
}

BString& BString::UnlockBuffer(int32 length) {
    const std::size_t used =
        length >= 0 ? static_cast<std::size_t>(length) : strnlen(fData.c_str(), fData.size());
    fData.resize(std::min(used, fData.size()));
    return *this;
}
