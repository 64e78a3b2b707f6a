#include <app/Message.h>
#include <app/MessageQueue.h>
#include <app/MessageRunner.h>
#include <gtest/gtest.h>
#include <vector>

#include "tests/kits/app/Waiting.h"

namespace {

class MessageRunnerTest : public testing::Test {
protected:
    void TearDown() override { QuitLooper(fLooper); }

    static bool IsOver(const BMessageRunner& runner) {
        bigtime_t interval;
        int32 count;
        return runner.GetInfo(&interval, &count) != B_OK;
    }

    std::vector<bigtime_t> Times() const {
        const std::lock_guard guard(fTimesLock);
        return fTimes;
    }

    mutable std::mutex fTimesLock;
    std::vector<bigtime_t> fTimes;
    Journal fJournal;
    TestLooper* fLooper = [this] {
        auto* looper = new TestLooper([this](TestLooper&, BMessage* message) {
            {
                const std::lock_guard guard(fTimesLock);
                fTimes.push_back(system_time());
            }
            fJournal.Write(message->what);
        });
        looper->Run();
        return looper;
    }();
    BMessenger fTarget{fLooper};
    BMessage fMessage{uint32('tick')};
};

}  // namespace

TEST_F(MessageRunnerTest, SendsOnceAfterItsInterval) {
    const bigtime_t start = system_time();
    BMessageRunner runner(fTarget, &fMessage, 20000, 1);
    EXPECT_EQ(runner.InitCheck(), B_OK);
    ASSERT_TRUE(fJournal.WaitForCount(1));
    EXPECT_GE(Times()[0] - start, 20000);
    EXPECT_TRUE(IsOver(runner));
    EXPECT_EQ(runner.SetInterval(1000), B_BAD_VALUE);
    EXPECT_EQ(runner.SetCount(1), B_BAD_VALUE);
    EXPECT_EQ(fJournal.Commands().size(), 1U);
}

TEST_F(MessageRunnerTest, SendsAsOftenAsTold) {
    BMessageRunner runner(fTarget, &fMessage, 2000, 5);
    ASSERT_TRUE(eventually([&] { return IsOver(runner); }));
    ASSERT_TRUE(fJournal.WaitForCount(5));
    // A message to the looper now comes after all of them.
    fLooper->PostMessage('last');
    ASSERT_TRUE(fJournal.WaitForCount(6));
    EXPECT_EQ(fJournal.Commands().back(), uint32('last'));
}

TEST_F(MessageRunnerTest, KeepsItsRhythm) {
    const bigtime_t start = system_time();
    BMessageRunner runner(fTarget, &fMessage, 5000, 6);
    ASSERT_TRUE(fJournal.WaitForCount(6));
    const auto times = Times();
    for (size_t i = 0; i < times.size(); ++i)
        EXPECT_GE(times[i] - start, 5000 * bigtime_t(i + 1));
}

TEST_F(MessageRunnerTest, SendsForEverUntilDeleted) {
    {
        BMessageRunner runner(fTarget, &fMessage, 1000);
        bigtime_t interval = 0;
        int32 count = 0;
        EXPECT_EQ(runner.GetInfo(&interval, &count), B_OK);
        EXPECT_EQ(interval, 1000);
        EXPECT_EQ(count, -1);
        ASSERT_TRUE(fJournal.WaitForCount(10));
    }
    // One may be under way still, but none comes after twenty more of its intervals.
    const BMessage last('last');
    BMessageRunner other(fTarget, &last, 20000, 1);
    const auto isLast = [this] { return fJournal.Commands().back() == 'last'; };
    ASSERT_TRUE(eventually(isLast));
    const auto commands = fJournal.Commands();
    BMessageRunner again(fTarget, &last, 20000, 1);
    ASSERT_TRUE(fJournal.WaitForCount(commands.size() + 1));
    EXPECT_TRUE(isLast());
    EXPECT_EQ(fJournal.Commands().size(), commands.size() + 1);
}

TEST_F(MessageRunnerTest, CanBeChanged) {
    BMessageRunner runner(fTarget, &fMessage, 3600LL * 1000000, 3);
    EXPECT_EQ(runner.SetInterval(0), B_BAD_VALUE);
    EXPECT_EQ(runner.SetInterval(1000), B_OK);
    EXPECT_EQ(runner.SetCount(2), B_OK);
    ASSERT_TRUE(eventually([&] { return IsOver(runner); }));
    ASSERT_TRUE(fJournal.WaitForCount(2));

    BMessageRunner ended(fTarget, &fMessage, 3600LL * 1000000, 3);
    EXPECT_EQ(ended.SetCount(0), B_OK);
    EXPECT_TRUE(IsOver(ended));
}

TEST_F(MessageRunnerTest, RefusesWhatItCannotDo) {
    EXPECT_EQ(BMessageRunner(BMessenger(), &fMessage, 1000).InitCheck(), B_BAD_VALUE);
    EXPECT_EQ(BMessageRunner(fTarget, nullptr, 1000).InitCheck(), B_BAD_VALUE);
    EXPECT_EQ(BMessageRunner(fTarget, &fMessage, 0).InitCheck(), B_BAD_VALUE);
    EXPECT_EQ(BMessageRunner(fTarget, &fMessage, -5, 1).InitCheck(), B_BAD_VALUE);
    const BMessageRunner nothing(fTarget, &fMessage, 1000, 0);
    EXPECT_EQ(nothing.InitCheck(), B_OK);
    EXPECT_TRUE(IsOver(nothing));
    EXPECT_EQ(BMessageRunner(fTarget, &fMessage, INT64_MAX).InitCheck(), B_OK);
}

TEST_F(MessageRunnerTest, CopiesItsMessage) {
    auto message = std::make_unique<BMessage>('copy');
    BMessageRunner runner(fTarget, message.get(), 1000, 1);
    message.reset();
    ASSERT_TRUE(fJournal.WaitForCount(1));
    EXPECT_EQ(fJournal.Commands()[0], uint32('copy'));
}

TEST_F(MessageRunnerTest, RunsWithoutAnObject) {
    EXPECT_EQ(BMessageRunner::StartSending(fTarget, &fMessage, 1000, 3), B_OK);
    EXPECT_TRUE(fJournal.WaitForCount(3));
    EXPECT_EQ(BMessageRunner::StartSending(fTarget, nullptr, 1000, 3), B_BAD_VALUE);
}

// The queue of a target may be locked while its runner is deleted.
TEST_F(MessageRunnerTest, MayBeDeletedUnderTheLockOfItsTargetsQueue) {
    for (int i = 0; i < 50; ++i) {
        auto runner = std::make_unique<BMessageRunner>(fTarget, &fMessage, 1000);
        ASSERT_TRUE(fJournal.WaitForCount(fJournal.Commands().size() + 1));
        fLooper->MessageQueue()->Lock();
        runner.reset();
        fLooper->MessageQueue()->Unlock();
    }
}
