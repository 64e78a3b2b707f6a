#include <interface/Screen.h>
#include <interface/Window.h>
#include <kernel/OS.h>

#include "kits/interface/Display.h"
#include "kits/interface/WindowData.h"

BScreen::BScreen(screen_id id)
    : BScreen(dynamic_cast<BWindow*>(BLooper::LooperForThread(find_thread(nullptr)))) {
    fId = id;
}

BScreen::BScreen(BWindow* window) : fId(B_MAIN_SCREEN_ID) {
    if (window != nullptr && window->Lock()) {
        BPrivate::DisplayWindow* shown = window->fData->Screen();
        if (shown != nullptr)
            fFrame = shown->ScreenFrame();
        window->Unlock();
    }
    if (!fFrame.IsValid())
        fFrame = BPrivate::TheDisplay().MainScreenFrame();
}
