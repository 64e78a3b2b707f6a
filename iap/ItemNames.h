#pragma once

// The names of the items that the maker's applications share. They are part of the shared files and
// of the messages between the applications.

inline constexpr char kAccKeyFormatItem[] = "AccKeyFormat2";
inline constexpr char kFlatToolBarItem[] = "FlatToolBar";
