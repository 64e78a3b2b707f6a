#pragma once

#include "kits/translators/JpegErrors.h"

namespace BPrivate::AddOn {

/// Gives libjpeg the bytes of a file. Where they end before the picture does, the file is truncated
/// and the call ends with a problem.
class JpegSource {
public:
    explicit JpegSource(Source& source);
    JpegSource(const JpegSource&) = delete;
    JpegSource& operator=(const JpegSource&) = delete;

    void Connect(j_decompress_ptr jpeg) { jpeg->src = &fManager; }

private:
    static JpegSource& Of(j_decompress_ptr jpeg);
    static boolean Fill(j_decompress_ptr jpeg);
    static void Skip(j_decompress_ptr jpeg, long bytes);

    static constexpr size_t kBufferSize = 64 * 1024;

    jpeg_source_mgr fManager{};  // First: libjpeg hands out its address as that of the whole.
    Source& fSource;
    int64 fOffset = 0;
    JOCTET fBuffer[kBufferSize];
};

}  // namespace BPrivate::AddOn
