#include "kits/app/DocumentOpener.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "kits/app/opener/Answer.h"
#include "kits/storage/Posix.h"
#include "kits/storage/ProgramPlaces.h"

namespace BPrivate {

namespace {

using Clock = std::chrono::steady_clock;

/// The opener as a process: what it gets from this one, and its end.
class Opener {
public:
    Opener(const std::string& program, const std::string& document, int answers);
    ~Opener();
    Opener(const Opener&) = delete;
    Opener& operator=(const Opener&) = delete;

    bool IsRunning() const { return fProcess > 0; }

private:
    pid_t fProcess = -1;
};

Opener::Opener(const std::string& program, const std::string& document, int answers) {
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    if (posix_spawn_file_actions_init(&files) != 0)
        return;
    if (posix_spawnattr_init(&attributes) != 0) {
        posix_spawn_file_actions_destroy(&files);
        return;
    }
    // Whoever is started by it inherits the signals, too; they shall be as a desktop starts it.
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    std::string name = program;
    std::string path = document;
    char* arguments[] = {name.data(), path.data(), nullptr};
    // In this order: where the viewer was started without descriptors, `answers` may be the first.
    if (posix_spawn_file_actions_adddup2(&files, answers, kAnswerDescriptor) != 0 ||
        posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0) != 0 ||
        posix_spawn(&fProcess, program.c_str(), &files, &attributes, arguments, environ) != 0)
        fProcess = -1;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
}

// It has answered and is about to end, or it is given up. What it has started is no child of it.
Opener::~Opener() {
    if (!IsRunning())
        return;
    (void)kill(fProcess, SIGKILL);
    while (waitpid(fProcess, nullptr, 0) < 0 && errno == EINTR) {
    }
}

bool AwaitAnswer(int answers, std::chrono::milliseconds patience) {
    const Clock::time_point end = Clock::now() + patience;
    for (;;) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd waited{answers, POLLIN, 0};
        const int ready = poll(&waited, 1, static_cast<int>(std::max<int64>(left, 0)));
        if (ready >= 0 || errno != EINTR)
            return ready > 0;
    }
}

status_t StatusOf(OpenerAnswer answer) {
    switch (answer) {
    case OpenerAnswer::kOpened: return B_OK;
    case OpenerAnswer::kNoDocument: return B_ENTRY_NOT_FOUND;
    case OpenerAnswer::kNoApplication: return B_LAUNCH_FAILED_NO_PREFERRED_APP;
    case OpenerAnswer::kNotStarted: break;
    }
    return B_LAUNCH_FAILED;
}

}  // namespace

status_t OpenDocument(const std::string& path, std::chrono::milliseconds patience) {
    const std::string program = FindOfProgram("add-ons/open-document");
    int ends[2];
    if (program.empty() || pipe2(ends, O_CLOEXEC) != 0)
        return B_LAUNCH_FAILED;
    const Descriptor answers(ends[0]);
    Descriptor told(ends[1]);
    const Opener opener(program, path, told.Get());
    // From here on the opener alone can answer, so its end is seen as the end of the answers.
    told = Descriptor();

    OpenerAnswer answer = OpenerAnswer::kNotStarted;
    if (!opener.IsRunning() || !AwaitAnswer(answers.Get(), patience) ||
        read(answers.Get(), &answer, sizeof(answer)) != sizeof(answer))
        return B_LAUNCH_FAILED;
    return StatusOf(answer);
}

}  // namespace BPrivate
