#include "kits/interface/WindowData.h"

#include <algorithm>
#include <app/Message.h>
#include <interface/Button.h>
#include <interface/MenuBar.h>
#include <utility>

#include "kits/interface/ControlPeer.h"

namespace BPrivate {

namespace {

void CollectNavigable(BView& view, std::vector<BView*>& found) {
    for (int32 i = 0; i < view.CountChildren(); i++) {
        BView& child = *view.ChildAt(i);
        if (child.IsHidden(&child))
            continue;
        const ControlPeer* peer = ControlPeer::Of(&child);
        if ((child.Flags() & B_NAVIGABLE) != 0 && (peer == nullptr || peer->IsEnabled()))
            found.push_back(&child);
        CollectNavigable(child, found);
    }
}

}  // namespace

WindowData::WindowData(BWindow& owner, const WindowSpec& given, window_type givenType)
    : window(owner), spec(given), type(givenType), input(owner), frame(given.frame),
      reportedFrame(given.frame), surface(owner, given.frame.OffsetToCopy(B_ORIGIN)),
      fScreen(TheDisplay().CreateWindow(given, BMessenger(&owner, &owner))) {}

WindowData::~WindowData() = default;

void WindowData::DeleteViews() {
    // The controls go with the window; taking them away one by one is not worth the while.
    fScreen.reset();
    surface.DeleteViews();
}

void WindowData::SetFocus(BView* view) {
    if (view == focus)
        return;
    BView* const before = focus;
    focus = view;
    if (view != nullptr && ControlPeer::Of(view) == nullptr)
        contentFocus = view;
    window.SetPreferredHandler(view);
    if (before != nullptr) {
        before->MakeFocus(false);
        before->_PlaceChanged();
    }
    if (view != nullptr && focus == view)
        view->_PlaceChanged();
}

void WindowData::FocusTakenByUser(ControlId id) {
    BView* view = contentFocus;
    if (id != 0) {
        ControlPeer* peer = PeerOf(id);
        if (peer == nullptr)
            return;
        view = &peer->View();
        // The control has the focus already. To hand it down again might take it from another
        // that the user has gone on to since.
        peer->fLastPlace.focused = true;
    }
    if (ControlPeer* before = ControlPeer::Of(focus); before != nullptr && focus != view)
        before->fLastPlace.focused = false;
    SetFocus(view);
}

bool WindowData::MoveFocus(bool backward) {
    std::vector<BView*> views;
    CollectNavigable(Top(), views);
    if (views.empty())
        return false;
    const auto count = views.size();
    const auto at =
        static_cast<std::size_t>(std::find(views.begin(), views.end(), focus) - views.begin());
    std::size_t next = 0;
    if (at == count)
        next = backward ? count - 1 : 0;
    else
        next = (at + (backward ? count - 1 : 1)) % count;
    views[next]->MakeFocus(true);
    return true;
}

void WindowData::ViewLeaves(const BView& view) {
    input.Forget(view);
    if (contentFocus != nullptr && contentFocus->_IsIn(view))
        contentFocus = nullptr;
    if (focus != nullptr && focus->_IsIn(view)) {
        focus = nullptr;
        window.SetPreferredHandler(nullptr);
    }
    // Compared as views: one in the middle of its destruction is nothing more.
    const BView* button = defaultButton;
    if (button != nullptr && button->_IsIn(view))
        defaultButton = nullptr;
    const BView* bar = keyMenuBar;
    if (bar != nullptr && bar->_IsIn(view))
        keyMenuBar = nullptr;
}

void WindowData::AddPeer(ControlPeer& peer, ControlId id) {
    fPeers[id] = &peer;
}

void WindowData::RemovePeer(ControlId id) {
    fPeers.erase(id);
}

ControlPeer* WindowData::PeerOf(ControlId id) const {
    const auto place = fPeers.find(id);
    return place != fPeers.end() ? place->second : nullptr;
}

void WindowData::HandDownSoon(ControlId id) {
    if (std::ranges::find(fChanged, id) != fChanged.end())
        return;
    fChanged.push_back(id);
    // What another thread does under the lock is the end of no message.
    if (window.Thread() != 0 && window.CurrentMessage() == nullptr)
        (void)window.PostMessage(kControlsChanged);
}

void WindowData::FrameChanged() {
    frameSerial++;
    fFrameChanged = true;
    if (window.CurrentMessage() == nullptr)
        HandDownFrame();
}

void WindowData::HandDownFrame() {
    if (std::exchange(fFrameChanged, false) && fScreen)
        fScreen->SetFrame(frame, frameSerial);
}

void WindowData::HandDownChanges() {
    HandDownFrame();
    for (const ControlId id : std::exchange(fChanged, {})) {
        if (ControlPeer* peer = PeerOf(id); peer != nullptr)
            peer->StateChanged();
    }
}

}  // namespace BPrivate
