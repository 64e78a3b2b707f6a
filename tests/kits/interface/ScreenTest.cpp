#include <interface/Screen.h>

#include "tests/kits/interface/TestWindow.h"

namespace {

const BRect kOther(-1920, 100, -1, 1179);

class ScreenWindow : public BWindow {
public:
    explicit ScreenWindow(Log& log)
        : BWindow(BRect(100, 100, 199, 179), "screen", B_TITLED_WINDOW, 0), fLog(log) {}
    void ScreenChanged(BRect frame, color_space space) override {
        EXPECT_EQ(space, B_RGB32);
        fLog.Add("screen " + Text(frame));
        fLog.Add("main " + Text(BScreen(B_MAIN_SCREEN_ID).Frame()));
    }

private:
    Log& fLog;
};

}  // namespace

TEST(Screen, OnAWindowsThreadItIsTheWindowsOwn) {
    Log log;
    TestWindow window(new ScreenWindow(log));
    window->Show();
    window.Screen().ChangeScreen(kOther, 1);
    window.Settle();
    EXPECT_THAT(
        log.Entries(), testing::ElementsAre("screen " + Text(kOther), "main " + Text(kOther)));
    EXPECT_EQ(BScreen(window.Get()).Frame(), kOther);
    EXPECT_EQ(BScreen().Frame(), recording::TheRecordingDisplay().MainScreenFrame());
    EXPECT_EQ(BScreen(nullptr).Frame(), recording::TheRecordingDisplay().MainScreenFrame());
}
