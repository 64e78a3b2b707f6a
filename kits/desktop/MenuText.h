#pragma once

#include <QFontMetrics>
#include <QKeySequence>
#include <QString>

#include "kits/interface/Display.h"

namespace BPrivate {

/// The item's label in the spelling of Qt's menus: one line, the letter of the trigger marked by an
/// ampersand, and every ampersand of the label's own doubled.
QString MenuLabel(const MenuItemState& item);

/// A label in that spelling, cut in its middle where it is wider than a menu should be: the name's
/// end and the hint are seen.
QString ShortLabel(const QString& label, const QFontMetrics& font);

/// What is read of a label in that spelling.
QString WithoutMarks(const QString& label);

/// The text in one line, and otherwise as it is.
QString OneLine(const std::string& utf8);

/// The keys shown as the item's shortcut, by their names on this keyboard; empty for none.
QKeySequence MenuShortcut(const MenuItemState& item);

}  // namespace BPrivate
