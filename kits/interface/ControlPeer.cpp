#include "kits/interface/ControlPeer.h"

#include <app/Message.h>
#include <atomic>
#include <interface/Window.h>

#include "kits/interface/ViewReading.h"
#include "kits/interface/WindowData.h"

namespace BPrivate {

namespace {

std::atomic<ControlId> sLastId{0};

bool SamePlace(const ControlPlace& a, const ControlPlace& b) {
    return a.view == b.view && a.name == b.name && a.description == b.description &&
        a.frame == b.frame && a.clip == b.clip && a.visible == b.visible &&
        a.enabled == b.enabled && a.focused == b.focused && a.navigable == b.navigable;
}

}  // namespace

void ControlPeer::Install(BView& view, std::unique_ptr<ControlPeer> peer) {
    peer->fView = &view;
    view.fPeer = std::move(peer);
}

ControlPeer* ControlPeer::Of(const BView* view) {
    return view != nullptr ? view->fPeer.get() : nullptr;
}

ControlPeer::~ControlPeer() = default;

DisplayWindow* ControlPeer::Screen() const {
    const BWindow* window = fView->Window();
    return window != nullptr ? window->fData->Screen() : nullptr;
}

void ControlPeer::StateChanged() {
    if (DisplayWindow* screen = Screen(); fId != 0 && screen != nullptr)
        screen->SetControl(fId, State(), ++fSerial);
}

void ControlPeer::StateChangesOften() {
    if (fId != 0)
        fView->Window()->fData->HandDownSoon(fId);
}

void ControlPeer::PlaceChanged() {
    DisplayWindow* screen = Screen();
    if (fId == 0 || screen == nullptr)
        return;
    ControlPlace place = _Place();
    if (fPlaced && SamePlace(place, fLastPlace))
        return;
    screen->PlaceControl(fId, place);
    fLastPlace = std::move(place);
    fPlaced = true;
}

void ControlPeer::GetPreferredSize(float* width, float* height) const {
    const BPoint size = TheDisplay().PreferredSize(State());
    if (width != nullptr)
        *width = size.x;
    if (height != nullptr)
        *height = size.y;
}

std::string ControlPeer::AccessibleName() const {
    return {};
}

ControlPlace ControlPeer::_Place() const {
    ControlPlace place;
    place.view = fView->Name() != nullptr ? fView->Name() : "";
    if (const ViewReading* reading = fView->fReading.get(); reading != nullptr) {
        place.name = reading->Name();
        place.description = reading->Description();
    }
    if (place.name.empty())
        place.name = AccessibleName();
    place.frame = fView->Bounds().OffsetByCopy(fView->_RootOffset());
    place.clip = place.frame;
    place.visible = fView->fHideLevel == 0;
    for (const BView* around = fView->fParent; around != nullptr; around = around->fParent) {
        place.visible = place.visible && around->fHideLevel == 0;
        if (!around->fIsTop)
            place.clip = place.clip & around->Bounds().OffsetByCopy(around->_RootOffset());
    }
    place.visible = place.visible && place.clip.IsValid();
    place.enabled = IsEnabled();
    place.focused = fView->IsFocus();
    place.navigable = (fView->Flags() & B_NAVIGABLE) != 0;
    return place;
}

void ControlPeer::_Attach() {
    fId = ++sLastId;
    fSerial = 0;
    fPlaced = false;
    fView->Window()->fData->AddPeer(*this, fId);
    StateChanged();
    PlaceChanged();
    Attached();
}

void ControlPeer::_Detach() {
    if (fId == 0)
        return;
    Detached();
    if (BWindow* window = fView->Window(); window != nullptr)
        window->fData->RemovePeer(fId);
    if (DisplayWindow* screen = Screen(); screen != nullptr)
        screen->RemoveControl(fId);
    fId = 0;
}

bool ControlPeer::_IsFresh(const BMessage& event) const {
    int32 serial = 0;
    return event.FindInt32("serial", &serial) == B_OK && serial >= fSerial;
}

}  // namespace BPrivate
