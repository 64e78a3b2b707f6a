#pragma once

#include "iap/IAPItem.h"

#include <mutex>

class BMenu;

/// The format of the shortcut hints in labels, as merge_accelerator_key() takes it.
///
/// A change is saved by the application whose own component made it, and by no other. A format
/// that is far too long for a label is none: B_BAD_VALUE in a change, the default in the file.
class TIAPItemAccKeyFormat final : public TIAPItem {
public:
    /// Starts with the saved format.
    TIAPItemAccKeyFormat();

    /// A pop-up menu of the formats, the one in force marked.
    status_t MakeConfigurationView(BView** view, bool defaults) override;
    status_t GetValue(BMessage* message, bool defaults) const override;
    status_t SetValue(const BMessage& change) override;
    status_t GetString(std::string* value, bool defaults) const override;
    status_t SetString(const std::string& value) override;

    /// Adds the item that chooses the format.
    void AddMItem(BMenu* menu, const char* format, bool defaults) const;

private:
    mutable std::mutex fLock;
    std::string fFormat;
};
