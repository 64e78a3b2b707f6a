#pragma once

#include <memory>

class BView;

// The dialogs as they are put among the program's resources. A dialog finds its views by their
// names, sets their texts from the catalogues, and gives all of them the room that these need: the
// frames and labels here are only how it is meant, in English.

/// The preferences; the dialog adds its menus and the list of extensions.
std::unique_ptr<BView> make_prefs_layout();

/// The image information. The frames are the least that columns and rows get, and the gaps between
/// them.
std::unique_ptr<BView> make_property_layout();
