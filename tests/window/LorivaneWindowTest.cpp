#include <app/AppDefs.h>
#include <app/MessageFilter.h>
#include <cmath>
#include <interface/MenuBar.h>

#include "framework/MessageCodes.h"
#include "settings/ExitStates.h"
#include "tests/window/WindowFixture.h"
#include "viewer/LorivaneView.h"

namespace {

class LorivaneWindowTest : public WindowFixture {
protected:
    /// Of the menu bar, as right minus left.
    float BarHeight() { return View("MenuBar")->Bounds().Height(); }
    float MinHeight() { return BarHeight() + 84; }
    TLorivaneView* Viewer() { return dynamic_cast<TLorivaneView*>(View("LorivaneView")); }
};

/// Writes down who hears of a change of the language.
class LanguageLog : public BMessageFilter {
public:
    explicit LanguageLog(TLog& log) : BMessageFilter(kMsgLanguageChanged), fLog(log) {}

    filter_result Filter(BMessage* message, BHandler** target) override {
        const bool isCopy = message->HasBool(kFieldLanguageForwarded);
        fLog.Add(std::string((*target)->Name()) + (isCopy ? " copy" : ""));
        return B_DISPATCH_MESSAGE;
    }

private:
    TLog& fLog;
};

TEST_F(LorivaneWindowTest, IsADocumentWindowFilledByItsMenuBarAndItsView) {
    Open(BRect(100, 110, 500, 410));
    EXPECT_EQ(fWindow->Type(), B_DOCUMENT_WINDOW);
    EXPECT_EQ(fWindow->Flags(), static_cast<uint32>(B_ASYNCHRONOUS_CONTROLS));
    EXPECT_TRUE(fWindow->IsHidden());
    EXPECT_EQ(fWindow->Frame(), BRect(100, 110, 500, 410));
    EXPECT_EQ(fScreen->Spec().title, "");
    ASSERT_EQ(fWindow->CountChildren(), 2);
    auto* bar = dynamic_cast<BMenuBar*>(fWindow->ChildAt(0));
    auto* view = dynamic_cast<TLorivaneView*>(fWindow->ChildAt(1));
    ASSERT_TRUE(bar != nullptr && view != nullptr);
    EXPECT_EQ(fWindow->KeyMenuBar(), bar);
    EXPECT_GT(bar->Bounds().Height(), 10);
    EXPECT_EQ(bar->Frame(), BRect(0, 0, 400, bar->Bounds().Height()));
    EXPECT_EQ(view->Frame(), BRect(0, bar->Bounds().Height() + 1, 400, 300));
    EXPECT_EQ(fWindow->CurrentFocus(), view);
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
    EXPECT_EQ(minHeight, MinHeight());
    EXPECT_EQ(maxHeight, 10000);
    fWindow->ResizeTo(10, 10);
    EXPECT_EQ(fWindow->Bounds(), BRect(0, 0, 70, MinHeight()));
    EXPECT_EQ(Viewer()->Frame(), BRect(0, BarHeight() + 1, 70, MinHeight()));
}

TEST_F(LorivaneWindowTest, ASmallFrameIsWidenedWithItsViews) {
    Open(BRect(100, 110, 101, 111));
    EXPECT_EQ(fWindow->Frame(), BRect(100, 110, 170, 110 + MinHeight()));
    EXPECT_EQ(Viewer()->Frame(), BRect(0, BarHeight() + 1, 70, MinHeight()));
    EXPECT_EQ(View("MenuBar")->Frame().right, 70);
}

TEST_F(LorivaneWindowTest, AFrameOffTheScreenIsBroughtBack) {
    recording::TheRecordingDisplay().SetMainScreenFrame(BRect(0, 0, 799, 599));
    Open(BRect(2000, 2000, 2300, 2250));
    EXPECT_EQ(fWindow->Frame(), BRect(499, 349, 799, 599));
}

TEST_F(LorivaneWindowTest, AScreenThatLiesElsewhereIsAsGood) {
    recording::TheRecordingDisplay().SetMainScreenFrame(BRect(-1280, 500, -1, 1523));
    Open(BRect(-900, 600, -500, 900));
    EXPECT_EQ(fWindow->Frame(), BRect(-900, 600, -500, 900));
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

TEST_F(LorivaneWindowTest, RemembersTheFrameFromBeforeFullScreen) {
    Open(BRect(100, 110, 500, 410));
    Viewer()->SetFullScreen(true);
    EXPECT_EQ(fWindow->Frame(), BRect(0, -(BarHeight() + 1), 1919, 1093));
    fWindow->Quit();
    fWindow = nullptr;
    EXPECT_EQ(gExitStates.fWindowFrame, BRect(100, 110, 500, 410));
}

TEST_F(LorivaneWindowTest, CoversTheScreenAnewWhenItIsAnother) {
    Open();
    Show();
    const float above = BarHeight() + 1;
    with_lock(fWindow, [&] { Viewer()->SetFullScreen(true); });
    fScreen->ChangeScreen(BRect(1920, 100, 3199, 1123), 1);
    EXPECT_TRUE(
        recording::WaitFor([&] { return Frame() == BRect(1920, 100 - above, 3199, 1123 + 14); }));
    // Where it was before there may be no screen any more.
    with_lock(fWindow, [&] { Viewer()->SetFullScreen(false); });
    EXPECT_EQ(Frame(), BRect(1920, 130, 2320, 430));
}

TEST_F(LorivaneWindowTest, StaysWhereItIsWhenTheScreenIsAnother) {
    Open();
    Show();
    fScreen->ChangeScreen(BRect(0, 0, 1279, 1023), 2);
    Settle();
    EXPECT_EQ(Frame(), BRect(100, 110, 500, 410));
}

TEST_F(LorivaneWindowTest, WidensItsMenuBarForFilesHandedIn) {
    Open();
    Show();
    BView* bar = View("MenuBar");
    const float height = BarHeight();
    with_lock(fWindow, [&] { bar->ResizeTo(10, height); });
    Do(BMessage(B_REFS_RECEIVED));
    EXPECT_EQ(with_lock(fWindow, [&] { return bar->Bounds(); }), BRect(0, 0, 401, height));
}

TEST_F(LorivaneWindowTest, RelabelsItselfOnceForAChangeOfLanguage) {
    Open();
    Show();
    TLog log;
    with_lock(fWindow, [&] { fWindow->AddCommonFilter(new LanguageLog(log)); });
    Do(BMessage(kMsgLanguageChanged));
    EXPECT_EQ(log.Entries(), (std::vector<std::string>{"Lorivane", "LorivaneView copy"}));
}

TEST_F(LorivaneWindowTest, ClosingItQuitsTheApplication) {
    Open();
    Show();
    fScreen->PressCloseBox();
    EXPECT_TRUE(recording::WaitFor([&] { return !fScreen->IsShown(); }));
    EXPECT_EQ(TakeFromApplication(), static_cast<uint32>(B_QUIT_REQUESTED));
}

TEST_F(LorivaneWindowTest, LeavesUnknownMessagesToItsBase) {
    Open(BRect(100, 110, 500, 410));
    fWindow->Show();
    BMessage reply;
    EXPECT_EQ(BMessenger(fWindow).SendMessage('unkn', &reply), B_OK);
    EXPECT_EQ(reply.what, static_cast<uint32>(B_MESSAGE_NOT_UNDERSTOOD));
}

}  // namespace
