#include "kits/storage/ProgramPlaces.h"

#include <storage/Entry.h>
#include <storage/Path.h>

namespace BPrivate {

std::string FindOfProgram(const std::string& name) {
    const BEntry executable("/proc/self/exe", true);
    BEntry folder;
    BPath path;
    if (executable.GetParent(&folder) != B_OK || folder.GetPath(&path) != B_OK)
        return {};
    for (const char* place : {"", "../", "../lib/lorivane/"}) {
        const BPath candidate(path.Path(), (place + name).c_str(), true);
        if (candidate.InitCheck() == B_OK && BEntry(candidate.Path(), true).Exists())
            return candidate.Path();
    }
    return {};
}

}  // namespace BPrivate
