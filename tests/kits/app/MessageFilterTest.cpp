#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <app/MessageFilter.h>
#include <atomic>
#include <gtest/gtest.h>

#include "kits/app/MessageAccess.h"
#include "tests/kits/app/Waiting.h"

namespace {

/// A filter that does what the test says, and tells when it is deleted.
class TestFilter : public BMessageFilter {
public:
    using Hook = std::function<filter_result(BMessage*, BHandler**, TestFilter&)>;

    explicit TestFilter(Hook hook, std::atomic<int>* deleted = nullptr)
        : BMessageFilter(B_ANY_DELIVERY, B_ANY_SOURCE), fHook(std::move(hook)), fDeleted(deleted) {}
    TestFilter(message_delivery delivery, message_source source, uint32 command, Hook hook)
        : BMessageFilter(delivery, source, command), fHook(std::move(hook)) {}
    ~TestFilter() override {
        if (fDeleted != nullptr)
            ++*fDeleted;
    }
    filter_result Filter(BMessage* message, BHandler** target) override {
        return fHook(message, target, *this);
    }

private:
    Hook fHook;
    std::atomic<int>* fDeleted = nullptr;
};

/// A looper with a handler, both writing what they get, and everyone's filters.
class MessageFilterTest : public testing::Test {
protected:
    void TearDown() override {
        if (fLooper->LockingThread() == find_thread(nullptr))
            fLooper->RemoveHandler(&fHandler);
        else {
            fLooper->Lock();
            fLooper->RemoveHandler(&fHandler);
        }
        fLooper->Quit();
    }

    TestFilter::Hook Note(uint32 command, filter_result result = B_DISPATCH_MESSAGE) {
        return [this, command, result](BMessage*, BHandler**, TestFilter&) {
            fJournal.Write(command);
            return result;
        };
    }

    // Posts a message to the handler, runs the looper and returns all that was written.
    std::vector<uint32> Post(BMessage message) {
        fLooper->PostMessage(&message, &fHandler);
        fLooper->PostMessage('last');
        fLooper->Run();
        EXPECT_TRUE(eventually([this] {
            const auto commands = fJournal.Commands();
            return !commands.empty() && commands.back() == 'last';
        }));
        auto commands = fJournal.Commands();
        commands.pop_back();
        // Filters that see every message see the last one, too.
        return commands;
    }

    Journal fJournal;
    TestLooper* fLooper = new TestLooper([this](TestLooper&, BMessage* message) {
        fJournal.Write(message->what == 'last' ? message->what : uint32('lopr'));
    });
    TestHandler fHandler{[this](BMessage*) { fJournal.Write('hand'); }};

    void SetUp() override { fLooper->AddHandler(&fHandler); }

    TestFilter* For(uint32 command, TestFilter::Hook hook) {
        return new TestFilter(B_ANY_DELIVERY, B_ANY_SOURCE, command, std::move(hook));
    }
};

using Commands = std::vector<uint32>;

}  // namespace

TEST_F(MessageFilterTest, CommonFiltersComeFirstThenTheHandlers) {
    fHandler.AddFilter(For('test', Note('own1')));
    fLooper->AddCommonFilter(For('test', Note('com1')));
    fLooper->AddCommonFilter(For('test', Note('com2')));
    fLooper->AddCommonFilter(For('othr', Note('bad!')));
    EXPECT_EQ(Post(BMessage('test')), (Commands{'com1', 'com2', 'own1', 'hand'}));
}

TEST_F(MessageFilterTest, SkippedMessagesGoNowhere) {
    fLooper->AddCommonFilter(For('test', Note('skip', B_SKIP_MESSAGE)));
    fLooper->AddCommonFilter(For('test', Note('bad!')));
    EXPECT_EQ(Post(BMessage('test')), (Commands{'skip'}));
}

TEST_F(MessageFilterTest, FiltersMayChooseAnotherTarget) {
    fHandler.AddFilter(For('test', Note('bad!')));
    fLooper->AddFilter(For('test', Note('lopF')));
    fLooper->AddCommonFilter(For('test', [](BMessage*, BHandler** target, TestFilter& self) {
        *target = self.Looper();
        return B_DISPATCH_MESSAGE;
    }));
    EXPECT_EQ(Post(BMessage('test')), (Commands{'lopF', 'lopr'}));
}

TEST_F(MessageFilterTest, AHandlersFilterMayPassOn) {
    fHandler.AddFilter(For('test', [this](BMessage*, BHandler** target, TestFilter&) {
        *target = fLooper;
        return B_DISPATCH_MESSAGE;
    }));
    fLooper->AddFilter(For('test', Note('lopF')));
    EXPECT_EQ(Post(BMessage('test')), (Commands{'lopF', 'lopr'}));
}

TEST_F(MessageFilterTest, HandlersThatChooseEachOtherEnd) {
    fHandler.AddFilter(For('test', [this](BMessage*, BHandler** target, TestFilter&) {
        *target = fLooper;
        return B_DISPATCH_MESSAGE;
    }));
    fLooper->AddFilter(For('test', [this](BMessage*, BHandler** target, TestFilter&) {
        *target = &fHandler;
        return B_DISPATCH_MESSAGE;
    }));
    EXPECT_EQ(Post(BMessage('test')), (Commands{'hand'}));
}

TEST_F(MessageFilterTest, StrangersAndNobodyDropTheMessage) {
    static TestHandler stranger([](BMessage*) { FAIL(); });
    fLooper->AddCommonFilter(For('test', [](BMessage*, BHandler** target, TestFilter&) {
        *target = &stranger;
        return B_DISPATCH_MESSAGE;
    }));
    EXPECT_EQ(Post(BMessage('test')), (Commands{}));
}

TEST_F(MessageFilterTest, DeliveryAndSourceDecide) {
    const auto add = [this](message_delivery delivery, message_source source, uint32 note) {
        fLooper->AddCommonFilter(new TestFilter(delivery, source, 'test', Note(note)));
    };
    add(B_DROPPED_DELIVERY, B_ANY_SOURCE, 'drop');
    add(B_PROGRAMMED_DELIVERY, B_ANY_SOURCE, 'prog');
    add(B_ANY_DELIVERY, B_LOCAL_SOURCE, 'locl');
    add(B_ANY_DELIVERY, B_REMOTE_SOURCE, 'remt');
    BMessage message('test');
    message.AddPoint("_drop_point_", BPoint(1, 2));
    BPrivate::MessageAccess::SetSourceRemote(message);
    fLooper->PostMessage('test', &fHandler);
    EXPECT_EQ(Post(message), (Commands{'prog', 'locl', 'hand', 'drop', 'remt', 'hand'}));
}

TEST_F(MessageFilterTest, HookFunctionsAreAsked) {
    auto* filter =
        new BMessageFilter('test', [](BMessage* message, BHandler**, BMessageFilter* self) {
            EXPECT_EQ(self->Command(), message->what);
            return B_SKIP_MESSAGE;
        });
    EXPECT_FALSE(filter->FiltersAnyCommand());
    fLooper->AddCommonFilter(filter);
    EXPECT_EQ(Post(BMessage('test')), (Commands{}));
}

// A filter may send a marked copy of what it sees through the same filters, as one that tells a
// view of a change of language does.
TEST_F(MessageFilterTest, FiltersMayForward) {
    for (int i = 0; i < 2; ++i) {
        fLooper->AddCommonFilter(For('_BLC', [this](BMessage* message, BHandler**, TestFilter&) {
            if (!message->HasBool("LFSendFlag")) {
                BMessage copy(*message);
                copy.AddBool("LFSendFlag", true);
                BMessenger(&fHandler).SendMessage(&copy);
            }
            return B_DISPATCH_MESSAGE;
        }));
    }
    fLooper->PostMessage('_BLC');
    fLooper->Run();
    ASSERT_TRUE(fJournal.WaitForCount(3));
    EXPECT_EQ(fJournal.Commands(), (Commands{'lopr', 'hand', 'hand'}));
}

TEST_F(MessageFilterTest, AFilterMayRemoveItselfAndOthers) {
    std::atomic<int> deleted = 0;
    auto* victim = new TestFilter(Note('bad!'), &deleted);
    fLooper->AddCommonFilter(For('test', [&](BMessage*, BHandler**, TestFilter& self) {
        fLooper->RemoveCommonFilter(victim);
        delete victim;
        fLooper->RemoveCommonFilter(&self);
        fJournal.Write('once');
        EXPECT_EQ(self.Looper(), nullptr);
        // Deleted with the list again.
        fLooper->AddCommonFilter(&self);
        return B_DISPATCH_MESSAGE;
    }));
    fLooper->AddCommonFilter(victim);
    EXPECT_EQ(Post(BMessage('test')), (Commands{'once', 'hand'}));
    EXPECT_EQ(deleted, 1);
}

TEST(MessageFilterOwner, OwnsItsFilters) {
    std::atomic<int> deleted = 0;
    const auto pass = [](BMessage*, BHandler**, TestFilter&) { return B_DISPATCH_MESSAGE; };
    {
        TestLooper looper;
        TestHandler handler([](BMessage*) {});
        auto* first = new TestFilter(pass, &deleted);
        auto* second = new TestFilter(pass, &deleted);
        auto* third = new TestFilter(pass, &deleted);
        handler.AddFilter(first);
        looper.AddCommonFilter(first);  // it has a list already
        EXPECT_TRUE(looper.CommonFilterList().empty());
        EXPECT_EQ(first->Looper(), nullptr);
        looper.AddHandler(&handler);
        EXPECT_EQ(first->Looper(), &looper);

        looper.AddCommonFilter(second);
        EXPECT_EQ(second->Looper(), &looper);
        looper.SetCommonFilterList({third, second});
        EXPECT_EQ(deleted, 0);
        EXPECT_EQ(looper.CommonFilterList(), (std::vector<BMessageFilter*>{third, second}));
        looper.SetCommonFilterList({second});
        EXPECT_EQ(deleted, 1);
        EXPECT_FALSE(looper.RemoveCommonFilter(first));
        EXPECT_TRUE(handler.RemoveFilter(first));
        handler.SetFilterList({first});
        EXPECT_EQ(handler.FilterList().size(), 1U);
    }
    EXPECT_EQ(deleted, 3);
}
