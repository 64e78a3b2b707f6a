#pragma once

#include <functional>
#include <list>
#include <string>
#include <systemd/sd-bus.h>
#include <unistd.h>

/// A program of another kind on the session bus, which sends what it likes.
class Client {
public:
    using Fill = std::function<int(sd_bus_message*)>;
    using Answered = std::function<void(unsigned)>;

    /// On the tests' own bus, as a process of that user; only root can be another.
    explicit Client(uid_t user = geteuid());
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    /// Calls a method of the ports that the owner of a bus name has, and waits: the number it
    /// answers, or the name of its error.
    std::string CallPorts(const std::string& owner, const char* method, const Fill& fill);
    std::string CallApplication(const std::string& owner, const char* method, const Fill& fill);

    /// Sends such a call; `answered` is called with the number from within AwaitAnswers().
    void SendToPorts(
        const std::string& owner, const char* method, const Fill& fill, Answered answered);
    void SendToApplication(
        const std::string& owner, const char* method, const Fill& fill, Answered answered);
    /// Handles what comes until the condition is true; false after half a minute.
    bool AwaitAnswers(const std::function<bool()>& condition);

    /// Takes a bus name and lets `answer` have the calls that reach its application object from
    /// within AwaitAnswers(). False when the name is taken.
    bool ServeApplication(const std::string& name, std::function<int(sd_bus_message*)> answer);

    void Broadcast(const Fill& fill);

    std::string Introspect(const std::string& owner, const char* path);

    /// Sends everything, and returns when the bus has it.
    void Flush();

private:
    std::string Call(const std::string& owner, const char* path, const char* interface,
        const char* method, const Fill& fill);

    void Send(const std::string& owner, const char* path, const char* interface, const char* method,
        const Fill& fill, Answered answered);

    sd_bus* fBus = nullptr;
    std::list<Answered> fAnswered;
    std::function<int(sd_bus_message*)> fServe;
};
