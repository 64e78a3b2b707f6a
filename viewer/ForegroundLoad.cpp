#include "viewer/ForegroundLoad.h"

#include <utility>

#include "framework/MessageCodes.h"

namespace {

bool is_command(const BMessage& message) {
    switch (message.what) {
    case kMsgFirstImage:
    case kMsgPrevImage:
    case kMsgNextImage:
    case kMsgLastImage: return true;
    default: return false;
    }
}

}  // namespace

bool TForegroundLoad::Start(LoaderPtr loader, bool isFound, Continuation then) {
    if (loader->Resume() != B_OK)
        return false;
    fLoader = std::move(loader);
    fIsFound = isFound;
    fThen = std::move(then);
    return true;
}

std::pair<LoaderPtr, TForegroundLoad::Continuation> TForegroundLoad::Take() {
    return {std::move(fLoader), std::exchange(fThen, nullptr)};
}

bool TForegroundLoad::TakeHeld(BMessage* message) {
    if (fHeld.empty())
        return false;
    *message = fHeld.front();
    fHeld.pop_front();
    return true;
}

void TForegroundLoad::DropHeldCommands() {
    std::erase_if(fHeld, is_command);
}
