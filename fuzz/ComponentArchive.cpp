// Components of the common preferences window, as any program of the session may send them.

#include <app/Message.h>
#include <cstdlib>
#include <interface/View.h>
#include <interface/Window.h>
#include <string>

#include "framework/MessageCodes.h"
#include "iap/ComponentArchive.h"
#include "iap/IAPView.h"

namespace {

// The largest label of the largest font, and the components and margins beside it.
constexpr float kMostWidth = 20000;

void Require(bool condition) {
    if (!condition)
        std::abort();
}

/// Nothing of the session that the fuzzer runs in is to be seen or changed.
[[maybe_unused]] const bool kAlone =
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", 1) == 0 &&
    setenv("XDG_CONFIG_HOME", "/proc/none", 1) == 0;

BView* ComponentOf(const BView& view, const std::string& name) {
    for (int32 i = 0; BView* child = view.ChildAt(i); ++i) {
        if (child->Name() == name)
            return child;
    }
    return nullptr;
}

/// What the view does with a component from its arrival on.
void Use(TIAPView& view, const BMessage& archive, const std::string& name) {
    BMessage request(kMsgAddSharedComponents);
    for (int i = 0; i < 3; ++i)
        request.AddMessage(name.c_str(), &archive);
    view.MessageReceived(&request);
    const BView* component = ComponentOf(view, name);
    Require(component != nullptr);
    BMessage again;
    Require(component->Archive(&again, true) == B_OK);

    BMessage change(kMsgSharedControlChanged);
    change.AddString(kFieldSharedItem, name.c_str());
    view.MessageReceived(&change);
    view.SetComponents(2);
    view.LanguageChanged();
    view.Window()->UpdateIfNeeded();
    Require(ComponentOf(view, name) != nullptr);
    Require(view.Bounds().IsValid() && view.Bounds().Width() <= kMostWidth);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8* data, size_t size) {
    BMessage archive;
    if (archive.Unflatten(reinterpret_cast<const char*>(data), ssize_t(size)) != B_OK)
        return 0;
    archive.what = kMsgSharedItemChanged;  // which a compiled layout does not have
    const std::string name = archive.GetString(kFieldSharedItem, "");
    if (!is_component_archive(archive, name.c_str()) || name == "ButtonContainer")
        return 0;
    auto* const window = new BWindow(BRect(0, 0, 99, 99), "Components", B_TITLED_WINDOW, 0);
    auto* const view = new TIAPView(window->Bounds());
    window->AddChild(view);
    window->Show();
    Require(window->Lock());
    Use(*view, archive, name);
    window->Quit();
    return 0;
}
