#include "kits/kernel/Payload.h"

#include <cstring>
#include <new>
#include <utility>

#include <systemd/sd-bus.h>

namespace BPrivate {

namespace {

// The most that is put into a bus message itself. Every message on its way is kept whole by the
// bus, and by whoever has not read it yet.
constexpr size_t kMostInMessage = 64 << 10;

// Sealed memory up to this size is copied at once, so that small messages in a long queue do not
// each keep a descriptor.
constexpr size_t kMostCopied = 1 << 20;

}  // namespace

Payload Payload::Of(const void* data, size_t size) {
    Payload payload;
    if (size > 0)
        payload.fContent = std::string(static_cast<const char*>(data), size);
    return payload;
}

status_t Payload::ForBus(const void* data, size_t size, Payload& payload) {
    if (size <= kMostInMessage) {
        payload = Of(data, size);
        return B_OK;
    }
    std::optional<SealedMemory> memory = SealedMemory::Make(data, size);
    if (!memory)
        return B_NO_MEMORY;
    payload.fContent = std::move(*memory);
    return B_OK;
}

size_t Payload::Size() const {
    const auto* const memory = std::get_if<SealedMemory>(&fContent);
    return memory != nullptr ? memory->Size() : std::get<std::string>(fContent).size();
}

status_t Payload::Read(void* buffer, size_t size) const {
    if (size == 0)
        return B_OK;
    if (const auto* const memory = std::get_if<SealedMemory>(&fContent))
        return memory->Read(buffer, size) ? B_OK : B_IO_ERROR;
    std::memcpy(buffer, std::get<std::string>(fContent).data(), size);
    return B_OK;
}

bool Payload::AppendTo(sd_bus_message* message) const {
    if (const auto* const memory = std::get_if<SealedMemory>(&fContent))
        return sd_bus_message_append(message, "v", "h", memory->Descriptor()) >= 0;
    const std::string& bytes = std::get<std::string>(fContent);
    return sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, "ay") >= 0 &&
        sd_bus_message_append_array(message, 'y', bytes.data(), bytes.size()) >= 0 &&
        sd_bus_message_close_container(message) >= 0;
}

status_t Payload::ReadFrom(sd_bus_message* message, size_t maxSize, Payload& payload) try {
    char type = 0;
    const char* contents = nullptr;
    if (sd_bus_message_peek_type(message, &type, &contents) <= 0 || type != SD_BUS_TYPE_VARIANT ||
        contents == nullptr)
        return B_BAD_DATA;
    const std::string kind = contents;
    if ((kind != "ay" && kind != "h") ||
        sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, kind.c_str()) <= 0)
        return B_BAD_DATA;

    if (kind == "ay") {
        const void* bytes = nullptr;
        size_t size = 0;
        if (sd_bus_message_read_array(message, 'y', &bytes, &size) < 0 ||
            size > std::min(maxSize, kMostInMessage))
            return B_BAD_DATA;
        payload = Of(bytes, size);
    } else {
        int descriptor = -1;  // the message's
        if (sd_bus_message_read(message, "h", &descriptor) < 0)
            return B_BAD_DATA;
        std::optional<SealedMemory> memory = SealedMemory::Adopt(descriptor, maxSize);
        if (!memory)
            return B_BAD_DATA;
        if (memory->Size() <= kMostCopied) {
            std::string bytes(memory->Size(), '\0');
            if (!memory->Read(bytes.data(), bytes.size()))
                return B_BAD_DATA;
            payload.fContent = std::move(bytes);
        } else {
            payload.fContent = std::move(*memory);
        }
    }
    return sd_bus_message_exit_container(message) >= 0 ? B_OK : B_BAD_DATA;
} catch (const std::bad_alloc&) {
    return B_NO_MEMORY;
}

}  // namespace BPrivate
