// archive_components FOLDER: writes components of other applications into the folder, a file each:
// what a fuzzer starts from.

#include <cstdio>
#include <storage/File.h>
#include <string>

#include "tests/iap/components/ComponentsOfOthers.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: archive_components FOLDER\n", stderr);
        return 2;
    }
    for (const BMessage& component : components_of_others()) {
        const std::string path =
            std::string(argv[1]) + "/" + component.GetString("IAP:SrcIAPItem", "") + ".arcv";
        BFile file(path.c_str(), B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
        if (component.Flatten(&file) != B_OK) {
            std::fprintf(stderr, "%s: cannot be written\n", path.c_str());
            return 1;
        }
    }
    return 0;
}
