#pragma once

#include <interface/Control.h>

/// A button of a tool bar: its label alone while the bar is flat and the pointer elsewhere, with
/// raised edges otherwise. A click sends its message.
class TBarButton final : public BControl {
public:
    /// Its place follows with SetPlace().
    TBarButton(const char* name, BMessage* message);

    void SetFlat(bool flat);
    /// As wide as its label needs. @return its right edge
    float SetPlace(float left, float top);

    void Draw(BRect update) override;
    void MouseDown(BPoint where) override;
    void MouseMoved(BPoint where, uint32 transit, const BMessage* dragMessage) override;
    void MouseUp(BPoint where) override;

private:
    void SetState(bool hovered, int32 value);

    bool fFlat = false;
    bool fHovered = false;
    bool fTracking = false;  // the mouse button went down on it and is still held
};
