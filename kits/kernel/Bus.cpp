#include "kits/kernel/Bus.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include "kits/kernel/Thread.h"

namespace BPrivate {

namespace {

// So many messages may wait to be written before jobs have to, so that a bus that takes nothing
// does not fill the memory of the library.
constexpr uint64_t kMostUnwritten = 512;

}  // namespace

struct Bus::Pending {
    Answer then;
};

Bus& Bus::Get() {
    // Never destroyed: its thread runs to the end of the process.
    static Bus& bus = *new Bus;
    return bus;
}

Bus::Bus() : fWake(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    // The process's signals are for other threads.
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread([this] { Serve(); }).detach();
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

void Bus::Post(Job job) {
    {
        const std::lock_guard guard(fLock);
        fJobs.push_back(std::move(job));
    }
    Wake();
}

Bus::Later Bus::PostAt(bigtime_t time, Job job) {
    Later later;
    {
        const std::lock_guard guard(fLock);
        later = {time, ++fLastLater};
        fLater.emplace(later, std::move(job));
    }
    Wake();
    return later;
}

void Bus::Forget(const Later& later) {
    const std::lock_guard guard(fLock);
    fLater.erase(later);
}

void Bus::Wake() {
    const std::uint64_t one = 1;
    (void)!write(fWake, &one, sizeof(one));  // a full counter wakes as well
}

status_t Bus::Flush(bigtime_t deadline) {
    const auto question = std::make_shared<BusQuestion>();
    // The bus handles the messages of a connection in order, so its answer tells of all of them.
    Post([this, question](sd_bus* bus) {
        if (bus == nullptr)
            return answer_question(*question, B_OK);
        CallBus(
            "GetId", nullptr, [question](sd_bus_message*) { answer_question(*question, B_OK); });
    });
    KernelLock lock;
    return lock.WaitRegardless(question->change, deadline, [&] { return question->answered; });
}

// #pragma mark - The thread

void Bus::Serve() {
    pthread_setname_np(pthread_self(), "bus");
    Connect();
    for (;;) {
        const bool ran = RunJobs();
        const bool processed = Process();
        if (!ran && !processed)
            Wait();
    }
}

void Bus::Connect() {
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0)
        return;
    sd_bus_set_exit_on_disconnect(bus, 0);
    fBus = bus;
}

bool Bus::HasRoom() const {
    uint64_t count = 0;
    return fBus == nullptr || sd_bus_get_n_queued_write(fBus, &count) < 0 || count < kMostUnwritten;
}

bool Bus::RunJobs() {
    if (!HasRoom())
        return false;
    std::vector<Job> jobs;
    {
        const std::lock_guard guard(fLock);
        const auto end = fLater.upper_bound({system_time(), INT64_MAX});
        for (auto later = fLater.begin(); later != end; ++later)
            jobs.push_back(std::move(later->second));
        fLater.erase(fLater.begin(), end);
        // The rest comes when these have been written.
        const auto count = std::ptrdiff_t(std::min(fJobs.size(), size_t(kMostUnwritten)));
        std::move(fJobs.begin(), fJobs.begin() + count, std::back_inserter(jobs));
        fJobs.erase(fJobs.begin(), fJobs.begin() + count);
    }
    for (const Job& job : jobs)
        job(fBus);
    return !jobs.empty();
}

bool Bus::Process() {
    if (fBus == nullptr)
        return false;
    const int result = sd_bus_process(fBus, nullptr);
    if (result >= 0)
        return result > 0;
    Disconnected();
    return true;
}

void Bus::Disconnected() {
    sd_bus_close_unref(std::exchange(fBus, nullptr));
    // The library has answered open calls with an error, except where it did not trust the
    // stream any more.
    for (const auto& [key, pending] : std::exchange(fPending, {}))
        pending->then(nullptr);
    for (const auto& lost : fWhenLost)
        lost();
}

void Bus::Wait() {
    bigtime_t until = INT64_MAX;
    bool jobsWait = false;
    {
        const std::lock_guard guard(fLock);
        if (!fLater.empty())
            until = fLater.begin()->first.first;
        jobsWait = !fJobs.empty();
    }
    // What came since RunJobs() has also raised the counter, but what it left has not.
    if (jobsWait && HasRoom())
        return;

    pollfd files[2] = {{fWake, POLLIN, 0}, {-1, 0, 0}};
    if (fBus != nullptr) {
        const int events = sd_bus_get_events(fBus);
        files[1] = {sd_bus_get_fd(fBus), short(std::max(events, 0)), 0};
        uint64_t timeout = UINT64_MAX;
        if (sd_bus_get_timeout(fBus, &timeout) >= 0 && timeout < uint64_t(until))
            until = bigtime_t(timeout);
    }
    if (until == INT64_MAX) {
        ppoll(files, 2, nullptr, nullptr);
    } else {
        const bigtime_t left = std::max<bigtime_t>(until - system_time(), 0);
        const timespec time = {left / 1000000, left % 1000000 * 1000};
        ppoll(files, 2, &time, nullptr);
    }
    std::uint64_t count = 0;
    (void)!read(fWake, &count, sizeof(count));
}

// #pragma mark - Calls

void Bus::Call(sd_bus_message* call, bigtime_t timeout, Answer then) {
    if (fBus == nullptr)
        return then(nullptr);
    auto pending = std::make_unique<Pending>(Pending{std::move(then)});
    const uint64_t time = timeout == B_INFINITE_TIMEOUT ? UINT64_MAX : uint64_t(timeout);
    const auto handler = [](sd_bus_message* answer, void* data, sd_bus_error*) {
        Get().Answered(data, answer);
        return 0;
    };
    // Without a slot of ours the library keeps the call until it is answered or the bus is gone.
    if (sd_bus_call_async(fBus, nullptr, call, handler, pending.get(), time) < 0)
        return pending->then(nullptr);
    fPending.emplace(pending.get(), std::move(pending));
}

void Bus::Answered(const void* pending, sd_bus_message* answer) {
    const auto found = fPending.extract(static_cast<const Pending*>(pending));
    if (!found.empty())
        found.mapped()->then(answer);
}

void Bus::CallBus(const char* method, const char* argument, Answer then) {
    constexpr bigtime_t kTimeout = 10000000;
    sd_bus_message* call = nullptr;
    if (fBus == nullptr ||
        sd_bus_message_new_method_call(fBus, &call, "org.freedesktop.DBus", "/org/freedesktop/DBus",
            "org.freedesktop.DBus", method) < 0)
        return then(nullptr);
    if (argument == nullptr || sd_bus_message_append(call, "s", argument) >= 0)
        Call(call, kTimeout, std::move(then));
    else
        then(nullptr);
    sd_bus_message_unref(call);
}

// #pragma mark - Questions

void answer_question(BusQuestion& question, status_t status, const char* sender, int32 value) {
    const KernelLock lock;
    if (question.answered)
        return;
    question.answered = true;
    question.status = status;
    question.sender = sender;
    question.value = value;
    question.change.notify_all();
}

status_t await_answer(BusQuestion& question, bigtime_t deadline) {
    current_thread();
    KernelLock lock;
    const status_t status = lock.Wait(
        question.change, deadline, B_THREAD_WAITING, -1, [&] { return question.answered; });
    return status == B_OK ? question.status : status;
}

std::string bus_name_part(const std::string& text) {
    std::string part = "n";
    for (const char c : text) {
        const bool plain =
            (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        char escaped[4] = {c, '\0'};
        if (!plain)
            std::snprintf(escaped, sizeof(escaped), "_%02x", uint8(c));
        part += escaped;
    }
    return part;
}

}  // namespace BPrivate
