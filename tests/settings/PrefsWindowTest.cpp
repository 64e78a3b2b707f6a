// The preferences dialog's window, and what becomes of it when its layout is no good.

#include "settings/PrefsWindow.h"

#include <app/Message.h>
#include <interface/Window.h>


#include "framework/MessageCodes.h"
#include "settings/PrefView.h"
#include "tests/settings/BrokenLayout.h"
#include "tests/settings/PrefViewFixture.h"

namespace {

class PrefsWindowTest : public PrefViewFixture {
protected:
    static status_t MakeAndEnd() {
        auto* window = new TPrefsWindow(BRect(0, 0, 99, 99));
        const status_t status = window->InitCheck();
        if (status != B_OK) {
            EXPECT_EQ(window->CountChildren(), 0);
        }
        // The application keeps it, and may send it what it sends to any.
        for (const uint32 what : {kPrefDisplayOption, kPrefEnableComment, kMsgSharedItemChanged}) {
            BMessage message(what);
            window->MessageReceived(&message);
        }
        EXPECT_TRUE(window->QuitRequested());
        window->Quit();
        return status;
    }

    const TBrokenLayout fBroken{"PrefsViewRsrc", MakeAndEnd};
};

TEST_F(PrefsWindowTest, IsMadeAsADialog) {
    Open();
    const auto spec = fScreen->Spec();
    EXPECT_EQ(spec.look, B_TITLED_WINDOW_LOOK);
    EXPECT_EQ(spec.feel, B_NORMAL_WINDOW_FEEL);
    EXPECT_EQ(spec.flags, B_ASYNCHRONOUS_CONTROLS | B_NOT_ZOOMABLE | B_NOT_RESIZABLE);
    EXPECT_EQ(fScreen->Frame().LeftTop(), BPoint(100, 120));
    EXPECT_EQ(fScreen->Title(), "Preferences");
}

TEST_F(PrefsWindowTest, OnlyAWholeLayoutIsTaken) {
    fBroken.ExpectOnlyAWholeOneIsTaken();
}

TEST_F(PrefsWindowTest, EveryViewIsNeeded) {
    const std::vector<std::string> names = fBroken.Names();
    EXPECT_EQ(names.size(), 22U);
    fBroken.ExpectAllAreNeeded(names);
}

TEST_F(PrefsWindowTest, EveryControlIsOfItsClass) {
    std::vector<std::string> names = fBroken.Names();
    // For a page any view will do.
    std::erase_if(names, [](const std::string& name) { return name.starts_with("Page"); });
    fBroken.ExpectNoneMayBeOf("BStringView", names);
}

TEST_F(PrefsWindowTest, AControlInAnotherPlaceIsRefused) {
    // The button of another page, and a control as the page itself.
    BMessage layout(fBroken.Layout());
    TBrokenLayout::Rewrite(&layout, [&](BMessage* view) {
        if (std::string("PageEtc") == view->GetString("_name", "")) {
            (void)view->ReplaceString("class", "BCheckBox");
            (void)view->ReplaceString("_name", "CBoxEnablePreload");
        }
        return true;
    });
    EXPECT_EQ(fBroken.InitWith(layout), B_NO_INIT);
}

TEST_F(PrefsWindowTest, AbsurdFramesAreMadeGood) {
    fBroken.ExpectAbsurdFramesAreMadeGood();
}

TEST_F(PrefsWindowTest, WhatIsTypedIntoAnOldFileIsShownAndCancelled) {
    gPrefs.fCommentEncoding = 3;
    ASSERT_EQ(gPrefs.SaveToFile(), B_OK);
    gPrefs = TPrefs();
    ASSERT_EQ(gPrefs.LoadFromFile(), B_OK);
    Open();
    Click("Cancel");
    EXPECT_EQ(Saved().fCommentEncoding, 3);
}

}  // namespace
