#include <QThread>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "kits/desktop/MainThread.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

TEST(MainThread, RunsInTheOrderOfPosting) {
    MainThread thread;
    std::vector<int> order;
    for (int i = 0; i < 100; ++i)
        thread.Post([&order, i] { order.push_back(i); });
    EXPECT_TRUE(order.empty());
    ASSERT_TRUE(PumpUntil([&] { return order.size() == 100; }));
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(order[static_cast<size_t>(i)], i);
}

TEST(MainThread, CallWaitsForTheWork) {
    MainThread thread;
    std::atomic<bool> done = false;
    QThread* ranOn = nullptr;
    bool result = false;
    std::thread caller([&] {
        result = thread.Call([&] { ranOn = QThread::currentThread(); });
        done = true;
    });
    EXPECT_TRUE(PumpUntil([&] { return done.load(); }));
    caller.join();
    EXPECT_TRUE(result);
    EXPECT_EQ(ranOn, QThread::currentThread());
    bool here = false;
    EXPECT_TRUE(thread.Call([&] { here = true; }));
    EXPECT_TRUE(here);
}

TEST(MainThread, ClosingLetsGoWhoWaits) {
    MainThread thread;
    std::atomic<bool> waiting = false;
    bool result = true;
    bool ran = false;
    std::thread caller([&] {
        waiting = true;
        result = thread.Call([&] { ran = true; });
    });
    while (!waiting)
        std::this_thread::yield();
    thread.Close();
    caller.join();
    EXPECT_FALSE(result);
    Pump();
    EXPECT_FALSE(ran);
}

TEST(MainThread, DropsWhatIsPostedAfterItsEnd) {
    MainThread thread;
    bool before = false;
    bool after = false;
    thread.Post([&] { before = true; });
    thread.Close();
    thread.Post([&] { after = true; });
    Pump();
    EXPECT_FALSE(before);
    EXPECT_FALSE(after);
}

}  // namespace
