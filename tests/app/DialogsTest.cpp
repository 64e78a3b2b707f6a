// What the application opens, and what it says when it cannot.

#include <app/AppDefs.h>
#include <app/Messenger.h>
#include <interface/InterfaceDefs.h>
#include <kernel/OS.h>
#include <storage/Entry.h>
#include <storage/FilePanel.h>

#include "framework/AppPrivacy.h"
#include "framework/MessageCodes.h"
#include "framework/Version.h"
#include "iap/IAPItemAccKeyFormat.h"
#include "iap/InterAppPrefs.h"
#include "settings/ExitStates.h"
#include "tests/app/AppFixture.h"
#include "tests/framework/TemporaryFolder.h"
#include "tests/viewer/FakeRoster.h"

namespace {

using recording::TheRecordingDisplay;
using recording::WaitFor;
using ScreenWindow = std::shared_ptr<recording::Window>;

constexpr char kAlertTitle[] = "* Lorivane *";
constexpr char kPanelTitle[] = "Lorivane: Open";
constexpr char kAboutTitle[] = "About Lorivane";
constexpr uint32 kEcho = 'echo';

class Dialogs : public AppFixture {
protected:
    Dialogs() {
        (void)gIAPs.AddItem(new TIAPItemAccKeyFormat);
        gExitStates.fWindowFrame = BRect(120, 130, 620, 530);
    }

    static void Ask(uint32 what) { EXPECT_EQ(be_app_messenger.SendMessage(what), B_OK); }
    static void QuitApp() { Ask(B_QUIT_REQUESTED); }
    /// Until the application has dealt with all it was sent.
    static void Settle() {
        BMessage reply;
        EXPECT_EQ(be_app_messenger.SendMessage(kEcho, &reply), B_OK);
    }
    static ScreenWindow Shown(const char* title) {
        auto window = TheRecordingDisplay().WaitForWindow(title);
        EXPECT_NE(window, nullptr) << title;
        return window;
    }
    static size_t CountOpen() { return TheRecordingDisplay().Windows().size(); }

    static std::string TextOf(const recording::Window& alert) {
        for (const recording::Control& control : alert.Controls()) {
            if (const auto* text = std::get_if<BPrivate::AlertTextState>(&control.state))
                return text->text;
        }
        return "no text";
    }

    /// The alert that is open says that; the user understands it.
    static void Understand(const std::string& text) {
        const ScreenWindow alert = Shown(kAlertTitle);
        ASSERT_TRUE(alert);
        EXPECT_EQ(TextOf(*alert), text);
        const auto button = alert->FindControl("Understand(U)");
        ASSERT_TRUE(button);
        alert->SetValue(button->id, 1);
        EXPECT_TRUE(WaitFor([&] { return !alert->IsOpen(); }));
    }

    static recording::Control Files(const recording::Window& panel) {
        for (const recording::Control& control : panel.Controls()) {
            if (std::holds_alternative<BPrivate::FilePanelState>(control.state))
                return control;
        }
        ADD_FAILURE() << "no files";
        return {};
    }

    /// The priority of the thread of the window of that title.
    static int32 PriorityOf(const char* title) {
        for (int32 i = 0; BWindow* window = be_app->WindowAt(i); ++i) {
            if (with_lock(window, [&] { return std::string(window->Title()) == title; })) {
                thread_info info;
                EXPECT_EQ(get_thread_info(window->Thread(), &info), B_OK);
                return info.priority;
            }
        }
        ADD_FAILURE() << "no " << title;
        return -1;
    }
};

// #pragma mark - The open panel

TEST_F(Dialogs, OpenPanelIsMadeOnceAndCanChooseEverything) {
    RunApp([](recording::Window&) {
        EXPECT_EQ(CountOpen(), 1U);
        Ask(kMsgOpen);
        const ScreenWindow panel = Shown(kPanelTitle);
        ASSERT_TRUE(panel);
        const auto state = std::get<BPrivate::FilePanelState>(Files(*panel).state);
        EXPECT_EQ(state.flavors, 7U);
        EXPECT_TRUE(state.multiple);
        EXPECT_FALSE(panel->Spec().feel == B_MODAL_APP_WINDOW_FEEL);

        Ask(kMsgOpen);
        Settle();
        EXPECT_EQ(CountOpen(), 2U);
        EXPECT_EQ(Shown(kPanelTitle), panel);
        EXPECT_EQ(PriorityOf(kPanelTitle), 15);

        panel->PressCloseBox();
        EXPECT_TRUE(WaitFor([&] { return !panel->IsShown(); }));
        EXPECT_TRUE(WaitFor([&] { return PriorityOf(kPanelTitle) == 5; }));
        Ask(kMsgOpen);
        EXPECT_TRUE(WaitFor([&] { return panel->IsShown(); }));
        Settle();
        EXPECT_EQ(PriorityOf(kPanelTitle), 15);
        QuitApp();
    });
}

TEST_F(Dialogs, OpenPanelFollowsTheLanguage) {
    RunApp([this](recording::Window&) {
        Ask(kMsgOpen);
        const ScreenWindow panel = Shown(kPanelTitle);
        ASSERT_TRUE(panel);
        for (int32 i = 0; BWindow* window = be_app->WindowAt(i); ++i) {
            with_lock(window, [&] {
                if (window->Title() == std::string(kPanelTitle))
                    window->SetTitle("old");
            });
        }
        EXPECT_TRUE(WaitFor([&] { return panel->Title() == "old"; }));
        EXPECT_EQ(BMessenger(fWindow).SendMessage(kMsgLanguageChanged), B_OK);
        EXPECT_TRUE(WaitFor([&] { return panel->Title() == kPanelTitle; }));
        QuitApp();
    });
}

TEST_F(Dialogs, ACancelOfNobodysDoesNothing) {
    RunApp([](recording::Window&) {
        BMessage cancel(B_CANCEL);
        EXPECT_EQ(be_app_messenger.SendMessage(&cancel), B_OK);
        int somewhere = 0;
        (void)cancel.AddPointer("source", &somewhere);
        EXPECT_EQ(be_app_messenger.SendMessage(&cancel), B_OK);
        Ask(kMsgOpen);
        EXPECT_TRUE(Shown(kPanelTitle));
        EXPECT_EQ(be_app_messenger.SendMessage(&cancel), B_OK);
        Settle();
        EXPECT_NE(PriorityOf(kPanelTitle), 5);
        QuitApp();
    });
}

TEST_F(Dialogs, CancelReportsAMissingPanel) {
    TLorivaneApp app;
    BMessage cancel(B_CANCEL);
    EXPECT_EQ(app.Cancel(&cancel), B_NAME_NOT_FOUND);
    (void)cancel.AddPointer("source", nullptr);
    EXPECT_EQ(app.Cancel(&cancel), B_OK);
}

// #pragma mark - The about box

TEST_F(Dialogs, AboutBoxIsMadeOnceAndBroughtBack) {
    RunApp([](recording::Window&) {
        Ask(B_ABOUT_REQUESTED);
        const ScreenWindow about = Shown(kAboutTitle);
        ASSERT_TRUE(about);
        EXPECT_EQ(about->Frame().LeftTop(), BPoint(120, 150));
        for (const char* text : {"Lorivane", gAppVer, "Copyright (C) ZELKAN"})
            EXPECT_TRUE(about->FindControl(text)) << text;

        const int32 before = about->CountActivations();
        Ask(B_ABOUT_REQUESTED);
        EXPECT_TRUE(WaitFor([&] { return about->CountActivations() > before; }));
        EXPECT_EQ(CountOpen(), 2U);

        about->PressCloseBox();
        EXPECT_TRUE(WaitFor([&] { return !about->IsShown(); }));
        Ask(B_ABOUT_REQUESTED);
        EXPECT_TRUE(WaitFor([&] { return about->IsShown(); }));
        EXPECT_EQ(CountOpen(), 2U);
        QuitApp();
    });
}

// #pragma mark - Failures

TEST_F(Dialogs, NoImageHasNoInformation) {
    RunApp([](recording::Window&) {
        for (int i = 0; i < 2; ++i) {
            Ask(kMsgShowImageInfo);
            Understand("No image is displayed.\n\n");
        }
        QuitApp();
    });
}

TEST_F(Dialogs, InformationWithoutALayoutIsReportedEveryTime) {
    const std::string image = fHome / "a";
    write_text(image, fake::ImageFile("a", 20, 10, {1, 2, 3, 255}));
    RunApp([&](recording::Window&) {
        BMessage files(B_REFS_RECEIVED);
        entry_ref ref;
        EXPECT_EQ(get_ref_for_path(image.c_str(), &ref), B_OK);
        (void)files.AddRef(kFieldRefs, &ref);
        EXPECT_EQ(be_app_messenger.SendMessage(&files), B_OK);
        EXPECT_TRUE(WaitFor([&] {
            return with_lock(fWindow, [&] { return fWindow->CurrentImage() != nullptr; });
        }));
        for (int i = 0; i < 2; ++i) {
            Ask(kMsgShowImageInfo);
            Understand(
                "The image information window cannot be opened.\n\n"
                "The program file may be damaged. Please install the program again.");
        }
        Settle();
        EXPECT_EQ(CountOpen(), 1U);
        QuitApp();
    });
}

TEST_F(Dialogs, PreferencesWithoutALayoutAreReportedEveryTime) {
    RunApp([](recording::Window&) {
        for (int i = 0; i < 2; ++i) {
            Ask(kMsgShowPrefs);
            Understand(
                "The preferences window cannot be opened.\n\n"
                "The program file may be damaged. Please install the program again.");
        }
        // Notices find nobody there.
        for (const uint32 notice : {kPrefDisplayOption, kPrefEnableComment})
            Ask(notice);
        Settle();
        QuitApp();
    });
}

TEST_F(Dialogs, AMissingHelpDocumentIsReported) {
    const std::string program = fHome / "lorivane";
    gAppPrivacy.AnalyzeExePath(program.c_str());
    RunApp([](recording::Window&) {
        Ask(kMsgShowHelp);
        Understand("The help document cannot be opened.\n\n");
        QuitApp();
    });
}

// #pragma mark - Quitting

TEST_F(Dialogs, QuitsWithEverythingOpen) {
    RunApp([this](recording::Window& screen) {
        Ask(kMsgOpen);
        EXPECT_TRUE(Shown(kPanelTitle));
        Ask(B_ABOUT_REQUESTED);
        EXPECT_TRUE(Shown(kAboutTitle));
        const BRect frame = with_lock(fWindow, [&] { return fWindow->Frame(); });
        EXPECT_TRUE(frame.IsValid());
        screen.PressCloseBox();
    });
}

// The window's thread waits for the answer, and the application has to lock the window.
TEST_F(Dialogs, QuitsWhileTheMainWindowAsks) {
    RunApp([this](recording::Window&) {
        EXPECT_EQ(BMessenger(fWindow).SendMessage(kMsgDeleteAllHistory), B_OK);
        EXPECT_TRUE(Shown(kAlertTitle));
        QuitApp();
    });
}

TEST_F(Dialogs, QuitsWhenTheMainWindowIsClosedBesideAnAlert) {
    RunApp([](recording::Window& screen) {
        Ask(kMsgShowImageInfo);
        const ScreenWindow alert = Shown(kAlertTitle);
        ASSERT_TRUE(alert);
        screen.PressCloseBox();
    });
}

}  // namespace
