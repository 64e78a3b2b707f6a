// archive_layouts FOLDER: writes the archives of the dialogs' views into the folder.

#include <app/Message.h>
#include <cstdio>
#include <fstream>
#include <interface/View.h>
#include <string>
#include <support/DataIO.h>

#include "resources/layouts/Layouts.h"

namespace {

/// How high the tabs are is a matter of the theme that the program will find.
void forget_theme(BMessage& archive) {
    BMessage child;
    for (int32 i = 0; archive.FindMessage("_views", i, &child) == B_OK; ++i) {
        child.RemoveName("_high");
        archive.ReplaceMessage("_views", i, &child);
    }
}

bool write_layout(const BView& view, const std::string& path) {
    BMessage archive;
    BMallocIO bytes;
    if (view.Archive(&archive, true) != B_OK)
        return false;
    forget_theme(archive);
    if (archive.Flatten(&bytes) != B_OK)
        return false;
    std::ofstream output(path, std::ios::binary | std::ios::trunc);
    output.write(static_cast<const char*>(bytes.Buffer()),
        static_cast<std::streamsize>(bytes.BufferLength()));
    output.close();
    return static_cast<bool>(output);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: archive_layouts FOLDER\n", stderr);
        return 2;
    }
    const std::string folder = argv[1];
    if (write_layout(*make_prefs_layout(), folder + "/PrefsViewRsrc.arcv") &&
        write_layout(*make_property_layout(), folder + "/PropertyViewRsrc.arcv"))
        return 0;
    std::fprintf(stderr, "%s: the layouts cannot be written\n", argv[1]);
    return 1;
}
