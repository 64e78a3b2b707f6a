// The keys of the view.

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
    Action withCommand;
};

constexpr KeyActions kKeys[] = {
    {B_HOME, &TLorivaneView::SetFirstImage, nullptr},
    {B_END, &TLorivaneView::SetLastImage, nullptr},
    {B_BACKSPACE, &TLorivaneView::SetPrevImage, nullptr},
    {B_SPACE, &TLorivaneView::SetNextImage, nullptr},
    {B_PAGE_UP, &TLorivaneView::ScrollUp, &TLorivaneView::SetPrevImage},
    {B_UP_ARROW, &TLorivaneView::ScrollUp, &TLorivaneView::SetPrevImage},
    {B_PAGE_DOWN, &TLorivaneView::ScrollDown, &TLorivaneView::SetNextImage},
    {B_DOWN_ARROW, &TLorivaneView::ScrollDown, &TLorivaneView::SetNextImage},
    {B_LEFT_ARROW, &TLorivaneView::ScrollLeft, &TLorivaneView::SetPrevImage},
    {B_RIGHT_ARROW, &TLorivaneView::ScrollRight, &TLorivaneView::SetNextImage},
};

}  // namespace

void TLorivaneView::KeyDown(const char* bytes, int32 numBytes) {
    BMessage* message = Window()->CurrentMessage();
    int32 key = 0;
    if (message == nullptr || message->FindInt32("raw_char", &key) != B_OK) {
        TBasicView::KeyDown(bytes, numBytes);
        return;
    }
    uint32 held = modifiers() & kModifiers;
    for (const KeyActions& actions : kKeys) {
        if (actions.key != key)
            continue;
        Action action = held == 0   ? actions.plain
            : held == B_COMMAND_KEY ? actions.withCommand
                                    : nullptr;
        if (action != nullptr)
            (this->*action)();
        return;
    }
    switch (key) {
    case 'a': be_app_messenger.SendMessage(B_ABOUT_REQUESTED); break;
    case 'h':
    case 'm': Window()->Minimize(true); break;
    default: TBasicView::KeyDown(bytes, numBytes); break;
    }
}
