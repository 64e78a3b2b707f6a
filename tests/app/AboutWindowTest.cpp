#include "app/AboutWindow.h"

#include <app/Application.h>
#include <gtest/gtest.h>
#include <interface/Button.h>
#include <interface/StringView.h>

#include "app/AppInfoView.h"
#include "framework/MessageCodes.h"
#include "framework/Version.h"
#include "iap/IAPItemAccKeyFormat.h"
#include "iap/InterAppPrefs.h"
#include "kits/locale/LanguageChange.h"
#include "tests/framework/TestWindows.h"

namespace {

constexpr BRect kFrame(100, 120, 400, 400);

/// Notes that it was told of a shared preference.
class TListeningView : public TSimpleAboutView {
public:
    explicit TListeningView(TLog* log)
        : TSimpleAboutView(kFrame, new TAppInfoView(BPoint())), fLog(log) {}

    void IAPChanged(const BMessage& change) override {
        TSimpleAboutView::IAPChanged(change);
        fLog->Add(change.GetString(kFieldSharedItem, ""));
    }

private:
    TLog* fLog;
};

class AboutWindowTest : public testing::Test {
protected:
    AboutWindowTest() : fApp("application/x-vnd.Test-About") {}
    ~AboutWindowTest() override { BPrivate::change_language("en"); }

    /// Makes the window and lets the user see it.
    void Show(TZELKANAboutView* view = nullptr) {
        fWindow = new TZELKANAboutWindow(kFrame, view);
        fQuitter = std::make_unique<TWindowQuitter>(fWindow);
        fWindow->SetAppInfo(kAppName, gAppVer, kAppCopyright);
        fWindow->SetIAPRef(&fPrefs);
        fWindow->Appear();
        fScreen = recording::TheRecordingDisplay().WaitForWindow("About Lorivane");
        ASSERT_TRUE(fScreen);
    }

    std::string TextOf(const char* name) const {
        return with_lock(fWindow, [&] {
            const auto* view = dynamic_cast<BStringView*>(fWindow->FindView(name));
            return std::string(view != nullptr ? view->Text() : "no view");
        });
    }
    BRect PlaceOf(const char* name) const {
        return with_lock(fWindow, [&] {
            BView* view = fWindow->FindView(name);
            BRect frame = view->Bounds();
            BPoint leftTop;
            for (; view != nullptr; view = view->Parent())
                leftTop += view->Frame().LeftTop();
            return frame.OffsetToCopy(leftTop);
        });
    }
    BRect Bounds() const {
        return with_lock(fWindow, [&] { return fWindow->Bounds(); });
    }

    BApplication fApp;
    TInterAppPrefs fPrefs;
    TZELKANAboutWindow* fWindow = nullptr;
    std::unique_ptr<TWindowQuitter> fQuitter;
    std::shared_ptr<recording::Window> fScreen;
};

TEST_F(AboutWindowTest, TellsWhatTheApplicationIs) {
    Show();
    EXPECT_EQ(TextOf("StrViewAppName"), "Lorivane");
    EXPECT_EQ(TextOf("StrViewAppVersion"), gAppVer);
    EXPECT_EQ(TextOf("StrViewCopyright"), "Copyright (C) ZELKAN");
    const auto button = fScreen->FindControl("OK");
    ASSERT_TRUE(button);
    EXPECT_TRUE(std::get<BPrivate::ButtonState>(button->state).isDefault);
}

TEST_F(AboutWindowTest, TheNameStandsOut) {
    Show();
    const auto name = fScreen->FindControl("Lorivane");
    const auto version = fScreen->FindControl(gAppVer);
    ASSERT_TRUE(name && version);
    const auto& nameFont = std::get<BPrivate::StringViewState>(name->state).font;
    EXPECT_TRUE(nameFont.bold);
    EXPECT_GT(nameFont.size, std::get<BPrivate::StringViewState>(version->state).font.size);
}

TEST_F(AboutWindowTest, IsAsLargeAsItsContentInItsOrder) {
    Show();
    const BRect name = PlaceOf("StrViewAppName");
    const BRect version = PlaceOf("StrViewAppVersion");
    const BRect copyright = PlaceOf("StrViewCopyright");
    const BRect button = PlaceOf("ButtonOK");
    EXPECT_GT(version.top, name.bottom);
    EXPECT_GT(copyright.top, version.bottom);
    EXPECT_GT(button.top, copyright.bottom);
    for (const BRect& place : {name, version, copyright, button})
        EXPECT_TRUE(Bounds().Contains(place));
    EXPECT_LT(Bounds().Width(), kFrame.Width());
    EXPECT_EQ(Bounds().right - button.right, Bounds().bottom - button.bottom);
}

TEST_F(AboutWindowTest, DrawsTheIconOverThePanelColour) {
    Show();
    const rgb_color panel = ui_color(B_PANEL_BACKGROUND_COLOR);
    ASSERT_TRUE(recording::WaitFor([&] { return fScreen->Shown().width > 0; }));
    const auto shown = fScreen->Shown();
    EXPECT_TRUE(shown.IsAll(BRect(0, 0, 15, 15), panel));
    // The icon of this program is one translucent colour.
    const rgb_color icon = shown.At(17, 17);
    EXPECT_NE(icon.red, panel.red);
    EXPECT_TRUE(shown.IsAll(BRect(16, 16, 47, 47), icon));
    EXPECT_FALSE(shown.IsAll(BRect(16, 16, 48, 47), icon));
}

TEST_F(AboutWindowTest, EnterAndEscapeAndTheButtonAndTheCloseBoxHideIt) {
    Show();
    const auto hidden = [&] { return !fScreen->IsShown(); };
    const auto showAgain = [&] {
        with_lock(fWindow, [&] { fWindow->Appear(); });
        EXPECT_TRUE(recording::WaitFor([&] { return fScreen->IsShown(); }));
    };
    fScreen->PressKey(B_ENTER);
    EXPECT_TRUE(recording::WaitFor(hidden));
    showAgain();
    fScreen->PressKey(B_ESCAPE);
    EXPECT_TRUE(recording::WaitFor(hidden));
    showAgain();
    fScreen->SetValue(fScreen->FindControl("OK")->id, 1);
    EXPECT_TRUE(recording::WaitFor(hidden));
    showAgain();
    fScreen->PressCloseBox();
    EXPECT_TRUE(recording::WaitFor(hidden));
    EXPECT_TRUE(fScreen->IsOpen());
}

TEST_F(AboutWindowTest, SpeaksTheLanguageOfTheSystem) {
    Show();
    // A long text that German says in more words.
    fWindow->SetAppInfo("@Hint_Excutable_Maybe_Broken@", gAppVer, kAppCopyright);
    const BRect english = Bounds();
    BPrivate::change_language("de");
    EXPECT_TRUE(recording::WaitFor([&] { return fScreen->Title() == "Über Lorivane"; }));
    EXPECT_TRUE(
        recording::WaitFor([&] { return TextOf("StrViewCopyright") == "Copyright © ZELKAN"; }));
    EXPECT_TRUE(recording::WaitFor([&] { return Bounds().Width() > english.Width(); }));
    EXPECT_TRUE(Bounds().Contains(PlaceOf("StrViewAppName")));
    BPrivate::change_language("en");
    EXPECT_TRUE(recording::WaitFor([&] { return Bounds() == english; }));
}

TEST_F(AboutWindowTest, GrowsWithItsTexts) {
    Show();
    const std::string longText(80, 'W');
    fWindow->SetAppInfo(longText, gAppVer, "%AppAuthor% and %AppAuthor%");
    EXPECT_EQ(TextOf("StrViewCopyright"), "ZELKAN and ZELKAN");
    EXPECT_TRUE(Bounds().Contains(PlaceOf("StrViewAppName")));
    EXPECT_EQ(fScreen->Frame().Width(), Bounds().Width());
}

TEST_F(AboutWindowTest, StaysOnTheScreenWhenItGrowsBeforeItIsSeen) {
    fWindow = new TZELKANAboutWindow(BRect(1900, 1060, 1910, 1070), nullptr);
    fQuitter = std::make_unique<TWindowQuitter>(fWindow);
    fWindow->SetAppInfo(kAppName, gAppVer, kAppCopyright);
    EXPECT_TRUE(BRect(0, 0, 1919, 1079).Contains(fWindow->Frame()));
    fWindow->Show();
}

TEST_F(AboutWindowTest, HearsOfSharedPreferences) {
    TLog log;
    ASSERT_EQ(fPrefs.AddItem(new TIAPItemAccKeyFormat), B_OK);
    Show(new TListeningView(&log));
    BMessage change(kMsgSharedItemChanged);
    ASSERT_EQ(change.AddString(kFieldSharedItem, "AccKeyFormat2"), B_OK);
    ASSERT_EQ(change.AddString("AccKeyFormat2", "\1a) "), B_OK);
    // As if another application had set it: nothing is saved.
    ASSERT_EQ(change.AddString(kFieldSharedApp, "application/x-vnd.Other"), B_OK);
    ASSERT_EQ(fPrefs.SetValue(change), B_OK);
    EXPECT_EQ(log.WaitFor(1), std::vector<std::string>{"AccKeyFormat2"});
    // Enter is the button's key, so its caption never shows a letter.
    EXPECT_TRUE(fScreen->FindControl("OK"));
    fQuitter.reset();
}

TEST_F(AboutWindowTest, TheButtonFollowsTheLanguageWithTheNextSharedPreference) {
    Show();
    with_lock(
        fWindow, [&] { dynamic_cast<BButton*>(fWindow->FindView("ButtonOK"))->SetLabel("stale"); });
    ASSERT_TRUE(fScreen->FindControl("stale"));
    ASSERT_EQ(fPrefs.NotifyToObservers(BMessage(kMsgSharedItemChanged)), B_OK);
    EXPECT_TRUE(recording::WaitFor([&] { return fScreen->FindControl("OK").has_value(); }));
}

}  // namespace
