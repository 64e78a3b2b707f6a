// open-document FILE: opens the file with the application the desktop has for its type, and
// answers on a descriptor of its own how that went.

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <iterator>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "kits/app/opener/Answer.h"

using BPrivate::OpenerAnswer;

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object>
using Held = std::unique_ptr<Object, Unref>;

OpenerAnswer AnswerFor(GError* error) {
    OpenerAnswer answer = OpenerAnswer::kNotStarted;
    if (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_NOT_FOUND))
        answer = OpenerAnswer::kNoDocument;
    else if (g_error_matches(error, G_IO_ERROR, G_IO_ERROR_NOT_SUPPORTED))
        answer = OpenerAnswer::kNoApplication;
    g_error_free(error);
    return answer;
}

// Whether the process is still the library's own step before the application, which tells it its
// process number. It is a program, or a line for the shell where that is missing. One that has
// ended in between has no words.
bool IsStillLauncher(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/cmdline");
    const std::string words{std::istreambuf_iterator<char>(file), {}};
    const std::string program = words.substr(0, words.find('\0'));
    return words.empty() || program.ends_with("/gio-launch-desktop") ||
        words.find("GIO_LAUNCHED_DESKTOP_FILE_PID") != std::string::npos;
}

// That step succeeds even where the application itself cannot be executed. What becomes of it is
// visible only from outside: it turns into the application, or ends with a failure.
bool HasStarted(pid_t process) {
    constexpr std::chrono::milliseconds kLookAgain(1);
    for (;;) {
        int status = 0;
        if (waitpid(process, &status, WNOHANG) != 0)
            return WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
        if (!IsStillLauncher(process))
            return true;
        std::this_thread::sleep_for(kLookAgain);
    }
}

void TakeProcess(GDesktopAppInfo*, GPid process, void* processes) {
    *static_cast<GPid*>(processes) = process;
}

OpenerAnswer Open(const char* path) {
    const Held<GFile> file(g_file_new_for_path(path));
    GError* error = nullptr;
    const Held<GAppInfo> application(g_file_query_default_handler(file.get(), nullptr, &error));
    if (!application)
        return AnswerFor(error);

    // Not by the bus, which would not tell whether it worked.
    const std::unique_ptr<char, decltype(&g_free)> uri(g_file_get_uri(file.get()), g_free);
    GList uris = {uri.get(), nullptr, nullptr};
    GPid process = 0;
    const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
    if (!g_desktop_app_info_launch_uris_as_manager(G_DESKTOP_APP_INFO(application.get()), &uris,
            nullptr, flags, nullptr, nullptr, TakeProcess, &process, &error)) {
        (void)AnswerFor(error);
        return OpenerAnswer::kNotStarted;
    }
    return process == 0 || HasStarted(process) ? OpenerAnswer::kOpened : OpenerAnswer::kNotStarted;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || fcntl(BPrivate::kAnswerDescriptor, F_SETFD, FD_CLOEXEC) != 0)
        return 2;
    // What is started goes on when the viewer's terminal is closed or interrupted.
    (void)setsid();

    const OpenerAnswer answer = Open(argv[1]);
    return write(BPrivate::kAnswerDescriptor, &answer, sizeof(answer)) == sizeof(answer) ? 0 : 1;
}
