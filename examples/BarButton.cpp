#include "examples/BarButton.h"

#include <app/Message.h>
#include <cmath>
#include <interface/Font.h>
#include <interface/InterfaceDefs.h>

namespace {

constexpr float kHeight = 24;
constexpr float kPadding = 12;

rgb_color mixed(rgb_color color, uint8 with) {
    const auto mix = [with](uint8 value) { return static_cast<uint8>((value + with) / 2); };
    return {mix(color.red), mix(color.green), mix(color.blue), 255};
}

}  // namespace

TBarButton::TBarButton(const char* name, BMessage* message)
    : BControl(BRect(), name, "", message, B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW) {
    SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
    SetLowColor(ViewColor());
}

void TBarButton::SetFlat(bool flat) {
    fFlat = flat;
    Invalidate();
}

float TBarButton::SetPlace(float left, float top) {
    MoveTo(left, top);
    ResizeTo(std::ceil(StringWidth(Label())) + 2 * kPadding, kHeight);
    return Frame().right;
}

void TBarButton::Draw(BRect /*update*/) {
    const BRect bounds = Bounds();
    const bool pressed = Value() != B_CONTROL_OFF;
    if (!fFlat || fHovered || pressed) {
        const rgb_color light = mixed(ViewColor(), 255);
        const rgb_color dark = mixed(ViewColor(), 0);
        SetHighColor(pressed ? dark : light);
        StrokeLine(bounds.LeftBottom(), bounds.LeftTop());
        StrokeLine(bounds.RightTop());
        SetHighColor(pressed ? light : dark);
        StrokeLine(bounds.RightBottom());
        StrokeLine(bounds.LeftBottom());
    }
    font_height height;
    GetFontHeight(&height);
    SetHighColor(ui_color(B_PANEL_TEXT_COLOR));
    const float shift = pressed ? 1 : 0;
    DrawString(Label(),
        BPoint(
            kPadding + shift, std::round((kHeight + height.ascent - height.descent) / 2) + shift));
}

void TBarButton::MouseDown(BPoint /*where*/) {
    fTracking = true;
    (void)SetMouseEventMask(B_POINTER_EVENTS, B_NO_POINTER_HISTORY);
    SetState(true, B_CONTROL_ON);
}

void TBarButton::MouseMoved(BPoint where, uint32 transit, const BMessage* /*dragMessage*/) {
    const bool hovered = transit != B_EXITED_VIEW && Bounds().Contains(where);
    SetState(hovered, fTracking && hovered ? B_CONTROL_ON : B_CONTROL_OFF);
}

void TBarButton::MouseUp(BPoint /*where*/) {
    const bool clicked = fTracking && Value() == B_CONTROL_ON;
    fTracking = false;
    SetState(fHovered, B_CONTROL_OFF);
    if (clicked)
        (void)Invoke();
}

void TBarButton::SetState(bool hovered, int32 value) {
    if (hovered != fHovered)
        Invalidate();
    fHovered = hovered;
    SetValue(value);
}
