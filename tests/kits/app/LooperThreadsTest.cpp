// Loopers under many threads: what the thread sanitizer is for.

#include <app/Looper.h>
#include <app/Message.h>
#include <app/MessageRunner.h>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

#include "tests/kits/app/Waiting.h"

TEST(LooperThreads, AHundredThousandMessages) {
    constexpr int kCount = 100000;
    std::atomic<int> received = 0;
    auto* looper = new TestLooper([&received](TestLooper&, BMessage* message) {
        received += message->GetInt32("number", -1) >= 0 ? 1 : 0;
    });
    looper->Run();
    const BMessenger messenger(looper);
    std::thread senders[2];
    for (std::thread& sender : senders) {
        sender = std::thread([messenger] {
            BMessage message('test');
            message.AddInt32("number", 0);
            for (int i = 0; i < kCount / 2; ++i) {
                message.ReplaceInt32("number", i);
                EXPECT_EQ(messenger.SendMessage(&message), B_OK);
            }
        });
    }
    for (std::thread& sender : senders)
        sender.join();
    EXPECT_TRUE(eventually([&received] { return received == kCount; }));
    QuitLooper(looper);
}

TEST(LooperThreads, SendingToLoopersThatGo) {
    for (int round = 0; round < 50; ++round) {
        auto* looper =
            new TestLooper([](TestLooper&, BMessage* message) { message->SendReply('rply'); });
        looper->Run();
        const BMessenger messenger(looper);
        std::atomic<bool> refused = false;
        std::thread sender([&] {
            while (messenger.SendMessage('test') == B_OK) {
            }
            refused = true;
        });
        std::thread locker([&] {
            while (messenger.LockTarget()) {
                BLooper* target = nullptr;
                messenger.Target(&target);
                EXPECT_TRUE(target->IsLocked());
                target->Unlock();
            }
        });
        std::thread waiter([&] {
            BMessage reply;
            while (messenger.SendMessage('test', &reply) == B_OK) {
            }
        });
        QuitLooper(looper);
        sender.join();
        locker.join();
        waiter.join();
        EXPECT_TRUE(refused);
        EXPECT_FALSE(messenger.IsValid());
    }
}

TEST(LooperThreads, ManyQuitOneLooper) {
    for (int round = 0; round < 50; ++round) {
        Gate gone;
        auto* looper = new TestLooper([](TestLooper& self, BMessage*) { self.Quit(); });
        looper->TellWhenGone(gone);
        looper->Run();
        const BMessenger messenger(looper);
        std::vector<std::thread> quitters;
        for (int i = 0; i < 4; ++i) {
            quitters.emplace_back([messenger] {
                BLooper* target = nullptr;
                if (messenger.LockTarget()) {
                    messenger.Target(&target);
                    target->Quit();
                }
            });
        }
        messenger.SendMessage('quit');
        for (std::thread& quitter : quitters)
            quitter.join();
        EXPECT_TRUE(gone.Wait());
    }
}

TEST(LooperThreads, LoopersThatQuitEachOther) {
    // Each tells the next to quit, and so on.
    constexpr int kCount = 30;
    Gate gone[kCount];
    std::vector<BMessenger> messengers;
    std::vector<TestLooper*> loopers;
    for (int i = 0; i < kCount; ++i) {
        auto* looper = new TestLooper([&messengers, i](TestLooper& self, BMessage*) {
            if (i + 1 < kCount)
                messengers[size_t(i) + 1].SendMessage('quit');
            self.Quit();
        });
        looper->TellWhenGone(gone[i]);
        messengers.emplace_back(looper);
        loopers.push_back(looper);
    }
    for (TestLooper* looper : loopers)
        looper->Run();
    messengers[0].SendMessage('quit');
    for (Gate& gate : gone)
        EXPECT_TRUE(gate.Wait());
}

TEST(LooperThreads, RunnersOutliveTheirTargets) {
    for (int round = 0; round < 20; ++round) {
        std::atomic<int> received = 0;
        auto* looper = new TestLooper([&received](TestLooper&, BMessage*) { ++received; });
        looper->Run();
        BMessage message('tick');
        BMessageRunner first(BMessenger(looper), &message, 1000);
        BMessageRunner second(BMessenger(looper), &message, 1100);
        EXPECT_TRUE(eventually([&received] { return received >= 2; }));
        QuitLooper(looper);
        bigtime_t interval;
        int32 count;
        EXPECT_TRUE(eventually([&] { return first.GetInfo(&interval, &count) != B_OK; }));
        EXPECT_TRUE(eventually([&] { return second.GetInfo(&interval, &count) != B_OK; }));
    }
}

TEST(LooperThreads, HandlersComeAndGo) {
    std::atomic<int> received = 0;
    auto* looper = new TestLooper;
    looper->Run();
    for (int round = 0; round < 200; ++round) {
        auto handler = std::make_unique<TestHandler>([&received](BMessage*) { ++received; });
        ASSERT_TRUE(looper->Lock());
        looper->AddHandler(handler.get());
        looper->Unlock();
        const BMessenger messenger(handler.get());
        std::thread sender([messenger] {
            while (messenger.SendMessage('test') == B_OK)
                std::this_thread::yield();
        });
        EXPECT_TRUE(eventually([&, before = received.load()] { return received > before; }));
        ASSERT_TRUE(handler->LockLooper());
        handler.reset();
        looper->Unlock();
        sender.join();
    }
    QuitLooper(looper);
}
