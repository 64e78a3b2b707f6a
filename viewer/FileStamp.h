#pragma once

#include <storage/Statable.h>
#include <string>

/// Which file it was, and in which state: enough to see that a path leads to another one by now, or
/// that the file was written since.
class TFileStamp {
public:
    /// Of no file; equal to no other.
    TFileStamp() = default;
    /// Of no file when it cannot be asked.
    explicit TFileStamp(const BStatable& file);

    /// Of what the path leads to now.
    static TFileStamp At(const std::string& path);

    bool IsSet() const { return fIsSet; }
    bool operator==(const TFileStamp& other) const;

private:
    bool fIsSet = false;
    dev_t fDevice = 0;
    ino_t fNode = 0;
    off_t fSize = 0;
    timespec fModified = {};
};
