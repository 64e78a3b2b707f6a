#pragma once

#include "iap/IAPItem.h"

#include <atomic>

/// Whether tool bars are flat.
///
/// A change is saved by every application that hears of it.
class TIAPItemFlatToolBar final : public TIAPItem {
public:
    /// Starts with the saved value.
    TIAPItemFlatToolBar();

    /// A check box.
    status_t MakeConfigurationView(BView** view, bool defaults) override;
    status_t GetValue(BMessage* message, bool defaults) const override;
    /// A change without the item's own field has the value in its archived check box. One without
    /// either leaves the value as it is.
    status_t SetValue(const BMessage& change) override;
    status_t GetBool(bool* value, bool defaults) const override;
    status_t SetBool(bool value) override;

private:
    std::atomic<bool> fIsFlat = true;
};
