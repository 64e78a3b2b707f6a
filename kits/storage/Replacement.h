#pragma once

#include "kits/storage/Posix.h"
#include <sys/stat.h>

namespace BPrivate {

/// A file that is going to take the place of another, or of none, in one step. It lies in the same
/// folder without a name where the file system can do that, otherwise under a random one beginning
/// with '.', which goes with the object.
class Replacement {
public:
    Replacement() = default;
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement();

    /// Makes the file for the entry `path`, absolute and not a link. `old` is the file that is
    /// there, null if none is: its owner, permissions and extended attributes are taken over.
    /// B_NOT_SUPPORTED if that cannot be done in this folder, so that the old file must be written
    /// itself.
    [[nodiscard]] status_t Create(const std::string& path, const struct stat* old);

    /// The new file, open for reading and writing.
    Descriptor& File() { return fFile; }

    /// Puts the file, whose descriptor is `file` now, in its place when it is safe on the disk.
    [[nodiscard]] status_t Commit(int file);
    /// Returns when the step itself is on the disk.
    [[nodiscard]] status_t SyncFolder();

private:
    [[nodiscard]] status_t TakeOver(const struct stat& old);
    [[nodiscard]] status_t GiveName(int file);

    Descriptor fFolder;
    std::string fLeaf;
    std::string fTemporaryName;
    Descriptor fFile;
};

}  // namespace BPrivate
