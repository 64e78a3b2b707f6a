#include "kits/translators/JpegSource.h"

namespace BPrivate::AddOn {

JpegSource::JpegSource(Source& source) : fSource(source) {
    fManager.init_source = [](j_decompress_ptr) {};
    fManager.fill_input_buffer = Fill;
    fManager.skip_input_data = Skip;
    fManager.resync_to_restart = jpeg_resync_to_restart;
    fManager.term_source = [](j_decompress_ptr) {};
}

JpegSource& JpegSource::Of(j_decompress_ptr jpeg) {
    return *reinterpret_cast<JpegSource*>(jpeg->src);
}

boolean JpegSource::Fill(j_decompress_ptr jpeg) {
    JpegSource& self = Of(jpeg);
    const int64 bytes = self.fSource.ReadAt(self.fOffset, self.fBuffer, kBufferSize);
    if (bytes <= 0) {
        SetJpegIncomplete(reinterpret_cast<j_common_ptr>(jpeg), bytes == 0);
        StopJpeg(reinterpret_cast<j_common_ptr>(jpeg), bytes < 0 ? status_t(bytes) : B_BAD_DATA,
            bytes < 0 ? "the file cannot be read" : "the file ends before the picture does");
    }
    self.fOffset += bytes;
    self.fManager.next_input_byte = self.fBuffer;
    self.fManager.bytes_in_buffer = size_t(bytes);
    return TRUE;
}

void JpegSource::Skip(j_decompress_ptr jpeg, long bytes) {
    JpegSource& self = Of(jpeg);
    if (bytes <= 0)
        return;
    const size_t here = self.fManager.bytes_in_buffer;
    if (size_t(bytes) <= here) {
        self.fManager.next_input_byte += bytes;
        self.fManager.bytes_in_buffer -= size_t(bytes);
        return;
    }
    self.fOffset += int64(size_t(bytes) - here);
    self.fManager.bytes_in_buffer = 0;
}

}  // namespace BPrivate::AddOn
