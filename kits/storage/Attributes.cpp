#include "kits/storage/Posix.h"
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <storage/Node.h>
#include <support/TypeConstants.h>
#include <sys/xattr.h>

using namespace BPrivate;

static constexpr char kValuePrefix[] = "user.";
static constexpr char kTypePrefix[] = "user.be.type.";

// The names of the two extended attributes behind one attribute.
struct Names {
    status_t status = B_OK;
    std::string value;
    std::string type;
    // Too long a name leaves no room for a type; its type is always implied.
    bool canHaveType = false;

    explicit Names(const char* name) {
        if (name == nullptr || *name == '\0') {
            status = B_BAD_VALUE;
            return;
        }
        value = std::string(kValuePrefix) + name;
        type = std::string(kTypePrefix) + name;
        if (strlen(name) >= size_t(B_ATTR_NAME_LENGTH))
            status = B_NAME_TOO_LONG;
        else if (value.starts_with(kTypePrefix))
            status = B_NOT_ALLOWED;
        canHaveType = type.size() <= XATTR_NAME_MAX;
    }
};

static status_t AttributeStatus(int error) {
    switch (error) {
    case ENODATA: return B_ENTRY_NOT_FOUND;
    // The limit of all attributes together, or of one.
    case E2BIG:
    case ERANGE: return B_DEVICE_FULL;
    // Only opened as a name: a link or device, or a file this user may not read.
    case EBADF: return B_PERMISSION_DENIED;
    default: return StatusFromErrno(error);
    }
}

static bool IsUtf8(const std::vector<uint8>& text, size_t length) {
    for (size_t at = 0; at < length;) {
        const uint8 lead = text[at];
        const size_t more = lead < 0x80 ? 0
            : lead < 0xc2               ? 9
            : lead < 0xe0               ? 1
            : lead < 0xf0               ? 2
            : lead < 0xf5               ? 3
                                        : 9;
        if (lead == 0 || at + more >= length)
            return false;
        for (size_t i = 1; i <= more; i++) {
            if ((text[at + i] & 0xc0) != 0x80)
                return false;
        }
        const uint8 second = more > 1 ? text[at + 1] : 0;
        // Overlong forms, surrogates and what is above U+10FFFF.
        if ((lead == 0xe0 && second < 0xa0) || (lead == 0xed && second > 0x9f) ||
            (lead == 0xf0 && second < 0x90) || (lead == 0xf4 && second > 0x8f))
            return false;
        at += more + 1;
    }
    return true;
}

static type_code ImpliedType(const std::vector<uint8>& value) {
    const size_t length = !value.empty() && value.back() == 0 ? value.size() - 1 : value.size();
    return IsUtf8(value, length) ? B_STRING_TYPE : B_RAW_TYPE;
}

static status_t ReadValue(int descriptor, const std::string& name, std::vector<uint8>* value) {
    // The value may grow between the two calls.
    for (;;) {
        const ssize_t size = fgetxattr(descriptor, name.c_str(), nullptr, 0);
        if (size < 0)
            return AttributeStatus(errno);
        value->resize(size_t(size));
        if (size == 0)
            return B_OK;
        const ssize_t got = fgetxattr(descriptor, name.c_str(), value->data(), value->size());
        if (got >= 0) {
            value->resize(size_t(got));
            return B_OK;
        }
        if (errno != ERANGE)
            return AttributeStatus(errno);
    }
}

static bool ReadType(int descriptor, const Names& names, type_code* type) {
    uint8 code[4];
    if (!names.canHaveType ||
        fgetxattr(descriptor, names.type.c_str(), code, sizeof(code)) != sizeof(code))
        return false;
    *type = type_code(code[0]) << 24 | type_code(code[1]) << 16 | type_code(code[2]) << 8 | code[3];
    return true;
}

static status_t WriteType(int descriptor, const Names& names, type_code type) {
    if (!names.canHaveType)
        return B_NAME_TOO_LONG;
    const uint8 code[4] = {uint8(type >> 24), uint8(type >> 16), uint8(type >> 8), uint8(type)};
    if (fsetxattr(descriptor, names.type.c_str(), code, sizeof(code), 0) != 0)
        return AttributeStatus(errno);
    return B_OK;
}

ssize_t BNode::ReadAttr(
    const char* name, type_code, off_t offset, void* buffer, size_t length) const {
    const Names names(name);
    if (names.status != B_OK)
        return names.status;
    if (offset < 0 || (buffer == nullptr && length > 0))
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    std::vector<uint8> value;
    if (status_t status = ReadValue(fDescriptor, names.value, &value); status != B_OK)
        return status;
    if (size_t(offset) >= value.size())
        return 0;
    const size_t bytes = std::min(length, value.size() - size_t(offset));
    if (bytes > 0)
        memcpy(buffer, value.data() + offset, bytes);
    return ssize_t(bytes);
}

ssize_t BNode::WriteAttr(
    const char* name, type_code type, off_t offset, const void* buffer, size_t length) {
    const Names names(name);
    if (names.status != B_OK)
        return names.status;
    if (offset < 0 || (buffer == nullptr && length > 0))
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (size_t(offset) > XATTR_SIZE_MAX || length > XATTR_SIZE_MAX)
        return B_DEVICE_FULL;

    std::vector<uint8> value;
    const status_t old = ReadValue(fDescriptor, names.value, &value);
    if (old != B_OK && old != B_ENTRY_NOT_FOUND)
        return old;
    if (offset == 0)
        value.clear();
    value.resize(std::max(value.size(), size_t(offset) + length));
    if (length > 0)
        memcpy(value.data() + offset, buffer, length);

    // The type goes first: a value must not be taken for another type than it is.
    const bool implied = type == ImpliedType(value);
    if (!implied) {
        if (status_t status = WriteType(fDescriptor, names, type); status != B_OK)
            return status;
    }
    if (fsetxattr(fDescriptor, names.value.c_str(), value.data(), value.size(), 0) != 0) {
        const status_t status = AttributeStatus(errno);
        if (!implied && old == B_ENTRY_NOT_FOUND)
            fremovexattr(fDescriptor, names.type.c_str());
        return status;
    }
    if (implied && names.canHaveType)
        fremovexattr(fDescriptor, names.type.c_str());
    return ssize_t(length);
}

status_t BNode::RemoveAttr(const char* name) {
    const Names names(name);
    if (names.status != B_OK)
        return names.status;
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (fremovexattr(fDescriptor, names.value.c_str()) != 0)
        return AttributeStatus(errno);
    if (names.canHaveType)
        fremovexattr(fDescriptor, names.type.c_str());
    return B_OK;
}

status_t BNode::RenameAttr(const char* oldName, const char* newName) {
    attr_info info;
    if (status_t status = GetAttrInfo(oldName, &info); status != B_OK)
        return status;
    if (attr_info there; GetAttrInfo(newName, &there) == B_OK)
        return B_FILE_EXISTS;
    std::vector<uint8> value;
    if (status_t status = ReadValue(fDescriptor, Names(oldName).value, &value); status != B_OK)
        return status;
    const ssize_t written = WriteAttr(newName, info.type, 0, value.data(), value.size());
    return written < 0 ? status_t(written) : RemoveAttr(oldName);
}

status_t BNode::GetAttrInfo(const char* name, attr_info* info) const {
    const Names names(name);
    if (names.status != B_OK)
        return names.status;
    if (info == nullptr)
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    std::vector<uint8> value;
    if (status_t status = ReadValue(fDescriptor, names.value, &value); status != B_OK)
        return status;
    info->size = off_t(value.size());
    if (!ReadType(fDescriptor, names, &info->type))
        info->type = ImpliedType(value);
    return B_OK;
}

status_t BNode::GetNextAttrName(char* buffer) {
    if (buffer == nullptr)
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (!fAttributesListed) {
        std::vector<char> names;
        ssize_t size;
        do {
            size = flistxattr(fDescriptor, nullptr, 0);
            if (size > 0) {
                names.resize(size_t(size));
                size = flistxattr(fDescriptor, names.data(), names.size());
            }
        } while (size < 0 && errno == ERANGE);
        if (size < 0)
            return errno == ENOTSUP ? B_ENTRY_NOT_FOUND : AttributeStatus(errno);
        for (size_t at = 0; at < size_t(size);) {
            const std::string name = names.data() + at;
            at += name.size() + 1;
            if (name.starts_with(kValuePrefix) && !name.starts_with(kTypePrefix) &&
                name.size() > strlen(kValuePrefix))
                fAttributes.push_back(name.substr(strlen(kValuePrefix)));
        }
        fAttributesListed = true;
    }
    if (fNextAttribute >= fAttributes.size())
        return B_ENTRY_NOT_FOUND;
    const std::string& name = fAttributes[fNextAttribute++];
    memcpy(buffer, name.c_str(), name.size() + 1);
    return B_OK;
}

status_t BNode::RewindAttrs() {
    if (fStatus != B_OK)
        return B_NO_INIT;
    fAttributes.clear();
    fNextAttribute = 0;
    fAttributesListed = false;
    return B_OK;
}
