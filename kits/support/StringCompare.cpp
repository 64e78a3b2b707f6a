#include <algorithm>
#include <string_view>

#include <support/String.h>

#include "kits/support/StringBytes.h"

using namespace BPrivate;

namespace {

int sign(int number) {
    return (number > 0) - (number < 0);
}

int compare(std::string_view a, std::string_view b) {
    // std::char_traits<char> compares as unsigned bytes.
    return sign(a.compare(b));
}

int icompare(std::string_view a, std::string_view b) {
    return compare(lowered(a), lowered(b));
}

}  // namespace

int BString::Compare(const BString& string) const {
    return compare(fData, string.fData);
}

int BString::Compare(const char* string) const {
    return compare(fData, view_of(string));
}

int BString::Compare(const BString& string, int32 length) const {
    return compare(view_of(*this, length), view_of(string, length));
}

int BString::Compare(const char* string, int32 length) const {
    return compare(view_of(*this, length), view_of(string, length));
}

int BString::ICompare(const BString& string) const {
    return icompare(fData, string.fData);
}

int BString::ICompare(const char* string) const {
    return icompare(fData, view_of(string));
}

int BString::ICompare(const BString& string, int32 length) const {
    return icompare(view_of(*this, length), view_of(string, length));
}

int BString::ICompare(const char* string, int32 length) const {
    return icompare(view_of(*this, length), view_of(string, length));
}

bool BString::StartsWith(const char* string) const {
    return std::string_view(fData).starts_with(view_of(string));
}

bool BString::IStartsWith(const char* string) const {
    return lowered(fData).starts_with(lowered(view_of(string)));
}

bool BString::EndsWith(const char* string) const {
    return std::string_view(fData).ends_with(view_of(string));
}

bool BString::IEndsWith(const char* string) const {
    return lowered(fData).ends_with(lowered(view_of(string)));
}

int Compare(const BString& a, const BString& b) {
    return a.Compare(b);
}

int ICompare(const BString& a, const BString& b) {
    return a.ICompare(b);
}

int Compare(const BString* a, const BString* b) {
    return a->Compare(*b);
}

int ICompare(const BString* a, const BString* b) {
    return a->ICompare(*b);
}
