#pragma once

#include <app/Message.h>
#include <app/Messenger.h>
#include <interface/Rect.h>
#include <kernel/OS.h>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <support/SupportDefs.h>
#include <vector>

class TIAPItem;

/// The preferences that the maker's applications share, as this application has them at the
/// moment, and who wants to hear of their changes.
///
/// Threads: every member may be called from any thread. Nothing is locked while an item works or a
/// message is sent, so that an item may be slow and an observer may ask the store. The items keep
/// their own locks.
///
/// Lifetime: an item lives as long as the store, also one that another of its name has replaced.
class TInterAppPrefs {
public:
    TInterAppPrefs();
    ~TInterAppPrefs();
    TInterAppPrefs(const TInterAppPrefs&) = delete;
    TInterAppPrefs& operator=(const TInterAppPrefs&) = delete;

    /// Tells every item, now and later, the signature of the running application. The text is not
    /// copied and has to outlive the store.
    status_t SetAppSignatureRef(const char* signature);

    /// Takes ownership. An item of a name that is there already takes its place.
    /// @return 0, or -1 without an item.
    status_t AddItem(TIAPItem* item);
    /// One that is added twice hears everything twice.
    status_t AddObserver(const BMessenger& observer);

    // The item of that name answers, with its current value; -1 without one, or when its value is
    // of another type. The setters neither save nor tell anyone.
    status_t GetBool(const char* name, bool* value) const;
    status_t SetBool(const char* name, bool value);
    status_t GetString(const char* name, std::string* value) const;
    status_t SetString(const char* name, const std::string& value);

    /// Carries out a kMsgSharedItemChanged: gives it to the item it names and then to every
    /// observer.
    /// @return 0; -1 when it names no item of this store; else the item's own error. The observers
    /// hear nothing of a change that failed.
    status_t SetValue(const BMessage& change);
    /// To each observer, in the order they were added. One that is gone is passed over.
    status_t NotifyToObservers(BMessage message);

    /// Fills a message with what this application contributes to the common preferences window: a
    /// kMsgAddSharedComponents that has three archives for each item, in the order of the names:
    /// the item's configuration view with the current value, the same again, and that with the
    /// default. Each archive is a complete kMsgSharedItemChanged, too.
    void MakeComponents(BMessage* request) const;

    // The common preferences window, of which the session has one at most, whichever application
    // has made it. It is reached by the port of that name; see iap/IAPPortManager.h. None of these
    // waits long for another application, and what it does not take in time is lost.

    /// Brings the window to the front, or makes it, and adds this application's components to it.
    /// @param frame where a new one goes: its left top corner counts
    /// @return 0
    status_t ShowWindow(BRect frame);
    /// Makes the window here and waits until it has its port.
    ///
    /// When another application was faster its window is shown instead, and this one's goes.
    /// @return the port; below 0 when there can be none, and the window serves this application
    /// alone
    port_id CreateAndShowWindow(BRect frame);
    /// Sends this application's components there.
    status_t AddComponents(port_id port);
    /// Brings the window there to the front.
    status_t ActivateWindow(port_id port) const;
    /// Closes the window as by its close box, also another application's when forced to.
    /// @return 0, also when there is no window; -1 when it is another's
    status_t CloseWindow(bool force) const;
    /// @param port one below 0 stands for the window that this store has made
    /// @return 0, whatever became of the message
    status_t SendMessage(port_id port, BMessage* message) const;

private:
    /// Null for none.
    TIAPItem* FindItem(const char* name) const;
    BMessenger OwnWindow() const;
    /// As SendMessage(), and what became of it.
    status_t Send(port_id port, BMessage* message) const;

    mutable std::mutex fLock;  // of everything below
    bool fWindowOpenedHere = false;
    BMessenger fOwnWindow;  // its view; invalid when there is none
    const char* fAppSignature = nullptr;
    std::vector<BMessenger> fObservers;
    std::map<std::string, TIAPItem*, std::less<>> fItems;
    std::vector<std::unique_ptr<TIAPItem>> fOwnedItems;  // with those that were replaced
};

/// The shared preferences in force.
extern TInterAppPrefs gIAPs;
