#pragma once

// What a message holds under one name, and which bytes each type allows.

#include <app/Message.h>
#include <string>
#include <string_view>
#include <vector>

namespace BPrivate {

/// One name of a message with its items. An item is the bytes that FindData() shows: numbers as
/// they are in memory, strings with their NUL, messages flattened, references as EncodeRef()
/// writes them.
struct MessageField {
    std::string name;
    type_code type = B_ANY_TYPE;
    bool fixedSize = true;
    std::vector<std::string> items;
};

/// The longest name of a field, in bytes.
constexpr size_t kMaxFieldName = 255;

/// The size every item of the type has, 0 where items differ in size or the type is unknown.
size_t SizeOfType(type_code type);

/// Whether the items of a type differ in size by nature: strings, messages and references.
bool IsVariableSizeType(type_code type);

/// Whether the item is one the type's Find function can read without a further check. Items are
/// never empty. `maxDepth` is how deep messages may be nested in it; an item that is no message
/// has no depth.
bool IsValidItem(type_code type, std::string_view item, int maxDepth);

/// Whether values of the type mean something in this process only.
constexpr bool IsProcessBound(type_code type) {
    return type == B_POINTER_TYPE || type == B_MESSENGER_TYPE;
}

std::string EncodeRef(const entry_ref& ref);
/// False, and `ref` untouched, when the bytes are not those of a reference.
bool DecodeRef(std::string_view item, entry_ref& ref);

}  // namespace BPrivate
