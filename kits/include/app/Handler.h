#pragma once

#include <app/Messenger.h>
#include <memory>
#include <string>
#include <support/Archivable.h>
#include <support/SupportDefs.h>
#include <vector>

class BMessageFilter;

namespace BPrivate {
class FilterList;
}

/// Something messages can be sent to.
///
/// It gets messages while it belongs to a looper (BLooper::AddHandler), in that looper's thread.
/// While it does, it is used only by who holds the looper's lock. Its owner deletes it, under the
/// lock, and that takes it from its looper; loopers do not own their handlers.
class BHandler : public BArchivable {
public:
    explicit BHandler(const char* name = nullptr);
    /// From an archive: "_name" string, the handler's name.
    explicit BHandler(BMessage* archive);
    ~BHandler() override;

    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// Called for every message that nothing else took. The base passes it to the next handler;
    /// where there is none, a waiting sender is answered with B_MESSAGE_NOT_UNDERSTOOD.
    virtual void MessageReceived(BMessage* message);

    BLooper* Looper() const { return fLooper; }

    void SetName(const char* name);
    /// Null when it has none.
    const char* Name() const;

    /// Who is passed the messages this one does not know. It must be in the same looper. Adding
    /// to a looper makes the looper the next handler; null ends the chain.
    virtual void SetNextHandler(BHandler* handler);
    BHandler* NextHandler() const { return fNextHandler; }

    /// Takes ownership. A filter that is already in some list is not added.
    virtual void AddFilter(BMessageFilter* filter);
    /// Gives the filter back to the caller; false when it is not here.
    virtual bool RemoveFilter(BMessageFilter* filter);
    /// Deletes all filters and takes over those given, in order.
    void SetFilterList(const std::vector<BMessageFilter*>& filters);
    /// Borrowed pointers, in order.
    std::vector<BMessageFilter*> FilterList() const;

    /// Lock the looper the handler belongs to; false when it belongs to none.
    bool LockLooper();
    status_t LockLooperWithTimeout(bigtime_t timeout);
    void UnlockLooper();

private:
    friend class BLooper;
    friend class BMessenger;

    // The number messengers know it by. The registry of tokens keeps its looper, too, for
    // threads that hold no lock.
    const int32 fToken;
    bool fHasName = false;
    std::string fName;
    BLooper* fLooper = nullptr;
    BHandler* fNextHandler = nullptr;
    const std::unique_ptr<BPrivate::FilterList> fFilters;
};
