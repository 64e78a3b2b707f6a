#include <kernel/OS.h>
#include <storage/Entry.h>

#include "framework/MessageCodes.h"
#include "tests/viewer/ViewerTest.h"

namespace {

BMessage Queued(uint32 what, bigtime_t when) {
    BMessage message(what);
    message.AddInt64("when", when);
    return message;
}

using StaleCommands = ViewerTest;

TEST_F(StaleCommands, DropsCommandsFromBeforeTheImageAppeared) {
    WriteImages({"a", "b", "c"});
    ShowWindow();
    bigtime_t before = system_time();
    Open("a");
    WaitForLoaders();
    for (uint32 command : {kMsgNextImage, kMsgPrevImage, kMsgFirstImage, kMsgLastImage})
        Do(Queued(command, before));
    EXPECT_EQ(Shown(), "a");
    Do(Queued(kMsgNextImage, system_time()));
    EXPECT_EQ(Shown(), "b");
}

TEST_F(StaleCommands, TakesWhatIsHandedInAtAnyTime) {
    WriteImages({"a", "b"});
    ShowWindow();
    bigtime_t before = system_time();
    Open("a");
    BMessage message = Queued(B_SIMPLE_DATA, before);
    entry_ref ref;
    get_ref_for_path(Path("b").c_str(), &ref);
    message.AddRef("refs", &ref);
    Do(message);
    EXPECT_EQ(Shown(), "b");
}

// A stale command takes the keys and wheel events behind it along, and nothing else.
TEST_F(StaleCommands, DropsWhatPiledUpBehindAStaleCommand) {
    WriteImages({"a", "b", "c"});
    ShowWindow();
    for (const bool isKey : {true, false}) {
        bigtime_t before = system_time();
        Open("a");
        WaitForLoaders();
        const bool showsComments = gPrefs.fEnableComment;
        Locked([&] {
            Post(Queued(kMsgNextImage, before));
            if (isKey)
                fScreen->KeyDown(B_SPACE);
            else
                fScreen->Wheel({20, 40}, 0, 1);
            Post(kMsgToggleComment);
        });
        Settle();
        EXPECT_EQ(Shown(), "a") << (isKey ? "key" : "wheel");
        EXPECT_NE(gPrefs.fEnableComment, showsComments);
    }
}

}  // namespace
