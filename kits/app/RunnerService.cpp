#include "kits/app/RunnerService.h"

#include "kits/app/Clock.h"
#include "kits/app/LooperRegistry.h"
#include "kits/app/MessengerAccess.h"

#include <algorithm>

namespace BPrivate {

namespace {

// Shorter intervals would fill a queue faster than its looper empties it.
constexpr bigtime_t kShortestInterval = 1000;

bigtime_t Bounded(bigtime_t interval) {
    // Far enough below the end of time that now and an interval still add up.
    return std::clamp(interval, kShortestInterval, B_INFINITE_TIMEOUT / 4);
}

}  // namespace

RunnerService& RunnerService::Get() {
    // Made before, so that it goes after.
    LooperRegistry::Get();
    static RunnerService service;
    return service;
}

RunnerService::~RunnerService() {
    {
        const std::lock_guard guard(fLock);
        fQuit = true;
        fChanged.notify_one();
    }
    status_t result;
    if (fThread > 0)
        wait_for_thread(fThread, &result);
}

int64 RunnerService::Add(const BMessenger& target, const BMessage& message,
    const BMessenger& replyTo, bigtime_t interval, int32 count) {
    if (interval <= 0)
        return B_BAD_VALUE;
    const std::lock_guard guard(fLock);
    if (fThread <= 0) {
        fThread = spawn_thread(ThreadEntry, "message runner", B_URGENT_DISPLAY_PRIORITY, this);
        if (fThread < 0)
            return fThread;
        resume_thread(fThread);
    }
    const int64 id = ++fLastId;
    if (count == 0)
        return id;
    Runner& runner = fRunners[id];
    runner = {target, message, replyTo, Bounded(interval), count, 0};
    Schedule(id, runner, system_time() + runner.interval);
    return id;
}

void RunnerService::Remove(int64 id) {
    const std::lock_guard guard(fLock);
    const auto found = fRunners.find(id);
    if (found != fRunners.end())
        Erase(found);
}

status_t RunnerService::SetInterval(int64 id, bigtime_t interval) {
    if (interval <= 0)
        return B_BAD_VALUE;
    const std::lock_guard guard(fLock);
    const auto found = fRunners.find(id);
    if (found == fRunners.end())
        return B_BAD_VALUE;
    found->second.interval = Bounded(interval);
    Schedule(id, found->second, system_time() + found->second.interval);
    return B_OK;
}

status_t RunnerService::SetCount(int64 id, int32 count) {
    const std::lock_guard guard(fLock);
    const auto found = fRunners.find(id);
    if (found == fRunners.end())
        return B_BAD_VALUE;
    found->second.count = count;
    if (count == 0)
        Erase(found);
    return B_OK;
}

status_t RunnerService::GetInfo(int64 id, bigtime_t& interval, int32& count) {
    const std::lock_guard guard(fLock);
    const auto found = fRunners.find(id);
    if (found == fRunners.end())
        return B_BAD_VALUE;
    interval = found->second.interval;
    count = std::max(found->second.count, -1);
    return B_OK;
}

int32 RunnerService::ThreadEntry(void* service) {
    static_cast<RunnerService*>(service)->Serve();
    return B_OK;
}

void RunnerService::Serve() {
    std::unique_lock guard(fLock);
    while (!fQuit) {
        if (fDue.empty()) {
            fChanged.wait(guard);
            continue;
        }
        const auto [time, id] = *fDue.begin();
        const bigtime_t left = time - system_time();
        if (left > 0)
            fChanged.wait_until(guard, AfterTimeout(left));
        else
            SendDue(guard, id);
    }
}

void RunnerService::SendDue(std::unique_lock<std::mutex>& guard, int64 id) {
    Runner& runner = fRunners.at(id);
    // Those missed while this thread did not get to run are not made up for.
    Schedule(id, runner, std::max(runner.next + runner.interval, system_time()));
    const bool last = runner.count > 0 && --runner.count == 0;
    const BMessenger target = runner.target;
    const BMessenger replyTo = runner.replyTo;
    const BMessage message = runner.message;
    if (last)
        Erase(fRunners.find(id));

    // Unlocked: a target's queue may be locked by a thread that is about to call in here.
    guard.unlock();
    const status_t status = MessengerAccess::Send(target, message, replyTo);
    guard.lock();
    const auto found = fRunners.find(id);
    if (status != B_OK && found != fRunners.end())
        Erase(found);
}

void RunnerService::Schedule(int64 id, Runner& runner, bigtime_t next) {
    fDue.erase({runner.next, id});
    runner.next = next;
    fDue.insert({next, id});
    fChanged.notify_one();
}

void RunnerService::Erase(Runners::iterator runner) {
    fDue.erase({runner->second.next, runner->first});
    fRunners.erase(runner);
}

}  // namespace BPrivate
