// A small application of the same family as the viewer: it shares the format of its labels' hints
// and the look of its tool bar with it, and either can open the window that changes both.

#include "examples/BarWindow.h"
#include "framework/MessageCodes.h"
#include "iap/IAPItemAccKeyFormat.h"
#include "iap/IAPItemFlatToolBar.h"
#include "iap/InterAppPrefs.h"

#include <app/Application.h>
#include <app/Messenger.h>
#include <memory>

namespace {

constexpr char kSignature[] = "application/x-vnd.ZELKAN-LabelledBar";
constexpr BRect kFrame(200, 200, 560, 300);

class TBarApp final : public BApplication {
public:
    explicit TBarApp(TInterAppPrefs& prefs)
        : BApplication(kSignature), fPrefs(prefs), fWindow(new TBarWindow(kFrame, prefs)) {
        fWindow->Show();
    }

    void MessageReceived(BMessage* message) override {
        switch (message->what) {
        case kMsgShowSharedPrefs: ShowSharedPrefs(); break;
        case kMsgSharedItemChanged:
            // Fails for an item of another application's, which does not concern the window.
            if (fPrefs.SetValue(*message) == B_OK)
                (void)BMessenger(fWindow).SendMessage(message);
            break;
        default: BApplication::MessageReceived(message);
        }
    }

    bool QuitRequested() override { return true; }

private:
    void ShowSharedPrefs() {
        if (!fWindow->Lock())
            return;
        BRect frame = fWindow->Frame();
        fWindow->Unlock();
        frame.top += 20;
        (void)fPrefs.ShowWindow(frame);
    }

    TInterAppPrefs& fPrefs;
    TBarWindow* fWindow;  // closed by the base
};

}  // namespace

int main() {
    TInterAppPrefs prefs;
    (void)prefs.SetAppSignatureRef(kSignature);
    (void)prefs.AddItem(new TIAPItemAccKeyFormat);
    (void)prefs.AddItem(new TIAPItemFlatToolBar);
    auto app = std::make_unique<TBarApp>(prefs);
    app->Run();
    return 0;
}
