// The image that the user waits for is decoded beside the window, which goes on meanwhile.

#include <kernel/OS.h>
#include <storage/Entry.h>

#include <chrono>

#include "framework/MessageCodes.h"
#include "tests/viewer/ViewerTest.h"

namespace {

class Foreground : public ViewerTest {
protected:
    /// Hands the entry in without waiting for the image.
    void BeginToOpen(const std::string& name) {
        BMessage message(B_REFS_RECEIVED);
        entry_ref ref;
        get_ref_for_path(Path(name).c_str(), &ref);
        message.AddRef("refs", &ref);
        Post(message);
    }

    std::string Band() {
        return Locked([&] {
            TImage* image = fView->CurrentImage();
            return image != nullptr ? image->Comment()->Text() : std::string();
        });
    }

    std::vector<std::string> History() {
        std::vector<std::string> names;
        for (const BMessage& request : Locked([&] { return fWindow->fHistoryRequests; })) {
            entry_ref ref;
            EXPECT_EQ(request.FindRef("refs", &ref), B_OK);
            names.emplace_back(ref.name);
        }
        return names;
    }
};

TEST_F(Foreground, TheWindowAnswersWhileTheFirstImageIsDecoded) {
    WriteImages({"a", "b"});
    fake::Hold("a");
    ShowWindow();
    BeginToOpen("a");
    WaitForHeld("a");
    const bool showsComments = gPrefs.fEnableComment;
    Post(kMsgToggleComment);
    WaitForQueue();
    EXPECT_NE(gPrefs.fEnableComment, showsComments);
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(fake::CountDecodings("b"), 0);  // nothing is loaded ahead of it
    EXPECT_TRUE(History().empty());
    fake::Release("a");
    Settle();
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(StatusText("StrViewIdx"), "1/2");
    EXPECT_TRUE(recording::WaitFor([&] { return History() == std::vector<std::string>{"a"}; }));
}

TEST_F(Foreground, TheWindowEndsWhileTheFirstImageIsDecoded) {
    WriteImages({"a"});
    fake::Hold("a");
    ShowWindow();
    BeginToOpen("a");
    WaitForHeld("a");
    QuitWindow();
    EXPECT_TRUE(fake::IsHeld("a"));
    EXPECT_EQ(TThread::CountAbandoned(), 1);
}

TEST_F(Foreground, IsDecodedAtThePriorityOfTheDisplay) {
    WriteImages({"a"});
    fake::Hold("a");
    ShowWindow();
    BeginToOpen("a");
    WaitForHeld("a");
    thread_info info;
    ASSERT_EQ(get_thread_info(find_thread("LoadThread_a"), &info), B_OK);
    EXPECT_EQ(info.priority, B_DISPLAY_PRIORITY);
}

TEST_F(Foreground, AnotherFileTakesItsPlace) {
    WriteImages({"a", "b", "c"});
    fake::Hold("a");
    ShowWindow();
    BeginToOpen("a");
    WaitForHeld("a");
    BeginToOpen("c");
    Settle();
    EXPECT_EQ(Shown(), "c");
    const std::vector<std::string> both{"a", "c"};
    EXPECT_TRUE(recording::WaitFor([&] { return History() == both; }));
    WaitForLoaders();
    fake::Release("a");
    EXPECT_TRUE(recording::WaitFor([] { return TThread::CountAbandoned() == 0; }));
    Settle();
    EXPECT_EQ(Shown(), "c");
    EXPECT_EQ(StatusText("StrViewIdx"), "3/3");
    EXPECT_FALSE(IsCached("a"));
}

TEST_F(Foreground, SaysThatOneHasToWaitOverTheImageThatStays) {
    WriteImages({"a", "b", "c"});
    ShowWindow();
    Open("a");
    WaitForLoaders();
    EXPECT_EQ(Band(), "");
    fake::Hold("c");
    Post(kMsgLastImage);
    WaitForHeld("c");
    WaitForQueue();
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(Band(), "Just a moment...");
    Post(kPrefCommentEncoding);  // has the comment read again
    WaitForQueue();
    EXPECT_EQ(Band(), "Just a moment...");
    fake::Release("c");
    Settle();
    EXPECT_EQ(Shown(), "c");
    EXPECT_EQ(Band(), "");
}

TEST_F(Foreground, GivesTheCommentBackWhenItFails) {
    WriteImages({"a", "b"});
    Write("a.txt", "a comment");
    WriteBrokenImage("c");
    fake::Hold("c");
    ShowWindow();
    Open("a");
    Post(kMsgLastImage);
    WaitForHeld("c");
    EXPECT_EQ(Band(), "Just a moment...");
    fake::Release("c");
    Settle();
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(Band(), "a comment");
}

TEST_F(Foreground, CommandsGivenMeanwhileAreDroppedWhenItIsShown) {
    WriteImages({"a", "b", "c"});
    fake::Hold("b");
    ShowWindow();
    BeginToOpen("b");
    WaitForHeld("b");
    for (uint32 command : {kMsgNextImage, kMsgPrevImage, kMsgFirstImage, kMsgLastImage})
        Post(command);
    WaitForQueue();
    fake::Release("b");
    Settle();
    WaitForLoaders();
    EXPECT_EQ(Shown(), "b");
}

TEST_F(Foreground, CommandsGivenMeanwhileAreCarriedOutWhenItFails) {
    WriteImages({"a", "c", "d"});
    WriteBrokenImage("b");
    fake::Hold("b");
    ShowWindow();
    BeginToOpen("b");
    WaitForHeld("b");
    Post(kMsgNextImage);
    WaitForQueue();
    fake::Release("b");
    Settle();
    WaitForLoaders();  // which may have begun with c by then
    EXPECT_EQ(Shown(), "c");
}

// What was loaded ahead by then waits for it, so that it finds its place.
TEST_F(Foreground, KeepsReportsOfOtherLoadersUntilItIsShown) {
    WriteImages({"a", "b", "c", "d", "e"});
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    fake::Hold("e");
    Post(kMsgLastImage);
    WaitForHeld("e");
    fake::Release("b");
    WaitForQueue();
    EXPECT_TRUE(Locked([&] { return fView->HasLoaders(); }));
    fake::Release("e");
    WaitForLoaders();
    EXPECT_EQ(Shown(), "e");
    EXPECT_FALSE(IsCached("b"));
}

TEST_F(Foreground, SearchesBesideTheWindow) {
    WriteImages({"a", "z"});
    for (const char* name : {"b", "c", "d"})
        Write(name, "text");
    gPrefs.fEnablePreload = false;
    ShowWindow();
    Open("a");
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "z");
    EXPECT_EQ(StatusText("StrViewIdx"), "5/5");
    Do(kMsgNextImage);  // nothing further
    EXPECT_EQ(Shown(), "z");
    EXPECT_EQ(StatusText("StrViewIdx"), "5/5");
}

TEST_F(Foreground, TakesWhatItsSearchFindsFromTheCache) {
    gPrefs.fEnablePreload = false;
    WriteImages({"a", "b"});
    ShowWindow();
    Open("a");
    Do(kMsgLastImage);
    ASSERT_TRUE(IsCached("a"));  // without knowing that it is beside b
    fake::Hold("a");
    Do(kMsgPrevImage);
    EXPECT_EQ(Shown(), "a");
}

}  // namespace
