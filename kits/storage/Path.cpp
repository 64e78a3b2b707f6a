#include <storage/Path.h>

#include "kits/storage/Posix.h"

using BPrivate::Join;

BPath::BPath(const char* path, const char* leaf, bool normalize) {
    SetTo(path, leaf, normalize);
}

BPath::BPath(const entry_ref* ref) {
    SetTo(ref);
}

BPath::BPath(const BEntry* entry) {
    SetTo(entry);
}

// Writes the path without doubled and trailing slashes. False if a part is "." or "..".
static bool Clean(const std::string& path, std::string* clean) {
    clean->clear();
    clean->reserve(path.size());
    for (size_t at = 0; at < path.size();) {
        const size_t end = std::min(path.find('/', at), path.size());
        if (end > at) {
            const std::string_view part = std::string_view(path).substr(at, end - at);
            if (part == "." || part == "..")
                return false;
            *clean += '/';
            *clean += part;
        }
        at = end + 1;
    }
    if (clean->empty())
        clean->push_back('/');
    return true;
}

status_t BPath::SetTo(const char* path, const char* leaf, bool normalize) {
    if (path == nullptr || *path == '\0' || (leaf != nullptr && *leaf == '/')) {
        Unset();
        return fStatus = B_BAD_VALUE;
    }
    // Both may point into this object.
    std::string whole = leaf != nullptr && *leaf != '\0' ? Join(path, leaf) : path;
    Unset();
    if (status_t status = BPrivate::MakeAbsolute(&whole); status != B_OK)
        return fStatus = status;
    if (!normalize && Clean(whole, &fPath))
        return fStatus = B_OK;
    BEntry entry;
    fStatus = entry.SetTo(whole.c_str());
    if (fStatus == B_OK)
        return entry.GetPath(this);
    fPath.clear();
    return fStatus;
}

status_t BPath::SetTo(const entry_ref* ref) {
    if (ref == nullptr || ref->name == nullptr) {
        Unset();
        return fStatus = B_BAD_VALUE;
    }
    if (ref->folder().empty()) {
        Unset();
        return fStatus = B_ENTRY_NOT_FOUND;
    }
    return SetTo(ref->folder().c_str(), ref->name);
}

status_t BPath::SetTo(const BEntry* entry) {
    Unset();
    if (entry == nullptr)
        return fStatus = B_BAD_VALUE;
    return fStatus = entry->GetPath(this);
}

status_t BPath::Append(const char* path, bool normalize) {
    if (fStatus != B_OK || path == nullptr) {
        Unset();
        return fStatus = B_BAD_VALUE;
    }
    return SetTo(fPath.c_str(), path, normalize);
}

void BPath::Unset() {
    fPath.clear();
    fStatus = B_NO_INIT;
}

const char* BPath::Path() const {
    return fStatus == B_OK ? fPath.c_str() : nullptr;
}

const char* BPath::Leaf() const {
    return fStatus == B_OK ? fPath.c_str() + fPath.rfind('/') + 1 : nullptr;
}

status_t BPath::GetParent(BPath* path) const {
    if (path == nullptr)
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (fPath.size() == 1)
        return B_ENTRY_NOT_FOUND;
    const size_t slash = fPath.rfind('/');
    path->fPath = fPath.substr(0, slash == 0 ? 1 : slash);
    path->fStatus = B_OK;
    return B_OK;
}

bool BPath::operator==(const BPath& other) const {
    return fPath == other.fPath;
}

bool BPath::operator==(const char* other) const {
    return fStatus == B_OK && other != nullptr && fPath == other;
}
