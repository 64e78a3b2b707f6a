#include "bench/ViewerRun.h"

#include <app/AppDefs.h>
#include <app/Message.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <kernel/OS.h>

#include "bench/WatchedDisplay.h"

namespace bench {

[[noreturn]] void GiveUp(const char* reason) {
    std::fprintf(stderr, "%s\n", reason);
    std::_Exit(1);
}

void SendKey(char key) {
    BMessage message(B_KEY_DOWN);
    const char bytes[] = {key, '\0'};
    message.AddInt64("when", system_time());
    message.AddInt32("key", key == ' ' ? 0x5e : 0x1e);
    message.AddInt32("modifiers", 0);
    message.AddInt32("raw_char", key);
    message.AddInt8("byte", key);
    message.AddString("bytes", bytes);
    bench::FirstWindow().SendMessage(&message);
}

std::vector<std::string> RunSelf(const std::string& what, const std::string& path) {
    std::string command = "BENCH_MEASURE=" + what + " '" +
        std::filesystem::read_symlink("/proc/self/exe").string() + "' '" + path + "'";
    std::vector<std::string> lines;
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return lines;
    char line[256];
    while (std::fgets(line, sizeof(line), pipe) != nullptr)
        lines.emplace_back(line);
    if (pclose(pipe) != 0)
        lines.clear();
    return lines;
}

}  // namespace bench
