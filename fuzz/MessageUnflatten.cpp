// Flattened messages from anywhere: a broken settings file, another application.

#include <app/Message.h>
#include <cstdlib>
#include <cstring>
#include <storage/Entry.h>
#include <string>
#include <support/DataIO.h>

#include "kits/app/Checksum.h"

namespace {

void Require(bool condition) {
    if (!condition)
        std::abort();
}

// Everything a reader may do with a message it got.
void Visit(const BMessage& message) {
    char* name;
    type_code type;
    int32 count;
    for (int32 n = 0; message.GetInfo(B_ANY_TYPE, n, &name, &type, &count) == B_OK; ++n) {
        for (int32 i = 0; i < count; ++i) {
            const void* data;
            ssize_t size;
            Require(message.FindData(name, type, i, &data, &size) == B_OK && size > 0);
            switch (type) {
            case B_STRING_TYPE: {
                const char* text;
                Require(message.FindString(name, i, &text) == B_OK);
                Require(std::strlen(text) < size_t(size));
                break;
            }
            case B_MESSAGE_TYPE: {
                BMessage nested;
                Require(message.FindMessage(name, i, &nested) == B_OK);
                Visit(nested);
                break;
            }
            case B_REF_TYPE: {
                entry_ref ref;
                Require(message.FindRef(name, i, &ref) == B_OK);
                break;
            }
            default: break;
            }
        }
    }
}

void Read(const std::string& bytes) {
    BMessage message('kept');
    message.AddBool("kept", true);
    const status_t status = message.Unflatten(bytes.data(), ssize_t(bytes.size()));
    BMemoryIO stream(bytes.data(), bytes.size());
    BMessage streamed;
    const status_t streamedStatus = streamed.Unflatten(&stream);
    Require((status == B_OK) == (streamedStatus == B_OK));
    if (status != B_OK) {
        Require(message.what == 'kept' && message.GetBool("kept", false));
        return;
    }

    Visit(message);
    std::string again(size_t(message.FlattenedSize()), '\0');
    Require(message.Flatten(again.data(), ssize_t(again.size())) == B_OK);
    BMessage second;
    Require(second.Unflatten(again.data(), ssize_t(again.size())) == B_OK);
    Require(second.CountNames(B_ANY_TYPE) == message.CountNames(B_ANY_TYPE));
    message.AddString("one more", "field");
    message.MakeEmpty();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8* data, size_t size) {
    // In memory of its own size, so that reading past it is noticed.
    std::string bytes(reinterpret_cast<const char*>(data), size);
    bytes.shrink_to_fit();
    Read(bytes);

    // And with size and checksum put right, which no fuzzer finds by itself.
    if (size < 16)
        return 0;
    const uint32 length = uint32(size);
    std::memcpy(&bytes[8], &length, sizeof(length));
    BPrivate::Checksum sum;
    sum.Add(std::string_view(bytes).substr(0, 12));
    sum.Add(std::string_view(bytes).substr(16));
    const uint32 checksum = sum.Value();
    std::memcpy(&bytes[12], &checksum, sizeof(checksum));
    Read(bytes);
    return 0;
}
