#include "kits/app/CommandLine.h"

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <iterator>
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

std::string FileError(const std::vector<std::string>& words, const std::string& path, int error) {
    return ProgramName(words) + ": " + Printable(path) + ": " +
        std::generic_category().message(error);
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

CommandLineFiles FilesOfCommandLine(const std::vector<std::string>& words) {
    CommandLineFiles files;
    if (words.empty())
        return files;
    bool optionsEnded = false;
    for (size_t i = 1; i < words.size(); ++i) {
        const std::string& word = words[i];
        struct stat status;
        if (!optionsEnded && word == "--")
            optionsEnded = true;
        else if (!optionsEnded && word.starts_with('-'))
            files.errors.push_back(ProgramName(words) + ": unknown option: " + Printable(word));
        else if (stat(word.c_str(), &status) == 0)
            files.paths.push_back(word);
        else
            files.errors.push_back(FileError(words, word, errno));
    }
    return files;
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
