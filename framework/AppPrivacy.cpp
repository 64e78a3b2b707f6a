#include "framework/AppPrivacy.h"

#include "framework/FileName.h"

#include <algorithm>
#include <cstdlib>
#include <storage/Entry.h>
#include <storage/Path.h>

namespace {

/// A program started by its bare name was found by the shell in one of the folders of PATH.
std::string found_in_search_path(const std::string& name) {
    const char* variable = std::getenv("PATH");
    const std::string folders = variable != nullptr ? variable : "";
    for (std::string::size_type start = 0; start < folders.size();) {
        const std::string::size_type end = std::min(folders.find(':', start), folders.size());
        const std::string path = folders.substr(start, end - start) + "/" + name;
        if (end > start && BEntry(path.c_str(), true).IsFile())
            return path;
        start = end + 1;
    }
    return name;
}

}  // namespace

void TAppPrivacy::AnalyzeExePath(const char* path) {
    if (path == nullptr || *path == '\0')
        return;
    std::string started = path;
    if (started.find('/') == std::string::npos)
        started = found_in_search_path(started);

    const BEntry entry(started.c_str(), true);
    BPath fullPath;
    if (entry.GetPath(&fullPath) != B_OK)
        return;
    fExePath = extract_file_folder_path_kernel(fullPath.Path(), 0);
    fExeName = extract_file_name(fullPath.Path());
}
