#pragma once

#include <memory>
#include <support/DataIO.h>
#include <translation/TranslationDefs.h>

class BBitmap;

/// A bitmap as a stream: the header TranslatorBitmap, big-endian, and the rows of pixels. Reading
/// gives the bitmap's stream. Writing a header makes the bitmap, writing pixels fills it. The
/// object owns its bitmap until it is detached. Not to be used from two threads at a time.
class BBitmapStream : public BPositionIO {
public:
    /// Takes over `bitmap`, which may be null.
    explicit BBitmapStream(BBitmap* bitmap = nullptr);
    ~BBitmapStream() override;

    ssize_t ReadAt(off_t position, void* buffer, size_t size) override;
    /// Bytes beyond the pixels are refused with B_BAD_VALUE, a header that is not one with
    /// B_BAD_DATA, a bitmap that is too large with B_NO_MEMORY.
    ssize_t WriteAt(off_t position, const void* buffer, size_t size) override;
    off_t Seek(off_t position, uint32 seekMode) override;
    off_t Position() const override;
    /// The header's and the pixels' bytes together; 0 without a bitmap.
    off_t Size() const;
    /// The size follows from the header; only the present size is accepted.
    status_t SetSize(off_t size) override;

    /// Hands the bitmap over to the caller and leaves the stream empty. B_ERROR if there is none,
    /// B_BAD_VALUE for a null pointer.
    status_t DetachBitmap(BBitmap** outBitmap);

    /// Puts a finished bitmap into the stream in place of what is there. The fast way for
    /// translators of this process: they decode into the bitmap's own memory.
    void Adopt(std::unique_ptr<BBitmap> bitmap);

private:
    status_t MakeBitmap();
    void FillHeader();

    static constexpr size_t kHeaderSize = 32;

    std::unique_ptr<BBitmap> fBitmap;
    uint8 fHeader[kHeaderSize] = {};
    size_t fHeaderBytes = 0;
    off_t fPosition = 0;
};
