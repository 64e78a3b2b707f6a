#pragma once

#include "framework/Archivable.h"

#include <storage/Entry.h>
#include <support/SupportDefs.h>

/// The folder of this application's own records, and that of the records it shares.
constexpr char kAppSettingsFolder[] = "Lorivane";
constexpr char kSharedSettingsFolder[] = "Shared";

/// Sets the entry to a file of the maker's folder in the user's settings directory, making the
/// folders on the way. The file need not exist.
/// @return `B_OK`; -1 without a settings directory; else the entry's own error.
status_t get_settings_entry(const char* folder, const char* fileName, BEntry* entry);

/// Loads a record of the application's own. With Shift, Command, Control and Option held the file
/// is removed instead, so that the record keeps its defaults.
/// @return 0, or -1 when not all of the record was read.
status_t load_app_settings(const char* fileName, TArchivable* record);

/// Saves a record of the application's own. With the four keys held nothing is written.
/// @return 0, or -1 when nothing was written.
status_t save_app_settings(const char* fileName, const TArchivable& record);
