#pragma once

#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

/// A program the test started, with its standard input and output. It ends with the test.
class Process {
public:
    using Environment = std::map<std::string, std::string>;

    /// Variables replace this process's own; an empty value takes one away.
    explicit Process(const std::vector<std::string>& words, const Environment& environment = {},
        const std::string& folder = "");
    /// Kills it if it has not ended.
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    pid_t Id() const { return fId; }

    void Say(const std::string& line);
    /// The next line it says, without its end; "(nothing)" when half a minute passed without one,
    /// "(end)" when it said its last.
    std::string Hear();
    /// Says a line and hears the answer.
    std::string Ask(const std::string& line);
    /// Hears until the line comes; false when it does not.
    bool HearUntil(const std::string& line);
    void CloseInput();

    /// What it has written on its standard error so far.
    std::string Errors() const;

    void Signal(int signal) const;
    /// Kills it, and returns when it is gone.
    void Kill();
    /// Waits for its end; its exit code, minus a signal's number, or -1000 after half a minute.
    int Wait();

private:
    pid_t fId = -1;
    int fInput = -1;
    int fOutput = -1;
    std::string fHeard;
    std::string fErrorFile;
};
