#include "framework/BasicWindow.h"

#include <gtest/gtest.h>

#include "framework/MessageCodes.h"
#include "tests/framework/TestWindows.h"

namespace {

class LoggingWindow : public TBasicWindow {
public:
    LoggingWindow(const char* title, TLog* log)
        : TBasicWindow(
              BRect(100, 100, 399, 299), title, B_TITLED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL, 0),
          fLog(log) {}

    void LanguageChanged() override { fLog->Add("language"); }

private:
    TLog* fLog;
};

class BasicWindowTest : public testing::Test {
protected:
    BasicWindowTest() : fWindow(new LoggingWindow("Basic window", &fLog)), fQuitter(fWindow) {}

    void Show() {
        fWindow->Show();
        fScreen = recording::TheRecordingDisplay().WaitForWindow("Basic window");
        ASSERT_TRUE(fScreen);
    }

    TLog fLog;
    TBasicWindow* fWindow;
    TWindowQuitter fQuitter;
    std::shared_ptr<recording::Window> fScreen;
};

TEST_F(BasicWindowTest, HidesWhenTheUserClosesIt) {
    Show();
    fScreen->PressCloseBox();
    EXPECT_TRUE(recording::WaitFor([&] { return !fScreen->IsShown(); }));
    EXPECT_TRUE(fScreen->IsOpen());

    // A second request finds it hidden and does not hide it deeper.
    fScreen->PressCloseBox();
    fWindow->PostMessage(kMsgLanguageChanged);
    fLog.WaitFor(1);
    with_lock(fWindow, [&] { fWindow->Appear(); });
    EXPECT_TRUE(recording::WaitFor([&] { return fScreen->IsShown(); }));
}

TEST_F(BasicWindowTest, AgreesToQuitWithTheApplication) {
    Show();
    EXPECT_TRUE(with_lock(fWindow, [&] { return fWindow->QuitRequested(); }));
    EXPECT_TRUE(fScreen->IsShown());
}

TEST_F(BasicWindowTest, AppearsAndComesToTheFront) {
    fWindow->Appear();
    fScreen = recording::TheRecordingDisplay().WaitForWindow("Basic window");
    ASSERT_TRUE(fScreen);
    const int32 before = fScreen->CountActivations();
    with_lock(fWindow, [&] { fWindow->Appear(); });
    EXPECT_TRUE(recording::WaitFor([&] { return fScreen->CountActivations() > before; }));
    EXPECT_TRUE(fScreen->IsShown());
}

TEST_F(BasicWindowTest, HearsOfTheLanguage) {
    Show();
    fWindow->PostMessage(kMsgLanguageChanged);
    EXPECT_EQ(fLog.WaitFor(1), std::vector<std::string>{"language"});
}

TEST_F(BasicWindowTest, IsMovedOntoTheScreen) {
    recording::TheRecordingDisplay().SetMainScreenFrame(BRect(0, 0, 799, 599));
    EXPECT_EQ(fWindow->IntelligentMoveTo(BPoint(-20, 30)), BPoint(0, 30));
    EXPECT_EQ(fWindow->Frame(), BRect(0, 30, 299, 229));
    EXPECT_EQ(fWindow->IntelligentMoveTo(BPoint(700, 590)), BPoint(495, 395));
    EXPECT_EQ(fWindow->Frame().LeftTop(), BPoint(495, 395));
    EXPECT_EQ(fWindow->IntelligentCentering(), BPoint(250, 200));
    EXPECT_EQ(fWindow->Frame(), BRect(250, 200, 549, 399));
}

}  // namespace
