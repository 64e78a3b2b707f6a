// JPEG files from anywhere.

#include "fuzz/DecodeImage.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8* data, size_t size) {
    Fuzz::DecodeImage(data, size);
    return 0;
}
