#pragma once

// Types and constants of the translation kit.

#include <interface/GraphicsDefs.h>
#include <interface/Rect.h>
#include <support/SupportDefs.h>

/// Names a translator of one roster.
using translator_id = int32;

/// The group, and the type, of images: the stream that BBitmapStream reads and writes.
constexpr uint32 B_TRANSLATOR_BITMAP = 'bits';

/// What a source was identified as.
struct translator_info {
    uint32 type = 0;               ///< the format, four characters such as 'JPEG'
    translator_id translator = 0;  ///< who identified it; 0 is nobody
    uint32 group = 0;              ///< B_TRANSLATOR_BITMAP for an image
    float quality = 0;             ///< how well the format keeps what it is given, 0 to 1
    float capability = 0;          ///< how much of the format the translator knows, 0 to 1
    char name[251] = {};           ///< short name for the user, such as "JPEG image"
    char MIME[251] = {};           ///< such as "image/jpeg"
};

/// What a translator tells of a failure in the message for extensions, where it is given one. Beyond
/// the platform's interface: a string, one sentence in English for whoever looks into it;
constexpr char B_TRANSLATOR_EXT_PROBLEM[] = "problem";
/// and a bool, true when the file is sound as far as it goes, but ends too early.
constexpr char B_TRANSLATOR_EXT_INCOMPLETE[] = "incomplete";

/// A format that a translator reads or writes.
struct translation_format {
    uint32 type;
    uint32 group;
    float quality;
    float capability;
    char MIME[251];
    char name[251];
};

/// The beginning of a B_TRANSLATOR_BITMAP stream. In the stream every field is big-endian; the
/// pixels follow, `dataSize` bytes in rows of `rowBytes`.
struct TranslatorBitmap {
    uint32 magic = B_TRANSLATOR_BITMAP;
    BRect bounds;
    uint32 rowBytes = 0;
    color_space colors = B_NO_COLOR_SPACE;
    uint32 dataSize = 0;
};
