#include "kits/interface/WindowInput.h"

#include <app/AppDefs.h>
#include <app/Message.h>
#include <app/MessageQueue.h>
#include <cstring>
#include <interface/Window.h>

#include "kits/interface/ControlPeer.h"
#include "kits/interface/PixelRule.h"
#include "kits/interface/WindowData.h"

namespace BPrivate {

namespace {

uint32 Number(const BMessage& message, const char* name) {
    int32 value = 0;
    (void)message.FindInt32(name, &value);
    return static_cast<uint32>(value);
}

/// The position as the message has it. False when it has none that can be used.
bool FindWhere(const BMessage& message, BPoint& where) {
    return message.FindPoint("be:window_where", &where) == B_OK && IsFinite(where);
}

void Collect(BView& view, uint32 mask, std::vector<BView*>& found) {
    if ((view.EventMask() & mask) != 0)
        found.push_back(&view);
    for (int32 i = 0; i < view.CountChildren(); i++)
        Collect(*view.ChildAt(i), mask, found);
}

BView* Deepest(BView& view, BPoint where) {
    for (int32 i = view.CountChildren() - 1; i >= 0; i--) {
        BView& child = *view.ChildAt(i);
        const PixelRect pixels = CoveredPixels(child.Frame());
        const BPoint cell(std::floor(where.x), std::floor(where.y));
        if (child.IsHidden(&child) || pixels.IsEmpty() || !pixels.ToRect().Contains(cell))
            continue;
        return Deepest(child, child.ConvertFromParent(where));
    }
    return &view;
}

}  // namespace

bool WindowInput::IsInput(uint32 what) {
    switch (what) {
    case B_KEY_DOWN:
    case B_KEY_UP:
    case B_MOUSE_DOWN:
    case B_MOUSE_MOVED:
    case B_MOUSE_UP: return true;
    default: return false;
    }
}

BView* WindowInput::ViewAt(BPoint where) const {
    BView& top = fWindow.fData->Top();
    if (!IsFinite(where) ||
        !top.Bounds().Contains(BPoint(std::floor(where.x), std::floor(where.y))))
        return nullptr;
    BView* view = Deepest(top, where);
    return view != &top ? view : nullptr;
}

BHandler* WindowInput::Target(const BMessage& message) {
    BHandler* const window = &fWindow;
    BView* view = nullptr;
    BPoint where;
    switch (message.what) {
    case B_KEY_DOWN:
    case B_KEY_UP:
    case B_UNMAPPED_KEY_DOWN:
    case B_UNMAPPED_KEY_UP:
    case B_MODIFIERS_CHANGED: view = fWindow.CurrentFocus(); break;
    case B_MOUSE_DOWN:
    case B_MOUSE_UP:
    case B_MOUSE_MOVED:
        if (fCaptor != nullptr)
            view = fCaptor;
        else if (FindWhere(message, where))
            view = ViewAt(where);
        break;
    case B_MOUSE_WHEEL_CHANGED:
        if (FindWhere(message, where))
            view = ViewAt(where);
        // A control has no use for it; what it stands in may have.
        while (view != nullptr && ControlPeer::Of(view) != nullptr)
            view = view->Parent();
        if (view == nullptr || view == &fWindow.fData->Top())
            view = fWindow.CurrentFocus();
        break;
    case B_SIMPLE_DATA:
        if (FindWhere(message, where))
            view = ViewAt(where);
        break;
    default: break;
    }
    return view != nullptr ? view : window;
}

void WindowInput::Dispatch(BMessage& message, BView& view) {
    if (message.what == B_KEY_DOWN || message.what == B_KEY_UP) {
        DispatchKey(message, view);
        return;
    }
    if (!FindWhere(message, fPointer))
        return;
    fButtons = Number(message, "buttons");
    if (message.what == B_MOUSE_MOVED) {
        DispatchMoved(message, view);
        return;
    }

    const auto tell = [&](BView& target) {
        const BPoint where = fPointer - target._RootOffset();
        (void)message.RemoveName("be:view_where");
        (void)message.AddPoint("be:view_where", where);
        if (message.what == B_MOUSE_DOWN)
            target.MouseDown(where);
        else
            target.MouseUp(where);
    };
    BView* const captor = fCaptor;
    tell(view);
    ForWatchers(B_POINTER_EVENTS, view, tell);
    if (message.what == B_MOUSE_UP && fButtons == 0 && fCaptor == captor)
        fCaptor = nullptr;
}

void WindowInput::DispatchKey(BMessage& message, BView& view) {
    // With Command a key is a shortcut or nothing.
    if (message.what == B_KEY_DOWN && (Number(message, "modifiers") & B_COMMAND_KEY) != 0)
        return;
    const char* bytes = nullptr;
    if (message.FindString("bytes", &bytes) != B_OK)
        return;
    const auto length = static_cast<int32>(std::strlen(bytes));
    // Hooks may take the message apart.
    const std::string copy(bytes);
    const auto tell = [&](BView& target) {
        if (message.what == B_KEY_DOWN)
            target.KeyDown(copy.c_str(), length);
        else
            target.KeyUp(copy.c_str(), length);
    };
    tell(view);
    ForWatchers(B_KEYBOARD_EVENTS, view, tell);
}

void WindowInput::DispatchMoved(BMessage& message, BView& view) {
    if (fCaptor == &view && IsOutdated(fCaptorOptions))
        return;
    bool inside = true;
    (void)message.FindBool("be:inside", &inside);
    BView* const before = fUnder;
    BView* const now = inside ? ViewAt(fPointer) : nullptr;
    fUnder = now;

    const auto transit = [&](const BView& target) -> uint32 {
        if (&target == now)
            return now == before ? B_INSIDE_VIEW : B_ENTERED_VIEW;
        return &target == before ? B_EXITED_VIEW : B_OUTSIDE_VIEW;
    };
    const auto tell = [&](BView& target) {
        SendMoved(message, target, fPointer - target._RootOffset(), transit(target));
    };
    if (fCaptor == &view) {
        tell(view);
    } else {
        if (before != nullptr && before != now)
            tell(*before);
        // The hook may have changed the views; only what is still under the pointer is told.
        if (now != nullptr && fUnder == now)
            tell(*now);
    }
    ForWatchers(B_POINTER_EVENTS, view, [&](BView& target) {
        if (&target != now && &target != before && !IsOutdated(target.fEventOptions))
            tell(target);
    });
}

void WindowInput::SendMoved(BMessage& message, BView& view, BPoint where, uint32 transit) {
    (void)message.RemoveName("be:view_where");
    (void)message.AddPoint("be:view_where", where);
    (void)message.RemoveName("be:transit");
    (void)message.AddInt32("be:transit", static_cast<int32>(transit));
    view.MouseMoved(where, transit, nullptr);
}

bool WindowInput::IsOutdated(uint32 options) const {
    if ((options & B_NO_POINTER_HISTORY) == 0)
        return false;
    // A move before a press or a release counts: it is where a drag went.
    BMessageQueue* queue = fWindow.MessageQueue();
    queue->Lock();
    bool outdated = false;
    const BMessage* waiting = nullptr;
    for (int32 i = 0; (waiting = queue->FindMessage(i)) != nullptr; i++) {
        if (waiting->what == B_MOUSE_DOWN || waiting->what == B_MOUSE_UP)
            break;
        if (waiting->what == B_MOUSE_MOVED) {
            outdated = true;
            break;
        }
    }
    queue->Unlock();
    return outdated;
}

template <typename Call>
void WindowInput::ForWatchers(uint32 mask, const BView& besides, Call call) {
    std::vector<BView*> watchers;
    Collect(fWindow.fData->Top(), mask, watchers);
    for (BView* watcher : watchers) {
        // The hook of one may have removed another.
        std::vector<BView*> present;
        Collect(fWindow.fData->Top(), mask, present);
        const bool isThere = std::find(present.begin(), present.end(), watcher) != present.end();
        if (isThere && watcher != &besides)
            call(*watcher);
    }
}

status_t WindowInput::Capture(BView& view, uint32 mask, uint32 options) {
    if (fButtons == 0)
        return B_NOT_ALLOWED;
    fCaptor = (mask & B_POINTER_EVENTS) != 0 ? &view : nullptr;
    fCaptorOptions = options;
    return B_OK;
}

void WindowInput::GetMouse(BPoint& where, uint32& buttons, bool checkQueue) const {
    where = fPointer;
    buttons = fButtons;
    if (!checkQueue)
        return;
    BMessageQueue* queue = fWindow.MessageQueue();
    queue->Lock();
    const BMessage* waiting = nullptr;
    for (int32 i = 0; (waiting = queue->FindMessage(i)) != nullptr; i++) {
        const bool isMouse = waiting->what == B_MOUSE_DOWN || waiting->what == B_MOUSE_UP ||
            waiting->what == B_MOUSE_MOVED;
        if (isMouse && FindWhere(*waiting, where))
            buttons = Number(*waiting, "buttons");
    }
    queue->Unlock();
}

void WindowInput::Forget(const BView& view) {
    if (fUnder != nullptr && fUnder->_IsIn(view))
        fUnder = nullptr;
    if (fCaptor != nullptr && fCaptor->_IsIn(view))
        fCaptor = nullptr;
}

}  // namespace BPrivate
