#pragma once

#include <memory>
#include <storage/EntryList.h>
#include <storage/Node.h>

class BFile;

/// An open folder. Not to be used from two threads at a time.
class BDirectory : public BNode, public BEntryList {
public:
    BDirectory();
    explicit BDirectory(const char* path);
    explicit BDirectory(const entry_ref* ref);
    explicit BDirectory(const BEntry* entry);
    BDirectory(const BDirectory* folder, const char* path);
    ~BDirectory() override;

    /// Opens a folder; a link to a folder is followed. B_NOT_A_DIRECTORY for anything else.
    status_t SetTo(const char* path);
    status_t SetTo(const entry_ref* ref);
    status_t SetTo(const BEntry* entry);
    status_t SetTo(const BDirectory* folder, const char* path);
    void Unset() override;

    /// Sets `entry` to the folder itself.
    status_t GetEntry(BEntry* entry) const;
    bool IsRootDirectory() const;

    status_t GetNextEntry(BEntry* entry, bool traverse = false) override;
    status_t GetNextRef(entry_ref* ref) override;
    int32 GetNextDirents(struct dirent* buffer, size_t length, int32 count = INT32_MAX) override;
    status_t Rewind() override;
    int32 CountEntries() override;

    /// Sets `entry` to `path` below this folder. B_ENTRY_NOT_FOUND if nothing is there.
    status_t FindEntry(const char* path, BEntry* entry, bool traverse = false) const;
    /// True if `path`, relative to this folder, exists.
    bool Contains(const char* path) const;
    /// True if the entry exists and lies in this folder or below.
    bool Contains(const BEntry* entry) const;

    /// Makes a folder below this one and opens it if `folder` is not null. B_FILE_EXISTS if
    /// something is there.
    status_t CreateDirectory(const char* path, BDirectory* folder);
    /// Makes an empty file, or empties the one that is there unless `failIfExists`, and opens it
    /// for reading and writing if `file` is not null.
    status_t CreateFile(const char* path, BFile* file, bool failIfExists = false);

private:
    friend class BEntry;
    friend class BNode;
    struct Listing;

    status_t Open(const std::string& path);
    /// The next name that is not "." or ".."; null at the end or on an error.
    struct dirent* NextRecord(status_t* status);

    // Absolute, without links, as it was when the folder was opened.
    std::string fPath;
    std::unique_ptr<Listing> fListing;
};

/// Makes the folder `path` and every missing one above it, with `mode` less the process's mask.
/// B_OK if it is there already, B_NOT_A_DIRECTORY if something else is.
status_t create_directory(const char* path, mode_t mode);
