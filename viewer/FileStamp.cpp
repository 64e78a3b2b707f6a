#include "viewer/FileStamp.h"

#include <storage/Entry.h>

TFileStamp::TFileStamp(const BStatable& file) {
    struct stat status = {};
    if (file.GetStat(&status) != B_OK)
        return;
    fIsSet = true;
    fDevice = status.st_dev;
    fNode = status.st_ino;
    fSize = status.st_size;
    fModified = status.st_mtim;
}

TFileStamp TFileStamp::At(const std::string& path) {
    return TFileStamp(BEntry(path.c_str(), true));
}

bool TFileStamp::operator==(const TFileStamp& other) const {
    return fIsSet && other.fIsSet && fDevice == other.fDevice && fNode == other.fNode &&
        fSize == other.fSize && fModified.tv_sec == other.fModified.tv_sec &&
        fModified.tv_nsec == other.fModified.tv_nsec;
}
