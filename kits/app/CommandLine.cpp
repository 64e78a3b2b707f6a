#include "kits/app/CommandLine.h"

#include "kits/storage/FileUrl.h"

#include <app/LaunchFiles.h>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <mutex>
#include <optional>
#include <sys/stat.h>
#include <system_error>

namespace BPrivate {

namespace {

struct GivenWords {
    std::mutex lock;
    std::optional<std::vector<std::string>> words;
};

GivenWords& TheGivenWords() {
    static GivenWords given;
    return given;
}

// The length of the UTF-8 character at the text's start, 0 when there is none or it is a control
// character.
size_t PrintableLength(std::string_view text) {
    const auto byte = [text](size_t i) { return i < text.size() ? uint8(text[i]) : uint8(0); };
    const uint8 first = byte(0);
    if (first < 0x80)
        return first >= 0x20 && first != 0x7f ? 1 : 0;
    const size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4)
        return 0;
    for (size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0) != 0x80)
            return 0;
    }
    const bool overlong = (first == 0xe0 && byte(1) < 0xa0) || (first == 0xf0 && byte(1) < 0x90);
    const bool beyond = (first == 0xed && byte(1) >= 0xa0) || (first == 0xf4 && byte(1) >= 0x90);
    const bool control = first == 0xc2 && byte(1) < 0xa0;
    return overlong || beyond || control ? 0 : length;
}

bool Exists(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0;
}

// Applications do not follow links, so that a picture has its own name and its own neighbours. But
// who names a link to a folder means what is in it.
std::string WithoutLinkToFolder(std::string path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return path;
    std::string link = path;
    while (link.size() > 1 && link.back() == '/')
        link.pop_back();  // behind a slash the link is followed already
    if (lstat(link.c_str(), &status) != 0 || !S_ISLNK(status.st_mode))
        return path;
    const std::unique_ptr<char, decltype(&std::free)> folder(
        realpath(link.c_str(), nullptr), std::free);
    return folder != nullptr ? folder.get() : path;
}

void FindFile(const std::string& word, const std::string& program, launch_files& files) {
    std::string path = word;
    // A file may be called as a URL is.
    if (!Exists(word) && IsFileUrl(word)) {
        const std::optional<std::string> named = PathOfFileUrl(word);
        if (!named) {
            files.errors.push_back(
                program + Printable(word) + ": Not the address of a file on this computer");
            return;
        }
        path = *named;
    }
    if (!Exists(path)) {
        const int error = errno;
        files.errors.push_back(
            program + Printable(path) + ": " + std::generic_category().message(error));
        return;
    }
    if (files.paths.empty())
        files.firstName = Printable(path);
    files.paths.push_back(WithoutLinkToFolder(path));
}

}  // namespace

std::vector<std::string> CommandLine() {
    GivenWords& given = TheGivenWords();
    const std::lock_guard guard(given.lock);
    if (given.words)
        return *given.words;
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> words;
    for (std::string word; std::getline(file, word, '\0');)
        words.push_back(word);
    return words;
}

void SetCommandLine(std::vector<std::string> words) {
    GivenWords& given = TheGivenWords();
    const std::lock_guard guard(given.lock);
    given.words = std::move(words);
}

std::string ProgramName(const std::vector<std::string>& words) {
    return words.empty() ? "" : Printable(words[0].substr(words[0].rfind('/') + 1));
}

std::string Printable(std::string_view text) {
    std::string printable;
    while (!text.empty()) {
        const size_t length = PrintableLength(text);
        if (length == 0) {
            char escaped[5];
            std::snprintf(escaped, sizeof(escaped), "\\x%02x", uint8(text[0]));
            printable += escaped;
        }
        printable += text.substr(0, length);
        text.remove_prefix(std::max<size_t>(length, 1));
    }
    return printable;
}

}  // namespace BPrivate

launch_files find_launch_files(const std::vector<std::string>& words) {
    launch_files files;
    const std::string program = BPrivate::ProgramName(words) + ": ";
    bool optionsEnded = false;
    for (size_t i = 1; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (!optionsEnded && word == "--") {
            optionsEnded = true;
        } else if (!optionsEnded && word.starts_with('-')) {
            files.errors.push_back(program + "unknown option: " + BPrivate::Printable(word));
            if (files.optionError.empty())
                files.optionError = files.errors.back();
        } else {
            BPrivate::FindFile(word, program, files);
        }
    }
    return files;
}
