#include "framework/Thread.h"

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
    fAutoDelete.store(autoDelete, std::memory_order_release);
    return B_OK;
}

thread_id TThread::ThreadID() const {
    return fThread;
}

bool TThread::IsTerminated() const {
    return fTerminated.load(std::memory_order_acquire);
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
    const bool autoDelete = thread->fAutoDelete.load(std::memory_order_acquire);
    thread->fTerminated.store(true, std::memory_order_release);
    if (autoDelete)
        delete thread;
}
