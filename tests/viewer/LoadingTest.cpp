#include <app/MessageFilter.h>
#include <kernel/OS.h>

#include "framework/MessageCodes.h"
#include "tests/viewer/ViewerTest.h"

namespace {

// Raw key codes: Backspace, Page Up, Page Down, Up, Space, Left, Down, Right.
constexpr int32 kNavigationKeys[] = {0x1e, 0x21, 0x36, 0x57, 0x5e, 0x61, 0x62, 0x63};
constexpr int32 kOtherKey = 0x47;

class Loading : public ViewerTest {
protected:
    status_t Launch(int32 delta) {
        return Locked([&] { return fView->LaunchLoadThread(delta); });
    }

    void TurnPreload(bool on) {
        gPrefs.fEnablePreload = on;
        Do(kPrefEnablePreload);
    }
};

TEST_F(Loading, DecodesBothNeighboursOnce) {
    WriteImages({"a", "b", "c", "d", "e"});
    ShowWindow();
    Open("c");
    WaitForLoaders();
    EXPECT_TRUE(IsCached("b"));
    EXPECT_TRUE(IsCached("d"));
    EXPECT_EQ(Launch(1), -1);
    EXPECT_EQ(Launch(-1), -1);
    for (const char* name : {"b", "c", "d"})
        EXPECT_EQ(fake::CountDecodings(name), 1) << name;
    for (const char* name : {"a", "e"})
        EXPECT_EQ(fake::CountDecodings(name), 0) << name;
}

TEST_F(Loading, StartsOneLoaderAtATimeForwardFirst) {
    WriteImages({"a", "b", "c"});
    fake::Hold("c");
    ShowWindow();
    Open("b");
    WaitForHeld("c");
    EXPECT_EQ(Launch(1), -1);  // under way
    EXPECT_EQ(fake::CountDecodings("a"), 0);
    fake::Release("c");
    WaitForLoaders();
    EXPECT_TRUE(IsCached("a"));
    EXPECT_EQ(fake::CountDecodings("c"), 1);
}

TEST_F(Loading, HasNothingBeyondTheEnds) {
    WriteImages({"a", "b"});
    ShowWindow();
    Open("b");
    WaitForLoaders();
    EXPECT_TRUE(IsCached("a"));  // backwards, since there is nothing after b
    EXPECT_EQ(Launch(1), -1);
    Do(kMsgPrevImage);
    WaitForLoaders();
    EXPECT_EQ(Launch(-1), -1);
    EXPECT_EQ(fake::CountDecodings("b"), 1);
}

TEST_F(Loading, SkipsWhatIsNoImage) {
    WriteImages({"a", "d"});
    Write("b", "text");
    Write("c", "text");
    ShowWindow();
    Open("a");
    WaitForLoaders();
    ASSERT_TRUE(IsCached("d"));
    Do(kMsgNextImage);
    EXPECT_EQ(StatusText("StrViewIdx"), "4/4");  // the index of the image loaded
}

TEST_F(Loading, GivesUpAtTheEndOfTheListAndTriesTheOtherSideOnce) {
    WriteImages({"c"});
    for (const char* name : {"a", "b", "d", "e"})
        Write(name, "text");
    ShowWindow();
    Open("c");
    WaitForLoaders();
    int identifications = fake::CountIdentifications();
    Locked([&] { fView->LaunchLoadThread(); });
    WaitForLoaders();
    EXPECT_EQ(fake::CountIdentifications(), identifications);
    EXPECT_EQ(Shown(), "c");
}

TEST_F(Loading, DropsAnImageThatComesTooLate) {
    WriteImages({"a", "b", "c", "d", "e"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    Do(kMsgLastImage);
    EXPECT_EQ(Shown(), "e");
    fake::Release("b");
    WaitForLoaders();
    EXPECT_EQ(Shown(), "e");
    EXPECT_FALSE(IsCached("b"));
}

TEST_F(Loading, DropsAnImageOfAnOlderList) {
    WriteImages({"a", "c"});
    fake::Hold("c");
    ShowWindow();
    Open("a");
    WaitForHeld("c");
    WriteImages({"b"});
    Open("a");
    fake::Release("c");
    WaitForLoaders();
    EXPECT_TRUE(IsCached("b"));
    EXPECT_FALSE(IsCached("c"));
}

TEST_F(Loading, LooksAgainForNeighboursWhenOpened) {
    WriteImages({"a"});
    WriteBrokenImage("b");
    ShowWindow();
    Open("a");
    WaitForLoaders();
    EXPECT_FALSE(IsCached("b"));
    WriteImages({"b"});
    Open("a");
    WaitForLoaders();
    EXPECT_TRUE(IsCached("b"));
}

TEST_F(Loading, CachesNothingWhenTurnedOff) {
    gPrefs.fEnablePreload = false;
    WriteImages({"a", "b", "c"});
    ShowWindow();
    Open("b");
    EXPECT_EQ(Launch(1), -1);
    EXPECT_EQ(Launch(-1), -1);
    EXPECT_FALSE(Locked([&] { return fView->HasLoaders(); }));
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "c");
}

TEST_F(Loading, StartsWhenTurnedOn) {
    gPrefs.fEnablePreload = false;
    WriteImages({"a", "b", "c"});
    ShowWindow();
    Open("a");
    TurnPreload(true);
    WaitForLoaders();
    EXPECT_TRUE(IsCached("b"));
}

TEST_F(Loading, StartsBackwardsAtTheEndWhenTurnedOn) {
    gPrefs.fEnablePreload = false;
    WriteImages({"a", "b"});
    ShowWindow();
    Open("b");
    TurnPreload(true);
    WaitForLoaders();
    EXPECT_TRUE(IsCached("a"));
}

TEST_F(Loading, EmptiesTheCacheWhenTurnedOff) {
    WriteImages({"a", "b", "c"});
    ShowWindow();
    Open("b");
    WaitForLoaders();
    ASSERT_TRUE(IsCached("a") && IsCached("c"));
    TurnPreload(false);
    EXPECT_FALSE(IsCached("a") || IsCached("c"));
    EXPECT_EQ(Shown(), "b");
}

TEST_F(Loading, DropsALoadersImageWhenTurnedOffMeanwhile) {
    WriteImages({"a", "b"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    TurnPreload(false);
    fake::Release("b");
    WaitForLoaders();
    EXPECT_FALSE(IsCached("b"));
}

TEST_F(Loading, WaitsUntilTheKeysAreReleased) {
    WriteImages({"a", "b", "c"});
    ShowWindow();
    for (int32 key : kNavigationKeys) {
        SetKeyHeld(key, true);
        Open("a");
        EXPECT_EQ(Launch(1), -1) << key;
        EXPECT_FALSE(Locked([&] { return fView->HasLoaders(); })) << key;
        SetKeyHeld(key, false);
        EXPECT_TRUE(recording::WaitFor([&] { return IsCached("b"); })) << key;
        WaitForLoaders();
        Locked([&] { fView->ClearCaches(); });
    }
}

TEST_F(Loading, DoesNotMindOtherKeys) {
    WriteImages({"a", "b"});
    ShowWindow();
    SetKeyHeld(kOtherKey, true);
    Open("a");
    WaitForLoaders();
    EXPECT_TRUE(IsCached("b"));
    SetKeyHeld(kOtherKey, false);
}

class CountingFilter : public BMessageFilter {
public:
    explicit CountingFilter(uint32 command) : BMessageFilter(command) {}

    filter_result Filter(BMessage* message, BHandler**) override {
        fMessages.push_back(*message);
        return B_DISPATCH_MESSAGE;
    }

    std::vector<BMessage> fMessages;
};

TEST_F(Loading, RetriesWithASingleTimer) {
    WriteImages({"a", "b", "c"});
    ShowWindow();
    SetKeyHeld(kNavigationKeys[0], true);
    auto* filter = new CountingFilter(kMsgRetryLoad);
    Locked([&] { fWindow->AddCommonFilter(filter); });
    auto count = [&] { return Locked([&] { return filter->fMessages.size(); }); };

    bigtime_t start = system_time();
    Open("b");
    for (int i = 0; i < 20; ++i)
        Launch(i % 2 == 0 ? 1 : -1);
    ASSERT_TRUE(recording::WaitFor([&] { return count() >= 3; }));
    // A tenth of a second each.
    EXPECT_GE(system_time() - start, bigtime_t(count()) * 100'000);
    EXPECT_EQ(fake::CountDecodings("a") + fake::CountDecodings("c"), 0);
    SetKeyHeld(kNavigationKeys[0], false);
    EXPECT_TRUE(recording::WaitFor([&] { return IsCached("c") && IsCached("a"); }));
    Locked([&] {
        EXPECT_EQ(filter->fMessages.front().GetInt32("Delta", 0), 1);
        fWindow->RemoveCommonFilter(filter);
        delete filter;
    });
}

TEST_F(Loading, RefusesARetryWithoutADirection) {
    ShowWindow();
    BMessage empty(kMsgRetryLoad);
    EXPECT_EQ(Locked([&] { return fView->LaunchLoadThreadRqtd(&empty); }), B_NAME_NOT_FOUND);
}

TEST_F(Loading, NamesItsThreadByTheFile) {
    WriteImages({"a", "b"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    EXPECT_GT(find_thread("LoadThread_b"), 0);
    TLoadThread* loader = nullptr;
    Locked([&] {
        EXPECT_TRUE(fView->IsLoading(0, &loader));
        EXPECT_FALSE(fView->IsLoading(1, &loader));
        EXPECT_EQ(loader->PrevImageFileName(), Path("a"));
        EXPECT_EQ(loader->NextImageFileName(), "");
    });
}

// Reports that no loader of the view's has sent, and one that says nothing at all.
TEST_F(Loading, IgnoresReportsOfStrangers) {
    WriteImages({"a"});
    ShowWindow();
    Open("a");
    BMessage report(kMsgImageLoaded);
    Do(report);
    report.AddInt32(kFieldThread, 0);
    Do(report);
    report.AddPointer(kFieldImage, &report);
    report.RemoveName(kFieldThread);
    report.AddInt32(kFieldThread, 123456);
    Do(report);
    EXPECT_EQ(Shown(), "a");
}

// With the address sanitizer these also show that nothing is lost on the way.

TEST_F(Loading, SurvivesTheViewsEndWhileALoaderDecodes) {
    WriteImages({"a", "b"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    thread_id loader = find_thread("LoadThread_b");
    QuitWindow();  // waits for nobody
    EXPECT_TRUE(fake::IsHeld("b"));
    EXPECT_EQ(TThread::CountAbandoned(), 1);
    thread_info info;
    ASSERT_EQ(get_thread_info(loader, &info), B_OK);
    EXPECT_EQ(info.priority, 1);
    fake::Release("b");
    EXPECT_TRUE(recording::WaitFor([&] { return get_thread_info(loader, &info) != B_OK; }));
}

TEST_F(Loading, SurvivesTheViewsEndWithAReportInTheQueue) {
    WriteImages({"a", "b"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    thread_id loader = find_thread("LoadThread_b");
    fWindow->Lock();
    fake::Release("b");
    thread_info info;
    ASSERT_TRUE(recording::WaitFor([&] { return get_thread_info(loader, &info) != B_OK; }));
    fView->RemoveSelf();
    delete fView;
    fWindow->Unlock();
}

TEST_F(Loading, SurvivesManyQuickOpeningsAndTheEnd) {
    std::vector<std::string> names;
    for (char c = 'a'; c <= 'z'; ++c)
        names.push_back(std::string(1, c));
    WriteImages(names);
    for (int round = 0; round < 10; ++round) {
        ShowWindow();
        for (const char* name : {"c", "x", "m"})
            Open(name);
        for (uint32 command : {kMsgNextImage, kMsgNextImage, kMsgPrevImage, kMsgLastImage,
                 kMsgPrevImage, kMsgFirstImage, kMsgNextImage})
            Post(command);
        QuitWindow();
    }
}

}  // namespace
