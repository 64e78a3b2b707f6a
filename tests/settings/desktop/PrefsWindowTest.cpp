// The preferences with the desktop's own fonts and theme. The window is not shown, so that all of
// it happens on this thread.

#include "settings/PrefsWindow.h"

#include <app/Application.h>
#include <gtest/gtest.h>
#include <interface/TabView.h>

#include "framework/FindChild.h"
#include "iap/IAPItemAccKeyFormat.h"
#include "iap/InterAppPrefs.h"
#include "kits/locale/Catalogue.h"
#include "settings/PrefView.h"
#include "tests/framework/SettingsHome.h"
#include "tests/settings/LayoutCheck.h"

namespace {

class PrefsOnDesktop : public testing::Test {
protected:
    PrefsOnDesktop() {
        gPrefs = TPrefs();
        (void)gIAPs.AddItem(new TIAPItemAccKeyFormat);
        fWindow = new TPrefsWindow(BRect(50, 50, 149, 149));
    }
    ~PrefsOnDesktop() override {
        fWindow->Quit();
        BPrivate::set_catalogue(BPrivate::catalogue_of("en"));
    }

    TPrefView& View() { return dynamic_cast<TPrefView&>(*fWindow->ChildAt(0)); }

    TSettingsHome fHome;
    TPrefsWindow* fWindow;
};

TEST_F(PrefsOnDesktop, CutsNothingInAnyLanguageAndFormat) {
    ASSERT_EQ(fWindow->InitCheck(), B_OK);
    auto* tabs = find_child<BTabView>(&View(), "TabViewPref");
    for (const char* language : {"en", "de", "ja"}) {
        for (const char* format : {"\2(a)", "\1a) ", "\1a・", "\1a - ", ""}) {
            SCOPED_TRACE(std::string(language) + " " + format);
            BPrivate::set_catalogue(BPrivate::catalogue_of(language));
            (void)gIAPs.SetString("AccKeyFormat2", format);
            View().LanguageChanged();
            for (int32 tab = 0; tab < tabs->CountTabs(); tab++) {
                tabs->Select(tab);
                layout_check::expect_tidy(&View());
            }
            EXPECT_EQ(fWindow->Bounds().Width(), View().Frame().Width());
            EXPECT_EQ(fWindow->Bounds().Height(), View().Frame().Height());
            EXPECT_LT(fWindow->Bounds().Width(), 640);
            EXPECT_LT(fWindow->Bounds().Height(), 560);
        }
    }
}

}  // namespace
