#pragma once

#include <span>
#include <string>
#include <support/SupportDefs.h>
#include <support/TypeConstants.h>

namespace BPrivate {

/// One resource built into the program.
struct EmbeddedResource {
    type_code type;
    int32 id;
    const char* name;
    const void* data;
    size_t size;
};

}  // namespace BPrivate

/// Data that lies beside a program's code, found by type and name. Read only: resources are built
/// into the program.
///
/// May be used from any thread.
class BResources {
public:
    /// No resources.
    BResources() = default;
    explicit BResources(std::span<const BPrivate::EmbeddedResource> resources);

    /// The data and its size in bytes, which belong to the resources and live as long as the
    /// program; null when there is none of that type and name, or id.
    const void* LoadResource(type_code type, const char* name, size_t* size) const;
    const void* LoadResource(type_code type, int32 id, size_t* size) const;
    bool HasResource(type_code type, const char* name) const;
    bool HasResource(type_code type, int32 id) const;

private:
    std::span<const BPrivate::EmbeddedResource> fResources;
};
