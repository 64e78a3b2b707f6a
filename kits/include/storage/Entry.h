#pragma once

// References to places in the file system.
//
// A name is a string of bytes: any byte but '/' and NUL, in any encoding or none.

#include <storage/Statable.h>
#include <storage/StorageDefs.h>
#include <string>
#include <string_view>

class BDirectory;
class BPath;

/// Names an entry of a folder, whether it exists or not. It can be copied, kept and sent to another
/// process: beside the folder's numbers it keeps the folder's path, by which it is opened.
struct entry_ref {
    entry_ref() = default;
    /// Without `folder` the reference can be compared, but not opened.
    entry_ref(dev_t device, ino_t directory, const char* name, std::string_view folder = {});
    entry_ref(const entry_ref& other);
    entry_ref& operator=(const entry_ref& other);

    /// B_NAME_TOO_LONG leaves the old name.
    status_t set_name(const char* name);
    void set_folder(std::string_view path) { fFolder = path; }
    /// The folder's absolute path, "" if it is not known.
    const std::string& folder() const { return fFolder; }

    /// True for the same folder and name. References whose folder did not exist when they were made
    /// have no numbers and compare by path.
    bool operator==(const entry_ref& other) const;

    dev_t device = dev_t(-1);
    ino_t directory = ino_t(-1);
    /// The leaf name, null in an empty reference. Owned by the reference; change it by set_name.
    const char* name = nullptr;

private:
    std::string fName;
    std::string fFolder;
};

/// A place in the file system, which may be empty: an entry exists or not, and may come and go
/// while the object lives. It holds no file open. Paths are made absolute and the links in the
/// folder's part are resolved when the entry is set, so equal places have equal paths. Not to be
/// used from two threads at a time.
class BEntry : public BStatable {
public:
    BEntry() = default;
    explicit BEntry(const char* path, bool traverse = false);
    explicit BEntry(const entry_ref* ref, bool traverse = false);
    BEntry(const BDirectory* folder, const char* path, bool traverse = false);

    /// B_OK if the entry is set to a place whose folder exists.
    status_t InitCheck() const { return fStatus; }
    bool Exists() const;

    /// Sets the entry to `path`, relative to the working folder if it does not begin with '/'.
    /// `traverse`: if the entry is a symbolic link, take what it leads to, existing or not.
    /// B_ENTRY_NOT_FOUND if the folder does not exist, B_NAME_TOO_LONG for a leaf above 255 bytes,
    /// B_LINK_LIMIT for links in a circle, B_BAD_VALUE for a null or empty path.
    status_t SetTo(const char* path, bool traverse = false);
    status_t SetTo(const entry_ref* ref, bool traverse = false);
    /// `path` is relative to `folder`, null for the folder itself.
    status_t SetTo(const BDirectory* folder, const char* path, bool traverse = false);
    void Unset();

    status_t GetStat(struct stat* st) const override;
    status_t SetPermissions(mode_t permissions) override;
    status_t SetModificationTime(time_t mtime) override;

    status_t GetRef(entry_ref* ref) const;
    status_t GetPath(BPath* path) const;
    /// B_ENTRY_NOT_FOUND for the root.
    status_t GetParent(BEntry* parent) const;
    status_t GetParent(BDirectory* parent) const;
    /// Copies the leaf name into a buffer of B_FILE_NAME_LENGTH bytes; "/" for the root.
    status_t GetName(char* buffer) const;
    /// The leaf name, "" when unset. Valid until the entry is set anew.
    const char* Name() const;

    /// Gives the entry another name in its folder, or, if `path` begins with '/', another place on
    /// the same volume. B_FILE_EXISTS if something is there, unless `clobber`.
    status_t Rename(const char* path, bool clobber = false);
    /// Moves it into `folder`, under `path` if given, otherwise under its own name.
    status_t MoveTo(BDirectory* folder, const char* path = nullptr, bool clobber = false);
    /// Removes the file, link or empty folder. The object stays set to the now empty place.
    status_t Remove();

    /// Two entries are equal if they name the same place, or are both unset.
    bool operator==(const BEntry& other) const;

private:
    friend class BDirectory;

    // The listing of a folder sets entries by the hundred thousand: no call to the system, and the
    // string's memory is used again.
    void SetToChild(const std::string& folder, std::string_view name);
    status_t Resolve(std::string path, bool traverse);
    status_t MoveToPath(const std::string& target, bool clobber);

    std::string fPath;
    size_t fLeaf = 0;
    status_t fStatus = B_NO_INIT;
};

/// The reference for `path`, which need not exist. If not even its folder exists the result is
/// B_ENTRY_NOT_FOUND, but the reference still carries the path, so that it can be shown and
/// compared.
status_t get_ref_for_path(const char* path, entry_ref* ref);
