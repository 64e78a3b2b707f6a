// The keys of the view, and the mouse button that opens its context menu.

#include <algorithm>
#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Message.h>
#include <interface/InterfaceDefs.h>
#include <interface/Window.h>

#include "viewer/LorivaneView.h"

namespace {

constexpr uint32 kModifiers = B_SHIFT_KEY | B_COMMAND_KEY | B_CONTROL_KEY | B_OPTION_KEY;

using Action = void (TLorivaneView::*)();

struct KeyActions {
    int32 key;
    Action plain;
    Action withCommand = nullptr;
    Action withControl = nullptr;
};

constexpr KeyActions kKeys[] = {
    {B_HOME, &TLorivaneView::SetFirstImage},
    {B_END, &TLorivaneView::SetLastImage},
    {B_BACKSPACE, &TLorivaneView::SetPrevImage},
    {B_SPACE, &TLorivaneView::SetNextImage},
    {B_PAGE_UP, &TLorivaneView::ScrollUp, &TLorivaneView::SetPrevImage},
    {B_UP_ARROW, &TLorivaneView::ScrollUp, &TLorivaneView::SetPrevImage},
    {B_PAGE_DOWN, &TLorivaneView::ScrollDown, &TLorivaneView::SetNextImage},
    {B_DOWN_ARROW, &TLorivaneView::ScrollDown, &TLorivaneView::SetNextImage},
    {B_LEFT_ARROW, &TLorivaneView::ScrollLeft, &TLorivaneView::SetPrevImage},
    {B_RIGHT_ARROW, &TLorivaneView::ScrollRight, &TLorivaneView::SetNextImage},
    {B_ENTER, &TLorivaneView::MItemFullScreenClicked, nullptr,
        &TLorivaneView::MItemFullScreenClicked},
    {B_ESCAPE, &TLorivaneView::LeaveFullScreen},
};
constexpr KeyActions kF5{B_FUNCTION_KEY, &TLorivaneView::MItemFullScreenClicked};

const KeyActions* find_actions(const BMessage& keyDown, int32 key) {
    int32 number = 0;
    if (key == B_FUNCTION_KEY)
        return keyDown.FindInt32("key", &number) == B_OK && number == B_F5_KEY ? &kF5 : nullptr;
    const auto* found = std::ranges::find(kKeys, key, &KeyActions::key);
    return found != std::end(kKeys) ? found : nullptr;
}

Action action_with(const KeyActions& actions, uint32 held) {
    switch (held) {
    case 0: return actions.plain;
    case B_COMMAND_KEY: return actions.withCommand;
    case B_CONTROL_KEY: return actions.withControl;
    default: return nullptr;
    }
}

}  // namespace

void TLorivaneView::KeyDown(const char* bytes, int32 numBytes) {
    TakeMessageAway();
    BMessage* message = Window()->CurrentMessage();
    int32 key = 0;
    if (message == nullptr || message->FindInt32("raw_char", &key) != B_OK) {
        TBasicView::KeyDown(bytes, numBytes);
        return;
    }
    if (const KeyActions* actions = find_actions(*message, key)) {
        if (Action action = action_with(*actions, modifiers() & kModifiers))
            (this->*action)();
        return;
    }
    switch (key) {
    case 'a': be_app_messenger.SendMessage(B_ABOUT_REQUESTED); break;
    case 'h':
    case 'm': Window()->Minimize(true); break;
    default:
        if (!OpenContextMenuBy(*message))
            TBasicView::KeyDown(bytes, numBytes);
        break;
    }
}

void TLorivaneView::MouseDown(BPoint where) {
    const BMessage* message = Window()->CurrentMessage();
    if (message != nullptr && message->GetInt32("buttons", 0) == B_SECONDARY_MOUSE_BUTTON)
        fContextMenu.Open(this, where, false);
    else
        TBasicView::MouseDown(where);
}

bool TLorivaneView::OpenContextMenuBy(const BMessage& key) {
    if (!TContextMenu::IsAskedFor(key))
        return false;
    Extent area = ImageArea();
    fContextMenu.Open(this, BPoint(area.width / 2, area.height / 2), true);
    return true;
}
