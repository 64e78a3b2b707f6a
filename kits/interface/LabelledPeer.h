#pragma once

#include <interface/Control.h>

#include "kits/interface/ControlPeer.h"

namespace BPrivate {

/// What the peers of all classes derived from BControl share.
class LabelledPeer : public ControlPeer {
public:
    explicit LabelledPeer(const BControl& control) : fControl(control) {}

    bool IsEnabled() const override { return fControl.IsEnabled(); }

    std::string AccessibleName() const override { return fControl.Label(); }

private:
    const BControl& fControl;
};

}  // namespace BPrivate
