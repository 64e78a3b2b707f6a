#include "framework/SettingsFile.h"

#include <interface/InterfaceDefs.h>
#include <storage/Directory.h>
#include <storage/FindDirectory.h>
#include <storage/Path.h>

namespace {

constexpr char kMakerFolder[] = "ZELKAN";

/// Held while the application starts or ends: forget the settings.
constexpr uint32 kResetKeys = B_SHIFT_KEY | B_COMMAND_KEY | B_CONTROL_KEY | B_OPTION_KEY;

bool reset_keys_are_held() {
    return (modifiers() & kResetKeys) == kResetKeys;
}

}  // namespace

status_t get_settings_entry(const char* folder, const char* fileName, BEntry* entry) {
    BPath path;
    if (find_directory(B_USER_SETTINGS_DIRECTORY, &path, true) != B_OK)
        return -1;
    path.Append(kMakerFolder);
    path.Append(folder);
    // Where the folder cannot be made, opening the file reports it.
    (void)create_directory(path.Path(), 0777);
    path.Append(fileName);
    return entry->SetTo(path.Path(), false);
}

status_t load_app_settings(const char* fileName, TArchivable* record) {
    BEntry entry;
    if (get_settings_entry(kAppSettingsFolder, fileName, &entry) != B_OK)
        return -1;
    if (reset_keys_are_held()) {
        (void)entry.Remove();  // a file that was never written is as good as removed
        return -1;
    }
    return record->Load(entry);
}

status_t save_app_settings(const char* fileName, const TArchivable& record) {
    BEntry entry;
    if (get_settings_entry(kAppSettingsFolder, fileName, &entry) != B_OK)
        return -1;
    if (reset_keys_are_held())
        return -1;
    return record.Save(entry);
}
