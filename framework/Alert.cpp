#include "framework/Alert.h"

#include "framework/Accelerator.h"
#include "framework/HintedLabels.h"
#include "framework/LocalText.h"

#include <interface/InterfaceDefs.h>
#include <string>

namespace {

std::string message_of(const char* text, const char* hint) {
    return std::string(text != nullptr ? text : "") + "\n\n" + (hint != nullptr ? hint : "");
}

}  // namespace

int32 show_alert(const char* text, const char* hint, const char* button0, const char* button1,
    const char* button2, int32 escapeIndex, alert_type type) {
    auto* alert = new BAlert(local_text_with_app("* %AppName% *").c_str(),
        message_of(text, hint).c_str(), button0, button1, button2, B_WIDTH_AS_USUAL, type);
    const char* const labels[] = {button0, button1, button2};
    for (int32 i = 0; i < alert->CountButtons(); i++) {
        const char* label = labels[i] != nullptr ? labels[i] : "";
        alert->SetShortcut(i, i == escapeIndex ? char{B_ESCAPE} : short_cut_from_label(label));
    }
    const int32 count = alert->CountButtons();
    const int32 button = alert->Go();  // the alert is gone
    if (button < 0 && escapeIndex >= 0 && escapeIndex < count)
        return escapeIndex;
    return button;
}

void show_error(const char* text, const char* hint) {
    const THintedLabels labels;
    const std::string label = labels("Understand", "U");
    (void)show_alert(text, hint, label.c_str(), nullptr, nullptr, 0, B_WARNING_ALERT);
}
