#include <kernel/OS.h>
#include <storage/Entry.h>

#include <filesystem>

#include "framework/MessageCodes.h"
#include "tests/viewer/ViewerTest.h"

namespace {

// Raw key codes as get_key_info() numbers them.
constexpr int32 kSpaceKey = 0x5e;

class Navigation : public ViewerTest {
protected:
    void WaitUntilShown(const std::string& name) {
        ASSERT_TRUE(recording::WaitFor([&] { return Shown() == name; })) << Shown();
    }
};

TEST_F(Navigation, ShowsNothingBeforeAFileIsOpened) {
    ShowWindow();
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(Locked([&] { return fView->CurrentImage(); }), nullptr);
    for (uint32 command : {kMsgNextImage, kMsgPrevImage, kMsgFirstImage, kMsgLastImage})
        Do(command);
    EXPECT_EQ(Shown(), "");
}

TEST_F(Navigation, OpensAFileAmongItsSiblings) {
    WriteImages({"a", "b", "c"});
    ShowWindow();
    Open("b");
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(StatusText("StrViewIdx"), "2/3");
    EXPECT_EQ(StatusText("StrViewKind"), fake::kFormatName);
    EXPECT_EQ(StatusText("StrViewSize"), "40 x 30");
    EXPECT_EQ(StatusText("StrViewScale"), "100% x 100%");
}

TEST_F(Navigation, OpensAFolderAtItsFirstImage) {
    std::filesystem::create_directory(Path("0 folder"));
    Write("1 text.jpg", "not an image");
    WriteImages({"B", "a"});
    ShowWindow();
    Open("");
    EXPECT_EQ(Shown(), "B");
    EXPECT_EQ(StatusText("StrViewIdx"), "3/4");
}

TEST_F(Navigation, StepsInByteOrderOverWhatIsNoImage) {
    WriteImages({"B", "a", "c"});
    Write("b.txt", "text");
    Write("notes", fake::ImageFile("notes", 3, 3, kRed));  // known, but no picture
    ShowWindow();
    Open("");
    std::string seen = Shown();
    for (int i = 0; i < 4; ++i) {
        WaitForLoaders();
        Do(kMsgNextImage);
        seen += " " + Shown();
    }
    EXPECT_EQ(seen, "B a c c c");
    for (int i = 0; i < 3; ++i) {
        WaitForLoaders();
        Do(kMsgPrevImage);
        seen += " " + Shown();
    }
    EXPECT_EQ(seen, "B a c c c a B B");
}

TEST_F(Navigation, AsksTheWindowToRememberTheFile) {
    WriteImages({"a"});
    ShowWindow();
    Open("a");
    entry_ref ref;
    get_ref_for_path(Path("a").c_str(), &ref);
    Locked([&] { fView->SendRemoveHistoryRqtd(ref); });
    Settle();
    std::vector<BMessage> requests = Locked([&] { return fWindow->fHistoryRequests; });
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].what, kMsgAddHistory);
    EXPECT_EQ(requests[1].what, kMsgRemoveHistory);
    for (const BMessage& request : requests) {
        entry_ref found;
        ASSERT_EQ(request.FindRef("refs", &found), B_OK);
        EXPECT_EQ(found, ref);
    }
}

TEST_F(Navigation, IgnoresAMessageWithoutAFile) {
    WriteImages({"a"});
    ShowWindow();
    Open("a");
    Do(BMessage(B_REFS_RECEIVED));
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(Locked([&] { return fWindow->fHistoryRequests.size(); }), 1U);
}

TEST_F(Navigation, TakesADrop) {
    WriteImages({"a", "b"});
    ShowWindow();
    entry_ref ref;
    get_ref_for_path(Path("b").c_str(), &ref);
    fScreen->Drop({ref}, {20, 60});
    WaitUntilShown("b");
}

// The window's thread decodes nothing, and no neighbour has to be waited for.
TEST_F(Navigation, StepsOntoNeighboursWithoutDecoding) {
    WriteImages({"a", "b", "c", "d"});
    ShowWindow();
    Open("b");
    WaitForLoaders();
    int32 windowThread = Locked([&] { return fWindow->Thread(); });
    for (uint32 command : {kMsgNextImage, kMsgNextImage, kMsgPrevImage, kMsgPrevImage,
             kMsgPrevImage, kMsgNextImage}) {
        Post(command);
        WaitForQueue();
        EXPECT_FALSE(Locked([&] { return fView->IsLoadingInForeground(); }));
        WaitForLoaders();
    }
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(fake::CountDecodingsBy(windowThread), 0);
}

TEST_F(Navigation, WaitsForALoaderThatIsAtWorkAndIgnoresFurtherPresses) {
    WriteImages({"a", "b", "c"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    Do(kMsgNextImage);
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "a");
    fake::Release("b");
    WaitUntilShown("b");
    WaitForLoaders();
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(fake::CountDecodings("b"), 1);
}

TEST_F(Navigation, RaisesThePriorityOfTheLoaderItWaitsFor) {
    WriteImages({"a", "b"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    thread_info info;
    auto find = [&] { return get_thread_info(find_thread("LoadThread_b"), &info); };
    ASSERT_EQ(find(), B_OK);
    EXPECT_EQ(info.priority, 5);
    Do(kMsgNextImage);
    ASSERT_EQ(find(), B_OK);
    EXPECT_EQ(info.priority, 20);
}

TEST_F(Navigation, LowersTheNewestLoaderBeforeItDecodesItself) {
    WriteImages({"a", "b", "c"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    Do(kMsgLastImage);
    EXPECT_EQ(Shown(), "c");
    thread_info info;
    ASSERT_EQ(get_thread_info(find_thread("LoadThread_b"), &info), B_OK);
    EXPECT_EQ(info.priority, 1);
}

TEST_F(Navigation, WaitsBackwardsToo) {
    WriteImages({"a", "b"});
    fake::Hold("a");
    ShowWindow();
    Open("b");  // the last one: the loader goes backwards
    WaitForHeld("a");
    Do(kMsgPrevImage);
    EXPECT_EQ(Shown(), "b");
    fake::Release("a");
    WaitUntilShown("a");
    WaitForLoaders();
    EXPECT_TRUE(IsCached("b"));
}

TEST_F(Navigation, ShowsNothingWhenTheAwaitedImageIsBroken) {
    WriteImages({"a"});
    WriteBrokenImage("b");
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    Do(kMsgNextImage);
    fake::Release("b");
    WaitUntilShown("");
    Settle();
    EXPECT_EQ(StatusText("StrViewIdx"), "");
    EXPECT_TRUE(recording::WaitFor([&] { return Picture().At(20, 30) == kGray; }));
}

TEST_F(Navigation, KeepsTheImageWhenTheNextOneIsBroken) {
    WriteImages({"a", "c"});
    WriteBrokenImage("b");
    ShowWindow();
    Open("a");
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "a");
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "c");
}

TEST_F(Navigation, ForgetsWhomItWaitedForWhenTheUserGoesElsewhere) {
    WriteImages({"a", "b", "c", "d"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    Do(kMsgNextImage);
    Do(kMsgLastImage);
    EXPECT_EQ(Shown(), "d");
    fake::Release("b");
    WaitForLoaders();
    EXPECT_EQ(Shown(), "d");
}

TEST_F(Navigation, DropsWhatWasLoadedForAnotherFolder) {
    TTemporaryFolder other;
    write_text(other / "x", fake::ImageFile("x", 10, 10, kGreen));
    write_text(other / "y", fake::ImageFile("y", 10, 10, kGreen));
    WriteImages({"a", "b"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    Do(kMsgNextImage);  // waits for b

    BMessage message(B_REFS_RECEIVED);
    entry_ref ref;
    get_ref_for_path((other / "x").c_str(), &ref);
    message.AddRef("refs", &ref);
    Do(message);
    EXPECT_EQ(Shown(), "x");
    fake::Release("b");
    WaitForLoaders();
    EXPECT_EQ(Shown(), "x");
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "y");
}

TEST_F(Navigation, GoesToTheFirstImageAndLoadsNothingAhead) {
    WriteImages({"a", "b", "c", "d", "e"});
    ShowWindow();
    Open("e");
    WaitForLoaders();
    Do(kMsgFirstImage);
    EXPECT_EQ(Shown(), "a");
    EXPECT_FALSE(Locked([&] { return fView->HasLoaders(); }));
    EXPECT_EQ(fake::CountDecodings("b"), 0);
}

TEST_F(Navigation, GoesToTheFirstRealImageAndLoadsAhead) {
    std::filesystem::create_directory(Path("0 folder"));
    WriteImages({"a", "b", "c", "d", "e"});
    ShowWindow();
    Open("e");
    WaitForLoaders();
    Do(kMsgFirstImage);
    EXPECT_EQ(Shown(), "a");
    WaitForLoaders();
    EXPECT_TRUE(IsCached("b"));
}

TEST_F(Navigation, TakesTheFirstImageFromTheCache) {
    WriteImages({"a", "b", "c"});
    ShowWindow();
    Open("b");
    WaitForLoaders();
    ASSERT_TRUE(IsCached("a"));
    Do(kMsgFirstImage);
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(fake::CountDecodings("a"), 1);
}

TEST_F(Navigation, GoesToTheLastImage) {
    WriteImages({"a", "b", "c", "d"});
    ShowWindow();
    Open("a");
    WaitForLoaders();
    Do(kMsgLastImage);
    EXPECT_EQ(Shown(), "d");
    EXPECT_EQ(StatusText("StrViewIdx"), "4/4");
    Do(kMsgLastImage);
    EXPECT_EQ(Shown(), "d");
}

// Unlike with the first image, there is no search back from an entry that is none.
TEST_F(Navigation, StaysWhenTheLastEntryIsNoImage) {
    WriteImages({"a", "b", "c"});
    Write("z.txt", "text");
    ShowWindow();
    Open("a");
    WaitForLoaders();
    Do(kMsgLastImage);
    EXPECT_EQ(Shown(), "a");
}

TEST_F(Navigation, ShowsNothingOfAFileThatIsNoImage) {
    WriteImages({"b"});
    Write("a.jpg", "text");
    ShowWindow();
    Open("a.jpg");
    EXPECT_EQ(Shown(), "");
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "b");
}

TEST_F(Navigation, ClearsForAnEmptyFolder) {
    WriteImages({"a"});
    std::filesystem::create_directory(Path("empty"));
    ShowWindow();
    Open("a");
    Open("empty");
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(StatusText("StrViewSize"), "");
}

TEST_F(Navigation, FindsNewFilesWhenTheFolderIsOpenedAgain) {
    WriteImages({"a", "c"});
    ShowWindow();
    Open("a");
    WaitForLoaders();
    ASSERT_TRUE(IsCached("c"));
    WriteImages({"b"});
    Open("a");
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(StatusText("StrViewIdx"), "2/3");
}

TEST_F(Navigation, LoadsNothingAheadWhileAKeyIsHeld) {
    WriteImages({"a", "b", "c", "d"});
    ShowWindow();
    SetKeyHeld(kSpaceKey, true);
    Open("a");
    for (int i = 0; i < 2; ++i)
        Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "c");
    EXPECT_EQ(fake::CountDecodings("d"), 0);
    SetKeyHeld(kSpaceKey, false);
    EXPECT_TRUE(recording::WaitFor([&] { return IsCached("d"); }));
}

}  // namespace
