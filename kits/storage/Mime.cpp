#include <storage/Mime.h>

#include <algorithm>
#include <app/Roster.h>
#include <string_view>

namespace {

char ToLower(char character) {
    return character >= 'A' && character <= 'Z' ? char(character - 'A' + 'a') : character;
}

// Printable ASCII without what separates types from each other in the protocols that carry them.
bool IsTypeCharacter(char character) {
    constexpr std::string_view kSeparators = "/<>@,;:\"()[]?=\\";
    return character > ' ' && character < 0x7f &&
        kSeparators.find(character) == std::string_view::npos;
}

bool IsTypeName(std::string_view name) {
    return !name.empty() && std::ranges::all_of(name, IsTypeCharacter);
}

}  // namespace

bool BMimeType::IsValid(const char* type) {
    if (type == nullptr)
        return false;
    const std::string_view whole(type);
    if (whole.size() >= size_t(B_MIME_TYPE_LENGTH))
        return false;
    const size_t slash = whole.find('/');
    if (slash == std::string_view::npos)
        return IsTypeName(whole);
    return IsTypeName(whole.substr(0, slash)) && IsTypeName(whole.substr(slash + 1));
}

bool BMimeType::IsValid() const {
    return fStatus == B_OK;
}

status_t BMimeType::SetTo(const char* type) {
    if (!IsValid(type)) {
        Unset();
        return fStatus = B_BAD_VALUE;
    }
    fType = type;
    return fStatus = B_OK;
}

void BMimeType::Unset() {
    fType.clear();
    fStatus = B_NO_INIT;
}

const char* BMimeType::Type() const {
    return fStatus == B_OK ? fType.c_str() : nullptr;
}

bool BMimeType::operator==(const BMimeType& other) const {
    return fStatus == other.fStatus && *this == other.Type();
}

bool BMimeType::operator==(const char* type) const {
    if (fStatus != B_OK || type == nullptr)
        return fStatus != B_OK && type == nullptr;
    return std::ranges::equal(fType, std::string_view(type), {}, ToLower, ToLower);
}
