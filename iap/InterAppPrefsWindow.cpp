// The way of an application's store to the common preferences window.

#include "framework/MessageCodes.h"
#include "iap/IAPPortManager.h"
#include "iap/IAPView.h"
#include "iap/IAPWindow.h"
#include "iap/InterAppPrefs.h"

#include <app/AppDefs.h>
#include <app/Message.h>
#include <vector>

namespace {

constexpr bigtime_t kPollInterval = 20000;
// A session bus that does not answer must not keep the application from its messages.
constexpr bigtime_t kPatience = 5000000;
// The window's application may have stopped with its port full.
constexpr bigtime_t kWriteTimeout = 1000000;

/// Waits until the window's thread has tried to make the port.
port_id wait_for_port(const TIAPWindow& window) {
    const bigtime_t end = system_time() + kPatience;
    port_id port = window.Port();
    while (port == kIAPPortPending && system_time() < end) {
        snooze(kPollInterval);
        port = window.Port();
    }
    return port;
}

}  // namespace

status_t TInterAppPrefs::ShowWindow(BRect frame) {
    port_id port = find_port(kIAPPortName);
    const bool isOpen = port >= B_OK || OwnWindow().IsValid();
    BMessage request(kMsgActivateSharedWindow);
    // The window's application may have ended since its port was found.
    if (!isOpen || Send(port, &request) == B_BAD_PORT_ID)
        port = CreateAndShowWindow(frame);
    return AddComponents(port);
}

port_id TInterAppPrefs::CreateAndShowWindow(BRect frame) {
    auto* window = new TIAPWindow(frame);
    const BMessenger view(window->View());
    window->Show();
    const port_id port = wait_for_port(*window);
    if (port < B_OK) {
        const port_id other = find_port(kIAPPortName);
        if (other >= B_OK) {
            if (window->Lock())
                window->Quit();
            (void)ActivateWindow(other);
            return other;
        }
    }
    const std::lock_guard lock(fLock);
    fWindowOpenedHere = true;
    fOwnWindow = view;
    return port;
}

status_t TInterAppPrefs::AddComponents(port_id port) {
    BMessage request;
    MakeComponents(&request);
    return SendMessage(port, &request);
}

status_t TInterAppPrefs::ActivateWindow(port_id port) const {
    BMessage request(kMsgActivateSharedWindow);
    return SendMessage(port, &request);
}

status_t TInterAppPrefs::CloseWindow(bool force) const {
    const port_id port = find_port(kIAPPortName);
    if (port < B_OK && !OwnWindow().IsValid())
        return B_OK;
    {
        const std::lock_guard lock(fLock);
        if (!force && !fWindowOpenedHere)
            return -1;
    }
    BMessage request(B_QUIT_REQUESTED);
    return SendMessage(port, &request);
}

status_t TInterAppPrefs::SendMessage(port_id port, BMessage* message) const {
    (void)Send(port, message);
    return B_OK;
}

status_t TInterAppPrefs::Send(port_id port, BMessage* message) const {
    if (port < B_OK)
        return OwnWindow().SendMessage(message);
    const ssize_t size = message->FlattenedSize();
    std::vector<char> buffer(static_cast<size_t>(size));
    const status_t status = message->Flatten(buffer.data(), size);
    return status != B_OK
        ? status
        : write_port_etc(port, 0, buffer.data(), buffer.size(), B_RELATIVE_TIMEOUT, kWriteTimeout);
}

BMessenger TInterAppPrefs::OwnWindow() const {
    const std::lock_guard lock(fLock);
    return fOwnWindow;
}
