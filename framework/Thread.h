#pragma once

#include <atomic>
#include <kernel/OS.h>
#include <support/SupportDefs.h>

/// One kernel thread and the work it does. A subclass supplies Execute(); the thread is created
/// suspended and starts with Resume().
///
/// Stopping is cooperative: Terminate() asks, Execute() looks at IsTerminateRequested() now and
/// then. The object is deleted by its one owner, or by itself at its thread's end when auto
/// delete was switched on before Resume(), never by Execute().
///
/// An owner that does not want to wait for the end gives the object up instead of deleting it:
/// Abandon() leaves it to its thread.
///
/// Deleting it while Execute() runs kills the thread, with what kill_thread() says about that:
/// what Execute() holds then may be lost. A subclass whose Execute() uses members of its own
/// must call KillThread() first thing in its destructor.
///
/// Every function may be called from any thread.
class TThread {
public:
    /// @param priority the platform's, 1 to 120.
    TThread(const char* name, int32 priority);
    virtual ~TThread();

    TThread(const TThread&) = delete;
    TThread& operator=(const TThread&) = delete;

    /// Asks the thread to end early; does not wait for it. @return 0.
    virtual status_t Terminate();
    /// The thread's work, run on it. @return the thread's exit status.
    virtual int32 Execute() = 0;

    // The following return what the platform's functions of these names do.
    status_t Resume() const;
    status_t Suspend() const;
    status_t SetPriority(int32 priority) const;
    status_t SetName(const char* name) const;
    /// Waits for the thread's end. @param result receives its exit status; may be null.
    status_t Wait(int32* result) const;

    /// When on, the object deletes itself at its thread's end. @return 0.
    status_t SetAutoDelete(bool autoDelete);

    /// Asks the thread to end and has the object delete itself when it has, which may be now. The
    /// caller does not wait, and must not use the object any more. What never ran is deleted.
    void Abandon();
    /// How many threads of abandoned objects are still at work. While there are any, the process
    /// must end without destroying what they may use, by std::quick_exit().
    static int32 CountAbandoned();

    thread_id ThreadID() const;
    /// True once the thread has ended by itself.
    bool IsTerminated() const;
    bool IsSuspended() const;

protected:
    bool IsTerminateRequested() const;
    /// Ends the thread unless it has ended; it touches nothing any more on return.
    void KillThread() const;

private:
    static int32 Entry(void* self);
    static void ThreadEnded(void* self);

    std::atomic<bool> fTerminateRequested{false};
    thread_id fThread;
    std::atomic<uint32> fEnd{0};  // how it is to end, and whether it has
};
