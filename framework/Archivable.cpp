#include "framework/Archivable.h"

#include <cstring>
#include <storage/File.h>
#include <support/TypeConstants.h>

status_t TArchivable::Archive(BMessage* /*archive*/) const {
    return B_OK;
}

status_t TArchivable::Unarchive(const BMessage& /*archive*/) {
    return B_OK;
}

status_t TArchivable::Load(const BEntry& entry) {
    BFile file(&entry, B_READ_ONLY);
    if (file.InitCheck() != B_OK)
        return -1;
    BMessage message;
    if (message.Unflatten(&file) != B_OK)
        return -1;
    return Unarchive(message) == B_OK ? B_OK : -1;
}

status_t TArchivable::Save(const BEntry& entry) const {
    BFile file(&entry, B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
    if (file.InitCheck() != B_OK)
        return -1;
    BMessage message;
    if (Archive(&message) != B_OK)
        return -1;  // the file becomes an empty one
    // Closing the file puts it in the old one's place, but only syncing tells whether that worked.
    if (message.Flatten(&file) != B_OK || file.Sync() != B_OK)
        return -1;
    return B_OK;
}

namespace {

/// Runs a lookup of the message's into a copy and hands the value over when it succeeded, since
/// a failing lookup may leave anything in its variable.
template <typename T, typename Lookup>
status_t keep_unless_found(T* value, Lookup lookup) {
    T found = *value;
    const status_t status = lookup(&found);
    if (status == B_OK)
        *value = found;
    return status;
}

}  // namespace

status_t TArchivable::FindString(
    const BMessage& archive, const char* name, int32 index, const char** value) const {
    return keep_unless_found(
        value, [&](const char** found) { return archive.FindString(name, index, found); });
}

status_t TArchivable::FindString(
    const BMessage& archive, const char* name, const char** value) const {
    return FindString(archive, name, 0, value);
}

status_t TArchivable::FindString(
    const BMessage& archive, const char* name, int32 index, std::string* value) const {
    const char* found = nullptr;
    const status_t status = archive.FindString(name, index, &found);
    if (status == B_OK)
        *value = found;
    return status;
}

status_t TArchivable::FindString(
    const BMessage& archive, const char* name, std::string* value) const {
    return FindString(archive, name, 0, value);
}

status_t TArchivable::FindRGBColor(
    const BMessage& archive, const char* name, int32 index, rgb_color* value) const {
    const void* data = nullptr;
    ssize_t size = 0;
    const status_t status = archive.FindData(name, B_RAW_TYPE, index, &data, &size);
    if (status != B_OK)
        return status;
    uint8 bytes[4];
    if (size < static_cast<ssize_t>(sizeof(bytes)))
        return B_BAD_DATA;
    std::memcpy(bytes, data, sizeof(bytes));
    *value = {bytes[0], bytes[1], bytes[2], bytes[3]};
    return B_OK;
}

status_t TArchivable::FindRGBColor(
    const BMessage& archive, const char* name, rgb_color* value) const {
    return FindRGBColor(archive, name, 0, value);
}

status_t TArchivable::FindRef(
    const BMessage& archive, const char* name, int32 index, entry_ref* value) const {
    return keep_unless_found(
        value, [&](entry_ref* found) { return archive.FindRef(name, index, found); });
}

status_t TArchivable::FindRef(const BMessage& archive, const char* name, entry_ref* value) const {
    return FindRef(archive, name, 0, value);
}

status_t TArchivable::FindRect(
    const BMessage& archive, const char* name, int32 index, BRect* value) const {
    return keep_unless_found(
        value, [&](BRect* found) { return archive.FindRect(name, index, found); });
}

status_t TArchivable::FindRect(const BMessage& archive, const char* name, BRect* value) const {
    return FindRect(archive, name, 0, value);
}

status_t TArchivable::FindMessage(
    const BMessage& archive, const char* name, int32 index, BMessage* value) const {
    return keep_unless_found(
        value, [&](BMessage* found) { return archive.FindMessage(name, index, found); });
}

status_t TArchivable::FindMessage(
    const BMessage& archive, const char* name, BMessage* value) const {
    return FindMessage(archive, name, 0, value);
}

status_t TArchivable::FindInt64(
    const BMessage& archive, const char* name, int32 index, int64* value) const {
    return keep_unless_found(
        value, [&](int64* found) { return archive.FindInt64(name, index, found); });
}

status_t TArchivable::FindInt64(const BMessage& archive, const char* name, int64* value) const {
    return FindInt64(archive, name, 0, value);
}

status_t TArchivable::FindInt32(
    const BMessage& archive, const char* name, int32 index, int32* value) const {
    return keep_unless_found(
        value, [&](int32* found) { return archive.FindInt32(name, index, found); });
}

status_t TArchivable::FindInt32(const BMessage& archive, const char* name, int32* value) const {
    return FindInt32(archive, name, 0, value);
}

status_t TArchivable::FindFloat(
    const BMessage& archive, const char* name, int32 index, float* value) const {
    return keep_unless_found(
        value, [&](float* found) { return archive.FindFloat(name, index, found); });
}

status_t TArchivable::FindFloat(const BMessage& archive, const char* name, float* value) const {
    return FindFloat(archive, name, 0, value);
}

status_t TArchivable::FindDouble(
    const BMessage& archive, const char* name, int32 index, double* value) const {
    return keep_unless_found(
        value, [&](double* found) { return archive.FindDouble(name, index, found); });
}

status_t TArchivable::FindDouble(const BMessage& archive, const char* name, double* value) const {
    return FindDouble(archive, name, 0, value);
}

status_t TArchivable::FindData(const BMessage& archive, const char* name, type_code type,
    int32 index, const void** data, ssize_t* size) const {
    const void* found = nullptr;
    ssize_t foundSize = 0;
    const status_t status = archive.FindData(name, type, index, &found, &foundSize);
    if (status == B_OK) {
        *data = found;
        *size = foundSize;
    }
    return status;
}

status_t TArchivable::FindData(const BMessage& archive, const char* name, type_code type,
    const void** data, ssize_t* size) const {
    return FindData(archive, name, type, 0, data, size);
}

status_t TArchivable::FindBool(
    const BMessage& archive, const char* name, int32 index, bool* value) const {
    return keep_unless_found(
        value, [&](bool* found) { return archive.FindBool(name, index, found); });
}

status_t TArchivable::FindBool(const BMessage& archive, const char* name, bool* value) const {
    return FindBool(archive, name, 0, value);
}
