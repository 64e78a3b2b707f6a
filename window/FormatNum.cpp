#include "window/FormatNum.h"

#include <support/String.h>

std::string FormatNum(double value) {
    BString digits;
    digits << static_cast<float>(value);
    std::string text = digits.String();

    const size_t point = text.find('.');
    if (point == std::string::npos)
        return text;  // no finite number
    constexpr size_t kGroup = 3;
    for (size_t place = point; place > kGroup;) {
        place -= kGroup;
        text.insert(place, ",");
    }
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

std::string memory_text(double bytes) {
    constexpr double kKilo = 1024;
    constexpr double kMega = kKilo * kKilo;
    // A unit starts above its first number: 1,024 B, and 1,024 KB.
    if (bytes > kMega)
        return FormatNum(bytes / kMega) + " MB ( " + FormatNum(bytes) + " B)";
    if (bytes > kKilo)
        return FormatNum(bytes / kKilo) + " KB ( " + FormatNum(bytes) + " B)";
    return FormatNum(bytes) + " B";
}
