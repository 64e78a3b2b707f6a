#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

class QObject;

namespace BPrivate {

/// The way onto the display's own thread, which is the process's main one.
///
/// Any thread may call it. It is shared by everything that posts and outlives the display: once
/// closed it drops what is posted, so that a looper that ends late finds nothing to break.
class MainThread {
public:
    /// On the main thread, with the application object made.
    MainThread();
    ~MainThread();

    /// Runs the work on the main thread later, after all that was posted before. Also from the
    /// main thread itself, so that the order holds.
    void Post(std::function<void()> work);

    /// Runs the work on the main thread and waits for it; at once when called there.
    /// \return false when the display has gone and the work was not done.
    bool Call(const std::function<void()>& work);

    /// The display ends: nothing posted from now on runs, and who waits in Call() is let go. What
    /// was posted before and has not run is dropped.
    void Close();

    bool IsCurrent() const;

private:
    /// Is woken once for each work that is posted.
    class Context;

    void RunNext();

    std::mutex fLock;
    std::condition_variable fDone;
    std::deque<std::function<void()>> fWork;  // kept here, so that our own lock hands it over
    std::unique_ptr<QObject> fContext;        // null once closed
};

}  // namespace BPrivate
