#include "framework/Accelerator.h"

#include <interface/Button.h>
#include <kernel/OS.h>

namespace {

constexpr char kHintFirst = 1;
constexpr char kKeyMark = 'a';

constexpr char kMiddleDot[] = "\xE3\x83\xBB";       // U+30FB
constexpr char kFullWidthColon[] = "\xEF\xBC\x9A";  // U+FF1A

std::string hint_for(const std::string& format, const std::string& key) {
    const std::string::size_type mark = format.find(kKeyMark, 1);
    if (mark == std::string::npos)
        return {};
    return format.substr(1, mark - 1) + key + format.substr(mark + 1);
}

/// Where the decoration of the label's end begins, with the blanks before it.
std::string::size_type decoration_start(const std::string& label) {
    for (const char* decoration : {"...", "[", kFullWidthColon, ":"}) {
        std::string::size_type at = label.find(decoration);
        if (at == std::string::npos)
            continue;
        while (at > 0 && label[at - 1] == ' ')
            at--;
        return at;
    }
    return label.size();
}

char to_lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

}  // namespace

std::string merge_accelerator_key(
    const std::string& format, const std::string& key, const std::string& label) {
    const std::string hint = hint_for(format, key);
    if (!format.empty() && format.front() == kHintFirst)
        return hint + label;
    std::string merged = label;
    return merged.insert(decoration_start(label), hint);
}

char short_cut_from_label(const std::string& label) {
    for (std::string::size_type i = 0; i + 2 < label.size(); i++) {
        if (label[i] == '(' && label[i + 2] == ')')
            return to_lower(label[i + 1]);
    }
    if (label.find(')') == 1 || label.find(' ') == 1 || label.find(kMiddleDot) == 1)
        return to_lower(label.front());
    return 0;
}

void click_button(BButton* button) {
    constexpr bigtime_t kPressTime = 50000;
    button->SetValue(B_CONTROL_ON);
    snooze(kPressTime);
    button->SetValue(B_CONTROL_OFF);
    (void)button->Invoke();
}
