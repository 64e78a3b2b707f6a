#pragma once

#include <app/Message.h>
#include <interface/GraphicsDefs.h>
#include <interface/Rect.h>
#include <storage/Entry.h>
#include <string>
#include <support/SupportDefs.h>

/// Base of every record kept in a settings file of its own: one flattened message, whose fields
/// the record adds in Archive() and takes back in Unarchive().
///
/// A file of an older or a newer version does no harm: a field that is missing keeps its value,
/// an unknown one is ignored, and a file that is no message at all changes nothing.
class TArchivable {
public:
    virtual ~TArchivable() = default;

    /// Adds the record's fields. A subclass calls its base first and ORs the statuses.
    virtual status_t Archive(BMessage* archive) const;
    /// Reads the fields back. Not 0 when one was missing; the others are read all the same.
    virtual status_t Unarchive(const BMessage& archive);

    /// @return 0, or -1 when the file cannot be read or lacks a field.
    status_t Load(const BEntry& entry);
    /// Writes the file anew. A record whose Archive() fails leaves an empty file, which the next
    /// Load() refuses. A write that fails, or that is cut off, leaves the old file.
    /// @return 0 or -1.
    status_t Save(const BEntry& entry) const;

    // Typed lookups. Each writes to the caller's variable only when the field is there with its
    // type, and returns the message's status. The result of FindString() into a pointer and of
    // FindData() belongs to the message.
    status_t FindString(
        const BMessage& archive, const char* name, int32 index, std::string* value) const;
    status_t FindString(const BMessage& archive, const char* name, std::string* value) const;
    status_t FindString(
        const BMessage& archive, const char* name, int32 index, const char** value) const;
    status_t FindString(const BMessage& archive, const char* name, const char** value) const;
    status_t FindRGBColor(
        const BMessage& archive, const char* name, int32 index, rgb_color* value) const;
    status_t FindRGBColor(const BMessage& archive, const char* name, rgb_color* value) const;
    status_t FindRef(
        const BMessage& archive, const char* name, int32 index, entry_ref* value) const;
    status_t FindRef(const BMessage& archive, const char* name, entry_ref* value) const;
    status_t FindRect(const BMessage& archive, const char* name, int32 index, BRect* value) const;
    status_t FindRect(const BMessage& archive, const char* name, BRect* value) const;
    status_t FindMessage(
        const BMessage& archive, const char* name, int32 index, BMessage* value) const;
    status_t FindMessage(const BMessage& archive, const char* name, BMessage* value) const;
    status_t FindInt64(const BMessage& archive, const char* name, int32 index, int64* value) const;
    status_t FindInt64(const BMessage& archive, const char* name, int64* value) const;
    status_t FindInt32(const BMessage& archive, const char* name, int32 index, int32* value) const;
    status_t FindInt32(const BMessage& archive, const char* name, int32* value) const;
    status_t FindFloat(const BMessage& archive, const char* name, int32 index, float* value) const;
    status_t FindFloat(const BMessage& archive, const char* name, float* value) const;
    status_t FindDouble(
        const BMessage& archive, const char* name, int32 index, double* value) const;
    status_t FindDouble(const BMessage& archive, const char* name, double* value) const;
    status_t FindData(const BMessage& archive, const char* name, type_code type, int32 index,
        const void** data, ssize_t* size) const;
    status_t FindData(const BMessage& archive, const char* name, type_code type, const void** data,
        ssize_t* size) const;
    status_t FindBool(const BMessage& archive, const char* name, int32 index, bool* value) const;
    status_t FindBool(const BMessage& archive, const char* name, bool* value) const;
};
