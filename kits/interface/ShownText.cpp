#include "kits/interface/ShownText.h"

#include <support/UTF8.h>

namespace BPrivate {

namespace {

constexpr std::string_view kReplacement = "\xef\xbf\xbd";  // U+FFFD
constexpr std::string_view kTab = "    ";

/// How many bytes at the start of the text are one character; 0 when they are none.
std::size_t CharacterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    };
    const auto trails = [&](std::size_t count) {
        for (std::size_t i = 1; i <= count; i++) {
            if ((byte(i) & 0xc0) != 0x80)
                return false;
        }
        return true;
    };
    const unsigned lead = byte(0);
    if (lead < 0x80)
        return 1;
    if (lead >= 0xc2 && lead < 0xe0)
        return trails(1) ? 2 : 0;
    if (lead >= 0xe0 && lead < 0xf0) {
        const bool overlong = lead == 0xe0 && byte(1) < 0xa0;
        const bool surrogate = lead == 0xed && byte(1) >= 0xa0;
        return trails(2) && !overlong && !surrogate ? 3 : 0;
    }
    if (lead >= 0xf0 && lead < 0xf5) {
        const bool overlong = lead == 0xf0 && byte(1) < 0x90;
        const bool beyond = lead == 0xf4 && byte(1) >= 0x90;
        return trails(3) && !overlong && !beyond ? 4 : 0;
    }
    return 0;
}

}  // namespace

std::string ShownText(std::string_view text, std::vector<int32>* sources) {
    std::string shown;
    shown.reserve(text.size());
    if (sources != nullptr) {
        sources->clear();
        sources->reserve(text.size() + 1);
    }
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t length = CharacterLength(text.substr(at));
        const char first = text[at];
        std::string_view drawn = text.substr(at, length);
        if (length == 0 || first == B_SUBSTITUTE)
            drawn = kReplacement;
        else if (first == '\t')
            drawn = kTab;
        else if (drawn == kByteOrderMark ||
            (length == 1 && (static_cast<unsigned char>(first) < ' ' || first == 0x7f)))
            drawn = {};
        shown += drawn;
        if (sources != nullptr)
            sources->insert(sources->end(), drawn.size(), static_cast<int32>(at));
        at += length != 0 ? length : 1;
    }
    if (sources != nullptr)
        sources->push_back(static_cast<int32>(text.size()));
    return shown;
}

}  // namespace BPrivate
