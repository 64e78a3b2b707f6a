#include "kits/translation/Sniff.h"
#include <algorithm>
#include <cstring>
#include <string_view>

namespace BPrivate {

// The last one knows many formats, some only by trying, so it is asked last.
const Codec kCodecs[] = {
    {"jpeg-translator.so", IsJpeg},
    {"png-translator.so", IsPng},
    {"qt-translator.so", MayBeImage},
};
const size_t kCodecCount = std::size(kCodecs);

bool IsJpeg(const uint8* head, size_t length) {
    // SOI and the first byte of another marker (ITU T.81, B.1.1.3).
    return length >= 3 && head[0] == 0xff && head[1] == 0xd8 && head[2] == 0xff;
}

bool IsPng(const uint8* head, size_t length) {
    return length >= 8 && memcmp(head, "\x89PNG\r\n\x1a\n", 8) == 0;
}

// Text as the comments beside pictures are: no control characters but white space. Bytes above
// ASCII are text in one encoding or another as long as the beginning, which is what tells, is ASCII
// or there is no byte that could not be text in any.
static bool IsText(std::string_view head) {
    return std::all_of(head.begin(), head.end(), [](char c) {
        const auto byte = uint8(c);
        return byte >= 0x20
            ? byte != 0x7f
            : byte == '\t' || byte == '\n' || byte == '\r' || byte == '\f' || byte == 0x1b;
    });
}

bool MayBeImage(const uint8* head, size_t length) {
    if (length == 0)
        return false;
    std::string_view text(reinterpret_cast<const char*>(head), length);
    if (!IsText(text))
        return true;
    if (text.starts_with("\xef\xbb\xbf"))
        text.remove_prefix(3);
    const size_t start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos)
        return false;
    text.remove_prefix(start);
    // SVG, XPM, XBM and the portable any-maps.
    if (text[0] == '<' || text.starts_with("/*") || text.starts_with("#define"))
        return true;
    if (text[0] == 'P' && text.size() > 2 && text[1] >= '1' && text[1] <= '7')
        return strchr(" \t\r\n#", text[2]) != nullptr;
    // Other binary formats begin with a few letters; a file of them has a control character in its
    // first few hundred bytes unless it is shorter than any picture.
    return false;
}

}  // namespace BPrivate
