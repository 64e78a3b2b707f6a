#pragma once

#include <app/Message.h>
#include <condition_variable>
#include <kernel/OS.h>
#include <map>
#include <mutex>
#include <set>

namespace BPrivate {

/// The thread that sends the messages of all BMessageRunners. It runs from the first runner on,
/// and sleeps until the next message is due.
class RunnerService {
public:
    static RunnerService& Get();
    /// Ends the thread.
    ~RunnerService();

    /// Returns the runner's number, or a negative error.
    int64 Add(const BMessenger& target, const BMessage& message, const BMessenger& replyTo,
        bigtime_t interval, int32 count);
    void Remove(int64 id);

    [[nodiscard]] status_t SetInterval(int64 id, bigtime_t interval);
    [[nodiscard]] status_t SetCount(int64 id, int32 count);
    [[nodiscard]] status_t GetInfo(int64 id, bigtime_t& interval, int32& count);

private:
    struct Runner {
        BMessenger target;
        BMessage message;
        BMessenger replyTo;
        bigtime_t interval;
        int32 count;
        bigtime_t next;
    };
    using Runners = std::map<int64, Runner>;

    static int32 ThreadEntry(void* service);
    void Serve();
    void SendDue(std::unique_lock<std::mutex>& guard, int64 id);
    void Schedule(int64 id, Runner& runner, bigtime_t next);
    void Erase(Runners::iterator runner);

    std::mutex fLock;
    std::condition_variable fChanged;
    Runners fRunners;
    std::set<std::pair<bigtime_t, int64>> fDue;
    int64 fLastId = 0;
    thread_id fThread = 0;
    bool fQuit = false;
};

}  // namespace BPrivate
