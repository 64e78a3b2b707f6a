#pragma once

#include <support/SupportDefs.h>

class BPath;

/// Folders that find_directory knows.
enum directory_which : int32 {
    B_USER_DIRECTORY = 3000,           ///< the user's home
    B_USER_CONFIG_DIRECTORY = 3001,    ///< the same as the settings
    B_USER_SETTINGS_DIRECTORY = 3006,  ///< $XDG_CONFIG_HOME if it is absolute, or ~/.config
    B_USER_CACHE_DIRECTORY = 3008,     ///< $XDG_CACHE_HOME if it is absolute, or ~/.cache
    B_USER_DATA_DIRECTORY = 3012,      ///< $XDG_DATA_HOME if it is absolute, or ~/.local/share
    B_SYSTEM_TEMP_DIRECTORY = 1007,    ///< $TMPDIR if it is absolute, or /tmp
};

/// Sets `path` to a folder of this user's. `createIt` makes it, with the folders above, for the
/// user alone (mode 0700) if it is missing; without it the folder may be missing. B_BAD_VALUE for
/// an unknown folder or null `path`, B_ENTRY_NOT_FOUND where the user has no home.
status_t find_directory(directory_which which, BPath* path, bool createIt = false);
