#include "framework/Thread.h"

namespace {

// What Thread::fEnd is made of. In one word, so that of the thread that ends and the owner who lets
// go exactly one sees that the other was there before.
constexpr uint32 kAutoDelete = 1;
constexpr uint32 kAbandoned = 2;
constexpr uint32 kTerminated = 4;

std::atomic<int32> sAbandoned{0};

}  // namespace

TThread::TThread(const char* name, int32 priority)
    : fThread(spawn_thread(Entry, name, priority, this)) {}

TThread::~TThread() {
    KillThread();
}

status_t TThread::Terminate() {
    fTerminateRequested.store(true, std::memory_order_release);
    return B_OK;
}

status_t TThread::Resume() const {
    return resume_thread(fThread);
}

status_t TThread::Suspend() const {
    return suspend_thread(fThread);
}

status_t TThread::SetPriority(int32 priority) const {
    return set_thread_priority(fThread, priority);
}

status_t TThread::SetName(const char* name) const {
    return rename_thread(fThread, name);
}

status_t TThread::Wait(int32* result) const {
    int32 ignored = 0;
    return wait_for_thread(fThread, result != nullptr ? result : &ignored);
}

status_t TThread::SetAutoDelete(bool autoDelete) {
    if (autoDelete)
        fEnd.fetch_or(kAutoDelete, std::memory_order_acq_rel);
    else
        fEnd.fetch_and(~kAutoDelete, std::memory_order_acq_rel);
    return B_OK;
}

void TThread::Abandon() {
    if (fThread < 0 || IsSuspended()) {
        delete this;
        return;
    }
    (void)Terminate();
    (void)SetPriority(B_LOWEST_ACTIVE_PRIORITY);
    sAbandoned.fetch_add(1);
    const uint32 before = fEnd.fetch_or(kAutoDelete | kAbandoned, std::memory_order_acq_rel);
    if ((before & kTerminated) == 0)
        return;
    delete this;
    sAbandoned.fetch_sub(1);
}

int32 TThread::CountAbandoned() {
    return sAbandoned.load();
}

thread_id TThread::ThreadID() const {
    return fThread;
}

bool TThread::IsTerminated() const {
    return (fEnd.load(std::memory_order_acquire) & kTerminated) != 0;
}

bool TThread::IsSuspended() const {
    thread_info info;
    return get_thread_info(fThread, &info) == B_OK && info.state == B_THREAD_SUSPENDED;
}

bool TThread::IsTerminateRequested() const {
    return fTerminateRequested.load(std::memory_order_acquire);
}

void TThread::KillThread() const {
    if (!IsTerminated())
        (void)kill_thread(fThread);
}

int32 TThread::Entry(void* self) {
    (void)on_exit_thread(ThreadEnded, self);
    return static_cast<TThread*>(self)->Execute();
}

void TThread::ThreadEnded(void* self) {
    auto* thread = static_cast<TThread*>(self);
    // An owner may delete the object as soon as it sees the mark, so the mark is the last touch.
    const uint32 before = thread->fEnd.fetch_or(kTerminated, std::memory_order_acq_rel);
    if ((before & kAutoDelete) != 0)
        delete thread;
    if ((before & kAbandoned) != 0)
        sAbandoned.fetch_sub(1);
}
