#include "tests/iap/WindowFixture.h"

#include <app/MessageQueue.h>

#include "iap/IAPItemAccKeyFormat.h"
#include "iap/IAPItemFlatToolBar.h"

namespace {

// A message that nobody knows is answered when all before it is done.
constexpr uint32 kEcho = 'echo';

std::string value_of(const BMessage& change) {
    const char* name = change.GetString("IAP:SrcIAPItem", "");
    if (change.HasString(name))
        return change.GetString(name, "");
    if (change.HasBool(name))
        return change.GetBool(name, false) ? "on" : "off";
    BMessage box;
    if (change.FindMessage("_views", &box) != B_OK)
        return "none";
    return box.GetInt32("_val", 0) != 0 ? "box on" : "box off";
}

}  // namespace

TIAPFixture::TIAPFixture() : fApp(kOwnApp) {
    (void)fStore.SetAppSignatureRef(kOwnApp);
    (void)fStore.AddItem(new TIAPItemAccKeyFormat);
    (void)fStore.AddItem(new TIAPItemFlatToolBar);
}

TIAPFixture::~TIAPFixture() {
    Quit();
}

void TIAPFixture::Open() {
    fWindow = new TIAPWindow(BRect(100, 120, 700, 620));
    fView = fWindow->View();
    fScreen = recording::TheRecordingDisplay().Windows().back();
    fWindow->Show();
    Settle();
}

void TIAPFixture::Quit() {
    if (fWindow != nullptr && fWindow->Lock())
        fWindow->Quit();
    fWindow = nullptr;
}

void TIAPFixture::Do(const BMessage& message) {
    BMessage copy(message);
    ASSERT_EQ(BMessenger(fView).SendMessage(&copy), B_OK);
    Settle();
}

// The screen's event makes the control send its message, which may make the view post another.
void TIAPFixture::Settle() {
    for (int i = 0; i < 3; ++i) {
        BMessage reply;
        ASSERT_EQ(BMessenger(fView).SendMessage(kEcho, &reply), B_OK);
    }
}

std::vector<BMessage> TIAPFixture::Broadcasts() {
    std::vector<BMessage> changes;
    while (const auto message = std::unique_ptr<BMessage>(fApp.MessageQueue()->NextMessage())) {
        if (message->what == kMsgSharedItemChanged)
            changes.push_back(*message);
    }
    return changes;
}

std::vector<std::string> TIAPFixture::BroadcastValues() {
    std::vector<std::string> values;
    for (const BMessage& change : Broadcasts())
        values.push_back(
            std::string(change.GetString("IAP:SrcIAPItem", "")) + " " + value_of(change));
    return values;
}

void TIAPFixture::AddOwnComponents() {
    BMessage request;
    fStore.MakeComponents(&request);
    Do(request);
}

recording::Control TIAPFixture::Shown(const std::string& label) {
    const auto control = fScreen->FindControl(label);
    if (!control)
        throw std::runtime_error("no control " + label);
    return *control;
}

void TIAPFixture::Click(const std::string& label, int32 value) {
    fScreen->SetValue(Shown(label).id, value);
    Settle();
}

void TIAPFixture::ChooseFormat(const std::string& format) {
    for (const recording::Control& control : fScreen->Controls()) {
        if (std::holds_alternative<BPrivate::MenuFieldState>(control.state)) {
            EXPECT_TRUE(fScreen->ChooseItem(control.id, {format})) << format;
        }
    }
    Settle();
}

BRect TIAPFixture::FrameOf(const char* name) {
    return with_lock(fWindow, [&] {
        const BView* view = fWindow->FindView(name);
        EXPECT_NE(view, nullptr) << name;
        return view != nullptr ? view->Frame() : BRect();
    });
}

std::vector<std::string> TIAPFixture::ComponentNames() {
    return with_lock(fWindow, [&] {
        std::vector<std::string> names;
        for (int32 i = 0; const BView* child = fView->ChildAt(i); i++)
            names.emplace_back(child->Name());
        EXPECT_EQ(names.back(), "ButtonContainer");
        names.pop_back();
        return names;
    });
}
