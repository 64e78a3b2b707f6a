#include "comment/CommentText.h"

#include <algorithm>
#include <new>
#include <storage/File.h>
#include <support/UTF8.h>

#include "comment/Charset.h"
#include "settings/Prefs.h"

namespace {

// What fits the converter's lengths when it has become twice as long.
constexpr off_t kLargestFile = 0x3fffffff;

std::string read_file(const std::string& path) {
    BFile file(path.c_str(), B_READ_ONLY);
    off_t size = 0;
    if (file.InitCheck() != B_OK || file.GetSize(&size) != B_OK || size < 0 || size > kLargestFile)
        return {};
    std::string bytes(static_cast<std::size_t>(size), '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        const ssize_t read = file.Read(bytes.data() + length, bytes.size() - length);
        if (read < 0)
            return {};
        if (read == 0)
            break;
        length += static_cast<std::size_t>(read);
    }
    bytes.resize(length);
    return bytes;
}

uint32 conversion_for(const std::string& text, int32 encoding) {
    switch (encoding) {
    case kEncodingShiftJIS: return B_SJIS_CONVERSION;
    case kEncodingJIS: return B_JIS_CONVERSION;
    case kEncodingAutoDetect: return detect_charset(text.c_str());
    default: return 0;
    }
}

/// Empty when the system does not convert it.
std::string convert(const std::string& text, uint32 conversion) {
    std::string converted;
    // Two bytes become three at most, but one of half-width katakana becomes three, too.
    converted.resize(2 * text.size());
    std::size_t read = 0;
    std::size_t written = 0;
    int32 state = 0;
    while (read < text.size()) {
        auto sourceLength = static_cast<int32>(text.size() - read);
        auto destLength = static_cast<int32>(converted.size() - written);
        if (convert_to_utf8(conversion, text.data() + read, &sourceLength,
                converted.data() + written, &destLength, &state, B_SUBSTITUTE) != B_OK)
            return {};
        read += static_cast<std::size_t>(sourceLength);
        written += static_cast<std::size_t>(destLength);
        if (read == text.size())
            break;
        // Without room the text goes on; with it, the rest is the beginning of a character.
        constexpr std::size_t kLongestCharacter = 8;
        if (converted.size() - written < kLongestCharacter) {
            converted.resize(written + 3 * (text.size() - read) + kLongestCharacter);
        } else {
            converted.resize(written);
            converted.append(text.size() - read, B_SUBSTITUTE);
            return converted;
        }
    }
    converted.resize(written);
    return converted;
}

}  // namespace

std::string read_comment_file(const std::string& path) {
    try {
        std::string text = read_file(path);
        while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
            text.pop_back();
        return text;
    } catch (const std::bad_alloc&) {
        return {};
    }
}

std::string comment_to_utf8(const std::string& text, int32 encoding) {
    const uint32 conversion = conversion_for(text, encoding);
    if (conversion == 0 || text.empty())
        return text;
    std::string converted = convert(text, conversion);
    if (converted.empty())
        return text;
    return converted;
}
