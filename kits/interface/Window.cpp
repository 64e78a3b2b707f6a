#include <interface/Window.h>

#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Message.h>
#include <interface/Button.h>

#include "kits/interface/ControlPeer.h"
#include "kits/interface/WindowData.h"
#include "kits/interface/WindowFrame.h"

using BPrivate::WindowData;
using BPrivate::WindowSpec;

namespace {

window_look LookOf(window_type type) {
    switch (type) {
    case B_MODAL_WINDOW: return B_MODAL_WINDOW_LOOK;
    case B_DOCUMENT_WINDOW: return B_DOCUMENT_WINDOW_LOOK;
    case B_BORDERED_WINDOW: return B_BORDERED_WINDOW_LOOK;
    case B_FLOATING_WINDOW: return B_FLOATING_WINDOW_LOOK;
    case B_TITLED_WINDOW:
    case B_UNTYPED_WINDOW: break;
    }
    return B_TITLED_WINDOW_LOOK;
}

window_feel FeelOf(window_type type) {
    switch (type) {
    case B_MODAL_WINDOW: return B_MODAL_APP_WINDOW_FEEL;
    case B_FLOATING_WINDOW: return B_FLOATING_APP_WINDOW_FEEL;
    default: return B_NORMAL_WINDOW_FEEL;
    }
}

window_type TypeOf(window_look look, window_feel feel) {
    for (const window_type type : {B_TITLED_WINDOW, B_DOCUMENT_WINDOW, B_MODAL_WINDOW,
             B_FLOATING_WINDOW, B_BORDERED_WINDOW}) {
        if (LookOf(type) == look && FeelOf(type) == feel)
            return type;
    }
    return B_UNTYPED_WINDOW;
}

std::string Text(const char* text) {
    return text != nullptr ? text : "";
}

}  // namespace

BWindow::BWindow(BRect frame, const char* title, window_type type, uint32 flags, uint32 workspaces)
    : BWindow(frame, title, LookOf(type), FeelOf(type), flags, workspaces) {
    fData->type = type;
}

BWindow::BWindow(
    BRect frame, const char* title, window_look look, window_feel feel, uint32 flags, uint32)
    : BLooper(title, B_DISPLAY_PRIORITY) {
    const WindowSpec spec{BPrivate::WholeFrame(frame), Text(title), look, feel, flags};
    fData = std::make_unique<WindowData>(*this, spec, TypeOf(look, feel));
    if ((flags & B_NOT_CLOSABLE) == 0)
        AddShortcut('W', B_COMMAND_KEY, new BMessage(B_QUIT_REQUESTED));
    if (be_app != nullptr)
        AddShortcut('Q', B_COMMAND_KEY, new BMessage(B_QUIT_REQUESTED), be_app);
}

BWindow::~BWindow() {
    fData->DeleteViews();
}

void BWindow::Quit() {
    if (!Lock())
        return;
    // Gone from the screen at once, however long the thread still takes.
    if (fData->Screen() != nullptr)
        fData->Screen()->Hide();
    fData->surface.SetShown(false);
    const bool quitsApplication = (fData->spec.flags & B_QUIT_ON_WINDOW_CLOSE) != 0;
    if (quitsApplication && be_app_messenger.IsValid())
        (void)be_app_messenger.SendMessage(B_QUIT_REQUESTED);
    Unlock();
    BLooper::Quit();
}

bool BWindow::QuitRequested() {
    return BLooper::QuitRequested();
}

void BWindow::AddChild(BView* child, BView* before) {
    fData->Top().AddChild(child, before);
}

bool BWindow::RemoveChild(BView* child) {
    return fData->Top().RemoveChild(child);
}

int32 BWindow::CountChildren() const {
    return fData->Top().CountChildren();
}

BView* BWindow::ChildAt(int32 index) const {
    return fData->Top().ChildAt(index);
}

BView* BWindow::FindView(const char* name) const {
    return fData->Top().FindView(name);
}

BView* BWindow::FindView(BPoint where) const {
    return fData->input.ViewAt(where);
}

void BWindow::Show() {
    if (!Lock())
        return;
    if (fData->hideLevel > 0 && --fData->hideLevel == 0) {
        fData->HandDownChanges();
        fData->surface.SetShown(true);
        fData->surface.Update();
        fData->Screen()->Show();
    }
    Unlock();
    if (Thread() == 0)
        (void)Run();
}

void BWindow::Hide() {
    if (!Lock())
        return;
    if (fData->hideLevel++ == 0) {
        fData->Screen()->Hide();
        fData->surface.SetShown(false);
    }
    Unlock();
}

bool BWindow::IsHidden() const {
    return fData->hideLevel > 0;
}

void BWindow::Minimize(bool minimize) {
    if (minimize == fData->minimized)
        return;
    fData->minimized = minimize;
    fData->Screen()->Minimize(minimize);
}

bool BWindow::IsMinimized() const {
    return fData->minimized;
}

void BWindow::Zoom(BPoint, float, float) {}

void BWindow::Activate(bool active) {
    // A desktop has no call to give the focus away; it finds the next window when this one goes.
    if (active && !IsHidden())
        fData->Screen()->Activate();
}

bool BWindow::IsActive() const {
    return fData->active;
}

bool BWindow::IsFront() const {
    return fData->active;
}

const char* BWindow::Title() const {
    return fData->spec.title.c_str();
}

void BWindow::SetTitle(const char* title) {
    if (Text(title) == fData->spec.title)
        return;
    fData->spec.title = Text(title);
    SetName(title);
    fData->Screen()->SetTitle(fData->spec.title);
}

window_type BWindow::Type() const {
    return fData->type;
}

window_look BWindow::Look() const {
    return fData->spec.look;
}

window_feel BWindow::Feel() const {
    return fData->spec.feel;
}

uint32 BWindow::Flags() const {
    return fData->spec.flags;
}

bool BWindow::IsModal() const {
    return Feel() == B_MODAL_SUBSET_WINDOW_FEEL || Feel() == B_MODAL_APP_WINDOW_FEEL ||
        Feel() == B_MODAL_ALL_WINDOW_FEEL;
}

bool BWindow::IsFloating() const {
    return Feel() == B_FLOATING_SUBSET_WINDOW_FEEL || Feel() == B_FLOATING_APP_WINDOW_FEEL ||
        Feel() == B_FLOATING_ALL_WINDOW_FEEL;
}

BView* BWindow::CurrentFocus() const {
    return fData->focus;
}

void BWindow::SetDefaultButton(BButton* button) {
    if (button == fData->defaultButton)
        return;
    BButton* const before = fData->defaultButton;
    fData->defaultButton = button;
    if (before != nullptr)
        before->MakeDefault(false);
    if (button != nullptr)
        button->MakeDefault(true);
}

BButton* BWindow::DefaultButton() const {
    return fData->defaultButton;
}

void BWindow::SetKeyMenuBar(BMenuBar* bar) {
    fData->keyMenuBar = bar;
}

BMenuBar* BWindow::KeyMenuBar() const {
    return fData->keyMenuBar;
}

void BWindow::AddShortcut(uint32 key, uint32 modifiers, BMessage* message) {
    AddShortcut(key, modifiers, message, this);
}

void BWindow::AddShortcut(uint32 key, uint32 modifiers, BMessage* message, BHandler* target) {
    if (message == nullptr)
        return;
    RemoveShortcut(key, modifiers);
    fData->AddShortcut(key, modifiers, std::unique_ptr<BMessage>(message), BMessenger(target));
}

void BWindow::RemoveShortcut(uint32 key, uint32 modifiers) {
    const auto shortcut = fData->FindShortcut(key, modifiers);
    if (shortcut != fData->shortcuts.end())
        fData->shortcuts.erase(shortcut);
}

bool BWindow::HasShortcut(uint32 key, uint32 modifiers) const {
    return fData->FindShortcut(key, modifiers) != fData->shortcuts.end();
}

bool BWindow::NeedsUpdate() const {
    return fData->surface.NeedsUpdate();
}

void BWindow::UpdateIfNeeded() {
    fData->HandDownChanges();
    fData->surface.Update();
}

void BWindow::Flush() const {
    fData->HandDownChanges();
    fData->surface.Flush();
    fData->Screen()->Release();
}

void BWindow::Sync() const {
    Flush();
}

void BWindow::DisableUpdates() {
    fData->surface.DisableUpdates();
}

void BWindow::EnableUpdates() {
    fData->surface.EnableUpdates();
}
