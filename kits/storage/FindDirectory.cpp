#include <storage/FindDirectory.h>

#include <cstdlib>
#include <pwd.h>
#include <storage/Directory.h>
#include <storage/Path.h>
#include <string>
#include <unistd.h>
#include <vector>

// Base folders that are not absolute are to be ignored, as their own convention says.
static std::string FromEnvironment(const char* name) {
    const char* value = getenv(name);
    return value != nullptr && *value == '/' ? value : "";
}

static std::string Home() {
    if (std::string home = FromEnvironment("HOME"); !home.empty())
        return home;
    std::vector<char> buffer(16384);
    passwd entry;
    passwd* found = nullptr;
    getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    return found != nullptr && found->pw_dir[0] == '/' ? found->pw_dir : "";
}

static std::string BaseFolder(const char* variable, const char* belowHome) {
    std::string folder = FromEnvironment(variable);
    if (folder.empty()) {
        folder = Home();
        if (!folder.empty())
            folder += belowHome;
    }
    return folder;
}

status_t find_directory(directory_which which, BPath* path, bool createIt) {
    if (path == nullptr)
        return B_BAD_VALUE;
    std::string folder;
    switch (which) {
    case B_USER_DIRECTORY: folder = Home(); break;
    case B_USER_CONFIG_DIRECTORY:
    case B_USER_SETTINGS_DIRECTORY: folder = BaseFolder("XDG_CONFIG_HOME", "/.config"); break;
    case B_USER_CACHE_DIRECTORY: folder = BaseFolder("XDG_CACHE_HOME", "/.cache"); break;
    case B_USER_DATA_DIRECTORY: folder = BaseFolder("XDG_DATA_HOME", "/.local/share"); break;
    case B_SYSTEM_TEMP_DIRECTORY:
        folder = FromEnvironment("TMPDIR");
        if (folder.empty())
            folder = "/tmp";
        break;
    default: path->Unset(); return B_BAD_VALUE;
    }
    if (folder.empty()) {
        path->Unset();
        return B_ENTRY_NOT_FOUND;
    }
    if (createIt) {
        if (status_t status = create_directory(folder.c_str(), 0700); status != B_OK) {
            path->Unset();
            return status;
        }
    }
    return path->SetTo(folder.c_str());
}
