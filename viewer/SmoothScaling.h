#pragma once

#include "viewer/Addition.h"

/// The choice whether images at another size than their own are smoothed. Off by default: pixels
/// stay squares then. It counts for all images, and for the next runs as well.
class TSmoothScaling : public TAddition {
public:
    explicit TSmoothScaling(TAdditionHost* host) : fHost(host) {}

    void AddItems(BMenu* menu, const THintedLabels& labels) override;
    bool MessageReceived(BMessage* message) override;

private:
    TAdditionHost* fHost;  // borrowed; it owns this
};
