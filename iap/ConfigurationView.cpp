#include "iap/ConfigurationView.h"

#include <interface/View.h>

BView* make_configuration_view(const std::string& itemName, BView* control) {
    auto* container = new BView(
        kConfigurationControlFrame, itemName.c_str(), B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW);
    container->AddChild(control);
    return container;
}
