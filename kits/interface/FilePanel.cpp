#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Message.h>
#include <storage/Directory.h>
#include <storage/Entry.h>
#include <storage/FilePanel.h>
#include <storage/FindDirectory.h>
#include <storage/Path.h>
#include <string>
#include <utility>

#include "kits/interface/AlertAsker.h"
#include "kits/interface/FilePanelWindow.h"

namespace {

/// The path of the folder, what links lead to it followed; empty when it is none.
std::string FolderOf(const BEntry& entry) {
    BPath path;
    const bool isFolder = entry.IsDirectory() && path.SetTo(&entry) == B_OK;
    return isFolder ? path.Path() : "";
}

/// A program that a desktop starts works in the root or at home; nobody looks for files in the
/// first.
std::string FirstFolder() {
    const std::string working = FolderOf(BEntry("."));
    if (!working.empty() && working != "/")
        return working;
    BPath home;
    if (find_directory(B_USER_DIRECTORY, &home) != B_OK)
        return "/";
    const std::string folder = FolderOf(BEntry(home.Path(), true));
    return folder.empty() ? "/" : folder;
}

BPrivate::FilePanelState FirstState(const entry_ref* start, uint32 flavors, bool multiple) {
    BPrivate::FilePanelState state;
    if (start != nullptr)
        state.folder = FolderOf(BEntry(start, true));
    if (state.folder.empty())
        state.folder = FirstFolder();
    state.flavors = (flavors & B_ANY_NODE) != 0 ? flavors & B_ANY_NODE : uint32{B_FILE_NODE};
    state.multiple = multiple;
    return state;
}

/// The window of the panel, locked as long as this lives; null when it is gone.
template <typename Window>
class LockedWindow {
public:
    explicit LockedWindow(const BMessenger& messenger) {
        if (messenger.LockTarget())
            fWindow = static_cast<Window*>(messenger.Target(nullptr));
    }
    ~LockedWindow() {
        if (fWindow != nullptr)
            fWindow->Unlock();
    }
    LockedWindow(const LockedWindow&) = delete;
    LockedWindow& operator=(const LockedWindow&) = delete;

    explicit operator bool() const { return fWindow != nullptr; }
    Window* operator->() const { return fWindow; }
    /// Leaves the lock to the caller.
    Window* Take() { return std::exchange(fWindow, nullptr); }

private:
    Window* fWindow = nullptr;
};

}  // namespace

BFilePanel::BFilePanel(file_panel_mode mode, BMessenger* target, const entry_ref* start,
    uint32 flavors, bool multiple, BMessage* message, BRefFilter* filter, bool modal,
    bool hideWhenDone)
    : fMode(mode) {
    auto* window = new PanelWindow(*this, FirstState(start, flavors, multiple), modal);
    fWindow = BMessenger(window, window);
    window->target = target != nullptr ? *target : be_app_messenger;
    if (message != nullptr)
        window->message = *message;
    window->filter = filter;
    window->hidesWhenDone = hideWhenDone;
    // Its thread starts, and the lock is given up, with a Show() that shows nothing yet.
    window->Hide();
    window->Show();
}

BFilePanel::~BFilePanel() {
    LockedWindow<PanelWindow> window(fWindow);
    if (window)
        window.Take()->Quit();
}

void BFilePanel::Show() {
    // Before the window is locked: it locks others.
    const BPrivate::AlertAsker asker;
    LockedWindow<PanelWindow> window(fWindow);
    if (window)
        window->Appear(asker);
}

void BFilePanel::Hide() {
    LockedWindow<PanelWindow> window(fWindow);
    if (window && !window->IsHidden())
        window->Hide();
}

bool BFilePanel::IsShowing() const {
    LockedWindow<PanelWindow> window(fWindow);
    return window && !window->IsHidden();
}

void BFilePanel::WasHidden() {}

void BFilePanel::SendMessage(const BMessenger* target, BMessage* message) {
    (void)target->SendMessage(message);
}

BWindow* BFilePanel::Window() const {
    return static_cast<PanelWindow*>(fWindow.Target(nullptr));
}

BMessenger BFilePanel::Target() const {
    LockedWindow<PanelWindow> window(fWindow);
    return window ? window->target : BMessenger();
}

file_panel_mode BFilePanel::PanelMode() const {
    return fMode;
}

void BFilePanel::SetTarget(BMessenger target) {
    LockedWindow<PanelWindow> window(fWindow);
    if (window)
        window->target = target;
}

void BFilePanel::SetMessage(BMessage* message) {
    LockedWindow<PanelWindow> window(fWindow);
    if (window)
        window->message = message != nullptr ? *message : BMessage(B_REFS_RECEIVED);
}

void BFilePanel::SetRefFilter(BRefFilter* filter) {
    LockedWindow<PanelWindow> window(fWindow);
    if (window)
        window->filter = filter;
}

void BFilePanel::SetPanelDirectory(const BEntry* folder) {
    const std::string path = folder != nullptr ? FolderOf(*folder) : "";
    LockedWindow<PanelWindow> window(fWindow);
    if (window && !path.empty())
        window->View().SetFolder(path);
}

void BFilePanel::SetPanelDirectory(const BDirectory* folder) {
    BEntry entry;
    if (folder != nullptr && folder->GetEntry(&entry) == B_OK)
        SetPanelDirectory(&entry);
}

void BFilePanel::SetPanelDirectory(const entry_ref* folder) {
    const BEntry entry(folder, true);
    SetPanelDirectory(&entry);
}

void BFilePanel::SetPanelDirectory(const char* folder) {
    const BEntry entry(folder, true);
    SetPanelDirectory(&entry);
}

void BFilePanel::GetPanelDirectory(entry_ref* folder) const {
    LockedWindow<PanelWindow> window(fWindow);
    if (window && folder != nullptr)
        (void)get_ref_for_path(window->View().Folder().c_str(), folder);
}

void BFilePanel::SetButtonLabel(file_panel_button button, const char* label) {
    const std::string text = label != nullptr ? label : "";
    LockedWindow<PanelWindow> window(fWindow);
    if (!window)
        return;
    if (button == B_DEFAULT_BUTTON)
        window->View().SetOpenLabel(text);
    else
        window->View().SetCancelLabel(text);
}

void BFilePanel::SetHideWhenDone(bool hideWhenDone) {
    LockedWindow<PanelWindow> window(fWindow);
    if (window)
        window->hidesWhenDone = hideWhenDone;
}

bool BFilePanel::HidesWhenDone() const {
    LockedWindow<PanelWindow> window(fWindow);
    return window && window->hidesWhenDone;
}
