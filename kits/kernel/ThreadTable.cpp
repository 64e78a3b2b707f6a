#include <algorithm>
#include <chrono>
#include <exception>

#include <unistd.h>

#include "kits/kernel/Suspension.h"
#include "kits/kernel/Thread.h"

namespace BPrivate {

namespace {

// Enough for whoever starts many threads and asks for all their statuses afterwards.
constexpr std::size_t kMostFinished = 4096;

// What the native thread's own name may take, with its NUL.
constexpr std::size_t kNativeNameLength = 16;

constinit thread_local Thread* tCurrent = nullptr;
constinit thread_local thread_id tId = 0;

// How often the destructor of the thread's key puts itself off: others of the thread's
// destructors may still ask for the thread. The system goes through them four times at most,
// and the sanitizers keep the last time for themselves.
constexpr int32 kPutOff = 2;
constinit thread_local int32 tRounds = 0;

pthread_key_t gEndKey;

void end_of_thread(void* data) {
    if (tRounds++ < kPutOff) {
        pthread_setspecific(gEndKey, data);
        return;
    }
    auto* const self = static_cast<Thread*>(data);
    const KernelLock lock;
    tCurrent = nullptr;
    watch_for_suspension(nullptr);
    // One that has been stopped for good has ended for everybody else long ago.
    if (!self->ended)
        the_threads().Remove(*self, self->exitStatus);
}

ThreadTable* make_table() {
    pthread_key_create(&gEndKey, end_of_thread);
    return new ThreadTable;
}

}  // namespace

ThreadTable& the_threads() {
    static ThreadTable& table = *make_table();
    return table;
}

ThreadPtr ThreadTable::Find(thread_id id) const {
    const auto found = threads.find(id);
    return found != threads.end() ? found->second : nullptr;
}

void ThreadTable::Insert(const ThreadPtr& thread) {
    do {
        lastId = lastId < INT32_MAX ? lastId + 1 : 1;
    } while (threads.contains(lastId));
    thread->id = lastId;
    threads.emplace(lastId, thread);
}

void ThreadTable::Remove(Thread& thread, status_t status) {
    thread.exitStatus = status;
    thread.ended = true;
    thread.gone.notify_all();
    if (thread.spawned && thread.waiting == 0) {
        finished.emplace_back(thread.id, status);
        if (finished.size() > kMostFinished)
            finished.pop_front();
    }
    threads.erase(thread.id);  // perhaps with the record
}

bool ThreadTable::TakeStatus(thread_id id, status_t* status) {
    const auto found = std::find_if(
        finished.begin(), finished.end(), [id](const auto& entry) { return entry.first == id; });
    if (found == finished.end())
        return false;
    *status = found->second;
    finished.erase(found);
    return true;
}

// #pragma mark - The lock

KernelLock::KernelLock() : fLock(the_threads().lock, std::defer_lock) {
    hold_off_suspension();
    fLock.lock();
}

KernelLock::~KernelLock() {
    Thread* const self = tCurrent;
    fLock.unlock();
    allow_suspension(self);
}

status_t KernelLock::WaitOnce(
    std::condition_variable& condition, bigtime_t deadline, thread_state state, sem_id sem) {
    Thread* const self = tCurrent;
    if (self != nullptr) {
        self->blockedOn = &condition;
        self->blockedState = state;
        self->blockedSem = sem;
    }
    bool inTime = true;
    // The clock counts nanoseconds in 64 bits; a later deadline than it can hold is none.
    if (deadline < INT64_MAX / 2000) {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point end{std::chrono::microseconds(max_c<bigtime_t>(deadline, 0))};
        inTime = condition.wait_until(fLock, end) == std::cv_status::no_timeout;
    } else {
        condition.wait(fLock);
    }
    if (self != nullptr) {
        self->blockedOn = nullptr;
        self->blockedState = B_THREAD_READY;
        self->blockedSem = -1;
    }
    return inTime ? B_OK : B_TIMED_OUT;
}

// #pragma mark - The calling thread

Thread* current_thread() {
    if (tCurrent != nullptr || tId != 0)
        return tCurrent;
    char name[kNativeNameLength] = "";
    pthread_getname_np(pthread_self(), name, sizeof(name));
    const auto self = std::make_shared<Thread>(false);
    self->name = name;
    self->handle = pthread_self();
    self->kernelId = gettid();
    const KernelLock lock;
    the_threads().Insert(self);
    adopt_thread(self.get());
    return self.get();
}

thread_id current_id() {
    if (tId == 0)
        current_thread();
    return tId;
}

void adopt_thread(Thread* self) {
    tCurrent = self;
    tId = self->id;
    the_threads();
    pthread_setspecific(gEndKey, self);
    watch_for_suspension(self);
}

bool is_killed() {
    return tCurrent != nullptr && tCurrent->killed && !tCurrent->ending;
}

void end_if_killed() {
    {
        const KernelLock lock;
        if (!is_killed())
            return;
    }
    // While another exception unwinds this stack a second one would end the whole program.
    if (std::uncaught_exceptions() == 0)
        throw ThreadExit{B_INTERRUPTED};
}

// #pragma mark - Names

std::string cut_name(const char* name, std::size_t size) {
    std::string text(name != nullptr ? name : "");
    if (text.size() < size)
        return text;
    std::size_t length = size - 1;
    // A byte whose upper two bits are 10 continues a character.
    while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        length--;
    text.resize(length);
    return text;
}

void set_native_name(Thread& thread) {
    pthread_setname_np(thread.handle, cut_name(thread.name.c_str(), kNativeNameLength).c_str());
}

}  // namespace BPrivate
