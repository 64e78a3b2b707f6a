#pragma once

#include <memory>
#include <string>
#include <variant>

#include "kits/kernel/SealedMemory.h"

struct sd_bus_message;

namespace BPrivate {

/// The bytes of a message between processes: in the bus message itself, or beside it in sealed
/// memory when they are many. On the bus it is a variant that holds `ay` or `h`.
class Payload {
public:
    /// No bytes.
    Payload() = default;

    /// Copies the bytes. Throws std::bad_alloc.
    static Payload Of(const void* data, size_t size);

    /// As above, in the form that can be sent. B_NO_MEMORY.
    [[nodiscard]] static status_t ForBus(const void* data, size_t size, Payload& payload);

    size_t Size() const;

    /// Copies the first `size` bytes, which have to be there.
    [[nodiscard]] status_t Read(void* buffer, size_t size) const;

    // On the bus's thread only.

    /// Adds it to a message; false when the message cannot hold it.
    bool AppendTo(sd_bus_message* message) const;

    /// Takes the next element of a message. B_BAD_DATA when it is no payload of at most `maxSize`
    /// bytes, B_NO_MEMORY.
    [[nodiscard]] static status_t ReadFrom(
        sd_bus_message* message, size_t maxSize, Payload& payload);

private:
    std::variant<std::string, SealedMemory> fContent;
};

}  // namespace BPrivate
