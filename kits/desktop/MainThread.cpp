#include "kits/desktop/MainThread.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QThread>
#include <utility>

namespace BPrivate {

class MainThread::Context : public QObject {
public:
    explicit Context(MainThread& mainThread) : fMainThread(mainThread) {}

protected:
    void customEvent(QEvent*) override { fMainThread.RunNext(); }

private:
    MainThread& fMainThread;
};

MainThread::MainThread() : fContext(std::make_unique<Context>(*this)) {}

MainThread::~MainThread() {
    Close();
}

void MainThread::Post(std::function<void()> work) {
    const std::lock_guard lock(fLock);
    if (!fContext)
        return;
    fWork.push_back(std::move(work));
    QCoreApplication::postEvent(fContext.get(), new QEvent(QEvent::User));
}

void MainThread::RunNext() {
    std::function<void()> work;
    {
        const std::lock_guard lock(fLock);
        if (fWork.empty())
            return;
        work = std::move(fWork.front());
        fWork.pop_front();
    }
    work();
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
    std::deque<std::function<void()>> dropped;
    {
        const std::lock_guard lock(fLock);
        context = std::move(fContext);
        dropped.swap(fWork);
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
