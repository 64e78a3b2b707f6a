#include <app/AppDefs.h>
#include <app/Invoker.h>
#include <app/Message.h>
#include <app/MessageQueue.h>
#include <app/Messenger.h>
#include <gtest/gtest.h>
#include <memory>

#include "kits/app/MessageAccess.h"
#include "tests/kits/app/Waiting.h"

TEST(Messenger, NothingIsNoTarget) {
    const BMessenger nothing;
    EXPECT_FALSE(nothing.IsValid());
    EXPECT_FALSE(nothing.LockTarget());
    EXPECT_EQ(nothing.SendMessage('test'), B_BAD_PORT_ID);
    BMessage reply;
    EXPECT_EQ(nothing.SendMessage('test', &reply), B_BAD_PORT_ID);
    BLooper* looper = nullptr;
    EXPECT_EQ(nothing.Target(&looper), nullptr);
    EXPECT_EQ(looper, nullptr);
    status_t status = B_OK;
    const BMessenger null(static_cast<BHandler*>(nullptr), nullptr, &status);
    EXPECT_EQ(status, B_BAD_VALUE);
    EXPECT_EQ(null, nothing);
    const BMessenger unknown("application/x-vnd.Nobody-Nothing", -1, &status);
    EXPECT_EQ(status, B_NAME_NOT_FOUND);
    EXPECT_FALSE(unknown.IsValid());
}

TEST(Messenger, NamesItsTarget) {
    TestHandler handler([](BMessage*) {});
    status_t status = B_OK;
    EXPECT_FALSE(BMessenger(&handler, nullptr, &status).IsValid());
    EXPECT_EQ(status, B_BAD_HANDLER);

    auto looper = std::make_unique<TestLooper>();
    TestLooper other;
    looper->AddHandler(&handler);
    EXPECT_FALSE(BMessenger(&handler, &other, &status).IsValid());
    EXPECT_EQ(status, B_MISMATCHED_VALUES);
    const BMessenger messenger(&handler, nullptr, &status);
    EXPECT_EQ(status, B_OK);
    EXPECT_TRUE(messenger.IsValid());
    EXPECT_TRUE(messenger.IsTargetLocal());
    BLooper* found = nullptr;
    EXPECT_EQ(messenger.Target(&found), &handler);
    EXPECT_EQ(found, looper.get());

    EXPECT_EQ(messenger, BMessenger(&handler, looper.get()));
    EXPECT_NE(messenger, BMessenger(looper.get()));
    EXPECT_NE(BMessenger(looper.get()), BMessenger(nullptr, looper.get()));

    EXPECT_TRUE(messenger.LockTarget());
    EXPECT_EQ(looper->CountLocks(), 2);
    looper->Unlock();
    looper.reset();
    EXPECT_FALSE(messenger.IsValid());
    EXPECT_FALSE(messenger.LockTarget());
    EXPECT_EQ(messenger.SendMessage('test'), B_BAD_PORT_ID);
}

TEST(Messenger, GetsAnAnswer) {
    auto* looper = new TestLooper([](TestLooper&, BMessage* message) {
        EXPECT_TRUE(message->WasDelivered());
        EXPECT_TRUE(message->IsSourceWaiting());
        BMessage reply('answ');
        reply.AddInt32("number", message->GetInt32("number", 0) + 1);
        EXPECT_EQ(message->SendReply(&reply), B_OK);
        EXPECT_FALSE(message->IsSourceWaiting());
        EXPECT_EQ(message->SendReply(&reply), B_DUPLICATE_REPLY);
    });
    looper->Run();
    BMessage message('ask?');
    message.AddInt32("number", 41);
    BMessage reply;
    EXPECT_EQ(BMessenger(looper).SendMessage(&message, &reply), B_OK);
    EXPECT_EQ(reply.what, uint32('answ'));
    EXPECT_EQ(reply.GetInt32("number", 0), 42);
    EXPECT_TRUE(reply.IsReply());
    QuitLooper(looper);
}

TEST(Messenger, GetsAnAnswerInAnyCase) {
    std::unique_ptr<BMessage> kept;
    Gate isKept;
    auto* looper = new TestLooper([&](TestLooper& self, BMessage* message) {
        switch (message->what) {
        case 'frgt': break;
        case 'copy': {
            const BMessage copy(*message);  // its end is not the end of the message
            EXPECT_FALSE(copy.IsSourceWaiting());
            message->SendReply('orig');
            break;
        }
        case 'keep':
            kept.reset(self.DetachCurrentMessage());
            isKept.Open();
            break;
        default: self.BLooper::MessageReceived(message); break;
        }
    });
    looper->Run();
    const BMessenger messenger(looper);
    BMessage reply;
    EXPECT_EQ(messenger.SendMessage('frgt', &reply), B_OK);
    EXPECT_EQ(reply.what, uint32(B_NO_REPLY));
    EXPECT_EQ(messenger.SendMessage('copy', &reply), B_OK);
    EXPECT_EQ(reply.what, uint32('orig'));
    EXPECT_EQ(messenger.SendMessage('what', &reply), B_OK);
    EXPECT_EQ(reply.what, uint32(B_MESSAGE_NOT_UNDERSTOOD));
    std::thread answerer([&] {
        ASSERT_TRUE(isKept.Wait());
        kept->SendReply('late');
    });
    EXPECT_EQ(messenger.SendMessage('keep', &reply), B_OK);
    EXPECT_EQ(reply.what, uint32('late'));
    answerer.join();
    QuitLooper(looper);
}

TEST(Messenger, DoesNotWaitForEver) {
    Gate leave;
    auto* looper = new TestLooper([&leave](TestLooper&, BMessage* message) {
        leave.Wait();
        EXPECT_EQ(message->SendReply('late'), B_BAD_PORT_ID);
    });
    looper->Run();
    BMessage message('ask?'), reply('none');
    EXPECT_EQ(
        BMessenger(looper).SendMessage(&message, &reply, B_INFINITE_TIMEOUT, 1000), B_TIMED_OUT);
    EXPECT_EQ(reply.what, uint32('none'));
    leave.Open();
    QuitLooper(looper);
}

TEST(Messenger, ALooperThatGoesAnswers) {
    Gate entered;
    auto* looper = new TestLooper([&](TestLooper& self, BMessage* message) {
        if (message->what != 'quit')
            return;
        entered.Open();
        eventually([&self] { return self.CountLockRequests() > 0; });
        self.Quit();
    });
    looper->Run();
    const BMessenger messenger(looper);
    messenger.SendMessage('quit');
    ASSERT_TRUE(entered.Wait());
    std::thread asker([messenger] {
        BMessage reply;
        EXPECT_EQ(messenger.SendMessage('ask?', &reply), B_OK);
        EXPECT_EQ(reply.what, uint32(B_NO_REPLY));
    });
    ASSERT_TRUE(eventually([&] { return !looper->MessageQueue()->IsEmpty(); }));
    // Wants the lock, so that the looper goes on; gets it or not.
    if (messenger.LockTarget())
        looper->Unlock();
    asker.join();
}

TEST(Messenger, ALooperCannotWaitForItself) {
    Gate done;
    auto* looper = new TestLooper([&](TestLooper& self, BMessage*) {
        BMessage reply;
        EXPECT_EQ(BMessenger(&self).SendMessage('self', &reply), B_MESSAGE_TO_SELF);
        done.Open();
    });
    looper->Run();
    looper->PostMessage('test');
    EXPECT_TRUE(done.Wait());
    QuitLooper(looper);
}

TEST(Messenger, RepliesGoToWhoWasNamed) {
    Journal journal;
    auto* asker = new TestLooper([&journal](TestLooper&, BMessage* message) {
        EXPECT_TRUE(message->IsReply());
        journal.Write(message->what);
    });
    TestHandler handler([&journal](BMessage* message) { journal.Write(message->what + 1); });
    asker->AddHandler(&handler);
    asker->Run();
    auto* looper = new TestLooper([](TestLooper&, BMessage* message) {
        EXPECT_FALSE(message->IsSourceWaiting());
        EXPECT_TRUE(message->ReturnAddress().IsValid());
        EXPECT_EQ(message->SendReply(100), B_OK);
        EXPECT_EQ(message->SendReply(100), B_OK);
    });
    looper->Run();
    BMessage message('ask?');
    EXPECT_EQ(BMessenger(looper).SendMessage(&message, asker), B_OK);
    EXPECT_TRUE(journal.WaitForCount(2));
    EXPECT_EQ(BMessenger(looper).SendMessage(&message, BMessenger(&handler)), B_OK);
    EXPECT_TRUE(journal.WaitForCount(4));
    EXPECT_EQ(journal.Commands(), (std::vector<uint32>{100, 100, 101, 101}));
    QuitLooper(looper);
    asker->Lock();
    asker->RemoveHandler(&handler);
    asker->Quit();
}

TEST(Messenger, PassingOnKeepsWhereAMessageCameFrom) {
    Gate received;
    bool remote = false;
    auto* second = new TestLooper([&](TestLooper&, BMessage* message) {
        remote = message->IsSourceRemote();
        received.Open();
    });
    second->Run();
    auto* first = new TestLooper([second](TestLooper&, BMessage* message) {
        EXPECT_EQ(BMessenger(second).SendMessage(message), B_OK);
    });
    first->Run();
    BMessage message(B_REFS_RECEIVED);
    BPrivate::MessageAccess::SetSourceRemote(message);
    first->PostMessage(&message);
    ASSERT_TRUE(received.Wait());
    EXPECT_TRUE(remote);
    QuitLooper(first);
    QuitLooper(second);
}

TEST(Invoker, SendsItsMessage) {
    Journal journal;
    auto* looper = new TestLooper([&](TestLooper&, BMessage* m) { journal.Write(m->what); });
    looper->Run();
    BInvoker invoker(new BMessage('own '), looper);
    EXPECT_EQ(invoker.Command(), uint32('own '));
    EXPECT_EQ(invoker.Invoke(), B_OK);
    BMessage other('othr');
    EXPECT_EQ(invoker.Invoke(&other), B_OK);
    EXPECT_TRUE(journal.WaitForCount(2));
    EXPECT_EQ(journal.Commands(), (std::vector<uint32>{'own ', 'othr'}));
    invoker.SetMessage(invoker.Message());  // no double delete
    EXPECT_EQ(invoker.Command(), uint32('own '));
    invoker.SetMessage(nullptr);
    EXPECT_EQ(invoker.Command(), 0U);
    EXPECT_EQ(invoker.Invoke(), B_BAD_VALUE);
    BLooper* found = nullptr;
    EXPECT_EQ(invoker.Target(&found), looper);
    EXPECT_EQ(found, looper);
    QuitLooper(looper);
    EXPECT_EQ(invoker.Invoke(&other), B_BAD_PORT_ID);
    EXPECT_EQ(invoker.SetTarget(static_cast<BHandler*>(nullptr)), B_OK);
    EXPECT_FALSE(invoker.Messenger().IsValid());
}

TEST(Invoker, NamesWhoGetsTheReply) {
    Journal journal;
    auto* asker = new TestLooper([&](TestLooper&, BMessage* m) { journal.Write(m->what); });
    asker->Run();
    auto* looper =
        new TestLooper([](TestLooper&, BMessage* message) { message->SendReply('rply'); });
    looper->Run();
    BInvoker invoker(new BMessage('ask?'), BMessenger(looper));
    invoker.SetHandlerForReply(asker);
    EXPECT_EQ(invoker.Invoke(), B_OK);
    EXPECT_TRUE(journal.WaitForCount(1));
    QuitLooper(looper);
    QuitLooper(asker);
}
