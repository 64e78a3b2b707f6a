#pragma once

// Something to read bytes from and write bytes to. None of these objects locks: one thread at a
// time. Reading and writing return the number of bytes, which may be less than asked for, or a
// negative status.

#include <cstdio>  // SEEK_SET, SEEK_CUR, SEEK_END

#include <support/SupportDefs.h>

/// A stream of bytes.
class BDataIO {
public:
    BDataIO();
    virtual ~BDataIO();
    BDataIO(const BDataIO&) = delete;
    BDataIO& operator=(const BDataIO&) = delete;

    virtual ssize_t Read(void* buffer, std::size_t size) = 0;
    virtual ssize_t Write(const void* buffer, std::size_t size) = 0;

    /// Reads or writes all of it, in as many steps as it takes, or fails: `B_IO_ERROR` when no
    /// more bytes come or go, or what the step returned. `bytes`, if given, is set to how many
    /// were done even then.
    status_t ReadExactly(void* buffer, std::size_t size, std::size_t* bytes = nullptr);
    status_t WriteExactly(const void* buffer, std::size_t size, std::size_t* bytes = nullptr);
};

/// Bytes with a position and an end.
class BPositionIO : public BDataIO {
public:
    BPositionIO();
    ~BPositionIO() override;

    /// At the current position, which then moves on by what was done.
    ssize_t Read(void* buffer, std::size_t size) override;
    ssize_t Write(const void* buffer, std::size_t size) override;

    /// At a position, leaving the current one alone.
    virtual ssize_t ReadAt(off_t position, void* buffer, std::size_t size) = 0;
    virtual ssize_t WriteAt(off_t position, const void* buffer, std::size_t size) = 0;

    /// Moves the position by `SEEK_SET`, `SEEK_CUR` or `SEEK_END` and returns it. It may be past
    /// the end, where reading gives 0 bytes; it cannot be negative (`B_BAD_VALUE`).
    virtual off_t Seek(off_t position, uint32 seekMode) = 0;
    virtual off_t Position() const = 0;

    /// `B_ERROR` unless the class can change its size.
    virtual status_t SetSize(off_t size);
    /// By default found by seeking to the end and back.
    virtual status_t GetSize(off_t* size) const;

    /// `ReadAt()` and `WriteAt()` of all of it, as `ReadExactly()` does.
    status_t ReadAtExactly(
        off_t position, void* buffer, std::size_t size, std::size_t* bytes = nullptr);
    status_t WriteAtExactly(
        off_t position, const void* buffer, std::size_t size, std::size_t* bytes = nullptr);
};

/// Memory of its own that grows as it is written to. Writing past the end fills the gap with
/// zeros; `B_NO_MEMORY` if there is none.
class BMallocIO : public BPositionIO {
public:
    BMallocIO();
    ~BMallocIO() override;

    ssize_t ReadAt(off_t position, void* buffer, std::size_t size) override;
    ssize_t WriteAt(off_t position, const void* buffer, std::size_t size) override;
    off_t Seek(off_t position, uint32 seekMode) override;
    off_t Position() const override;
    status_t SetSize(off_t size) override;
    status_t GetSize(off_t* size) const override;

    /// The memory is taken in multiples of so many bytes (256 at first).
    void SetBlockSize(std::size_t blockSize);
    /// The bytes, until the next write or change of size; null before there were any.
    const void* Buffer() const { return fData; }
    std::size_t BufferLength() const { return fLength; }

private:
    status_t Reserve(std::size_t size);

    std::size_t fBlockSize = 256;
    std::size_t fAllocated = 0;
    std::size_t fLength = 0;
    char* fData = nullptr;
    off_t fPosition = 0;
};

/// Somebody else's memory, of a fixed size. Writing stops at its end; into constant memory it is
/// `B_NOT_ALLOWED`.
class BMemoryIO : public BPositionIO {
public:
    BMemoryIO(void* data, std::size_t length);
    BMemoryIO(const void* data, std::size_t length);
    ~BMemoryIO() override;

    ssize_t ReadAt(off_t position, void* buffer, std::size_t size) override;
    ssize_t WriteAt(off_t position, const void* buffer, std::size_t size) override;
    off_t Seek(off_t position, uint32 seekMode) override;
    off_t Position() const override;
    /// Moves the end within the memory: `B_ERROR` beyond it, `B_NOT_ALLOWED` if constant.
    status_t SetSize(off_t size) override;
    status_t GetSize(off_t* size) const override;

private:
    const bool fReadOnly;
    char* fData;
    std::size_t fLength;
    const std::size_t fCapacity;
    off_t fPosition = 0;
};
