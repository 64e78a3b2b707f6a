#pragma once

// What a translator add-on and the translation kit know of each other.
//
// An add-on is a module with one exported function, kEntryPoint. It reads a file through a Source
// and writes pixels into memory it is given; it makes no bitmap, holds no state between files and
// needs no symbol of the kits, so it does not matter whether it was loaded into the viewer or into
// a worker process. Everything here is called from any thread, each Source and Decoder by one
// thread at a time. Nothing throws but std::bad_alloc.

#include <cstdint>
#include <memory>
#include <support/SupportDefs.h>

namespace BPrivate::AddOn {

/// Raised with every change of what is declared here; an add-on of another version is not used.
constexpr uint32 kInterfaceVersion = 2;

/// The bytes of a file.
class Source {
public:
    /// Reads up to `size` bytes from `offset`. Returns their number, less than asked for only at
    /// the end, or a negative status.
    virtual int64 ReadAt(int64 offset, void* buffer, size_t size) = 0;
    /// The number of bytes, or a negative status.
    virtual int64 Size() = 0;

protected:
    ~Source() = default;
};

/// A format that an add-on has recognised. The strings are static.
struct Format {
    type_code type;
    const char* name;  ///< for the user, short: "JPEG image"
    const char* mime;
    float quality;
    float capability;
};

/// Why something failed: a status and one sentence in English for whoever looks into it.
struct Problem {
    status_t status = B_OK;
    bool incomplete = false;  ///< the file ends before the picture does
    char text[200] = {};
};

/// The size of the picture as it is shown, turned upright, in pixels. Not checked by the add-on.
struct Size {
    uint32 width = 0;
    uint32 height = 0;
};

/// A file whose header has been read.
class Decoder {
public:
    virtual ~Decoder() = default;

    virtual Size PictureSize() const = 0;

    /// Writes the whole picture as B, G, R, A (not premultiplied, sRGB) in rows `bytesPerRow`
    /// apart, PictureSize() in all. Called at most once. A file that is not complete and sound is a
    /// problem, B_BAD_DATA; what has been written by then is of no use.
    [[nodiscard]] virtual status_t Decode(uint8* bits, size_t bytesPerRow, Problem* problem) = 0;
};

class Translator {
public:
    virtual const char* Name() const = 0;
    virtual const char* Info() const = 0;
    virtual int32 Version() const = 0;

    /// Recognises a format by the beginning of the file. B_NO_TRANSLATOR if it is none of its own.
    [[nodiscard]] virtual status_t Identify(Source& source, Format* format) = 0;
    /// Reads the header. The decoder uses the source until it is deleted, and no more than about
    /// `memoryBudget` bytes beside the pixels. Null if it fails.
    virtual std::unique_ptr<Decoder> Open(
        Source& source, uint64 memoryBudget, Problem* problem) = 0;

protected:
    ~Translator() = default;
};

/// `extern "C" Translator* lorivane_translator(uint32 interfaceVersion)`: the module's translator,
/// which lives as long as the module; null if it does not know this version of the interface.
constexpr char kEntryPoint[] = "lorivane_translator";
using EntryPoint = Translator* (*)(uint32 interfaceVersion);

}  // namespace BPrivate::AddOn
