#include "kits/storage/Posix.h"
#include <storage/Entry.h>
#include <storage/Path.h>

entry_ref::entry_ref(
    dev_t itsDevice, ino_t itsDirectory, const char* itsName, std::string_view itsFolder)
    : device(itsDevice), directory(itsDirectory), fFolder(itsFolder) {
    set_name(itsName);
}

entry_ref::entry_ref(const entry_ref& other) {
    *this = other;
}

entry_ref& entry_ref::operator=(const entry_ref& other) {
    device = other.device;
    directory = other.directory;
    fName = other.fName;
    fFolder = other.fFolder;
    name = other.name == nullptr ? nullptr : fName.c_str();
    return *this;
}

status_t entry_ref::set_name(const char* newName) {
    if (newName == nullptr) {
        fName.clear();
        name = nullptr;
        return B_OK;
    }
    if (std::string_view(newName).size() >= size_t(B_FILE_NAME_LENGTH))
        return B_NAME_TOO_LONG;
    fName = newName;
    name = fName.c_str();
    return B_OK;
}

bool entry_ref::operator==(const entry_ref& other) const {
    if (device != other.device || directory != other.directory ||
        (name == nullptr) != (other.name == nullptr) || fName != other.fName)
        return false;
    return directory != ino_t(-1) || fFolder == other.fFolder;
}

status_t get_ref_for_path(const char* path, entry_ref* ref) {
    if (path == nullptr || *path == '\0' || ref == nullptr)
        return B_BAD_VALUE;
    BEntry entry;
    status_t status = entry.SetTo(path);
    if (status == B_OK)
        status = entry.GetRef(ref);
    if (status != B_OK) {
        std::string whole = path;
        if (BPrivate::MakeAbsolute(&whole) != B_OK)
            return status;
        while (whole.size() > 1 && whole.back() == '/')
            whole.pop_back();
        const size_t leaf = whole.rfind('/') + 1;
        *ref = entry_ref(dev_t(-1), ino_t(-1), whole.c_str() + leaf,
            std::string_view(whole).substr(0, leaf > 1 ? leaf - 1 : 1));
    }
    return status;
}
