#pragma once

#include "kits/interface/ControlPeer.h"

class BMenu;

namespace BPrivate {

/// What the peers of the views that show a menu share. Menus are built item by item, so that the
/// screen is told of a change when the message that made it is done.
class MenuPeer : public ControlPeer {
public:
    /// Invokes the item that was chosen, when it is still there.
    void UserChanged(const BMessage& event) override;
    bool TakesLate(const BMessage&) const override { return true; }

protected:
    /// Null for none.
    virtual const BMenu* ShownMenu() const = 0;
};

}  // namespace BPrivate
