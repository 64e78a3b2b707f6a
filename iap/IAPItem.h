#pragma once

#include <app/Message.h>
#include <atomic>
#include <string>
#include <support/SupportDefs.h>

class BView;

/// One value that the maker's applications share: it knows its name and default, its file, the
/// view that edits it, and how to take a new value from a change message.
///
/// Wherever `defaults` is asked for, false means the current value and true the default.
///
/// Threads: a subclass guards its value, so that any thread may read it while another sets it.
class TIAPItem {
public:
    /// The name is also that of the item's field in messages, of its file and of its view.
    explicit TIAPItem(const std::string& name);
    virtual ~TIAPItem();
    TIAPItem(const TIAPItem&) = delete;
    TIAPItem& operator=(const TIAPItem&) = delete;

    // What an item supports it overrides; the rest answers -1.

    /// Makes the view that edits the item. The caller owns it.
    virtual status_t MakeConfigurationView(BView** view, bool defaults);
    /// Makes the message a kMsgSharedItemChanged of this item; its other fields stay.
    virtual status_t GetValue(BMessage* message, bool defaults) const;
    /// Takes the value of a change over, and saves it where that is this application's affair.
    virtual status_t SetValue(const BMessage& change);
    virtual status_t GetBool(bool* value, bool defaults) const;
    /// Sets the value without saving it, as SetString() does.
    virtual status_t SetBool(bool value);
    virtual status_t GetString(std::string* value, bool defaults) const;
    virtual status_t SetString(const std::string& value);

    std::string Name() const { return fName; }
    /// Null until the store has told it.
    const char* AppSignatureRef() const { return fAppSignature; }
    /// Keeps the pointer, not the text.
    status_t SetAppSignatureRef(const char* signature);

    /// Adds which application and which item the message is about.
    void AddDefaultInfo(BMessage* message) const;

    // The item's file, one flattened message in the folder that the applications share.

    /// @return 0, or -1 when there is no file that can be read.
    status_t Load(BMessage* message) const;
    /// The saved value, or the default without one.
    status_t LoadBool(bool* value) const;
    status_t LoadString(std::string* value) const;
    /// Adds this application's signature and replaces the file.
    /// @return 0 or -1.
    status_t Save(BMessage message) const;
    status_t SaveBool(bool value) const;
    status_t SaveString(const std::string& value) const;

private:
    void AddAppSignature(BMessage* message) const;
    std::string FileName() const;

    std::atomic<const char*> fAppSignature = nullptr;  // not owned
    const std::string fName;
};
