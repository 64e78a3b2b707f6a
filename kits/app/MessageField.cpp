#include "kits/app/MessageField.h"

#include "kits/app/MessageFormat.h"

#include <cstring>
#include <storage/Entry.h>

namespace BPrivate {

size_t SizeOfType(type_code type) {
    switch (type) {
    case B_BOOL_TYPE:
    case B_INT8_TYPE:
    case B_UINT8_TYPE: return 1;
    case B_INT16_TYPE:
    case B_UINT16_TYPE: return 2;
    case B_INT32_TYPE:
    case B_UINT32_TYPE:
    case B_FLOAT_TYPE:
    case B_RGB_COLOR_TYPE: return 4;
    case B_INT64_TYPE:
    case B_UINT64_TYPE:
    case B_DOUBLE_TYPE:
    case B_POINT_TYPE: return 8;
    case B_RECT_TYPE: return 16;
    case B_POINTER_TYPE: return sizeof(void*);
    case B_MESSENGER_TYPE: return sizeof(BMessenger);
    default: return 0;
    }
}

bool IsVariableSizeType(type_code type) {
    return type == B_STRING_TYPE || type == B_MESSAGE_TYPE || type == B_REF_TYPE;
}

bool IsValidItem(type_code type, std::string_view item, int maxDepth) {
    if (item.empty())
        return false;
    switch (type) {
    case B_ANY_TYPE: return false;
    case B_STRING_TYPE: return item.back() == '\0';
    case B_MESSAGE_TYPE: return CheckFlattened(item, maxDepth) == B_OK;
    case B_REF_TYPE: {
        entry_ref ref;
        return DecodeRef(item, ref);
    }
    default: {
        const size_t size = SizeOfType(type);
        return size == 0 || item.size() == size;
    }
    }
}

// The folder's numbers, then the leaf name and the folder's path, each with its NUL. A reference
// without a name has an empty one.

namespace {

struct RefNumbers {
    uint64 device;
    uint64 directory;
};

}  // namespace

std::string EncodeRef(const entry_ref& ref) {
    const RefNumbers numbers{uint64(ref.device), uint64(ref.directory)};
    std::string item(reinterpret_cast<const char*>(&numbers), sizeof(numbers));
    item.append(ref.name != nullptr ? ref.name : "").push_back('\0');
    // A path ends at its first NUL, whoever made the reference.
    item.append(ref.folder().c_str()).push_back('\0');
    return item;
}

bool DecodeRef(std::string_view item, entry_ref& ref) {
    RefNumbers numbers;
    if (item.size() < sizeof(numbers) || item.back() != '\0')
        return false;
    std::memcpy(&numbers, item.data(), sizeof(numbers));
    item.remove_prefix(sizeof(numbers));

    const size_t nameEnd = item.find('\0');
    if (nameEnd == std::string_view::npos)
        return false;
    const std::string_view name = item.substr(0, nameEnd);
    std::string_view folder = item.substr(nameEnd + 1);
    if (folder.empty() || folder.find('\0') != folder.size() - 1)
        return false;
    folder.remove_suffix(1);

    ref = entry_ref(dev_t(numbers.device), ino_t(numbers.directory),
        name.empty() ? nullptr : name.data(), folder);
    return true;
}

}  // namespace BPrivate
