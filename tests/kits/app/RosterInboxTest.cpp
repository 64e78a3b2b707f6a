// The broadcasts of other processes that an application has not got to yet.

#include <app/Looper.h>
#include <app/Message.h>
#include <app/MessageQueue.h>
#include <gtest/gtest.h>
#include <string>

#include "kits/app/RosterInbox.h"
#include "tests/kits/app/Waiting.h"

using BPrivate::RosterInbox;

namespace {

/// The target does nothing until it is let go, and writes down whose messages it gets.
class RosterInboxTest : public testing::Test {
protected:
    void SetUp() override {
        fLooper = new TestLooper([this](TestLooper&, BMessage* message) {
            if (message->what == 'wait') {
                fBegun.Open();
                EXPECT_TRUE(fGo.Wait());
                return;
            }
            EXPECT_TRUE(message->IsSourceRemote());
            fJournal.Write(message->what);
        });
        fLooper->Run();
        fInbox.SetTarget(BMessenger(fLooper));
        EXPECT_EQ(BMessenger(fLooper).SendMessage('wait'), B_OK);
        EXPECT_TRUE(fBegun.Wait());
    }
    void TearDown() override {
        fGo.Open();
        fInbox.SetTarget({});
        QuitLooper(fLooper);
        EXPECT_TRUE(eventually([this] { return fInbox.Waiting().messages == 0; }));
    }

    void Add(const std::string& sender, uint32 what, size_t size = 100) {
        fInbox.Add(sender, BMessage(what), size);
    }

    RosterInbox& fInbox = RosterInbox::Get();
    TestLooper* fLooper = nullptr;
    Gate fBegun, fGo;
    Journal fJournal;
};

constexpr uint32 kQueued = RosterInbox::kMostQueued.messages;
constexpr uint32 kWaiting = RosterInbox::kMostWaiting.messages;

}  // namespace

TEST_F(RosterInboxTest, PutsOnlySomeIntoTheQueueAndKeepsTheOrder) {
    for (uint32 i = 0; i < 500; ++i)
        Add(":1.1", i);
    EXPECT_EQ(fLooper->MessageQueue()->CountMessages(), int32(kQueued));
    EXPECT_EQ(fInbox.Waiting().messages, 500U);
    fGo.Open();
    ASSERT_TRUE(fJournal.WaitForCount(500));
    for (uint32 i = 0; i < 500; ++i)
        EXPECT_EQ(fJournal.Commands()[i], i);
}

TEST_F(RosterInboxTest, DropsTheOldestOfWhoSendsMost) {
    for (uint32 i = 0; i < kQueued; ++i)
        Add(":1.1", 1);
    Add(":1.2", 'quie');
    for (uint32 i = 0; i < 5000; ++i)
        Add(":1.1", 10 + i);
    Add(":1.2", 'last');
    EXPECT_EQ(fInbox.Waiting().messages, kQueued + kWaiting);
    fGo.Open();
    ASSERT_TRUE(fJournal.WaitForCount(kQueued + kWaiting));
    const std::vector<uint32> commands = fJournal.Commands();
    EXPECT_EQ(commands[kQueued], uint32('quie'));
    EXPECT_EQ(commands.back(), uint32('last'));
    // The latest of the other.
    EXPECT_EQ(commands[commands.size() - 2], 10U + 4999);
    EXPECT_EQ(commands[kQueued + 1], 10U + 5000 - (kWaiting - 2));
}

TEST_F(RosterInboxTest, CountsBytesAsWell) {
    constexpr size_t kLarge = 8 << 20;
    for (uint32 i = 0; i < 20; ++i)
        Add(":1.1", i, kLarge);
    // One is in the queue, and four wait.
    EXPECT_EQ(fLooper->MessageQueue()->CountMessages(), 1);
    EXPECT_EQ(fInbox.Waiting().messages, 5U);
    EXPECT_EQ(fInbox.Waiting().bytes, 5 * kLarge);
    fGo.Open();
    ASSERT_TRUE(fJournal.WaitForCount(5));
    EXPECT_EQ(fJournal.Commands(), (std::vector<uint32>{0, 16, 17, 18, 19}));
}

TEST_F(RosterInboxTest, ATargetThatGoesTakesThemWithIt) {
    for (uint32 i = 0; i < 500; ++i)
        Add(":1.1", i);
    fGo.Open();
    QuitLooper(fLooper);
    EXPECT_TRUE(eventually([this] { return fInbox.Waiting().messages == 0; }));
    Add(":1.1", 1);
    EXPECT_EQ(fInbox.Waiting().messages, 0U);
    fLooper = new TestLooper;
    fLooper->Run();
}
