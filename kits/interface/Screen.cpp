#include <interface/Screen.h>

#include "kits/interface/Display.h"

BScreen::BScreen(screen_id id) : fId(id) {}

BScreen::BScreen(BWindow*) {}

BRect BScreen::Frame() const {
    return BPrivate::TheDisplay().MainScreenFrame();
}
