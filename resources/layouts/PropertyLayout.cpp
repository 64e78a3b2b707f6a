#include <interface/Button.h>
#include <interface/StringView.h>
#include <string>

#include "resources/layouts/Layouts.h"

std::unique_ptr<BView> make_property_layout() {
    auto view = std::make_unique<BView>(
        BRect(0, 0, 379, 168), "PropertyView", B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW);
    float top = 12;
    for (const char* row : {"FileName", "FolderName", "Kind", "Size", "Memory"}) {
        const std::string name = std::string("StrView") + row;
        view->AddChild(new BStringView(BRect(12, top, 91, top + 17), (name + "Label").c_str(), ""));
        view->AddChild(
            new BStringView(BRect(100, top, 367, top + 17), (name + "Value").c_str(), ""));
        top += 22;
    }
    auto* ok = new BButton(BRect(288, 132, 367, 156), "ButtonOK", "OK", nullptr);
    ok->MakeDefault(true);
    view->AddChild(ok);
    return view;
}
