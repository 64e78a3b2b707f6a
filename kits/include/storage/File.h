#pragma once

#include <memory>
#include <storage/Node.h>
#include <support/DataIO.h>

/// An open file. Not to be used from two threads at a time.
///
/// Opening never waits and has no effect on devices: a named pipe, a socket and a device are
/// refused with B_BAD_VALUE. A folder can be opened with B_READ_ONLY, but not read
/// (B_IS_A_DIRECTORY). Links are followed.
///
/// A file opened with B_ERASE_FILE is replaced as a whole. What is written goes to a nameless file
/// of the same folder, which takes the old file's place in one step when this object is closed
/// (Unset, SetTo, the destructor) or at Sync, with the old one's permissions and attributes; a
/// symbolic link is followed and stays. So:
/// - a crash at any moment leaves the old file or the new one, and until the object is closed other
///   programs see the old one, or none where there was none;
/// - a file that nothing was written to becomes an empty one;
/// - once a Write has failed (a full disk) the old file stays, and Sync returns that error. Callers
///   that must know whether the file has been replaced call Sync before they close;
/// - other hard links keep the old contents.
/// Where the folder cannot take another file, or the old file's owner could not be kept, the file
/// is emptied and written in place. B_FAIL_IF_EXISTS claims the name at once, with an empty file.
class BFile : public BNode, public BPositionIO {
public:
    BFile();
    BFile(const char* path, uint32 openMode);
    BFile(const entry_ref* ref, uint32 openMode);
    BFile(const BEntry* entry, uint32 openMode);
    BFile(const BDirectory* folder, const char* path, uint32 openMode);
    ~BFile() override;

    /// `openMode` is of storage/StorageDefs.h. B_ENTRY_NOT_FOUND without B_CREATE_FILE if there is
    /// nothing, B_FILE_EXISTS with B_FAIL_IF_EXISTS if there is something, B_PERMISSION_DENIED,
    /// B_IS_A_DIRECTORY when a folder is opened for writing.
    status_t SetTo(const char* path, uint32 openMode);
    status_t SetTo(const entry_ref* ref, uint32 openMode);
    status_t SetTo(const BEntry* entry, uint32 openMode);
    status_t SetTo(const BDirectory* folder, const char* path, uint32 openMode);
    void Unset() override;

    bool IsReadable() const;
    bool IsWritable() const;

    /// Number of bytes, 0 at the end of the file, or an error. Write writes everything or fails.
    ssize_t Read(void* buffer, size_t size) override;
    ssize_t ReadAt(off_t position, void* buffer, size_t size) override;
    ssize_t Write(const void* buffer, size_t size) override;
    ssize_t WriteAt(off_t position, const void* buffer, size_t size) override;
    off_t Seek(off_t position, uint32 seekMode) override;
    off_t Position() const override;
    status_t SetSize(off_t size) override;
    status_t GetSize(off_t* size) const override;

    /// Puts a replaced file in its place and returns when it is safe on the disk, or with the
    /// reason why it is not. Writing may go on afterwards.
    status_t Sync() override;

private:
    struct Replacement;

    status_t Open(const std::string& path, uint32 openMode);
    status_t OpenReplacement(const std::string& path, uint32 openMode);
    status_t OpenInPlace(const std::string& path, uint32 openMode);
    status_t Commit();

    uint32 fOpenMode = 0;
    off_t fPosition = 0;
    std::unique_ptr<Replacement> fReplacement;
};
