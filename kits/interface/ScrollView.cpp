#include <interface/ScrollView.h>

#include <algorithm>
#include <app/Message.h>
#include <interface/InterfaceDefs.h>
#include <interface/ListView.h>
#include <interface/ScrollBar.h>
#include <memory>

namespace {

float ThicknessOf(border_style border) {
    switch (border) {
    case B_FANCY_BORDER: return 2;
    case B_PLAIN_BORDER: return 1;
    default: return 0;
    }
}

/// Where the view around that target lies.
BRect FrameAround(const BView* target, bool horizontal, bool vertical, border_style border) {
    if (target == nullptr)
        return {0, 0, 80, 80};
    BRect frame = target->Frame();
    if (vertical)
        frame.right += B_V_SCROLL_BAR_WIDTH + 1;
    if (horizontal)
        frame.bottom += B_H_SCROLL_BAR_HEIGHT + 1;
    frame.InsetBy(-ThicknessOf(border), -ThicknessOf(border));
    return frame;
}

rgb_color Between(rgb_color a, rgb_color b) {
    const auto middle = [](uint8 x, uint8 y) { return static_cast<uint8>((x + y) / 2); };
    return {middle(a.red, b.red), middle(a.green, b.green), middle(a.blue, b.blue), 255};
}

}  // namespace

BScrollView::BScrollView(const char* name, BView* target, uint32 resizingMode, uint32 flags,
    bool horizontal, bool vertical, border_style border)
    : BView(FrameAround(target, horizontal, vertical, border), name, resizingMode,
          flags | B_WILL_DRAW | B_FULL_UPDATE_ON_RESIZE),
      fBorder(border) {
    SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
    if (horizontal) {
        fHorizontal = new BScrollBar(BRect(), "_HSB_", nullptr, 0, 0, B_HORIZONTAL);
        AddChild(fHorizontal);
    }
    if (vertical) {
        fVertical = new BScrollBar(BRect(), "_VSB_", nullptr, 0, 0, B_VERTICAL);
        AddChild(fVertical);
    }
    fTarget = target;
    if (fTarget != nullptr)
        AddChild(fTarget);
    _AdoptTarget();
}

BScrollView::BScrollView(BMessage* archive) : BView(archive) {
    const int32 style = archive->GetInt32("_style", B_FANCY_BORDER);
    if (style == B_PLAIN_BORDER || style == B_NO_BORDER)
        fBorder = static_cast<border_style>(style);
    fNativeBar = archive->GetBool("_native_bar", false);
    for (int32 i = 0; i < CountChildren(); i++) {
        auto* bar = dynamic_cast<BScrollBar*>(ChildAt(i));
        if (bar == nullptr && fTarget == nullptr)
            fTarget = ChildAt(i);
        else if (bar != nullptr)
            (bar->Orientation() == B_HORIZONTAL ? fHorizontal : fVertical) = bar;
    }
    _AdoptTarget();
}

BScrollView::~BScrollView() = default;

BArchivable* BScrollView::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BScrollView") ? new BScrollView(archive) : nullptr;
}

status_t BScrollView::Archive(BMessage* archive, bool deep) const {
    status_t status = BView::Archive(archive, deep);
    if (status == B_OK)
        status = archive->AddInt32("_style", fBorder);
    if (status == B_OK && fNativeBar)
        status = archive->AddBool("_native_bar", true);
    return status;
}

BScrollBar* BScrollView::ScrollBar(orientation direction) const {
    return direction == B_HORIZONTAL ? fHorizontal : fVertical;
}

void BScrollView::SetBorder(border_style border) {
    if (border == fBorder)
        return;
    fBorder = border;
    _Layout();
    Invalidate();
}

status_t BScrollView::SetBorderHighlighted(bool highlighted) {
    if (highlighted != fHighlighted) {
        fHighlighted = highlighted;
        Invalidate();
    }
    return B_OK;
}

void BScrollView::SetTarget(BView* target) {
    if (target == fTarget)
        return;
    if (fTarget != nullptr && RemoveChild(fTarget))
        delete fTarget;
    fTarget = target;
    if (fTarget != nullptr)
        AddChild(fTarget);
    _AdoptTarget();
}

void BScrollView::_AdoptTarget() {
    if (dynamic_cast<BListView*>(fTarget) != nullptr) {
        fNativeBar = fNativeBar || fVertical != nullptr;
        for (BScrollBar* bar : {fHorizontal, fVertical}) {
            if (bar != nullptr && RemoveChild(bar))
                delete bar;
        }
        fHorizontal = nullptr;
        fVertical = nullptr;
    } else if (fNativeBar && fTarget != nullptr) {
        fNativeBar = false;
        fVertical = new BScrollBar(BRect(), "_VSB_", nullptr, 0, 0, B_VERTICAL);
        AddChild(fVertical);
    }
    for (BScrollBar* bar : {fHorizontal, fVertical}) {
        if (bar != nullptr)
            bar->SetTarget(fTarget);
    }
    if (fTarget != nullptr)
        fTarget->SetResizingMode(B_FOLLOW_ALL);
    _Layout();
}

void BScrollView::_Layout() {
    const auto place = [](BView* view, BRect frame) {
        view->MoveTo(frame.LeftTop());
        view->ResizeTo(frame.Width(), frame.Height());
    };
    if (auto* list = dynamic_cast<BListView*>(fTarget); list != nullptr) {
        list->_SetScrolled(fNativeBar, fBorder);
        place(list, Bounds().OffsetToCopy(B_ORIGIN));
        return;
    }
    BRect inside = _Inside();
    if (fVertical != nullptr)
        inside.right -= B_V_SCROLL_BAR_WIDTH + 1;
    if (fHorizontal != nullptr)
        inside.bottom -= B_H_SCROLL_BAR_HEIGHT + 1;
    if (fVertical != nullptr) {
        place(fVertical, BRect(inside.right + 1, inside.top, _Inside().right, inside.bottom));
    }
    if (fHorizontal != nullptr) {
        place(fHorizontal, BRect(inside.left, inside.bottom + 1, inside.right, _Inside().bottom));
    }
    if (fTarget != nullptr)
        place(fTarget, inside);
}

BRect BScrollView::_Inside() const {
    const float thickness = ThicknessOf(fBorder);
    return Bounds().OffsetToCopy(B_ORIGIN).InsetByCopy(thickness, thickness);
}

void BScrollView::Draw(BRect updateRect) {
    BView::Draw(updateRect);
    if (fBorder == B_NO_BORDER || dynamic_cast<BListView*>(fTarget) != nullptr)
        return;
    const rgb_color line = ui_color(fHighlighted ? B_KEYBOARD_NAVIGATION_COLOR : B_DESKTOP_COLOR);
    BRect edge = Bounds();
    if (fBorder == B_FANCY_BORDER) {
        SetHighColor(Between(line, ui_color(B_PANEL_BACKGROUND_COLOR)));
        StrokeRect(edge);
        edge.InsetBy(1, 1);
    }
    SetHighColor(line);
    StrokeRect(edge);
}
