#include "comment/Charset.h"

#include <bit>
#include <support/UTF8.h>

namespace {

constexpr unsigned char kEscape = 0x1b;

bool is_trail(unsigned char byte) {
    return (byte & 0xc0) == 0x80;
}

}  // namespace

uint32 detect_charset(const char* text) {
    bool hasEscape = false;
    bool hasBreak = false;
    const auto* byte = reinterpret_cast<const unsigned char*>(text);
    while (*byte != 0) {
        const unsigned char lead = *byte++;
        hasEscape = hasEscape || lead == kEscape;
        if (lead < 0x80)
            continue;
        hasBreak = hasBreak || is_trail(lead);
        // As many bytes belong to it as its leading ones say, itself included. The end of the text
        // is none of them.
        for (int left = std::countl_one(lead) - 1; left > 0; left--) {
            hasBreak = hasBreak || !is_trail(*byte);
            if (*byte == 0)
                break;
            byte++;
        }
    }
    if (hasEscape)
        return B_JIS_CONVERSION;
    return hasBreak ? uint32{B_SJIS_CONVERSION} : 0;
}

int detect_cr_type(const char* text) {
    uint64 lineFeeds = 0;
    uint64 returns = 0;
    for (; *text != '\0'; text++) {
        lineFeeds += *text == '\n' ? 1 : 0;
        returns += *text == '\r' ? 1 : 0;
    }
    if (lineFeeds == returns && lineFeeds != 0)
        return 1;
    return returns > lineFeeds ? 2 : 0;
}
