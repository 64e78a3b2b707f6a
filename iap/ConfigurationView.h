#pragma once

#include <interface/Rect.h>
#include <string>

class BView;

/// Where an item's one control stands in its configuration view: 250 by 16 units.
inline constexpr BRect kConfigurationControlFrame(0, 0, 250, 16);

/// A container named after the item, just around its control, which it owns.
///
/// The control's name is the letter of its shortcut followed by the key of its label. The label
/// itself is empty: whoever shows the view fetches it in the language of the moment.
BView* make_configuration_view(const std::string& itemName, BView* control);
