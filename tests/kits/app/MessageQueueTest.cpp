#include <app/Message.h>
#include <app/MessageQueue.h>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

TEST(MessageQueue, GivesMessagesInOrder) {
    BMessageQueue queue;
    EXPECT_TRUE(queue.IsEmpty());
    EXPECT_EQ(queue.NextMessage(), nullptr);
    auto* first = new BMessage('frst');
    auto* second = new BMessage('scnd');
    queue.AddMessage(first);
    queue.AddMessage(second);
    EXPECT_EQ(queue.CountMessages(), 2);
    EXPECT_TRUE(queue.IsNextMessage(first));
    EXPECT_FALSE(queue.IsNextMessage(second));
    const std::unique_ptr<BMessage> taken(queue.NextMessage());
    EXPECT_EQ(taken.get(), first);
    EXPECT_EQ(queue.CountMessages(), 1);
}

TEST(MessageQueue, FindsByIndexAndCommand) {
    BMessageQueue queue;
    BMessage* messages[] = {new BMessage('aaaa'), new BMessage('bbbb'), new BMessage('aaaa')};
    for (BMessage* message : messages)
        queue.AddMessage(message);
    EXPECT_EQ(queue.FindMessage(int32(1)), messages[1]);
    EXPECT_EQ(queue.FindMessage(int32(3)), nullptr);
    EXPECT_EQ(queue.FindMessage(int32(-1)), nullptr);
    EXPECT_EQ(queue.FindMessage(uint32('aaaa'), 0), messages[0]);
    EXPECT_EQ(queue.FindMessage(uint32('aaaa'), 1), messages[2]);
    EXPECT_EQ(queue.FindMessage(uint32('aaaa'), 2), nullptr);
}

TEST(MessageQueue, GivesBackWhatIsRemoved) {
    BMessageQueue queue;
    const auto kept = std::make_unique<BMessage>('kept');
    auto removed = std::make_unique<BMessage>('rmvd');
    queue.AddMessage(removed.get());
    queue.AddMessage(new BMessage('last'));
    EXPECT_FALSE(queue.RemoveMessage(kept.get()));
    EXPECT_TRUE(queue.RemoveMessage(removed.get()));
    EXPECT_FALSE(queue.RemoveMessage(removed.get()));
    EXPECT_EQ(removed->what, uint32('rmvd'));
    EXPECT_EQ(queue.CountMessages(), 1);
}

// A reader that scans a locked queue from its end, while others add and take.
TEST(MessageQueue, MayBeScannedWhileOthersUseIt) {
    constexpr int kCount = 5000;
    BMessageQueue queue;
    std::thread writer([&queue] {
        for (int i = 0; i < kCount; ++i)
            queue.AddMessage(new BMessage(i % 2 == 0 ? 'even' : 'odd '));
    });
    int taken = 0;
    std::thread taker([&queue, &taken] {
        while (taken < kCount / 4) {
            const std::unique_ptr<BMessage> message(queue.NextMessage());
            taken += message != nullptr ? 1 : 0;
        }
    });
    int removed = 0;
    for (int round = 0; round < 50; ++round) {
        queue.Lock();
        for (int32 i = queue.CountMessages() - 1; i >= 0 && removed < kCount / 4; --i) {
            BMessage* message = queue.FindMessage(i);
            if (message->what == 'odd ' && queue.RemoveMessage(message)) {
                delete message;
                ++removed;
            }
        }
        queue.Unlock();
    }
    writer.join();
    taker.join();
    EXPECT_EQ(queue.CountMessages(), kCount - taken - removed);
}
