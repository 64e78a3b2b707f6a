#include <support/DataIO.h>

#include <algorithm>

namespace {

/// Repeats `step(done)` until all of `size` is done or it stops giving.
template <class Step>
status_t do_all(std::size_t size, std::size_t* bytes, Step step) {
    std::size_t done = 0;
    status_t result = B_OK;
    while (done < size && result == B_OK) {
        const ssize_t now = step(done);
        if (now > 0)
            done += std::min(static_cast<std::size_t>(now), size - done);
        else
            result = now < 0 ? static_cast<status_t>(now) : B_IO_ERROR;
    }
    if (bytes != nullptr)
        *bytes = done;
    return result;
}

}  // namespace

BDataIO::BDataIO() = default;
BDataIO::~BDataIO() = default;

status_t BDataIO::ReadExactly(void* buffer, std::size_t size, std::size_t* bytes) {
    return do_all(size, bytes,
        [&](std::size_t done) { return Read(static_cast<char*>(buffer) + done, size - done); });
}

status_t BDataIO::WriteExactly(const void* buffer, std::size_t size, std::size_t* bytes) {
    return do_all(size, bytes, [&](std::size_t done) {
        return Write(static_cast<const char*>(buffer) + done, size - done);
    });
}

BPositionIO::BPositionIO() = default;
BPositionIO::~BPositionIO() = default;

ssize_t BPositionIO::Read(void* buffer, std::size_t size) {
    const ssize_t bytes = ReadAt(Position(), buffer, size);
    if (bytes > 0)
        Seek(bytes, SEEK_CUR);
    return bytes;
}

ssize_t BPositionIO::Write(const void* buffer, std::size_t size) {
    const ssize_t bytes = WriteAt(Position(), buffer, size);
    if (bytes > 0)
        Seek(bytes, SEEK_CUR);
    return bytes;
}

status_t BPositionIO::SetSize(off_t) {
    return B_ERROR;
}

status_t BPositionIO::GetSize(off_t* size) const {
    if (size == nullptr)
        return B_BAD_VALUE;
    // The position is the object's own again before anybody can see it.
    auto* self = const_cast<BPositionIO*>(this);
    const off_t position = self->Position();
    if (position < 0)
        return static_cast<status_t>(position);
    const off_t end = self->Seek(0, SEEK_END);
    if (end < 0)
        return static_cast<status_t>(end);
    const off_t back = self->Seek(position, SEEK_SET);
    if (back < 0)
        return static_cast<status_t>(back);
    *size = end;
    return B_OK;
}

status_t BPositionIO::ReadAtExactly(
    off_t position, void* buffer, std::size_t size, std::size_t* bytes) {
    return do_all(size, bytes, [&](std::size_t done) {
        return ReadAt(
            position + static_cast<off_t>(done), static_cast<char*>(buffer) + done, size - done);
    });
}

status_t BPositionIO::WriteAtExactly(
    off_t position, const void* buffer, std::size_t size, std::size_t* bytes) {
    return do_all(size, bytes, [&](std::size_t done) {
        return WriteAt(position + static_cast<off_t>(done), static_cast<const char*>(buffer) + done,
            size - done);
    });
}
