#include "app/Usage.h"

#include "framework/Version.h"

namespace {

constexpr char kHelp[] =
    R"(Usage: lorivane [OPTION]... [--] [FILE|FOLDER]
Look through a folder of pictures, one at a time.

With a file, its picture is shown first and those of its folder are around it.
With a folder, its first picture is shown. Without either, the window opens
empty. Of several files, the first one that exists counts.

Options:
  --help, -h  print this text and exit
  --version   print the version and exit
  --          what follows is a file, whatever its name begins with

A file can be given as a file:// address, too. The status is 2, and no window
opens, when an option does not exist or none of the files does.
)";

}  // namespace

std::string text_asked_for(const std::vector<std::string>& words) {
    for (size_t i = 1; i < words.size() && words[i] != "--"; i++) {
        if (words[i] == "--help" || words[i] == "-h")
            return kHelp;
        if (words[i] == "--version")
            return std::string(kAppName) + " " + kAppVersionNumber + "\n";
    }
    return {};
}
