#include "kits/interface/ViewReading.h"

#include <atomic>
#include <interface/Accessibility.h>
#include <interface/View.h>
#include <interface/Window.h>
#include <utility>

#include "kits/interface/ControlPeer.h"
#include "kits/interface/WindowData.h"

namespace BPrivate {

namespace {

std::atomic<int32> sLastId{0};

}  // namespace

ViewReading& ViewReading::Of(BView& view) {
    if (view.fReading == nullptr)
        view.fReading = std::make_unique<ViewReading>(view);
    return *view.fReading;
}

void ViewReading::SetName(std::string name) {
    if (std::exchange(fName, std::move(name)) != fName)
        Changed();
}

void ViewReading::SetDescription(std::string description) {
    if (std::exchange(fDescription, std::move(description)) != fDescription)
        Changed();
}

void ViewReading::Changed() {
    if (fView.fPeer != nullptr)
        fView.fPeer->PlaceChanged();
    else
        Update();
}

void ViewReading::Update() {
    const BWindow* window = fView.Window();
    DisplayWindow* screen = window != nullptr ? window->fData->Screen() : nullptr;
    if (screen == nullptr || fView.fPeer != nullptr)
        return;
    ReadableView reading = Described();
    if (reading.name.empty() || !reading.frame.IsValid()) {
        Forget();
        return;
    }
    if (fId != 0 && reading == fLast)
        return;
    if (fId == 0)
        fId = ++sLastId;
    screen->SetReadableView(fId, reading);
    fLast = std::move(reading);
}

void ViewReading::Forget() {
    const BWindow* window = fView.Window();
    DisplayWindow* screen = window != nullptr ? window->fData->Screen() : nullptr;
    if (fId != 0 && screen != nullptr)
        screen->RemoveReadableView(fId);
    fId = 0;
}

ReadableView ViewReading::Described() const {
    ReadableView reading{fName, fDescription, {}, fView.IsFocus()};
    BRect frame = fView.Bounds().OffsetByCopy(fView._RootOffset());
    for (const BView* around = &fView; around != nullptr; around = around->fParent) {
        if (around->fHideLevel > 0)
            return reading;
        if (around != &fView && !around->fIsTop)
            frame = frame & around->Bounds().OffsetByCopy(around->_RootOffset());
    }
    reading.frame = frame;
    return reading;
}

}  // namespace BPrivate

void set_accessible_name(BView* view, const char* name) {
    if (view != nullptr)
        BPrivate::ViewReading::Of(*view).SetName(name != nullptr ? name : "");
}

void set_accessible_description(BView* view, const char* description) {
    if (view != nullptr)
        BPrivate::ViewReading::Of(*view).SetDescription(description != nullptr ? description : "");
}
