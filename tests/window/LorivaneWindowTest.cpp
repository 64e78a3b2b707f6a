#include "window/LorivaneWindow.h"

#include <app/AppDefs.h>
#include <app/Message.h>
#include <cmath>
#include <gtest/gtest.h>

#include "app/MessageCodes.h"
#include "settings/ExitStates.h"
#include "tests/framework/TestWindows.h"
#include "tests/settings/SettingsHome.h"
#include "viewer/LorivaneView.h"

namespace {

class LorivaneWindowTest : public testing::Test {
protected:
    LorivaneWindowTest() : fApp("application/x-vnd.ZELKAN-Test") {}
    ~LorivaneWindowTest() override {
        if (fWindow != nullptr && fWindow->Lock())
            fWindow->Quit();
    }

    void Open(BRect frame) {
        fWindow = new TLorivaneWindow(frame);
        fScreen = recording::TheRecordingDisplay().Windows().back();
    }

    TSettingsHome fHome;
    BApplication fApp;
    TLorivaneWindow* fWindow = nullptr;
    std::shared_ptr<recording::Window> fScreen;
};

TEST_F(LorivaneWindowTest, IsADocumentWindowFilledByItsView) {
    Open(BRect(100, 110, 500, 410));
    EXPECT_EQ(fWindow->Type(), B_DOCUMENT_WINDOW);
    EXPECT_EQ(fWindow->Flags(), static_cast<uint32>(B_ASYNCHRONOUS_CONTROLS));
    EXPECT_TRUE(fWindow->IsHidden());
    EXPECT_EQ(fWindow->Frame(), BRect(100, 110, 500, 410));
    EXPECT_EQ(fScreen->Spec().title, "");
    ASSERT_EQ(fWindow->CountChildren(), 1);
    auto* view = dynamic_cast<TLorivaneView*>(fWindow->ChildAt(0));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->Frame(), BRect(0, 0, 400, 300));
    EXPECT_EQ(fWindow->CurrentImage(), nullptr);
}

TEST_F(LorivaneWindowTest, HasSizeLimits) {
    Open(BRect(100, 110, 500, 410));
    float minWidth = 0;
    float maxWidth = 0;
    float minHeight = 0;
    float maxHeight = 0;
    fWindow->GetSizeLimits(&minWidth, &maxWidth, &minHeight, &maxHeight);
    EXPECT_EQ(minWidth, 70);
    EXPECT_EQ(maxWidth, 10000);
    EXPECT_EQ(minHeight, 84);
    EXPECT_EQ(maxHeight, 10000);
    fWindow->ResizeTo(10, 10);
    EXPECT_EQ(fWindow->Bounds(), BRect(0, 0, 70, 84));
    EXPECT_EQ(fWindow->ChildAt(0)->Frame(), BRect(0, 0, 70, 84));
}

TEST_F(LorivaneWindowTest, ASmallFrameIsWidenedWithItsView) {
    Open(BRect(100, 110, 101, 111));
    EXPECT_EQ(fWindow->Frame(), BRect(100, 110, 170, 194));
    EXPECT_EQ(fWindow->ChildAt(0)->Frame(), BRect(0, 0, 70, 84));
}

TEST_F(LorivaneWindowTest, AFrameOffTheScreenIsBroughtBack) {
    recording::TheRecordingDisplay().SetMainScreenFrame(BRect(0, 0, 799, 599));
    Open(BRect(2000, 2000, 2300, 2250));
    EXPECT_EQ(fWindow->Frame(), BRect(499, 349, 799, 599));
}

TEST_F(LorivaneWindowTest, AFrameThatIsNoneGivesTheDefault) {
    Open(BRect(NAN, NAN, NAN, NAN));
    EXPECT_EQ(fWindow->Frame(), BRect(50, 50, 350, 300));
}

TEST_F(LorivaneWindowTest, RemembersItsFrameWhenItQuits) {
    Open(BRect(100, 110, 500, 410));
    fWindow->MoveTo(11, 22);
    fWindow->ResizeTo(333, 222);
    fWindow->Quit();
    fWindow = nullptr;
    EXPECT_EQ(gExitStates.fWindowFrame, BRect(11, 22, 344, 244));
}

TEST_F(LorivaneWindowTest, LeavesUnknownMessagesToItsBase) {
    Open(BRect(100, 110, 500, 410));
    fWindow->Show();
    BMessage reply;
    EXPECT_EQ(BMessenger(fWindow).SendMessage('unkn', &reply), B_OK);
    EXPECT_EQ(reply.what, static_cast<uint32>(B_MESSAGE_NOT_UNDERSTOOD));
}

}  // namespace
