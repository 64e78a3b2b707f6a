// lorivane_layouts SOURCE ARCHIVE: compiles the layout in the file SOURCE into the flattened archive
// of its view.

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <support/DataIO.h>

#include "resources/compiler/LayoutCompiler.h"

namespace {

int fail(const std::string& text) {
    std::fprintf(stderr, "%s\n", text.c_str());
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return fail("usage: lorivane_layouts SOURCE ARCHIVE");
    std::ifstream file(argv[1], std::ios::binary);
    if (!file)
        return fail(std::string(argv[1]) + ": cannot be read");
    const std::string source{std::istreambuf_iterator<char>(file), {}};
    try {
        const BMessage archive = compile_layout(source);
        BMallocIO bytes;
        if (archive.Flatten(&bytes) != B_OK)
            return fail(std::string(argv[1]) + ": cannot be flattened");
        std::ofstream output(argv[2], std::ios::binary | std::ios::trunc);
        output.write(static_cast<const char*>(bytes.Buffer()),
            static_cast<std::streamsize>(bytes.BufferLength()));
        output.close();
        return output ? 0 : fail(std::string(argv[2]) + ": cannot be written");
    } catch (const LayoutError& error) {
        return fail(std::string(argv[1]) + ": " + error.what());
    }
}
