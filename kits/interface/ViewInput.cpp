#include <app/AppDefs.h>
#include <app/Message.h>
#include <interface/ScrollBar.h>
#include <interface/View.h>
#include <interface/Window.h>

#include "kits/interface/WindowData.h"

void BView::MouseDown(BPoint) {}

void BView::MouseUp(BPoint) {}

void BView::MouseMoved(BPoint, uint32, const BMessage*) {}

void BView::KeyDown(const char* bytes, int32 numBytes) {
    BWindow* window = Window();
    if (window == nullptr || numBytes < 1)
        return;
    const BMessage* message = window->CurrentMessage();
    if (bytes[0] != B_TAB) {
        // A view that only watches the keys does not know whether the one they are for took this.
        if (message != nullptr && message->what == B_KEY_DOWN && IsFocus())
            window->fData->OpenMenuBy(*message);
        return;
    }
    int32 held = 0;
    if (message != nullptr)
        (void)message->FindInt32("modifiers", &held);
    (void)window->fData->MoveFocus((static_cast<uint32>(held) & B_SHIFT_KEY) != 0);
}

void BView::KeyUp(const char*, int32) {}

void BView::MakeFocus(bool focused) {
    BWindow* window = Window();
    if (window == nullptr)
        return;
    if (focused)
        window->fData->SetFocus(this);
    else if (IsFocus())
        window->fData->SetFocus(nullptr);
}

bool BView::IsFocus() const {
    const BWindow* window = Window();
    return window != nullptr && window->CurrentFocus() == this;
}

status_t BView::SetEventMask(uint32 mask, uint32 options) {
    fEventMask = mask;
    fEventOptions = options;
    return B_OK;
}

status_t BView::SetMouseEventMask(uint32 mask, uint32 options) {
    BWindow* window = Window();
    if (window == nullptr)
        return B_ERROR;
    return window->fData->input.Capture(*this, mask, options);
}

void BView::GetMouse(BPoint* where, uint32* buttons, bool checkQueue) {
    BPoint pointer;
    uint32 held = 0;
    if (const BWindow* window = Window(); window != nullptr)
        window->fData->input.GetMouse(pointer, held, checkQueue);
    if (where != nullptr)
        *where = pointer - _RootOffset();
    if (buttons != nullptr)
        *buttons = held;
}

void BView::MessageReceived(BMessage* message) {
    if (message->what != B_MOUSE_WHEEL_CHANGED ||
        (fHorizontalBar == nullptr && fVerticalBar == nullptr)) {
        BHandler::MessageReceived(message);
        return;
    }
    // A notch is three small steps, as the desktop's own scroll areas have it.
    constexpr float kSteps = 3;
    const auto scroll = [message](BScrollBar* bar, const char* field) {
        float notches = 0;
        float smallStep = 0;
        if (bar == nullptr || message->FindFloat(field, &notches) != B_OK || notches == 0)
            return;
        bar->GetSteps(&smallStep, nullptr);
        bar->SetValue(bar->Value() + notches * smallStep * kSteps);
    };
    scroll(fHorizontalBar, "be:wheel_delta_x");
    scroll(fVerticalBar, "be:wheel_delta_y");
}
