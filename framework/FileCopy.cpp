#include "framework/FileCopy.h"

#include "framework/FileName.h"

#include <cstring>
#include <storage/Entry.h>
#include <storage/File.h>
#include <storage/Node.h>
#include <string>
#include <vector>

namespace {

/// Paths are limited to what fits into a buffer of this size with its terminating NUL.
constexpr size_t kPathBufferSize = 512;

bool fits(const std::string& path) {
    return path.size() < kPathBufferSize;
}

bool are_same_file(const BNode& a, const BNode& b) {
    return a.InitCheck() == B_OK && b.InitCheck() == B_OK && a == b;
}

status_t copy_data(BFile& source, const BEntry& target) {
    const bool isNew = !target.Exists();
    BFile file(&target, B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
    if (file.InitCheck() != B_OK)
        return file.InitCheck();

    std::vector<char> buffer(64 * 1024);
    for (;;) {
        const ssize_t size = source.Read(buffer.data(), buffer.size());
        if (size < 0)
            return static_cast<status_t>(size);
        if (size == 0)
            break;
        const ssize_t written = file.Write(buffer.data(), static_cast<size_t>(size));
        if (written != size)
            return written < 0 ? static_cast<status_t>(written) : B_IO_ERROR;
    }
    // A file that is replaced keeps its own permissions.
    mode_t permissions = 0;
    if (isNew && source.GetPermissions(&permissions) == B_OK)
        (void)file.SetPermissions(permissions);
    return file.Sync();
}

void copy_attribute(const BNode& source, BNode& target, const char* name) {
    attr_info info;
    if (source.GetAttrInfo(name, &info) != B_OK || info.size < 0)
        return;
    std::vector<char> value(static_cast<size_t>(info.size));
    const ssize_t size = source.ReadAttr(name, info.type, 0, value.data(), value.size());
    if (size != static_cast<ssize_t>(value.size()))
        return;
    (void)target.WriteAttr(name, info.type, 0, value.data(), value.size());
}

}  // namespace

status_t copy_file(const char* source, const char* destination) {
    if (source == nullptr || destination == nullptr || *source == '\0' || *destination == '\0')
        return B_BAD_VALUE;
    if (!fits(source) || !fits(destination))
        return B_NAME_TOO_LONG;

    BFile sourceFile(source, B_READ_ONLY);
    if (sourceFile.InitCheck() != B_OK)
        return sourceFile.InitCheck();
    if (sourceFile.IsDirectory())
        return B_IS_A_DIRECTORY;

    std::string target = destination;
    if (BEntry(destination, true).IsDirectory())
        target += "/" + extract_file_name(source);
    if (!fits(target))
        return B_NAME_TOO_LONG;

    const BEntry targetEntry(target.c_str(), true);
    if (are_same_file(sourceFile, BNode(&targetEntry)))
        return B_BAD_VALUE;

    const status_t status = copy_data(sourceFile, targetEntry);
    if (status != B_OK)
        return status;

    BNode targetNode(&targetEntry);
    if (targetNode.InitCheck() != B_OK)
        return targetNode.InitCheck();
    char name[B_ATTR_NAME_LENGTH];
    while (sourceFile.GetNextAttrName(name) == B_OK)
        copy_attribute(sourceFile, targetNode, name);
    return B_OK;
}
