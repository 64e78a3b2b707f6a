#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <app/MessageQueue.h>
#include <atomic>
#include <gtest/gtest.h>
#include <memory>

#include "tests/kits/app/Waiting.h"

TEST(Looper, IsLockedByItsMakerUntilItRuns) {
    auto* looper = new TestLooper;
    EXPECT_TRUE(looper->IsLocked());
    EXPECT_EQ(looper->LockingThread(), find_thread(nullptr));
    EXPECT_EQ(looper->Thread(), 0);
    const thread_id thread = looper->Run();
    EXPECT_GT(thread, 0);
    EXPECT_FALSE(looper->IsLocked());
    EXPECT_EQ(looper->Thread(), thread);
    EXPECT_EQ(BLooper::LooperForThread(thread), looper);
    EXPECT_EQ(looper->Run(), B_ALREADY_RUNNING);
    QuitLooper(looper);
    EXPECT_EQ(BLooper::LooperForThread(thread), nullptr);
}

TEST(Looper, GivesItsThreadItsNameAndPriority) {
    auto* looper = new BLooper("a name", B_DISPLAY_PRIORITY);
    const thread_id thread = looper->Run();
    thread_info info{};
    ASSERT_EQ(get_thread_info(thread, &info), B_OK);
    EXPECT_STREQ(info.name, "a name");
    EXPECT_EQ(info.priority, B_DISPLAY_PRIORITY);
    QuitLooper(looper);
}

TEST(Looper, DispatchesInOrder) {
    Journal journal;
    auto* looper = new TestLooper(
        [&journal](TestLooper&, BMessage* message) { journal.Write(message->what); });
    looper->Run();
    for (uint32 i = 1; i <= 1000; ++i)
        EXPECT_EQ(looper->PostMessage(i), B_OK);
    ASSERT_TRUE(journal.WaitForCount(1000));
    const auto commands = journal.Commands();
    for (uint32 i = 1; i <= 1000; ++i)
        EXPECT_EQ(commands[i - 1], i);
    QuitLooper(looper);
}

TEST(Looper, CopiesWhatIsPosted) {
    Gate received;
    std::string text;
    auto* looper = new TestLooper([&](TestLooper&, BMessage* message) {
        text = message->GetString("text", "");
        received.Open();
    });
    BMessage message('test');
    message.AddString("text", "as it was");
    EXPECT_EQ(looper->PostMessage(&message), B_OK);
    message.ReplaceString("text", "as it is");
    looper->Run();
    ASSERT_TRUE(received.Wait());
    EXPECT_EQ(text, "as it was");
    QuitLooper(looper);
}

TEST(Looper, PostsToItsHandlers) {
    Journal own, handlers;
    auto* looper = new TestLooper([&own](TestLooper&, BMessage* m) { own.Write(m->what); });
    TestHandler handler([&handlers](BMessage* m) { handlers.Write(m->what); });
    TestHandler stranger([](BMessage*) {});
    EXPECT_EQ(looper->PostMessage('none', &handler), B_BAD_HANDLER);
    looper->AddHandler(&handler);
    EXPECT_EQ(handler.Looper(), looper);
    EXPECT_EQ(handler.NextHandler(), looper);
    looper->SetPreferredHandler(&stranger);
    EXPECT_EQ(looper->PreferredHandler(), nullptr);
    auto* other = new TestLooper;
    other->AddHandler(&stranger);
    EXPECT_EQ(looper->PostMessage('none', &stranger), B_MISMATCHED_VALUES);
    EXPECT_EQ(looper->PostMessage(static_cast<BMessage*>(nullptr)), B_BAD_VALUE);
    other->Quit();
    EXPECT_EQ(stranger.Looper(), nullptr);

    EXPECT_EQ(looper->PostMessage('self'), B_OK);
    EXPECT_EQ(looper->PostMessage('hand', &handler), B_OK);
    EXPECT_EQ(looper->PostMessage('lopr', nullptr), B_OK);
    looper->SetPreferredHandler(&handler);
    EXPECT_EQ(looper->PostMessage('pref', nullptr), B_OK);
    looper->Run();
    ASSERT_TRUE(handlers.WaitForCount(3));
    EXPECT_EQ(handlers.Commands(), (std::vector<uint32>{'hand', 'lopr', 'pref'}));
    EXPECT_EQ(own.Commands(), (std::vector<uint32>{'self'}));
    QuitLooper(looper);
}

TEST(Looper, KnowsItsHandlers) {
    TestLooper looper;
    TestHandler first([](BMessage*) {}), second([](BMessage*) {});
    EXPECT_EQ(looper.CountHandlers(), 1);
    looper.AddHandler(&first);
    looper.AddHandler(&second);
    looper.AddHandler(&second);
    EXPECT_EQ(looper.CountHandlers(), 3);
    EXPECT_EQ(looper.HandlerAt(0), &looper);
    EXPECT_EQ(looper.HandlerAt(2), &second);
    EXPECT_EQ(looper.HandlerAt(3), nullptr);
    EXPECT_EQ(looper.HandlerAt(-1), nullptr);
    EXPECT_EQ(looper.IndexOf(&second), 2);
    second.SetNextHandler(&first);
    looper.SetPreferredHandler(&first);
    EXPECT_TRUE(looper.RemoveHandler(&first));
    EXPECT_FALSE(looper.RemoveHandler(&first));
    EXPECT_EQ(looper.PreferredHandler(), nullptr);
    EXPECT_EQ(second.NextHandler(), &looper);
    EXPECT_EQ(first.Looper(), nullptr);
    EXPECT_EQ(looper.IndexOf(&first), -1);
}

TEST(Looper, AHandlerThatGoesTakesItsMessagesAlong) {
    Journal journal;
    auto* looper = new TestLooper([&](TestLooper&, BMessage* m) { journal.Write(m->what); });
    auto handler = std::make_unique<TestHandler>([&](BMessage*) { journal.Write('bad!'); });
    looper->AddHandler(handler.get());
    looper->PostMessage('lost', handler.get());
    looper->PostMessage('kept');
    handler.reset();
    looper->Run();
    ASSERT_TRUE(journal.WaitForCount(1));
    EXPECT_EQ(journal.Commands(), (std::vector<uint32>{'kept'}));
    QuitLooper(looper);
}

TEST(Looper, QuitFromItsOwnThread) {
    Gate gone;
    auto* looper = new TestLooper([](TestLooper& self, BMessage*) {
        self.Quit();
        EXPECT_TRUE(self.IsLocked());  // still there
    });
    looper->TellWhenGone(gone);
    const thread_id thread = looper->Run();
    looper->PostMessage('quit');
    EXPECT_TRUE(gone.Wait());
    status_t result;
    wait_for_thread(thread, &result);
}

TEST(Looper, QuitFromAnotherThreadHandlesWhatWasQueued) {
    Journal journal;
    Gate gone, entered, leave;
    auto* looper = new TestLooper([&](TestLooper&, BMessage* message) {
        if (message->what == 'wait') {
            entered.Open();
            leave.Wait();
        }
        journal.Write(message->what);
    });
    looper->TellWhenGone(gone);
    looper->Run();
    looper->PostMessage('wait');
    ASSERT_TRUE(entered.Wait());
    looper->PostMessage('next');
    std::thread opener([&leave] { leave.Open(); });
    looper->Lock();
    looper->Lock();
    looper->Quit();
    opener.join();
    EXPECT_TRUE(gone.Wait());
    EXPECT_EQ(journal.Commands(), (std::vector<uint32>{'wait', 'next'}));
}

TEST(Looper, QuitNeverRun) {
    Gate gone;
    auto* looper = new TestLooper;
    looper->TellWhenGone(gone);
    looper->PostMessage('lost');
    looper->Quit();
    EXPECT_TRUE(gone.Wait());
}

TEST(Looper, QuitRequestedDecides) {
    class Stubborn : public TestLooper {
    public:
        Stubborn(std::atomic<int>& asked, Gate& gone) : fAsked(asked) { TellWhenGone(gone); }
        bool QuitRequested() override { return ++fAsked == 2; }

    private:
        std::atomic<int>& fAsked;
    };
    std::atomic<int> asked = 0;
    Gate gone;
    auto* looper = new Stubborn(asked, gone);
    looper->Run();
    const BMessenger messenger(looper);
    BMessage reply;
    ASSERT_EQ(messenger.SendMessage(B_QUIT_REQUESTED, &reply), B_OK);
    EXPECT_FALSE(reply.GetBool("result", true));
    ASSERT_EQ(messenger.SendMessage(B_QUIT_REQUESTED, &reply), B_OK);
    EXPECT_TRUE(reply.GetBool("result", false));
    EXPECT_TRUE(gone.Wait());
    EXPECT_EQ(asked, 2);
}

TEST(Looper, CurrentMessageIsForTheLocksHolder) {
    Gate entered, leave;
    auto* looper = new TestLooper([&](TestLooper& self, BMessage* message) {
        EXPECT_EQ(self.CurrentMessage(), message);
        entered.Open();
        leave.Wait();
    });
    looper->Run();
    looper->PostMessage('test');
    ASSERT_TRUE(entered.Wait());
    EXPECT_EQ(looper->CurrentMessage(), nullptr);
    leave.Open();
    looper->Lock();
    EXPECT_EQ(looper->CurrentMessage(), nullptr);
    looper->Quit();
}

TEST(Looper, DetachedMessagesAreTheCallers) {
    Gate received;
    std::unique_ptr<BMessage> detached;
    auto* looper = new TestLooper([&](TestLooper& self, BMessage*) {
        detached.reset(self.DetachCurrentMessage());
        EXPECT_EQ(self.CurrentMessage(), nullptr);
        received.Open();
    });
    looper->Run();
    looper->PostMessage('keep');
    ASSERT_TRUE(received.Wait());
    QuitLooper(looper);
    EXPECT_EQ(detached->what, uint32('keep'));
}

TEST(Looper, MayClearItsQueueWhileItDispatches) {
    Journal journal;
    Gate filled;
    auto* looper = new TestLooper([&](TestLooper& self, BMessage* message) {
        journal.Write(message->what);
        if (message->what != 'slow')
            return;
        filled.Wait();
        BMessageQueue* queue = self.MessageQueue();
        for (int32 i = queue->CountMessages() - 1; i >= 0; --i) {
            BMessage* queued = queue->FindMessage(i);
            if (queued->what == '_KYD' && queue->RemoveMessage(queued))
                delete queued;
        }
    });
    looper->Run();
    looper->PostMessage('slow');
    for (int i = 0; i < 50; ++i)
        looper->PostMessage(B_KEY_DOWN);
    looper->PostMessage('next');
    filled.Open();
    ASSERT_TRUE(journal.WaitForCount(2));
    EXPECT_EQ(journal.Commands(), (std::vector<uint32>{'slow', 'next'}));
    QuitLooper(looper);
}

TEST(Looper, LocksNestAndTimeOut) {
    TestLooper looper;
    EXPECT_TRUE(looper.Lock());
    EXPECT_EQ(looper.CountLocks(), 2);
    std::thread([&looper] {
        EXPECT_FALSE(looper.IsLocked());
        EXPECT_EQ(looper.LockWithTimeout(0), B_TIMED_OUT);
        EXPECT_EQ(looper.LockWithTimeout(1000), B_TIMED_OUT);
        looper.Unlock();  // changes nothing
    }).join();
    EXPECT_EQ(looper.CountLockRequests(), 0);
    looper.Unlock();
    EXPECT_TRUE(looper.IsLocked());
    looper.Unlock();
    EXPECT_FALSE(looper.IsLocked());
    EXPECT_EQ(looper.LockingThread(), -1);
    std::thread([&looper] {
        EXPECT_EQ(looper.LockWithTimeout(1000), B_OK);
        looper.Unlock();
    }).join();
}

// A looper that never runs out of messages still lets others in.
TEST(Looper, ABusyLooperCanBeLocked) {
    auto* looper = new TestLooper(
        [](TestLooper& self, BMessage* message) { self.PostMessage(message->what); });
    looper->Run();
    looper->PostMessage('more');
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(looper->Lock());
        looper->Unlock();
    }
    QuitLooper(looper);
}

// Two loopers that want each other's locks get through by giving up and trying again.
TEST(Looper, TwoLoopersLockEachOther) {
    std::atomic<int> successes = 0;
    TestLooper* loopers[2];
    const auto lockOther = [&](TestLooper& self, BMessage*) {
        TestLooper* other = loopers[&self == loopers[0] ? 1 : 0];
        if (other->LockWithTimeout(500) == B_OK) {
            ++successes;
            other->Unlock();
        } else
            self.PostMessage('lock');
    };
    loopers[0] = new TestLooper(lockOther);
    loopers[1] = new TestLooper(lockOther);
    for (TestLooper* looper : loopers) {
        for (int i = 0; i < 20; ++i)
            looper->PostMessage('lock');
    }
    loopers[0]->Run();
    loopers[1]->Run();
    EXPECT_TRUE(eventually([&] { return successes >= 40; }));
    // One may still be trying to lock the other; both are free again before either goes.
    for (TestLooper* looper : loopers) {
        looper->Lock();
        looper->Unlock();
    }
    QuitLooper(loopers[0]);
    QuitLooper(loopers[1]);
}

TEST(Looper, HooksRunAroundEveryMessage) {
    class Hooked : public TestLooper {
    public:
        Hooked(Journal& journal, Gate& gone)
            : TestLooper([&journal](TestLooper&, BMessage* m) { journal.Write(m->what); }),
              fJournal(journal) {
            TellWhenGone(gone);
        }

    protected:
        BHandler* DetermineTarget(BMessage* message, BHandler* target) override {
            EXPECT_TRUE(IsLocked());
            return message->what == 'drop' ? nullptr : target;
        }
        void MessageDispatched() override {
            EXPECT_TRUE(IsLocked());
            fJournal.Write('done');
        }
        void LoopEnded() override {
            EXPECT_FALSE(IsLocked());
            fJournal.Write('end ');
        }

    private:
        Journal& fJournal;
    };
    Journal journal;
    Gate gone;
    auto* looper = new Hooked(journal, gone);
    looper->PostMessage('drop');
    looper->PostMessage('pass');
    looper->Run();
    QuitLooper(looper);
    EXPECT_TRUE(gone.Wait());
    EXPECT_EQ(journal.Commands(), (std::vector<uint32>{'done', 'pass', 'done', 'end '}));
}
