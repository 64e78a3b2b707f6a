#pragma once

#include <QKeySequence>
#include <QString>

#include "kits/interface/Display.h"

namespace BPrivate {

/// The item's label in the spelling of Qt's menus: one line, the letter of the trigger marked by an
/// ampersand, and every ampersand of the label's own doubled.
QString MenuLabel(const MenuItemState& item);

/// The text in one line, and otherwise as it is.
QString OneLine(const std::string& utf8);

/// The keys shown as the item's shortcut, by their names on this keyboard; empty for none.
QKeySequence MenuShortcut(const MenuItemState& item);

}  // namespace BPrivate
