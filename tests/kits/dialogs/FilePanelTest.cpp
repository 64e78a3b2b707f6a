#include <storage/FilePanel.h>

#include <app/Application.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <kernel/OS.h>
#include <storage/Directory.h>
#include <storage/FindDirectory.h>
#include <storage/Path.h>

#include "tests/kits/dialogs/Asking.h"
#include "tests/kits/storage/TemporaryFolder.h"

using namespace BPrivate;

namespace {

/// A panel in a folder of its own, and a window that is told.
class FilePanelTest : public TemporaryFolder {
protected:
    FilePanelTest() { fTarget.Show(); }

    void Make(uint32 flavors = B_ANY_NODE, bool multiple = true, BMessage* message = nullptr,
        bool hideWhenDone = true) {
        entry_ref start;
        ASSERT_EQ(get_ref_for_path(Folder().c_str(), &start), B_OK);
        BMessenger target(fTarget.Get());
        fPanel = std::make_unique<BFilePanel>(B_OPEN_PANEL, &target, &start, flavors, multiple,
            message, nullptr, false, hideWhenDone);
        fScreen = recording::TheRecordingDisplay().Windows().back();
    }
    void MakeAndShow() {
        Make();
        fPanel->Show();
        ASSERT_TRUE(fScreen->IsShown());
    }

    recording::Control Files() const {
        const auto controls = fScreen->Controls();
        EXPECT_EQ(controls.size(), 1U);
        return controls.front();
    }
    FilePanelState State() const { return std::get<FilePanelState>(Files().state); }
    entry_ref RefOf(const std::string& name) {
        entry_ref ref;
        EXPECT_EQ(get_ref_for_path(MakeFile(name).c_str(), &ref), B_OK);
        return ref;
    }
    bool WaitHidden() const {
        return recording::WaitFor([&] { return !fScreen->IsShown(); });
    }
    std::string PanelFolder() const {
        entry_ref ref;
        fPanel->GetPanelDirectory(&ref);
        return BPath(&ref).Path();
    }
    /// Waits until the panel has dispatched all that was sent to it.
    void Settle() const {
        BMessage ping('ping');
        BMessage reply;
        (void)BMessenger(fPanel->Window()).SendMessage(&ping, &reply);
    }

    AskingWindow fTarget;
    std::unique_ptr<BFilePanel> fPanel;
    std::shared_ptr<recording::Window> fScreen;
};

std::vector<std::string> NamesOf(const BMessage& message) {
    std::vector<std::string> names;
    entry_ref ref;
    for (int32 i = 0; message.FindRef("refs", i, &ref) == B_OK; i++)
        names.emplace_back(ref.name);
    return names;
}

}  // namespace

TEST_F(FilePanelTest, IsMadeHiddenWithAThreadOfItsOwn) {
    Make();
    EXPECT_FALSE(fScreen->IsShown());
    EXPECT_FALSE(fPanel->IsShowing());
    EXPECT_EQ(fPanel->PanelMode(), B_OPEN_PANEL);
    EXPECT_TRUE(fPanel->HidesWhenDone());
    ASSERT_NE(fPanel->Window(), nullptr);
    ASSERT_TRUE(fPanel->Window()->Lock());
    EXPECT_STREQ(fPanel->Window()->Title(), "Open");
    EXPECT_GT(fPanel->Window()->Thread(), 0);
    fPanel->Window()->Unlock();
    EXPECT_FALSE(fScreen->IsShown());
}

TEST_F(FilePanelTest, ShowsWhatCanBeChosenAndWhere) {
    Make(B_FILE_NODE | B_DIRECTORY_NODE, false);
    EXPECT_EQ(State().folder, Folder());
    EXPECT_EQ(State().flavors, 5U);
    EXPECT_FALSE(State().multiple);
    fPanel->Show();
    EXPECT_TRUE(fPanel->IsShowing());
    const BRect inside = fScreen->Frame().OffsetToCopy(B_ORIGIN);
    EXPECT_EQ(Files().place.frame, inside);
    EXPECT_TRUE(recording::TheRecordingDisplay().MainScreenFrame().Contains(fScreen->Frame()));
    EXPECT_TRUE(Files().place.focused);
    fScreen->UserResize(900, 600);
    EXPECT_TRUE(recording::WaitFor([&] { return Files().place.frame == BRect(0, 0, 900, 600); }));
}

TEST_F(FilePanelTest, WithoutFlavorsFilesAreChosen) {
    Make(0);
    EXPECT_EQ(State().flavors, static_cast<uint32>(B_FILE_NODE));
}

TEST_F(FilePanelTest, SendsWhatIsChosenAndHides) {
    MakeAndShow();
    fScreen->ChooseFiles(Files().id, {RefOf("a.png"), RefOf("\xff\x80")});
    const BMessage refs = fTarget.Received(B_REFS_RECEIVED);
    EXPECT_THAT(NamesOf(refs), testing::ElementsAre("a.png", "\xff\x80"));
    EXPECT_FALSE(refs.IsSourceRemote());
    EXPECT_TRUE(WaitHidden());
    Settle();
    EXPECT_EQ(fTarget.Count(B_CANCEL), 0U);
}

TEST_F(FilePanelTest, SendsACopyOfItsMessage) {
    BMessage own('own!');
    own.AddInt32("more", 7);
    Make(B_ANY_NODE, true, &own, false);
    own.AddInt32("more", 8);
    fPanel->Show();
    for (int i = 1; i <= 2; i++) {
        fScreen->ChooseFiles(Files().id, {RefOf("a")});
        EXPECT_TRUE(recording::WaitFor([&] { return fTarget.Count('own!') == std::size_t(i); }));
        const BMessage got = fTarget.Received('own!');
        EXPECT_EQ(got.GetInt32("more", 0), 7);
        EXPECT_FALSE(got.HasInt32("more", 1));
        EXPECT_EQ(NamesOf(got).size(), 1U);
    }
    EXPECT_TRUE(fPanel->IsShowing());
    fPanel->SetMessage(nullptr);
    fPanel->SetHideWhenDone(true);
    fScreen->ChooseFiles(Files().id, {RefOf("a")});
    (void)fTarget.Received(B_REFS_RECEIVED);
    EXPECT_TRUE(WaitHidden());
}

TEST_F(FilePanelTest, GivingUpHidesItAndIsTold) {
    MakeAndShow();
    const auto cancel = [&](auto userDoes) {
        fPanel->Show();
        EXPECT_TRUE(fScreen->IsShown());
        const std::size_t before = fTarget.Count(B_CANCEL);
        userDoes();
        EXPECT_TRUE(WaitHidden());
        EXPECT_TRUE(recording::WaitFor([&] { return fTarget.Count(B_CANCEL) == before + 1; }));
        const BMessage told = fTarget.Received(B_CANCEL);
        EXPECT_EQ(told.GetPointer("source"), fPanel.get());
        EXPECT_EQ(told.GetInt32("old_what", 0), static_cast<int32>(B_REFS_RECEIVED));
        EXPECT_FALSE(fPanel->IsShowing());
    };
    cancel([&] { fScreen->CancelPanel(Files().id); });
    cancel([&] { fScreen->PressCloseBox(); });
    cancel([&] { fScreen->PressKey('w', B_COMMAND_KEY); });
    EXPECT_TRUE(fScreen->IsOpen());
}

TEST_F(FilePanelTest, AChoiceThatCrossedAChangeOnItsWayCounts) {
    MakeAndShow();
    BMessage choice(kControlChanged);
    const entry_ref ref = RefOf("a");
    choice.AddRef("refs", &ref);
    choice.AddInt32("control", Files().id);
    choice.AddInt32("serial", Files().serial);
    fPanel->SetButtonLabel(B_DEFAULT_BUTTON, "Take");
    fScreen->Send(choice);
    (void)fTarget.Received(B_REFS_RECEIVED);
}

TEST_F(FilePanelTest, ComesBackWhereItWasLeft) {
    MakeAndShow();
    fScreen->UserMove(BPoint(33, 44));
    fScreen->UserResize(555, 444);
    std::filesystem::create_directory(Place("sub"));
    fScreen->EnterFolder(Files().id, Place("sub"));
    fScreen->CancelPanel(Files().id);
    ASSERT_TRUE(WaitHidden());
    fPanel->Show();
    EXPECT_TRUE(fScreen->IsShown());
    EXPECT_EQ(fScreen->Frame(), BRect(33, 44, 588, 488));
    EXPECT_EQ(PanelFolder(), Place("sub"));
    // The control is still there, and is not told to go where it is.
    EXPECT_EQ(State().folderSerial, 0);
    // Shown again it comes to the front.
    const int32 before = fScreen->CountActivations();
    fPanel->Show();
    EXPECT_EQ(fScreen->CountActivations(), before + 1);
    fPanel->Hide();
    fPanel->Hide();
    EXPECT_FALSE(fPanel->IsShowing());
    fPanel->Show();
    EXPECT_TRUE(fScreen->IsShown());
}

TEST_F(FilePanelTest, GoesToAFolder) {
    Make();
    std::filesystem::create_directory(Place("sub"));
    std::filesystem::create_directory_symlink(Place("sub"), Place("link"));
    MakeFile("file");
    const int32 serial = State().folderSerial;
    fPanel->SetPanelDirectory(Place("sub").c_str());
    EXPECT_EQ(PanelFolder(), Place("sub"));
    EXPECT_EQ(State().folder, Place("sub"));
    EXPECT_NE(State().folderSerial, serial);
    for (const std::string& none : {Place("file"), Place("missing"), std::string()})
        fPanel->SetPanelDirectory(none.c_str());
    fPanel->SetPanelDirectory(static_cast<const char*>(nullptr));
    fPanel->SetPanelDirectory(static_cast<const BEntry*>(nullptr));
    fPanel->SetPanelDirectory(static_cast<const BDirectory*>(nullptr));
    fPanel->SetPanelDirectory(static_cast<const entry_ref*>(nullptr));
    fPanel->GetPanelDirectory(nullptr);
    EXPECT_EQ(PanelFolder(), Place("sub"));
    const BDirectory top(Folder().c_str());
    fPanel->SetPanelDirectory(&top);
    EXPECT_EQ(PanelFolder(), Folder());
    entry_ref link;
    ASSERT_EQ(get_ref_for_path(Place("link").c_str(), &link), B_OK);
    fPanel->SetPanelDirectory(&link);
    EXPECT_EQ(PanelFolder(), Place("sub"));
    const BEntry root("/");
    fPanel->SetPanelDirectory(&root);
    EXPECT_EQ(PanelFolder(), "/");
}

TEST_F(FilePanelTest, StartsInTheWorkingFolderOrAtHome) {
    const std::filesystem::path before = std::filesystem::current_path();
    const auto start = [](const char* working) {
        std::filesystem::current_path(working);
        const BFilePanel panel;
        entry_ref ref;
        panel.GetPanelDirectory(&ref);
        return std::string(BPath(&ref).Path());
    };
    EXPECT_EQ(start(Folder().c_str()), Folder());
    BPath home;
    ASSERT_EQ(find_directory(B_USER_DIRECTORY, &home), B_OK);
    EXPECT_EQ(start("/"), std::filesystem::canonical(home.Path()));
    // As it does where the one it is given is gone.
    std::filesystem::current_path(Folder());
    entry_ref gone;
    ASSERT_EQ(get_ref_for_path(Place("gone").c_str(), &gone), B_OK);
    const BFilePanel panel(B_OPEN_PANEL, nullptr, &gone);
    entry_ref ref;
    panel.GetPanelDirectory(&ref);
    EXPECT_STREQ(BPath(&ref).Path(), Folder().c_str());
    std::filesystem::current_path(before);
}

TEST_F(FilePanelTest, TheApplicationIsToldUnlessSomeoneElseIs) {
    BFilePanel panel;
    EXPECT_EQ(panel.Target(), be_app_messenger);
    panel.SetTarget(BMessenger(fTarget.Get()));
    EXPECT_EQ(panel.Target(), BMessenger(fTarget.Get()));
}

TEST_F(FilePanelTest, ButtonsHaveLabelsOfTheDesktopsOrTheApplications) {
    Make();
    EXPECT_EQ(State().openLabel, "");
    fPanel->SetButtonLabel(B_DEFAULT_BUTTON, "Take");
    fPanel->SetButtonLabel(B_CANCEL_BUTTON, "Leave");
    EXPECT_TRUE(recording::WaitFor(
        [&] { return State().openLabel == "Take" && State().cancelLabel == "Leave"; }));
    fPanel->SetButtonLabel(B_DEFAULT_BUTTON, nullptr);
    EXPECT_TRUE(recording::WaitFor([&] { return State().openLabel.empty(); }));
}

TEST_F(FilePanelTest, AFilterRefusesWhatIsChosen) {
    struct OnlyLong : BRefFilter {
        bool Filter(const entry_ref* ref, BNode* node, struct stat* st, const char* type) override {
            EXPECT_EQ(node->InitCheck(), B_OK);
            EXPECT_TRUE(S_ISREG(st->st_mode));
            EXPECT_STREQ(type, "");
            return std::string(ref->name).size() > 3;
        }
    } filter;
    MakeAndShow();
    fPanel->SetRefFilter(&filter);
    fScreen->ChooseFiles(Files().id, {RefOf("ab"), RefOf("c")});
    Settle();
    EXPECT_TRUE(fPanel->IsShowing());
    EXPECT_EQ(fTarget.Count(B_REFS_RECEIVED), 0U);
    fScreen->ChooseFiles(Files().id, {RefOf("ab"), RefOf("long.png")});
    EXPECT_THAT(NamesOf(fTarget.Received(B_REFS_RECEIVED)), testing::ElementsAre("long.png"));
    fPanel.reset();
}

TEST_F(FilePanelTest, TellsItsHooks) {
    struct Hooked : BFilePanel {
        using BFilePanel::BFilePanel;
        void WasHidden() override { log += "hidden "; }
        void SendMessage(const BMessenger*, BMessage* message) override {
            log += message->what == B_CANCEL ? "cancel " : "chosen ";
        }
        std::string log;
    };
    Hooked panel;
    const auto screen = recording::TheRecordingDisplay().Windows().back();
    const auto settle = [&] {
        BMessage ping('ping');
        BMessage reply;
        (void)BMessenger(panel.Window()).SendMessage(&ping, &reply);
    };
    panel.Show();
    screen->ChooseFiles(screen->Controls().front().id, {RefOf("a")});
    settle();
    panel.Show();
    screen->CancelPanel(screen->Controls().front().id);
    settle();
    EXPECT_EQ(panel.log, "chosen hidden hidden cancel ");
}

TEST_F(FilePanelTest, DeletingItTakesTheWindow) {
    MakeAndShow();
    fPanel.reset();
    EXPECT_FALSE(fScreen->IsOpen());
    Make();  // and one that was never shown
    fPanel.reset();
    EXPECT_FALSE(fScreen->IsOpen());
}

TEST_F(FilePanelTest, AModalOneStaysAboveAllWindows) {
    const BFilePanel modal(B_OPEN_PANEL, nullptr, nullptr, 0, true, nullptr, nullptr, true);
    EXPECT_EQ(
        recording::TheRecordingDisplay().Windows().back()->Spec().feel, B_MODAL_APP_WINDOW_FEEL);
}
