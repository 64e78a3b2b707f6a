#pragma once

#include "kits/translation/AddOnModule.h"

namespace BPrivate {

/// A row of the table of codecs.
struct Codec {
    const char* fileName;
    SniffFunction sniff;
};

/// The add-ons this system comes with, in the order they are asked.
extern const Codec kCodecs[];
extern const size_t kCodecCount;

bool IsJpeg(const uint8* head, size_t length);
bool IsPng(const uint8* head, size_t length);
/// False for what is surely not an image: an empty file, and text that does not begin as the image
/// formats that are text do.
bool MayBeImage(const uint8* head, size_t length);

}  // namespace BPrivate
