#include "kits/storage/EmbeddedResources.h"

// Alone in this file: an archive's member is only linked when nothing in it is there already.
std::span<const BPrivate::EmbeddedResource> BPrivate::embedded_resources() {
    return {};
}
