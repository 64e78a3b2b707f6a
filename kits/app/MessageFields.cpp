// Adding, finding and replacing the items of a message's fields.

#include <app/Message.h>

#include "kits/app/MessageField.h"
#include "kits/app/MessageFormat.h"

#include <algorithm>
#include <cstring>
#include <storage/Entry.h>
#include <support/String.h>
#include <type_traits>
#include <utility>

using BPrivate::MessageField;

namespace {

// Values whose item is their own memory.
template <typename T>
std::string ItemOf(const T& value) {
    static_assert(std::is_trivially_copyable_v<T>);
    return {reinterpret_cast<const char*>(&value), sizeof(value)};
}

std::string ItemOf(const char* value) {
    return {value, std::strlen(value) + 1};
}

template <typename T>
void ReadItem(const std::string& item, T& value) {
    std::memcpy(static_cast<void*>(&value), item.data(), sizeof(value));
}

// Any byte but 0 is true, whoever wrote it; a bool of another value must not come to be.
void ReadItem(const std::string& item, bool& value) {
    value = item[0] != 0;
}

}  // namespace

bool BMessage::IsFieldName(const char* name) {
    return name != nullptr && std::strlen(name) <= BPrivate::kMaxFieldName;
}

MessageField* BMessage::FindField(const char* name) {
    return const_cast<MessageField*>(std::as_const(*this).FindField(name));
}

const MessageField* BMessage::FindField(const char* name) const {
    if (name == nullptr)
        return nullptr;
    const auto found = std::find_if(fFields.begin(), fFields.end(),
        [name](const MessageField& field) { return field.name == name; });
    return found != fFields.end() ? &*found : nullptr;
}

const std::string* BMessage::FindItem(
    const char* name, type_code type, int32 index, status_t* result) const {
    const MessageField* field = FindField(name);
    if (field == nullptr)
        *result = name == nullptr ? B_BAD_VALUE : B_NAME_NOT_FOUND;
    else if (type != B_ANY_TYPE && field->type != type)
        *result = B_BAD_TYPE;
    else if (index < 0 || size_t(index) >= field->items.size())
        *result = B_BAD_INDEX;
    else {
        *result = B_OK;
        return &field->items[size_t(index)];
    }
    return nullptr;
}

status_t BMessage::AddItem(const char* name, type_code type, std::string item, bool fixedSize) {
    if (!IsFieldName(name) || !BPrivate::IsValidItem(type, item, BPrivate::kMaxDepth - 1))
        return B_BAD_VALUE;
    MessageField* field = FindField(name);
    if (field == nullptr) {
        field = &fFields.emplace_back();
        field->name = name;
        field->type = type;
        field->fixedSize = fixedSize && !BPrivate::IsVariableSizeType(type);
    } else if (field->type != type)
        return B_BAD_TYPE;
    else if (field->fixedSize && item.size() != field->items.front().size())
        return B_BAD_VALUE;
    field->items.push_back(std::move(item));
    return B_OK;
}

status_t BMessage::ReplaceItem(const char* name, type_code type, int32 index, std::string item) {
    status_t status;
    const std::string* old = FindItem(name, type, index, &status);
    if (old == nullptr)
        return status;
    MessageField* field = FindField(name);
    if (!BPrivate::IsValidItem(field->type, item, BPrivate::kMaxDepth - 1) ||
        (field->fixedSize && item.size() != old->size()))
        return B_BAD_VALUE;
    field->items[size_t(index)] = std::move(item);
    return B_OK;
}

// The types that are stored as their own memory differ in nothing but their names.
#define PLAIN_TYPE(Name, type, code)                                                  \
    status_t BMessage::Add##Name(const char* name, type value) {                      \
        return AddItem(name, code, ItemOf(value), true);                              \
    }                                                                                 \
    status_t BMessage::Find##Name(const char* name, type* value) const {              \
        return Find##Name(name, 0, value);                                            \
    }                                                                                 \
    status_t BMessage::Find##Name(const char* name, int32 index, type* value) const { \
        if (value == nullptr)                                                         \
            return B_BAD_VALUE;                                                       \
        status_t status;                                                              \
        if (const std::string* item = FindItem(name, code, index, &status))           \
            ReadItem(*item, *value);                                                  \
        return status;                                                                \
    }                                                                                 \
    status_t BMessage::Replace##Name(const char* name, type value) {                  \
        return Replace##Name(name, 0, value);                                         \
    }                                                                                 \
    status_t BMessage::Replace##Name(const char* name, int32 index, type value) {     \
        return ReplaceItem(name, code, index, ItemOf(value));                         \
    }                                                                                 \
    bool BMessage::Has##Name(const char* name, int32 index) const {                   \
        return HasData(name, code, index);                                            \
    }                                                                                 \
    type BMessage::Get##Name(const char* name, type fallback) const {                 \
        return Get##Name(name, 0, fallback);                                          \
    }                                                                                 \
    type BMessage::Get##Name(const char* name, int32 index, type fallback) const {    \
        Find##Name(name, index, &fallback);                                           \
        return fallback;                                                              \
    }

PLAIN_TYPE(Bool, bool, B_BOOL_TYPE)
PLAIN_TYPE(Int8, int8, B_INT8_TYPE)
PLAIN_TYPE(UInt8, uint8, B_UINT8_TYPE)
PLAIN_TYPE(Int16, int16, B_INT16_TYPE)
PLAIN_TYPE(UInt16, uint16, B_UINT16_TYPE)
PLAIN_TYPE(Int32, int32, B_INT32_TYPE)
PLAIN_TYPE(UInt32, uint32, B_UINT32_TYPE)
PLAIN_TYPE(Int64, int64, B_INT64_TYPE)
PLAIN_TYPE(UInt64, uint64, B_UINT64_TYPE)
PLAIN_TYPE(Float, float, B_FLOAT_TYPE)
PLAIN_TYPE(Double, double, B_DOUBLE_TYPE)
PLAIN_TYPE(Point, BPoint, B_POINT_TYPE)
PLAIN_TYPE(Rect, BRect, B_RECT_TYPE)
PLAIN_TYPE(Color, rgb_color, B_RGB_COLOR_TYPE)

#undef PLAIN_TYPE

// #pragma mark - Strings

status_t BMessage::AddString(const char* name, const char* value) {
    if (value == nullptr)
        return B_BAD_VALUE;
    return AddItem(name, B_STRING_TYPE, ItemOf(value), false);
}

status_t BMessage::AddString(const char* name, const BString& value) {
    return AddString(name, value.String());
}

status_t BMessage::FindString(const char* name, const char** value) const {
    return FindString(name, 0, value);
}

status_t BMessage::FindString(const char* name, int32 index, const char** value) const {
    if (value == nullptr)
        return B_BAD_VALUE;
    status_t status;
    if (const std::string* item = FindItem(name, B_STRING_TYPE, index, &status))
        *value = item->c_str();
    return status;
}

status_t BMessage::FindString(const char* name, BString* value) const {
    return FindString(name, 0, value);
}

status_t BMessage::FindString(const char* name, int32 index, BString* value) const {
    const char* string = nullptr;
    const status_t status = value == nullptr ? B_BAD_VALUE : FindString(name, index, &string);
    if (status == B_OK)
        *value = string;
    return status;
}

status_t BMessage::ReplaceString(const char* name, const char* value) {
    return ReplaceString(name, 0, value);
}

status_t BMessage::ReplaceString(const char* name, int32 index, const char* value) {
    if (value == nullptr)
        return B_BAD_VALUE;
    return ReplaceItem(name, B_STRING_TYPE, index, ItemOf(value));
}

status_t BMessage::ReplaceString(const char* name, const BString& value) {
    return ReplaceString(name, 0, value.String());
}

status_t BMessage::ReplaceString(const char* name, int32 index, const BString& value) {
    return ReplaceString(name, index, value.String());
}

bool BMessage::HasString(const char* name, int32 index) const {
    return HasData(name, B_STRING_TYPE, index);
}

const char* BMessage::GetString(const char* name, const char* fallback) const {
    return GetString(name, 0, fallback);
}

const char* BMessage::GetString(const char* name, int32 index, const char* fallback) const {
    FindString(name, index, &fallback);
    return fallback;
}

// #pragma mark - Addresses

status_t BMessage::AddPointer(const char* name, const void* value) {
    return AddItem(name, B_POINTER_TYPE, ItemOf<const void*>(value), true);
}

status_t BMessage::FindPointer(const char* name, void** value) const {
    return FindPointer(name, 0, value);
}

status_t BMessage::FindPointer(const char* name, int32 index, void** value) const {
    if (value == nullptr)
        return B_BAD_VALUE;
    status_t status;
    if (const std::string* item = FindItem(name, B_POINTER_TYPE, index, &status))
        ReadItem(*item, *value);
    return status;
}

status_t BMessage::ReplacePointer(const char* name, const void* value) {
    return ReplacePointer(name, 0, value);
}

status_t BMessage::ReplacePointer(const char* name, int32 index, const void* value) {
    return ReplaceItem(name, B_POINTER_TYPE, index, ItemOf<const void*>(value));
}

bool BMessage::HasPointer(const char* name, int32 index) const {
    return HasData(name, B_POINTER_TYPE, index);
}

const void* BMessage::GetPointer(const char* name, const void* fallback) const {
    return GetPointer(name, 0, fallback);
}

const void* BMessage::GetPointer(const char* name, int32 index, const void* fallback) const {
    void* value = nullptr;
    return FindPointer(name, index, &value) == B_OK ? value : fallback;
}

status_t BMessage::AddMessenger(const char* name, const BMessenger& value) {
    return AddItem(name, B_MESSENGER_TYPE, ItemOf(value), true);
}

status_t BMessage::FindMessenger(const char* name, BMessenger* value) const {
    return FindMessenger(name, 0, value);
}

status_t BMessage::FindMessenger(const char* name, int32 index, BMessenger* value) const {
    if (value == nullptr)
        return B_BAD_VALUE;
    status_t status;
    if (const std::string* item = FindItem(name, B_MESSENGER_TYPE, index, &status))
        ReadItem(*item, *value);
    return status;
}

status_t BMessage::ReplaceMessenger(const char* name, const BMessenger& value) {
    return ReplaceMessenger(name, 0, value);
}

status_t BMessage::ReplaceMessenger(const char* name, int32 index, const BMessenger& value) {
    return ReplaceItem(name, B_MESSENGER_TYPE, index, ItemOf(value));
}

bool BMessage::HasMessenger(const char* name, int32 index) const {
    return HasData(name, B_MESSENGER_TYPE, index);
}

// #pragma mark - References

status_t BMessage::AddRef(const char* name, const entry_ref* value) {
    if (value == nullptr)
        return B_BAD_VALUE;
    return AddItem(name, B_REF_TYPE, BPrivate::EncodeRef(*value), false);
}

status_t BMessage::FindRef(const char* name, entry_ref* value) const {
    return FindRef(name, 0, value);
}

status_t BMessage::FindRef(const char* name, int32 index, entry_ref* value) const {
    if (value == nullptr)
        return B_BAD_VALUE;
    status_t status;
    const std::string* item = FindItem(name, B_REF_TYPE, index, &status);
    if (item != nullptr && !BPrivate::DecodeRef(*item, *value))
        return B_BAD_DATA;
    return status;
}

status_t BMessage::ReplaceRef(const char* name, const entry_ref* value) {
    return ReplaceRef(name, 0, value);
}

status_t BMessage::ReplaceRef(const char* name, int32 index, const entry_ref* value) {
    if (value == nullptr)
        return B_BAD_VALUE;
    return ReplaceItem(name, B_REF_TYPE, index, BPrivate::EncodeRef(*value));
}

bool BMessage::HasRef(const char* name, int32 index) const {
    return HasData(name, B_REF_TYPE, index);
}

// #pragma mark - Messages

status_t BMessage::AddMessage(const char* name, const BMessage* value) {
    std::string item;
    if (value == nullptr || BPrivate::Flatten(value->what, value->fFields, item) != B_OK)
        return B_BAD_VALUE;
    return AddItem(name, B_MESSAGE_TYPE, std::move(item), false);
}

status_t BMessage::FindMessage(const char* name, BMessage* value) const {
    return FindMessage(name, 0, value);
}

status_t BMessage::FindMessage(const char* name, int32 index, BMessage* value) const {
    if (value == nullptr)
        return B_BAD_VALUE;
    status_t status;
    if (const std::string* item = FindItem(name, B_MESSAGE_TYPE, index, &status)) {
        // The value may be the message itself, which then must not lose the item while it is read.
        BMessage found;
        status = found.Unflatten(item->data(), ssize_t(item->size()));
        if (status == B_OK)
            *value = std::move(found);
    }
    return status;
}

status_t BMessage::ReplaceMessage(const char* name, const BMessage* value) {
    return ReplaceMessage(name, 0, value);
}

status_t BMessage::ReplaceMessage(const char* name, int32 index, const BMessage* value) {
    std::string item;
    if (value == nullptr || BPrivate::Flatten(value->what, value->fFields, item) != B_OK)
        return B_BAD_VALUE;
    return ReplaceItem(name, B_MESSAGE_TYPE, index, std::move(item));
}

bool BMessage::HasMessage(const char* name, int32 index) const {
    return HasData(name, B_MESSAGE_TYPE, index);
}

// #pragma mark - Data

status_t BMessage::AddData(
    const char* name, type_code type, const void* data, ssize_t size, bool fixedSize, int32) {
    if (data == nullptr || size <= 0)
        return B_BAD_VALUE;
    return AddItem(
        name, type, std::string(static_cast<const char*>(data), size_t(size)), fixedSize);
}

status_t BMessage::FindData(
    const char* name, type_code type, const void** data, ssize_t* size) const {
    return FindData(name, type, 0, data, size);
}

status_t BMessage::FindData(
    const char* name, type_code type, int32 index, const void** data, ssize_t* size) const {
    if (data == nullptr)
        return B_BAD_VALUE;
    status_t status;
    if (const std::string* item = FindItem(name, type, index, &status)) {
        *data = item->data();
        if (size != nullptr)
            *size = ssize_t(item->size());
    }
    return status;
}

status_t BMessage::ReplaceData(const char* name, type_code type, const void* data, ssize_t size) {
    return ReplaceData(name, type, 0, data, size);
}

status_t BMessage::ReplaceData(
    const char* name, type_code type, int32 index, const void* data, ssize_t size) {
    if (data == nullptr || size <= 0)
        return B_BAD_VALUE;
    return ReplaceItem(
        name, type, index, std::string(static_cast<const char*>(data), size_t(size)));
}

bool BMessage::HasData(const char* name, type_code type, int32 index) const {
    status_t status;
    return FindItem(name, type, index, &status) != nullptr;
}
