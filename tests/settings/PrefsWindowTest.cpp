// The preferences dialog's window, and what becomes of it when its layout is no good.

#include "settings/PrefsWindow.h"

#include <app/Application.h>
#include <app/Message.h>
#include <interface/Window.h>
#include <storage/Resources.h>

#include <functional>
#include <limits>

#include "app/MessageCodes.h"
#include "framework/Layout.h"
#include "settings/PrefView.h"
#include "tests/settings/PrefViewFixture.h"

namespace {

class PrefsWindowTest : public PrefViewFixture {
protected:
    PrefsWindowTest() : fResources(*BApplication::AppResources()) {
        EXPECT_EQ(load_layout("PrefsViewRsrc", &fLayout), B_OK);
    }
    ~PrefsWindowTest() override { *BApplication::AppResources() = fResources; }

    /// What a window says that finds these bytes as its layout.
    static status_t InitWith(const std::string& bytes, const char* name = "PrefsViewRsrc") {
        const BPrivate::EmbeddedResource resource{'ARCV', 1, name, bytes.data(), bytes.size()};
        *BApplication::AppResources() = BResources({&resource, 1});
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
    static std::string Bytes(const BMessage& layout) {
        std::string bytes(static_cast<size_t>(layout.FlattenedSize()), '\0');
        EXPECT_EQ(layout.Flatten(bytes.data(), static_cast<ssize_t>(bytes.size())), B_OK);
        return bytes;
    }
    static status_t InitWith(const BMessage& layout) { return InitWith(Bytes(layout)); }

    BMessage fLayout;

private:
    const BResources fResources;
};

/// Calls `change` for the archive of every view in it, the innermost first; puts back what it
/// leaves, and takes out what it answers false for.
void rewrite(BMessage* archive, const std::function<bool(BMessage*)>& change) {
    for (const char* field : {"_views", "_view_list"}) {
        BMessage child;
        std::vector<BMessage> kept;
        for (int32 i = 0; archive->FindMessage(field, i, &child) == B_OK; i++) {
            rewrite(&child, change);
            if (change(&child))
                kept.push_back(child);
        }
        (void)archive->RemoveName(field);
        for (const BMessage& view : kept)
            (void)archive->AddMessage(field, &view);
    }
}

std::vector<std::string> names_in(BMessage layout) {
    std::vector<std::string> names;
    rewrite(&layout, [&](BMessage* view) {
        names.emplace_back(view->GetString("_name", ""));
        return true;
    });
    return names;
}

TEST_F(PrefsWindowTest, IsMadeAsADialog) {
    Open();
    const auto spec = fScreen->Spec();
    EXPECT_EQ(spec.look, B_TITLED_WINDOW_LOOK);
    EXPECT_EQ(spec.feel, B_NORMAL_WINDOW_FEEL);
    EXPECT_EQ(spec.flags, B_ASYNCHRONOUS_CONTROLS | B_NOT_ZOOMABLE | B_NOT_RESIZABLE);
    EXPECT_EQ(fScreen->Frame().LeftTop(), BPoint(100, 120));
    EXPECT_EQ(fScreen->Title(), "Preferences");
}

TEST_F(PrefsWindowTest, AGoodLayoutIsTaken) {
    EXPECT_EQ(InitWith(fLayout), B_OK);
}

TEST_F(PrefsWindowTest, WithoutALayoutItIsEmpty) {
    EXPECT_EQ(InitWith(Bytes(fLayout), "OtherRsrc"), B_NO_INIT);
    EXPECT_EQ(InitWith(std::string()), B_NO_INIT);
}

TEST_F(PrefsWindowTest, ATruncatedLayoutIsRefused) {
    const std::string bytes = Bytes(fLayout);
    for (size_t length = 0; length < bytes.size(); length += 97)
        EXPECT_EQ(InitWith(bytes.substr(0, length)), B_NO_INIT) << length;
}

TEST_F(PrefsWindowTest, ADamagedLayoutIsRefused) {
    const std::string bytes = Bytes(fLayout);
    for (size_t place = 0; place < bytes.size(); place += 97) {
        std::string damaged = bytes;
        damaged[place] = static_cast<char>(damaged[place] ^ 0x55);
        EXPECT_EQ(InitWith(damaged), B_NO_INIT) << place;
    }
}

TEST_F(PrefsWindowTest, AnArchiveOfAnotherClassIsRefused) {
    (void)fLayout.ReplaceString("class", "BButton");
    EXPECT_EQ(InitWith(fLayout), B_NO_INIT);
    (void)fLayout.RemoveName("class");
    EXPECT_EQ(InitWith(fLayout), B_NO_INIT);
}

TEST_F(PrefsWindowTest, EveryViewIsNeeded) {
    const std::vector<std::string> names = names_in(fLayout);
    EXPECT_EQ(names.size(), 22U);
    for (const std::string& name : names) {
        BMessage layout(fLayout);
        rewrite(&layout, [&](BMessage* view) { return name != view->GetString("_name", ""); });
        EXPECT_EQ(InitWith(layout), B_NO_INIT) << name;
    }
}

TEST_F(PrefsWindowTest, EveryControlIsOfItsClass) {
    for (const std::string& name : names_in(fLayout)) {
        if (name.starts_with("Page"))
            continue;  // any view will do
        BMessage layout(fLayout);
        rewrite(&layout, [&](BMessage* view) {
            if (name == view->GetString("_name", ""))
                (void)view->ReplaceString("class", "BStringView");
            return true;
        });
        EXPECT_EQ(InitWith(layout), B_NO_INIT) << name;
    }
}

TEST_F(PrefsWindowTest, AControlInAnotherPlaceIsRefused) {
    // The button of another page, and a control as the page itself.
    BMessage layout(fLayout);
    rewrite(&layout, [&](BMessage* view) {
        if (std::string("PageEtc") == view->GetString("_name", "")) {
            (void)view->ReplaceString("class", "BCheckBox");
            (void)view->ReplaceString("_name", "CBoxEnablePreload");
        }
        return true;
    });
    EXPECT_EQ(InitWith(layout), B_NO_INIT);
}

TEST_F(PrefsWindowTest, AbsurdFramesAreMadeGood) {
    const float none = std::numeric_limits<float>::quiet_NaN();
    for (const BRect frame : {BRect(), BRect(0, 0, 1e30F, 1e30F), BRect(none, none, none, none),
             BRect(-5000, -5000, -6000, -6000)}) {
        BMessage layout(fLayout);
        (void)layout.ReplaceRect("_frame", frame);
        rewrite(&layout, [&](BMessage* view) {
            (void)view->ReplaceRect("_frame", frame);
            return true;
        });
        EXPECT_EQ(InitWith(layout), B_OK);
    }
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
