#pragma once

// The process's connection to the user's session bus.
//
// One thread owns it, started by the first job, and only that thread calls the bus library.
// Everybody else hands it jobs. It takes no lock but the kernel kit's and its callers' own small
// ones, and it waits for nobody but the bus itself, for a second at most.
//
// Without a session bus the jobs are run all the same and are told so. A bus that goes away while
// the process runs is not looked for again.

#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include <kernel/OS.h>

struct sd_bus;
struct sd_bus_message;

namespace BPrivate {

class Bus {
public:
    /// Work for the bus's thread. The argument is null when there is no bus, or none any more.
    using Job = std::function<void(sd_bus* bus)>;
    /// Names a job for later.
    using Later = std::pair<bigtime_t, int64>;
    /// What is to be done with an answer; null when none will come.
    using Answer = std::function<void(sd_bus_message* answer)>;

    /// The only one; it lives as long as the process.
    static Bus& Get();

    /// Has the job run after those posted before it. Any thread; does not wait.
    void Post(Job job);
    /// Has the job run when `system_time()` has reached `time`. Returns what Forget() takes.
    Later PostAt(bigtime_t time, Job job);
    /// Drops such a job, unless it was run.
    void Forget(const Later& later);

    /// Waits, at most until `deadline`, until the bus has everything that was posted before.
    /// B_TIMED_OUT.
    status_t Flush(bigtime_t deadline);

    // The rest is for the bus's thread.

    /// The connection; null when there is none.
    sd_bus* Connection() const { return fBus; }

    /// Has that called when the connection, which there was, is gone.
    void WhenLost(std::function<void()> lost) { fWhenLost.push_back(std::move(lost)); }

    /// Sends the call, which stays the caller's, and does `then` once: with the answer, an error
    /// among them, or with null when it could not be sent. B_INFINITE_TIMEOUT waits for ever.
    void Call(sd_bus_message* call, bigtime_t timeout, Answer then);

    /// Calls a method of the bus itself. As above.
    void CallBus(const char* method, const char* argument, Answer then);

private:
    struct Pending;

    Bus();
    void Answered(const void* pending, sd_bus_message* answer);
    void Wake();
    void Serve();
    void Connect();
    /// False when there was nothing to do.
    bool RunJobs();
    bool Process();
    void Disconnected();
    void Wait();
    bool HasRoom() const;

    sd_bus* fBus = nullptr;
    std::map<const Pending*, std::unique_ptr<Pending>> fPending;
    std::vector<std::function<void()>> fWhenLost;
    const int fWake;

    std::mutex fLock;  // for what follows
    std::vector<Job> fJobs;
    std::map<Later, Job> fLater;
    int64 fLastLater = 0;
};

/// A question to the bus that another thread waits for.
///
/// It is shared by who waits and by who answers, since either may give up first. All of it is
/// guarded by the kernel kit's lock.
struct BusQuestion {
    bool answered = false;
    status_t status = B_ERROR;
    std::string sender;
    int32 value = 0;
    std::condition_variable change;
};
using BusQuestionPtr = std::shared_ptr<BusQuestion>;

/// Answers a question. Only the first answer counts.
void answer_question(
    BusQuestion& question, status_t status, const char* sender = "", int32 value = 0);

/// Waits for the answer and returns its status; B_TIMED_OUT, B_INTERRUPTED when the calling
/// thread has been killed, which then has to end itself.
status_t await_answer(BusQuestion& question, bigtime_t deadline);

/// The text as a part of a bus name: other than letters and digits are written as _xx. It begins
/// with a letter of its own, and different texts have different names.
std::string bus_name_part(const std::string& text);

}  // namespace BPrivate
