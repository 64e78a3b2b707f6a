#pragma once

#include <storage/Statable.h>
#include <storage/StorageDefs.h>
#include <string>
#include <vector>

class BDirectory;
class BEntry;
struct entry_ref;

/// Names a node (the file itself, whatever its name) by its volume and its number.
struct node_ref {
    dev_t device = dev_t(-1);
    ino_t node = ino_t(-1);

    bool operator==(const node_ref&) const = default;
};

/// What is known of an attribute.
struct attr_info {
    type_code type = 0;
    off_t size = 0;
};

/// An open node, for its attributes and its data about itself. It stays the same node when the file
/// is renamed. Links are not followed. Not to be used from two threads at a time.
///
/// Attributes are extended attributes of the `user.` namespace: the attribute "Comment" is
/// "user.Comment", its value the very bytes given, so that other programs read and write them. An
/// attribute's type is implied by its value: B_STRING_TYPE if it is UTF-8 text (with or without a
/// terminating NUL), B_RAW_TYPE otherwise. Any other type is kept in a second extended attribute,
/// "user.be.type.Comment", the four characters of the code; it goes with the first and is never
/// listed.
class BNode : public BStatable {
public:
    BNode() = default;
    explicit BNode(const char* path);
    explicit BNode(const entry_ref* ref);
    explicit BNode(const BEntry* entry);
    BNode(const BDirectory* folder, const char* path);
    BNode(const BNode&) = delete;
    BNode& operator=(const BNode&) = delete;
    ~BNode() override;

    status_t InitCheck() const { return fStatus; }
    status_t SetTo(const char* path);
    status_t SetTo(const entry_ref* ref);
    status_t SetTo(const BEntry* entry);
    status_t SetTo(const BDirectory* folder, const char* path);
    virtual void Unset();

    status_t GetStat(struct stat* st) const override;
    status_t SetPermissions(mode_t permissions) override;
    status_t SetModificationTime(time_t mtime) override;
    /// Returns when everything written is on the disk.
    virtual status_t Sync();

    /// Reads from `offset` of the value. Returns the number of bytes, or an error:
    /// B_ENTRY_NOT_FOUND if there is no such attribute. The bytes are given whatever their type.
    ssize_t ReadAttr(
        const char* name, type_code type, off_t offset, void* buffer, size_t length) const;
    /// Writes at `offset`; 0 replaces the value, any other extends or changes it. Returns `length`,
    /// or an error: B_DEVICE_FULL where the file system keeps no more, B_NOT_SUPPORTED where it
    /// keeps no attributes.
    ssize_t WriteAttr(
        const char* name, type_code type, off_t offset, const void* buffer, size_t length);
    status_t RemoveAttr(const char* name);
    /// B_FILE_EXISTS if `newName` is there.
    status_t RenameAttr(const char* oldName, const char* newName);
    status_t GetAttrInfo(const char* name, attr_info* info) const;
    /// Copies the next name into a buffer of B_ATTR_NAME_LENGTH bytes. B_ENTRY_NOT_FOUND at the
    /// end.
    status_t GetNextAttrName(char* buffer);
    status_t RewindAttrs();

    bool operator==(const BNode& other) const;

protected:
    /// Takes the descriptor over; negative is a status.
    status_t Adopt(int descriptorOrStatus);
    status_t OpenPath(const std::string& path);

    int fDescriptor = -1;
    status_t fStatus = B_NO_INIT;

private:
    std::vector<std::string> fAttributes;
    size_t fNextAttribute = 0;
    bool fAttributesListed = false;
};
