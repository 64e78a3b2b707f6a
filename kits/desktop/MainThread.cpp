#include "kits/desktop/MainThread.h"

#include <QCoreApplication>
#include <QObject>
#include <QThread>
#include <utility>

namespace BPrivate {

MainThread::MainThread() : fContext(std::make_unique<QObject>()) {}

MainThread::~MainThread() {
    Close();
}

void MainThread::Post(std::function<void()> work) {
    const std::lock_guard lock(fLock);
    if (fContext)
        QMetaObject::invokeMethod(fContext.get(), std::move(work), Qt::QueuedConnection);
}

bool MainThread::Call(const std::function<void()>& work) {
    if (IsCurrent()) {
        work();
        return true;
    }

    // Shared with the posted work, which may run, or be dropped, after a waiter has given up.
    struct Call {
        bool started = false;
        bool done = false;
    };
    auto call = std::make_shared<Call>();
    Post([this, call, &work] {
        {
            const std::lock_guard lock(fLock);
            if (!fContext)
                return;
            call->started = true;
        }
        work();
        const std::lock_guard lock(fLock);
        call->done = true;
        fDone.notify_all();
    });

    std::unique_lock lock(fLock);
    fDone.wait(lock, [&] { return call->done || (!fContext && !call->started); });
    return call->done;
}

void MainThread::Close() {
    std::unique_ptr<QObject> context;
    {
        const std::lock_guard lock(fLock);
        context = std::move(fContext);
    }
    fDone.notify_all();
    // Deleting the receiver removes what is posted to it.
    context.reset();
}

bool MainThread::IsCurrent() const {
    const QCoreApplication* application = QCoreApplication::instance();
    return application != nullptr && application->thread() == QThread::currentThread();
}

}  // namespace BPrivate
