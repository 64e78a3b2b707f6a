#include "kits/interface/AlertAsker.h"

#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <app/MessageQueue.h>
#include <interface/Screen.h>
#include <interface/Window.h>
#include <kernel/OS.h>
#include <memory>

#include "kits/app/LooperRegistry.h"
#include "kits/interface/Display.h"

namespace BPrivate {

namespace {

// Longer than a window takes that has nothing to do. One that is busy, or waits for this thread
// itself, is not waited for.
constexpr bigtime_t kPatience = 20000;

bool IsNewInput(const BMessage& message, bigtime_t start) {
    if (message.GetInt64("when", 0) < start)
        return false;
    switch (message.what) {
    case B_KEY_DOWN:
    case B_UNMAPPED_KEY_DOWN:
    case B_MOUSE_DOWN:
    case B_MOUSE_WHEEL_CHANGED: return true;
    // Any other control shows its new value already.
    case kControlChanged: return message.HasInt32("item");
    default: return false;
    }
}

}  // namespace

AlertAsker::AlertAsker()
    : fWindow(dynamic_cast<BWindow*>(BLooper::LooperForThread(find_thread(nullptr)))),
      fPlace(BScreen(B_MAIN_SCREEN_ID).Frame()), fScreen(fPlace) {
    if (fWindow != nullptr && !fWindow->IsLocked())
        fWindow = nullptr;  // outside of any message: it ends
    if (fWindow != nullptr && !fWindow->IsHidden() && !fWindow->IsMinimized())
        LieOver(*fWindow);
    else
        LieOverActiveWindow();
}

void AlertAsker::LieOver(BWindow& window) {
    fScreen = BScreen(&window).Frame();
    const BRect seen = window.Frame() & fScreen;
    fPlace = seen.IsValid() ? seen : fScreen;
}

void AlertAsker::LieOverActiveWindow() {
    for (const auto& core : LooperRegistry::Get().Loopers()) {
        if (core->Window() == nullptr || core->Lock(kPatience) != B_OK)
            continue;
        BWindow& window = *core->Window();
        const bool isActive = window.IsActive() && !window.IsHidden();
        if (isActive)
            LieOver(window);
        core->TheLock().Unlock();
        if (isActive)
            return;
    }
}

void AlertAsker::ShowWindow() const {
    if (fWindow == nullptr || fWindow->IsHidden())
        return;
    fWindow->UpdateIfNeeded();
    fWindow->Flush();
}

void AlertAsker::DropInputSince(bigtime_t start) const {
    if (fWindow == nullptr)
        return;
    BMessageQueue& queue = *fWindow->MessageQueue();
    queue.Lock();
    for (int32 i = queue.CountMessages() - 1; i >= 0; i--) {
        BMessage* message = queue.FindMessage(i);
        if (IsNewInput(*message, start) && queue.RemoveMessage(message))
            delete message;
    }
    queue.Unlock();
}

}  // namespace BPrivate
