#include <storage/Resources.h>

#include <algorithm>
#include <string_view>

using BPrivate::EmbeddedResource;

namespace {

template <typename Matches>
const EmbeddedResource* FindResource(
    std::span<const EmbeddedResource> resources, type_code type, Matches matches) {
    const auto found = std::ranges::find_if(
        resources, [&](const EmbeddedResource& one) { return one.type == type && matches(one); });
    return found != resources.end() ? &*found : nullptr;
}

/// A resource without a name is found by its id only, and a null name finds none.
auto IsNamed(const char* name) {
    return [name](const EmbeddedResource& one) {
        return name != nullptr && one.name != nullptr && std::string_view(name) == one.name;
    };
}

auto HasId(int32 id) {
    return [id](const EmbeddedResource& one) { return one.id == id; };
}

const void* DataOf(const EmbeddedResource* resource, size_t* size) {
    if (size != nullptr)
        *size = resource != nullptr ? resource->size : 0;
    return resource != nullptr ? resource->data : nullptr;
}

}  // namespace

BResources::BResources(std::span<const EmbeddedResource> resources) : fResources(resources) {}

const void* BResources::LoadResource(type_code type, const char* name, size_t* size) const {
    return DataOf(FindResource(fResources, type, IsNamed(name)), size);
}

const void* BResources::LoadResource(type_code type, int32 id, size_t* size) const {
    return DataOf(FindResource(fResources, type, HasId(id)), size);
}

bool BResources::HasResource(type_code type, const char* name) const {
    return FindResource(fResources, type, IsNamed(name)) != nullptr;
}

bool BResources::HasResource(type_code type, int32 id) const {
    return FindResource(fResources, type, HasId(id)) != nullptr;
}
