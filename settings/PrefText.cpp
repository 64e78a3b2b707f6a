#include "settings/PrefText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <support/String.h>

#include "framework/FileName.h"

namespace {

constexpr std::string::size_type kLongestFileName = 255;

/// Whether a number that does not fit is one too big, and not one too close to 0.
bool is_huge(const char* start, const char* end) {
    const char* exponent = std::find_if(start, end, [](char c) { return c == 'e' || c == 'E'; });
    if (exponent != end && exponent + 1 != end)
        return exponent[1] != '-';
    return std::any_of(
        start, std::find(start, end, '.'), [](char c) { return c >= '1' && c <= '9'; });
}

}  // namespace

float adjust_value(float value, float min, float max) {
    if (!(value >= min))  // so that what is no number is caught, too
        return min;
    return std::min(value, max);
}

float whole_number(const std::string& text) {
    return static_cast<float>(std::strtol(text.c_str(), nullptr, 10));
}

float decimal_number(const std::string& text) {
    // Not by the C library, which knows one decimal sign only: that of the process's locale.
    std::string number = text;
    std::replace(number.begin(), number.end(), ',', '.');
    const auto first = number.find_first_not_of(" \t");
    if (first == std::string::npos)
        return 0;
    const char* start = number.c_str() + first;
    const char* end = number.c_str() + number.size();
    if (*start == '+' && start[1] != '-')
        start++;
    double value = 0;
    const auto [parsedEnd, error] = std::from_chars(start, end, value);
    if (error == std::errc::result_out_of_range && is_huge(start, parsedEnd))
        value = std::numeric_limits<double>::infinity() * (*start == '-' ? -1 : 1);
    constexpr double kLargest = std::numeric_limits<float>::max();
    return std::isnan(value) ? 0.0F : static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

std::string whole_text(float value) {
    constexpr float kLargest = 1e9F;
    return std::to_string(static_cast<int32>(adjust_value(value, -kLargest, kLargest)));
}

std::string decimal_text(float value) {
    constexpr float kLargest = 1e9F;
    char digits[64];
    const auto end = std::to_chars(std::begin(digits), std::end(digits),
        adjust_value(value, -kLargest, kLargest), std::chars_format::fixed);
    return {digits, end.ptr};
}

std::string comment_file_ext(const std::string& typed) {
    std::string ext = trim(BString(typed.c_str()).ToLower().String());
    ext.erase(0, ext.find_first_not_of(" \t."));
    const bool isPossible = ext.size() < kLongestFileName && ext.find('/') == std::string::npos;
    return isPossible ? ext : std::string();
}
