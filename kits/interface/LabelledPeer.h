#pragma once

#include <interface/Control.h>

#include "kits/interface/ControlPeer.h"

namespace BPrivate {

/// What the peers of all classes derived from BControl share.
class LabelledPeer : public ControlPeer {
public:
    explicit LabelledPeer(const BControl& control) : fControl(control) {}

    bool IsEnabled() const override { return fControl.IsEnabled(); }

    /// The label; the view's name for a control that has none.
    std::string AccessibleName() const override {
        const std::string label = fControl.Label();
        return label.empty() ? ControlPeer::AccessibleName() : label;
    }

private:
    const BControl& fControl;
};

}  // namespace BPrivate
