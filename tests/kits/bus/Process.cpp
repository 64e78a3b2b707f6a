#include "tests/kits/bus/Process.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kPatience(30);

// Made before the fork: a child of a process with threads may not allocate.
std::vector<std::string> Variables(const Process::Environment& changes) {
    std::vector<std::string> variables;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string variable = *entry;
        if (!changes.contains(variable.substr(0, variable.find('='))))
            variables.push_back(variable);
    }
    for (const auto& [name, value] : changes) {
        if (!value.empty())
            variables.push_back(name + "=" + value);
    }
    return variables;
}

std::vector<char*> Pointers(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

}  // namespace

Process::Process(const std::vector<std::string>& words, const Environment& environment,
    const std::string& folder) {
    std::vector<std::string> wordCopies = words;
    std::vector<std::string> variables = Variables(environment);
    const std::vector<char*> arguments = Pointers(wordCopies);
    const std::vector<char*> environmentWords = Pointers(variables);

    std::string errorFile = "/tmp/lorivane-process-XXXXXX";
    const int errors = mkostemp(errorFile.data(), O_CLOEXEC);
    fErrorFile = errorFile;
    int input[2], output[2];
    if (errors < 0 || pipe2(input, O_CLOEXEC) != 0 || pipe2(output, O_CLOEXEC) != 0)
        std::abort();
    fId = fork();
    if (fId == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        dup2(errors, STDERR_FILENO);
        if (!folder.empty() && chdir(folder.c_str()) != 0)
            _exit(127);
        execvpe(arguments[0], arguments.data(), environmentWords.data());
        _exit(127);
    }
    close(input[0]);
    close(output[1]);
    close(errors);
    fInput = input[1];
    fOutput = output[0];
}

Process::~Process() {
    Kill();
    CloseInput();
    close(fOutput);
    unlink(fErrorFile.c_str());
}

void Process::Say(const std::string& line) {
    const std::string text = line + "\n";
    std::signal(SIGPIPE, SIG_IGN);
    (void)!write(fInput, text.data(), text.size());
}

std::string Process::Hear() {
    const auto end = Clock::now() + kPatience;
    for (;;) {
        const size_t length = fHeard.find('\n');
        if (length != std::string::npos) {
            const std::string line = fHeard.substr(0, length);
            fHeard.erase(0, length + 1);
            return line;
        }
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        pollfd file = {fOutput, POLLIN, 0};
        if (left <= 0 || poll(&file, 1, int(left)) == 0)
            return "(nothing)";
        char bytes[4096];
        const ssize_t size = read(fOutput, bytes, sizeof(bytes));
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0)
            return "(end)";
        fHeard.append(bytes, size_t(size));
    }
}

std::string Process::Ask(const std::string& line) {
    Say(line);
    return Hear();
}

bool Process::HearUntil(const std::string& line) {
    for (;;) {
        const std::string heard = Hear();
        if (heard == line)
            return true;
        if (heard == "(nothing)" || heard == "(end)")
            return false;
    }
}

void Process::CloseInput() {
    if (fInput >= 0)
        close(fInput);
    fInput = -1;
}

std::string Process::Errors() const {
    std::ostringstream text;
    text << std::ifstream(fErrorFile).rdbuf();
    return text.str();
}

void Process::Signal(int signal) const {
    if (fId <= 0)
        return;
    kill(fId, signal);
    // A process stops a while after it was told to, and goes on working until then.
    siginfo_t state{};
    if (signal == SIGSTOP)
        (void)waitid(P_PID, static_cast<id_t>(fId), &state, WSTOPPED);
}

void Process::Kill() {
    Signal(SIGKILL);
    Wait();
}

int Process::Wait() {
    const auto end = Clock::now() + kPatience;
    while (fId > 0 && Clock::now() < end) {
        int status = 0;
        const pid_t ended = waitpid(fId, &status, WNOHANG);
        if (ended == 0) {
            std::this_thread::yield();
            continue;
        }
        fId = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }
    return -1000;
}
