#include <app/Looper.h>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

#include "iap/IAPItemAccKeyFormat.h"
#include "iap/InterAppPrefs.h"
#include "tests/Eventually.h"
#include "tests/iap/TestItem.h"

namespace {

using Entries = std::vector<std::string>;

/// A looper with the handlers of some names, which write down each change they hear of. They share
/// one queue, so they are written down in the order in which they were sent to.
class TObservers {
public:
    using Reaction = std::function<void(const BMessage&)>;

    explicit TObservers(const std::vector<std::string>& names, Reaction reaction = {})
        : fLooper(new TLooper) {
        for (const std::string& name : names) {
            fLooper->fHandlers.push_back(std::make_unique<THandler>(name, &fLog, reaction));
            fLooper->AddHandler(fLooper->fHandlers.back().get());
            fMessengers.emplace_back(fLooper->fHandlers.back().get());
        }
        fLooper->Run();
    }
    ~TObservers() { Quit(); }
    TObservers(const TObservers&) = delete;
    TObservers& operator=(const TObservers&) = delete;

    const TLog& Log() const { return fLog; }
    const BMessenger& At(size_t index) const { return fMessengers[index]; }
    /// Nothing is dispatched from here on until Unlock().
    bool Lock() const { return fLooper->Lock(); }
    void Unlock() const { fLooper->Unlock(); }
    void Quit() {
        if (fLooper != nullptr && fLooper->Lock())
            fLooper->Quit();
        fLooper = nullptr;
    }
    /// Deletes one handler; its messenger leads nowhere then.
    void Delete(size_t index) {
        ASSERT_TRUE(Lock());
        fLooper->RemoveHandler(fLooper->fHandlers[index].get());
        fLooper->fHandlers[index].reset();
        Unlock();
    }

private:
    struct THandler : BHandler {
        THandler(const std::string& name, TLog* log, Reaction reaction)
            : BHandler(name.c_str()), fLog(log), fReaction(std::move(reaction)) {}
        void MessageReceived(BMessage* message) override {
            if (fReaction)
                fReaction(*message);
            fLog->Add(std::string(Name()) + " " + message->GetString("tag", "?"));
        }
        TLog* fLog;
        Reaction fReaction;
    };
    struct TLooper : BLooper {
        ~TLooper() override {
            for (const auto& handler : fHandlers) {
                if (handler != nullptr)
                    RemoveHandler(handler.get());
            }
        }
        std::vector<std::unique_ptr<BHandler>> fHandlers;
    };

    TLog fLog;
    TLooper* fLooper;  // ends by Quit() only
    std::vector<BMessenger> fMessengers;
};

class ObserversTest : public testing::Test {
protected:
    ObserversTest() { (void)fStore.AddItem(new TTestItem("Item")); }

    TInterAppPrefs fStore;
};

TEST_F(ObserversTest, HearOfAChangeInTheOrderTheyWereAdded) {
    const TObservers observers({"a", "b", "c"});
    for (const size_t index : {2U, 0U, 1U})
        EXPECT_EQ(fStore.AddObserver(observers.At(index)), B_OK);
    EXPECT_EQ(fStore.SetValue(change_of("Item", "1")), B_OK);
    EXPECT_EQ(fStore.SetValue(change_of("Item", "2")), B_OK);
    EXPECT_EQ(observers.Log().WaitFor(6), (Entries{"c 1", "a 1", "b 1", "c 2", "a 2", "b 2"}));
}

TEST_F(ObserversTest, HearOfAChangeAsOftenAsTheyWereAdded) {
    const TObservers observers({"a", "b"});
    for (const size_t index : {0U, 1U, 0U})
        EXPECT_EQ(fStore.AddObserver(observers.At(index)), B_OK);
    EXPECT_EQ(fStore.SetValue(change_of("Item", "1")), B_OK);
    EXPECT_EQ(observers.Log().WaitFor(3), (Entries{"a 1", "b 1", "a 1"}));
}

TEST_F(ObserversTest, GetTheWholeMessage) {
    BMessage expected = change_of("Item");
    expected.AddBool("flag", true);
    expected.AddMessage("nested", &expected);
    const TObservers observers({"a"}, [&expected](const BMessage& heard) {
        EXPECT_EQ(heard.what, expected.what);
        std::string a(static_cast<size_t>(heard.FlattenedSize()), '\0');
        std::string b(static_cast<size_t>(expected.FlattenedSize()), '\0');
        EXPECT_EQ(heard.Flatten(a.data(), static_cast<ssize_t>(a.size())), B_OK);
        EXPECT_EQ(expected.Flatten(b.data(), static_cast<ssize_t>(b.size())), B_OK);
        EXPECT_EQ(a, b);
    });
    (void)fStore.AddObserver(observers.At(0));
    EXPECT_EQ(fStore.SetValue(expected), B_OK);
    observers.Log().WaitFor(1);
}

TEST_F(ObserversTest, ThatAreGoneArePassedOver) {
    TObservers gone({"gone"});
    TObservers observers({"a", "deleted", "b"});
    (void)fStore.AddObserver(gone.At(0));
    (void)fStore.AddObserver(observers.At(0));
    (void)fStore.AddObserver(BMessenger());
    (void)fStore.AddObserver(observers.At(1));
    (void)fStore.AddObserver(observers.At(2));
    gone.Quit();
    observers.Delete(1);
    EXPECT_EQ(fStore.SetValue(change_of("Item", "1")), B_OK);
    EXPECT_EQ(fStore.NotifyToObservers(change_of("Item", "2")), B_OK);
    EXPECT_EQ(observers.Log().WaitFor(4), (Entries{"a 1", "b 1", "a 2", "b 2"}));
    EXPECT_TRUE(gone.Log().Entries().empty());
}

TEST_F(ObserversTest, HearNothingOfAChangeThatFailed) {
    const TObservers observers({"a"});
    (void)fStore.AddObserver(observers.At(0));

    EXPECT_EQ(fStore.SetValue(change_of("Unknown")), -1);
    BMessage nameless = change_of("Item");
    nameless.RemoveName("IAP:SrcIAPItem");
    EXPECT_EQ(fStore.SetValue(nameless), -1);
    nameless.AddInt32("IAP:SrcIAPItem", 1);
    EXPECT_EQ(fStore.SetValue(nameless), -1);
    for (const int32 answer : {int32{B_NO_MEMORY}, -1, 1}) {
        BMessage refused = change_of("Item");
        refused.AddInt32("answer", answer);
        EXPECT_EQ(fStore.SetValue(refused), answer);
    }

    EXPECT_EQ(fStore.SetValue(change_of("Item", "the only one")), B_OK);
    EXPECT_EQ(observers.Log().WaitFor(1), Entries{"a the only one"});
}

TEST_F(ObserversTest, HearNothingOfAnItemThatIsSetBySomeoneElse) {
    const TObservers observers({"a"});
    (void)fStore.AddObserver(observers.At(0));
    EXPECT_EQ(fStore.SetString("Item", "text"), B_OK);
    EXPECT_EQ(fStore.SetBool("Item", true), B_OK);
    EXPECT_EQ(fStore.SetValue(change_of("Item", "the only one")), B_OK);
    EXPECT_EQ(observers.Log().WaitFor(1), Entries{"a the only one"});
}

TEST_F(ObserversTest, MayBeBusyForAsLongAsTheyLike) {
    const TObservers observers({"a", "b"});
    (void)fStore.AddObserver(observers.At(0));
    (void)fStore.AddObserver(observers.At(1));
    // Far more than any queue of a fixed size would take, and none of them is taken out.
    constexpr size_t kChanges = 2000;
    ASSERT_TRUE(observers.Lock());
    for (size_t i = 0; i < kChanges; i++)
        EXPECT_EQ(fStore.SetValue(change_of("Item")), B_OK);
    EXPECT_TRUE(observers.Log().Entries().empty());
    observers.Unlock();
    EXPECT_EQ(observers.Log().WaitFor(2 * kChanges).size(), 2 * kChanges);
}

TEST_F(ObserversTest, MayChangeTheStoreThatTellsThem) {
    // Each change makes a smaller one, told to the very handler that makes it.
    const TObservers observers({"a"}, [this](const BMessage& heard) {
        const int32 left = heard.GetInt32("left", 0);
        if (left == 0)
            return;
        BMessage next = change_of("Item", std::to_string(left - 1).c_str());
        next.AddInt32("left", left - 1);
        EXPECT_EQ(fStore.SetValue(next), B_OK);
        std::string text;
        EXPECT_EQ(fStore.GetString("Item", &text), B_OK);
    });
    (void)fStore.AddObserver(observers.At(0));
    BMessage change = change_of("Item", "3");
    change.AddInt32("left", 3);
    EXPECT_EQ(fStore.SetValue(change), B_OK);
    EXPECT_EQ(observers.Log().WaitFor(4), (Entries{"a 3", "a 2", "a 1", "a 0"}));
}

TEST_F(ObserversTest, MayTellOneAnother) {
    // Two loopers, each changing the item when the other has: neither waits for the other.
    TInterAppPrefs stores[2];
    const auto reply = [&stores](size_t other) {
        return [&stores, other](const BMessage& heard) {
            const int32 left = heard.GetInt32("left", 0);
            BMessage next = change_of("Item");
            next.AddInt32("left", left - 1);
            if (left > 0)
                (void)stores[other].SetValue(next);
        };
    };
    const TObservers first({"first"}, reply(1));
    const TObservers second({"second"}, reply(0));
    (void)stores[0].AddItem(new TTestItem("Item"));
    (void)stores[1].AddItem(new TTestItem("Item"));
    (void)stores[0].AddObserver(first.At(0));
    (void)stores[1].AddObserver(second.At(0));
    BMessage change = change_of("Item");
    change.AddInt32("left", 99);
    EXPECT_EQ(stores[0].SetValue(change), B_OK);
    EXPECT_EQ(stores[1].SetValue(change), B_OK);
    EXPECT_EQ(first.Log().WaitFor(100).size(), 100U);
    EXPECT_EQ(second.Log().WaitFor(100).size(), 100U);
}

TEST(InterAppPrefsThreads, ReadWhileAnotherThreadSets) {
    const TSharedFiles files;
    TInterAppPrefs store;
    (void)store.AddItem(new TIAPItemAccKeyFormat);
    const std::string formats[] = {"\2(a)", "\1a - a format too long to be kept within a string"};
    std::atomic<bool> ends = false;
    std::thread writer([&] {
        for (size_t i = 0; !ends; i++)
            (void)store.SetString("AccKeyFormat2", formats[i % 2]);
    });
    for (int i = 0; i < 2000; i++) {
        std::string format;
        ASSERT_EQ(store.GetString("AccKeyFormat2", &format), B_OK);
        ASSERT_TRUE(format == formats[0] || format == formats[1]) << format;
    }
    ends = true;
    writer.join();
}

}  // namespace
