// Messages to and from bytes, and to standard output.

#include <app/Message.h>

#include "kits/app/MessageField.h"
#include "kits/app/MessageFormat.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <storage/Entry.h>
#include <support/DataIO.h>

ssize_t BMessage::FlattenedSize() const {
    return ssize_t(BPrivate::FlattenedSize(fFields));
}

status_t BMessage::Flatten(char* buffer, ssize_t size) const {
    if (buffer == nullptr || size < FlattenedSize())
        return B_BAD_VALUE;
    std::string bytes;
    const status_t status = BPrivate::Flatten(what, fFields, bytes);
    if (status == B_OK)
        std::memcpy(buffer, bytes.data(), bytes.size());
    return status;
}

status_t BMessage::Flatten(BDataIO* stream, ssize_t* size) const {
    if (stream == nullptr)
        return B_BAD_VALUE;
    std::string bytes;
    status_t status = BPrivate::Flatten(what, fFields, bytes);
    if (status == B_OK)
        status = stream->WriteExactly(bytes.data(), bytes.size());
    if (status == B_OK && size != nullptr)
        *size = ssize_t(bytes.size());
    return status;
}

status_t BMessage::Unflatten(const char* buffer, ssize_t size) {
    if (buffer == nullptr || size < 0)
        return B_BAD_VALUE;
    return BPrivate::Unflatten({buffer, size_t(size)}, what, fFields);
}

status_t BMessage::Unflatten(BDataIO* stream) {
    if (stream == nullptr)
        return B_BAD_VALUE;
    std::string bytes;
    size_t size = BPrivate::kLeadSize;
    while (bytes.size() < size) {
        // A size that the stream does not keep must not cost its memory: it grows with what is
        // really there.
        constexpr size_t kPiece = 64 << 10;
        const size_t have = bytes.size();
        bytes.resize(have + std::min(kPiece, size - have));
        const ssize_t got = stream->Read(&bytes[have], bytes.size() - have);
        if (got < 0)
            return status_t(got);
        if (got == 0)
            return B_BAD_DATA;
        bytes.resize(have + size_t(got));
        if (size == BPrivate::kLeadSize && bytes.size() == size) {
            const status_t status = BPrivate::FlattenedSizeFromLead(bytes, size);
            if (status != B_OK)
                return status;
        }
    }
    return BPrivate::Unflatten(bytes, what, fFields);
}

namespace {

std::string PrintableCode(uint32 code) {
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8)
        text.push_back(char(code >> shift));
    const bool printable =
        std::all_of(text.begin(), text.end(), [](char c) { return std::isprint(uint8(c)) != 0; });
    return printable ? "'" + text + "'" : std::to_string(code);
}

template <typename T>
T ValueOf(const std::string& item) {
    T value;
    std::memcpy(static_cast<void*>(&value), item.data(), sizeof(value));
    return value;
}

std::string Describe(type_code type, const std::string& item) {
    switch (type) {
    case B_BOOL_TYPE: return item[0] != 0 ? "true" : "false";
    case B_INT8_TYPE: return std::to_string(ValueOf<int8>(item));
    case B_UINT8_TYPE: return std::to_string(ValueOf<uint8>(item));
    case B_INT16_TYPE: return std::to_string(ValueOf<int16>(item));
    case B_UINT16_TYPE: return std::to_string(ValueOf<uint16>(item));
    case B_INT32_TYPE: return std::to_string(ValueOf<int32>(item));
    case B_UINT32_TYPE: return std::to_string(ValueOf<uint32>(item));
    case B_INT64_TYPE: return std::to_string(ValueOf<int64>(item));
    case B_UINT64_TYPE: return std::to_string(ValueOf<uint64>(item));
    case B_FLOAT_TYPE: return std::to_string(ValueOf<float>(item));
    case B_DOUBLE_TYPE: return std::to_string(ValueOf<double>(item));
    case B_STRING_TYPE: return std::string("\"") + item.c_str() + "\"";
    case B_POINT_TYPE: {
        const BPoint point = ValueOf<BPoint>(item);
        return "(" + std::to_string(point.x) + ", " + std::to_string(point.y) + ")";
    }
    case B_RECT_TYPE: {
        const BRect rect = ValueOf<BRect>(item);
        return "(" + std::to_string(rect.left) + ", " + std::to_string(rect.top) + ", " +
            std::to_string(rect.right) + ", " + std::to_string(rect.bottom) + ")";
    }
    case B_REF_TYPE: {
        entry_ref ref;
        BPrivate::DecodeRef(item, ref);
        return ref.folder() + "/" + (ref.name != nullptr ? ref.name : "");
    }
    default: return std::to_string(item.size()) + " bytes";
    }
}

void Print(const BMessage& message, int indent);

void PrintNested(const std::string& item, int indent) {
    BMessage nested;
    if (nested.Unflatten(item.data(), ssize_t(item.size())) == B_OK)
        Print(nested, indent);
}

void Print(const BMessage& message, int indent) {
    std::printf("%*sBMessage(%s)\n", indent, "", PrintableCode(message.what).c_str());
    char* name;
    type_code type;
    int32 count;
    for (int32 n = 0; message.GetInfo(B_ANY_TYPE, n, &name, &type, &count) == B_OK; ++n) {
        for (int32 i = 0; i < count; ++i) {
            const void* data = nullptr;
            ssize_t size = 0;
            if (message.FindData(name, type, i, &data, &size) != B_OK)
                continue;
            const std::string item(static_cast<const char*>(data), size_t(size));
            std::printf("%*s%s[%d], %s: %s\n", indent + 4, "", name, i, PrintableCode(type).c_str(),
                Describe(type, item).c_str());
            if (type == B_MESSAGE_TYPE)
                PrintNested(item, indent + 8);
        }
    }
}

}  // namespace

void BMessage::PrintToStream() const {
    Print(*this, 0);
}
