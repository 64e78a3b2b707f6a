#pragma once

// Constants of the storage kit.

#include <support/SupportDefs.h>

/// The longest leaf name in bytes, with its terminating NUL.
constexpr int32 B_FILE_NAME_LENGTH = 256;
/// The longest path that one call of the operating system takes, with its NUL. Paths of the kit's
/// own classes may be longer.
constexpr int32 B_PATH_NAME_LENGTH = 4096;
/// The longest attribute name in bytes, with its terminating NUL.
constexpr int32 B_ATTR_NAME_LENGTH = 251;

/// How a BFile is opened: one of the first three and any of the others.
enum : uint32 {
    B_READ_ONLY = 0x0000,
    B_WRITE_ONLY = 0x0001,
    B_READ_WRITE = 0x0002,
    B_FAIL_IF_EXISTS = 0x0100,  ///< with B_CREATE_FILE: the file must not be there yet
    B_CREATE_FILE = 0x0200,     ///< a missing file is made
    B_ERASE_FILE = 0x0400,      ///< the old contents are replaced; see storage/File.h
    B_OPEN_AT_END = 0x0800,     ///< the first position is the end of the file
};
