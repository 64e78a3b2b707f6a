#include "iap/IAPWindow.h"

#include <gmock/gmock.h>
#include <interface/CheckBox.h>

#include "framework/Adjust.h"
#include "iap/IAPPortManager.h"
#include "kits/locale/Catalogue.h"
#include "tests/iap/WindowFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class IAPWindowTest : public TIAPFixture {
protected:
    bool IsOn(const char* label) {
        return std::get<BPrivate::CheckBoxState>(Shown(label).state).on;
    }
    int32 Priority() {
        thread_info info;
        EXPECT_EQ(get_thread_info(fWindow->Thread(), &info), B_OK);
        return info.priority;
    }
};

// #pragma mark - What it shows

TEST_F(IAPWindowTest, HasNothingButTheButtonsAtFirst) {
    Open();
    EXPECT_EQ(fScreen->Title(), "ZELKAN Common Preferences");
    EXPECT_EQ(fWindow->Flags(), 66U);
    EXPECT_EQ(fWindow->Type(), B_TITLED_WINDOW);
    EXPECT_STREQ(fView->Name(), "IAPView");
    EXPECT_THAT(ComponentNames(), IsEmpty());
    EXPECT_EQ(FrameOf("ButtonDefaults"), BRect(10, 10, 95, 32));  // its label is wider than 80
    EXPECT_EQ(FrameOf("ButtonCancel"), BRect(125, 10, 205, 32));
    EXPECT_EQ(FrameOf("ButtonOK"), BRect(215, 10, 295, 32));
    EXPECT_EQ(FrameOf("ButtonContainer"), BRect(0, 0, 305, 42));
    EXPECT_EQ(FrameOf("IAPView"), BRect(0, 0, 305, 42));
    EXPECT_EQ(fScreen->Frame(), BRect(100, 120, 405, 162));
    EXPECT_TRUE(HasLabel("Defaults(D)"));
    EXPECT_TRUE(HasLabel("Cancel"));
    EXPECT_TRUE(std::get<BPrivate::ButtonState>(Shown("OK").state).isDefault);
    EXPECT_EQ(Priority(), 15);
}

TEST_F(IAPWindowTest, StacksTheComponents) {
    Open();
    BMessage request(kMsgAddSharedComponents);
    add_component(&request, "First", 20);
    add_component(&request, "Second", 50);
    Do(request);
    EXPECT_THAT(ComponentNames(), ElementsAre("First", "Second"));
    // A check box alone takes the height the desktop wants for it.
    EXPECT_EQ(FrameOf("First"), BRect(10, 10, 260, 33));
    EXPECT_EQ(FrameOf("Second"), BRect(10, 43, 260, 93));
    EXPECT_EQ(FrameOf("ButtonContainer"), BRect(0, 93, 305, 135));
    EXPECT_EQ(fScreen->Frame(), BRect(100, 120, 405, 255));
    EXPECT_TRUE(IsOn("First(X)"));
    EXPECT_TRUE(IsOn("Second(X)"));

    Do(request_of({"Third"}));
    EXPECT_EQ(FrameOf("Third"), BRect(10, 103, 260, 126));
    EXPECT_EQ(fScreen->Frame().Height(), 168);
    EXPECT_THAT(BroadcastValues(), IsEmpty());
}

TEST_F(IAPWindowTest, IsAsWideAsItsWidestComponent) {
    Open();
    Do(request_of({std::string(60, 'w')}));
    const BRect component = FrameOf(std::string(60, 'w').c_str());
    EXPECT_EQ(component.Width(), (60 + 3) * 6 + 19);
    EXPECT_EQ(fScreen->Frame().Width(), component.Width() + 20);
    // The buttons stay at the right edge.
    EXPECT_EQ(FrameOf("ButtonContainer").right, component.right + 10);
}

TEST_F(IAPWindowTest, IsAsWideAsItsTitleNeeds) {
    Open();
    const float least = fScreen->Frame().Width();
    EXPECT_GE(least, width_for_title(TIAPWindow::kTitle));
    const std::string title(60, 'w');
    BPrivate::set_catalogue({{TIAPWindow::kTitle, title}});
    BMessage change(kMsgLanguageChanged);
    EXPECT_EQ(BMessenger(fWindow).SendMessage(&change), B_OK);
    Settle();
    BPrivate::set_catalogue(BPrivate::catalogue_of("en"));
    EXPECT_EQ(fScreen->Title(), title);
    EXPECT_EQ(fScreen->Frame().Width(), width_for_title(title.c_str()));
    EXPECT_EQ(FrameOf("ButtonContainer").right, fScreen->Frame().Width());
}

TEST_F(IAPWindowTest, TheKeyboardIsInTheFirstComponent) {
    const auto focused = [this] {
        return with_lock(fWindow, [this] {
            const BView* focus = fWindow->CurrentFocus();
            return std::string(focus != nullptr ? focus->Name() : "");
        });
    };
    Open();
    EXPECT_EQ(focused(), "");
    Do(request_of({"First"}));
    EXPECT_EQ(focused(), "XFirst");
    Do(request_of({"Second"}));
    EXPECT_EQ(focused(), "XFirst");
    with_lock(fWindow, [this] { fWindow->FindView("XSecond")->MakeFocus(true); });
    Do(request_of({"Third"}));
    EXPECT_EQ(focused(), "XSecond");
    // The components are other ones then.
    Do(kMsgDefaults);
    EXPECT_EQ(focused(), "XFirst");
    // However it was closed.
    with_lock(fWindow, [this] { fWindow->FindView("ButtonCancel")->MakeFocus(true); });
    Do(kMsgCancel);
    fWindow->Show();
    EXPECT_EQ(focused(), "XFirst");
}

TEST_F(IAPWindowTest, ShowsAComponentOnce) {
    Open();
    Do(request_of({"First", "Second"}));
    Do(request_of({"Second", "Third", "First"}));
    EXPECT_THAT(ComponentNames(), ElementsAre("First", "Second", "Third"));
}

TEST_F(IAPWindowTest, LeavesOutWhatIsNoComponent) {
    Open();
    BMessage request(kMsgAddSharedComponents);
    request.AddString("Text", "no archive");
    add_component(&request, "ButtonContainer");
    add_component(&request, "Two");
    (void)request.RemoveData("Two", 2);
    add_component(&request, "Bad");
    BMessage bad = check_box_archive("Bad", true);
    bad.ReplaceString("class", "TBad");
    (void)request.ReplaceMessage("Bad", 2, &bad);
    add_component(&request, "Good");
    Do(request);
    EXPECT_THAT(ComponentNames(), ElementsAre("Good"));
    Do(BMessage(kMsgAddSharedComponents));
    EXPECT_THAT(ComponentNames(), ElementsAre("Good"));
}

TEST_F(IAPWindowTest, AControlWithoutANameHasNoLabel) {
    Open();
    BMessage archive = check_box_archive("First", true);
    change_part(archive, "_views", [](BMessage& box) {
        (void)box.RemoveName("_name");
        (void)box.ReplaceString("_label", "old");
    });
    BMessage request(kMsgAddSharedComponents);
    for (int i = 0; i < 3; i++)
        request.AddMessage("First", &archive);
    Do(request);
    EXPECT_THAT(ComponentNames(), ElementsAre("First"));
    EXPECT_FALSE(HasLabel("old"));
}

TEST_F(IAPWindowTest, HasAnEndOfItsPatience) {
    Open();
    for (int i = 0; i < 50; i++)
        Do(request_of({"Item " + std::to_string(i)}));
    EXPECT_EQ(ComponentNames().size(), 32U);
    EXPECT_EQ(ComponentNames().back(), "Item 31");
}

// #pragma mark - What the user does

TEST_F(IAPWindowTest, BroadcastsAChangeAtOnce) {
    Open();
    Do(request_of({"First", "Second"}));
    Click("Second(X)", 0);
    const std::vector<BMessage> changes = Broadcasts();
    ASSERT_EQ(changes.size(), 1U);
    const BMessage& change = changes.front();
    EXPECT_STREQ(change.GetString("IAP:SrcApp"), kOtherApp);
    EXPECT_STREQ(change.GetString("IAP:SrcIAPItem"), "Second");
    EXPECT_STREQ(change.GetString("class"), "BView");
    EXPECT_STREQ(change.GetString("_name"), "Second");
    BMessage box;
    ASSERT_EQ(change.FindMessage("_views", &box), B_OK);
    EXPECT_STREQ(box.GetString("class"), "BCheckBox");
    EXPECT_EQ(box.GetInt32("_val", 0), 0);
    EXPECT_FALSE(with_lock(fWindow, [&] { return fWindow->IsHidden(); }));
}

TEST_F(IAPWindowTest, AMenuFieldSendsTheFormatThatWasChosen) {
    Open();
    AddOwnComponents();
    EXPECT_THAT(ComponentNames(), ElementsAre("AccKeyFormat2", "FlatToolBar"));
    EXPECT_TRUE(HasLabel("Accelerator Format(A): "));
    EXPECT_TRUE(HasLabel("Flat Tool Bar(F)"));

    ChooseFormat("a - ");
    EXPECT_THAT(BroadcastValues(), ElementsAre("AccKeyFormat2 \1a - "));
    EXPECT_TRUE(HasLabel("A - Accelerator Format: "));
    EXPECT_TRUE(HasLabel("F - Flat Tool Bar"));
    EXPECT_TRUE(HasLabel("D - Defaults"));
    // It is this application's own component.
    EXPECT_STREQ(fFiles.Read("AccKeyFormat2").GetString("AccKeyFormat2"), "\1a - ");

    ChooseFormat("(None)");
    EXPECT_THAT(BroadcastValues(), ElementsAre("AccKeyFormat2 "));
    EXPECT_TRUE(HasLabel("Accelerator Format: "));
    EXPECT_TRUE(HasLabel("Defaults"));
}

TEST_F(IAPWindowTest, CancelBringsBackWhatWasAtTheLastOK) {
    Open();
    Do(request_of({"First", "Second"}));
    Click("Second(X)", 0);
    Click("First(X)", 0);
    Click("First(X)", 1);
    (void)Broadcasts();
    Click("Cancel");
    // Every component, whether it was changed or not.
    EXPECT_THAT(BroadcastValues(), ElementsAre("First on", "Second on"));
    EXPECT_FALSE(fScreen->IsShown());
    EXPECT_EQ(Priority(), 5);
    EXPECT_TRUE(IsOn("Second(X)"));

    Do(kMsgActivateSharedWindow);
    EXPECT_TRUE(fScreen->IsShown());
    Click("Second(X)", 0);
    EXPECT_THAT(BroadcastValues(), ElementsAre("Second box off"));
    Click("OK");
    EXPECT_THAT(BroadcastValues(), IsEmpty());
    EXPECT_FALSE(fScreen->IsShown());

    Do(kMsgActivateSharedWindow);
    Click("First(X)", 0);
    (void)Broadcasts();
    Click("Cancel");
    EXPECT_THAT(BroadcastValues(), ElementsAre("First on", "Second box off"));
    EXPECT_TRUE(IsOn("First(X)"));
    EXPECT_FALSE(IsOn("Second(X)"));
}

TEST_F(IAPWindowTest, CancelBringsTheOldHintsBackToItsOwnLabels) {
    Open();
    AddOwnComponents();
    ChooseFormat("a) ");
    (void)Broadcasts();
    Click("Cancel");
    EXPECT_THAT(BroadcastValues(), ElementsAre("AccKeyFormat2 \2(a)", "FlatToolBar on"));
    EXPECT_TRUE(HasLabel("Accelerator Format(A): "));
    EXPECT_TRUE(HasLabel("Defaults(D)"));
    EXPECT_STREQ(fFiles.Read("AccKeyFormat2").GetString("AccKeyFormat2"), "\2(a)");
}

TEST_F(IAPWindowTest, DefaultsStayOpenAndCanBeCancelled) {
    Open();
    Do(request_of({"First", "Second"}));
    Click("Defaults(D)");
    EXPECT_THAT(BroadcastValues(), ElementsAre("First off", "Second off"));
    EXPECT_TRUE(fScreen->IsShown());
    EXPECT_FALSE(IsOn("First(X)"));
    EXPECT_EQ(FrameOf("Second"), BRect(10, 43, 260, 66));

    // What is shown now works like what was there before.
    Click("First(X)", 1);
    EXPECT_THAT(BroadcastValues(), ElementsAre("First box on"));
    Click("Cancel");
    EXPECT_THAT(BroadcastValues(), ElementsAre("First on", "Second on"));
    EXPECT_THAT(ComponentNames(), ElementsAre("First", "Second"));
}

TEST_F(IAPWindowTest, DefaultsAreKeptByOK) {
    Open();
    Do(request_of({"First"}));
    Click("Defaults(D)");
    Click("OK");
    Do(kMsgActivateSharedWindow);
    Click("First(X)", 1);
    (void)Broadcasts();
    Click("Cancel");
    EXPECT_THAT(BroadcastValues(), ElementsAre("First off"));
}

TEST_F(IAPWindowTest, AComponentAfterAReplacedLastOneStandsBelowIt) {
    Open();
    Do(request_of({"First", "Second"}));
    Click("Defaults(D)");
    Do(request_of({"Third"}));
    EXPECT_THAT(ComponentNames(), ElementsAre("First", "Second", "Third"));
    EXPECT_EQ(FrameOf("Third"), BRect(10, 76, 260, 99));
}

TEST_F(IAPWindowTest, ItsCloseBoxCancels) {
    Open();
    Do(request_of({"First"}));
    Click("First(X)", 0);
    (void)Broadcasts();
    fScreen->PressCloseBox();
    Settle();
    EXPECT_THAT(BroadcastValues(), ElementsAre("First on"));
    EXPECT_FALSE(fScreen->IsShown());
    EXPECT_TRUE(fScreen->IsOpen());
    // Hides do not pile up.
    fScreen->PressCloseBox();
    Click("OK");
    Do(kMsgActivateSharedWindow);
    EXPECT_TRUE(fScreen->IsShown());
    // The application's own question is answered without a message.
    EXPECT_TRUE(with_lock(fWindow, [&] { return fWindow->QuitRequested(); }));
    EXPECT_TRUE(fScreen->IsShown());
}

TEST_F(IAPWindowTest, EscapeCancelsAndEnterIsOK) {
    Open();
    Do(request_of({"First"}));
    Click("First(X)", 0);
    (void)Broadcasts();
    fScreen->PressKey(B_ESCAPE);
    Settle();
    EXPECT_THAT(BroadcastValues(), ElementsAre("First on"));
    EXPECT_FALSE(fScreen->IsShown());

    Do(kMsgActivateSharedWindow);
    Click("First(X)", 0);
    (void)Broadcasts();
    fScreen->PressKey(B_ENTER);
    Settle();
    EXPECT_THAT(BroadcastValues(), IsEmpty());
    EXPECT_FALSE(fScreen->IsShown());
    EXPECT_FALSE(IsOn("First(X)"));
}

TEST_F(IAPWindowTest, LettersFollowTheLabels) {
    Open();
    Do(request_of({"First"}));
    fScreen->PressKey('x', B_CONTROL_KEY);
    Settle();
    EXPECT_THAT(BroadcastValues(), ElementsAre("First box off"));
    fScreen->PressKey('d', B_CONTROL_KEY);
    Settle();
    EXPECT_THAT(BroadcastValues(), ElementsAre("First off"));
    EXPECT_TRUE(fScreen->IsShown());
}

TEST_F(IAPWindowTest, ComesToTheFrontWhenAskedFor) {
    Open();
    const int32 before = fScreen->CountActivations();
    Do(kMsgActivateSharedWindow);
    EXPECT_EQ(fScreen->CountActivations(), before + 1);
    EXPECT_TRUE(fScreen->IsShown());
}

TEST_F(IAPWindowTest, IgnoresChangesOfWhatIsNotThere) {
    Open();
    Do(request_of({"First"}));
    BMessage change(kMsgSharedControlChanged);
    Do(change);
    change.AddString("IAP:SrcIAPItem", "Second");
    Do(change);
    change.ReplaceString("IAP:SrcIAPItem", "ButtonContainer");
    Do(change);
    EXPECT_THAT(BroadcastValues(), IsEmpty());
}

TEST_F(IAPWindowTest, FetchesItsTextsAgain) {
    Open();
    Do(request_of({"First"}));
    with_lock(fWindow, [&] {
        fWindow->SetTitle("old");
        auto* box = dynamic_cast<BCheckBox*>(fWindow->FindView("XFirst"));
        ASSERT_NE(box, nullptr);
        box->SetLabel("old");
    });
    BMessage change(kMsgLanguageChanged);
    ASSERT_EQ(BMessenger(fWindow).SendMessage(&change), B_OK);
    Settle();
    EXPECT_EQ(fScreen->Title(), "ZELKAN Common Preferences");
    EXPECT_TRUE(HasLabel("First(X)"));
    EXPECT_FALSE(HasLabel("old"));
}

}  // namespace
