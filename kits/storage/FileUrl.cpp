#include "kits/storage/FileUrl.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <unistd.h>

namespace BPrivate {

namespace {

constexpr std::string_view kScheme = "file:";

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(
        a, b, [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

bool IsThisHost(std::string_view host) {
    if (host.empty() || EqualIgnoringCase(host, "localhost"))
        return true;
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 && EqualIgnoringCase(host, name.data());
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

std::optional<std::string> PercentDecoded(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char byte = text[i];
        if (byte == '%') {
            if (i + 2 >= text.size())
                return std::nullopt;
            const int high = HexDigit(text[i + 1]);
            const int low = HexDigit(text[i + 2]);
            if (high < 0 || low < 0)
                return std::nullopt;
            byte = static_cast<char>(high * 16 + low);
            i += 2;
        }
        if (byte == '\0')
            return std::nullopt;
        decoded += byte;
    }
    return decoded;
}

}  // namespace

bool IsFileUrl(std::string_view text) {
    return EqualIgnoringCase(text.substr(0, kScheme.size()), kScheme) &&
        text.substr(kScheme.size()).starts_with('/');
}

std::optional<std::string> PathOfFileUrl(std::string_view url) {
    if (!IsFileUrl(url))
        return std::nullopt;
    url.remove_prefix(kScheme.size());
    if (url.starts_with("//")) {
        url.remove_prefix(2);
        const size_t path = url.find('/');
        if (path == std::string_view::npos || !IsThisHost(url.substr(0, path)))
            return std::nullopt;
        url.remove_prefix(path);
    }
    return PercentDecoded(url);
}

}  // namespace BPrivate
