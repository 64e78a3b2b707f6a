#include "kits/locale/CatalogueFile.h"

#include <cstdint>
#include <string>
#include <utility>

namespace BPrivate {

namespace {

constexpr std::string_view kMagic(
    "\x3C\xB8\x64\x18\xCA\xEF\x9C\x95\xCD\x21\x1C\xBF\x60\xA1\xBD\xDD", 16);

// The file is a list of sections: a byte that says which, its length, its content. The hash table
// and the others are for readers that look single texts up.
constexpr std::uint8_t kMessagesSection = 0x69;

// The messages are tags with their values, each message closed by an end tag.
enum Tag : std::uint8_t {
    kEnd = 1,
    kTranslation = 3,
    kSourceText = 6,
    kContext = 7,
    kComment = 8,
};
constexpr std::uint32_t kNullLength = 0xffffffff;

/// Takes big-endian values off the front, until something is missing.
class Reader {
public:
    explicit Reader(std::string_view data) : fData(data) {}

    bool IsBroken() const { return fBroken; }
    bool IsAtEnd() const { return fBroken || fData.empty(); }

    std::uint8_t Byte() {
        const std::string_view byte = Bytes(1);
        return byte.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(byte.front());
    }
    std::string_view LengthAndBytes() {
        std::uint32_t length = 0;
        for (int i = 0; i < 4; i++)
            length = length << 8 | Byte();
        return length == kNullLength ? std::string_view() : Bytes(length);
    }

private:
    std::string_view Bytes(std::size_t count) {
        if (fBroken || count > fData.size()) {
            fBroken = true;
            return {};
        }
        const std::string_view bytes = fData.substr(0, count);
        fData.remove_prefix(count);
        return bytes;
    }

    std::string_view fData;
    bool fBroken = false;
};

void AppendUtf8(std::string& text, char32_t character) {
    const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xc0 | character >> 6);
        add(0x80 | (character & 0x3f));
    } else if (character < 0x10000) {
        add(0xe0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3f));
        add(0x80 | (character & 0x3f));
    } else {
        add(0xf0 | character >> 18);
        add(0x80 | (character >> 12 & 0x3f));
        add(0x80 | (character >> 6 & 0x3f));
        add(0x80 | (character & 0x3f));
    }
}

std::optional<std::string> Utf8OfUtf16(std::string_view bytes) {
    std::string text;
    char32_t high = 0;
    if (bytes.size() % 2 != 0)
        return std::nullopt;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto unit = static_cast<char32_t>(
            static_cast<std::uint8_t>(bytes[i]) << 8 | static_cast<std::uint8_t>(bytes[i + 1]));
        const bool isHigh = unit >= 0xd800 && unit < 0xdc00;
        const bool isLow = unit >= 0xdc00 && unit < 0xe000;
        if (isLow != (high != 0))
            return std::nullopt;
        if (isHigh)
            high = unit;
        else
            AppendUtf8(text, isLow ? 0x10000 + ((high - 0xd800) << 10) + (unit - 0xdc00) : unit);
        if (isLow)
            high = 0;
    }
    if (high != 0)
        return std::nullopt;
    return text;
}

bool ReadMessages(Reader messages, Catalogue& catalogue) {
    std::string_view key, translation;
    while (!messages.IsAtEnd()) {
        switch (messages.Byte()) {
        case kTranslation: translation = messages.LengthAndBytes(); break;
        case kSourceText: key = messages.LengthAndBytes(); break;
        case kContext:
        case kComment: (void)messages.LengthAndBytes(); break;
        case kEnd: {
            std::optional<std::string> text = Utf8OfUtf16(translation);
            if (!text || key.empty())
                return false;
            // What the translator left empty is as good as missing.
            if (!text->empty())
                catalogue.emplace(key, std::move(*text));
            key = translation = {};
            break;
        }
        default: return false;
        }
    }
    return !messages.IsBroken() && key.empty();
}

}  // namespace

std::optional<Catalogue> read_catalogue(std::string_view file) {
    if (!file.starts_with(kMagic))
        return std::nullopt;
    file.remove_prefix(kMagic.size());
    Catalogue catalogue;
    bool found = false;
    for (Reader sections(file); !sections.IsAtEnd();) {
        const std::uint8_t section = sections.Byte();
        const std::string_view content = sections.LengthAndBytes();
        if (sections.IsBroken())
            return std::nullopt;
        if (section != kMessagesSection)
            continue;
        if (!ReadMessages(Reader(content), catalogue))
            return std::nullopt;
        found = true;
    }
    return found ? std::optional(std::move(catalogue)) : std::nullopt;
}

}  // namespace BPrivate
