// The files that were opened before, in the window's menu and in their settings file.

#include <app/AppDefs.h>
#include <interface/InterfaceDefs.h>
#include <interface/MenuBar.h>
#include <storage/Entry.h>

#include <filesystem>
#include <fstream>

#include "framework/LocalText.h"
#include "framework/MessageCodes.h"
#include "iap/InterAppPrefs.h"
#include "tests/framework/FailingDisk.h"
#include "tests/window/WindowFixture.h"

namespace {

using BPrivate::MenuItemState;
using Labels = std::vector<std::string>;

constexpr char kDeleteAll[] = "Delete All MRUFs(D)";

class History : public WindowFixture {
protected:
    ~History() override { recording::TheRecordingDisplay().SetModifiers(0); }

    std::string ListFile() { return fHome.File("Lorivane_MRUFs.arc"); }

    /// What the settings file has, newest first.
    Labels Saved() {
        TMRUF saved;
        saved.SetMaxMRUF(20);
        Labels paths;
        if (saved.Load(BEntry(ListFile().c_str())) != B_OK)
            return {"no file"};
        for (int32 i = 0; i < saved.CountMRUFs(); ++i)
            paths.emplace_back(saved.MRUFAt(i));
        return paths;
    }

    void WriteList(const Labels& oldestFirst) {
        BMessage archive;
        for (const std::string& path : oldestFirst)
            (void)archive.AddString("MRUF", path.c_str());
        std::filesystem::create_directories(std::filesystem::path(ListFile()).parent_path());
        std::vector<char> flat(static_cast<size_t>(archive.FlattenedSize()));
        ASSERT_EQ(archive.Flatten(flat.data(), static_cast<ssize_t>(flat.size())), B_OK);
        std::ofstream(ListFile(), std::ios::binary)
            .write(flat.data(), static_cast<std::streamsize>(flat.size()));
    }

    static BMessage Request(uint32 what, const std::string& path) {
        entry_ref ref;
        (void)get_ref_for_path(path.c_str(), &ref);
        BMessage request(what);
        (void)request.AddRef("refs", &ref);
        return request;
    }
    void Add(const std::string& path) { Do(Request(kMsgAddHistory, path)); }
    void Remove(const std::string& path) { Do(Request(kMsgRemoveHistory, path)); }

    recording::Control Bar() {
        auto bar = fScreen->FindControl("MenuBar");
        EXPECT_TRUE(bar);
        return bar.value_or(recording::Control());
    }

    std::vector<MenuItemState> OpenMenu(const std::string& file, const std::string& open) {
        const std::vector<MenuItemState> menus =
            std::get<BPrivate::MenuBarState>(Bar().state).items;
        for (const MenuItemState& menu : menus) {
            if (menu.label != file)
                continue;
            for (const MenuItemState& item : menu.items) {
                if (item.label == open)
                    return item.items;
            }
        }
        ADD_FAILURE() << "no " << file << "/" << open;
        return {};
    }
    std::vector<MenuItemState> OpenMenu() { return OpenMenu("File(F)", "Open(O)..."); }

    /// The labels of the "Open..." menu, "-" for the separator.
    Labels Entries() {
        Labels labels;
        for (const MenuItemState& item : OpenMenu())
            labels.push_back(item.separator ? "-" : item.label);
        return labels;
    }

    bool CanDeleteAll() { return OpenMenu().back().enabled; }
    bool Choose(const std::string& label) {
        return fScreen->ChooseItem(Bar().id, {"File(F)", "Open(O)...", label});
    }

    /// The alert that is open, once it is.
    static std::shared_ptr<recording::Window> Alert() {
        auto alert = recording::TheRecordingDisplay().WaitForWindow("* Lorivane *");
        EXPECT_NE(alert, nullptr);
        return alert;
    }
    void Answer(const std::shared_ptr<recording::Window>& alert, const std::string& button) {
        const auto control = alert->FindControl(button);
        ASSERT_TRUE(control) << button;
        alert->SetValue(control->id, 1);
        EXPECT_TRUE(recording::WaitFor([&] { return !alert->IsOpen(); }));
        Settle();
    }
    static std::string TextOf(const recording::Window& alert) {
        for (const recording::Control& control : alert.Controls()) {
            if (const auto* text = std::get_if<BPrivate::AlertTextState>(&control.state))
                return text->text;
        }
        return {};
    }
};

TEST_F(History, IsEmptyAtFirst) {
    Open();
    Show();
    EXPECT_EQ(Entries(), (Labels{"-", kDeleteAll}));
    EXPECT_FALSE(CanDeleteAll());
    EXPECT_EQ(Saved(), Labels{});
}

TEST_F(History, ListsTheNewestFirstAndSavesEveryChange) {
    Open();
    Show();
    Add("/p/a.png");
    EXPECT_EQ(Entries(), (Labels{"a.png(0)", "-", kDeleteAll}));
    EXPECT_TRUE(CanDeleteAll());
    EXPECT_EQ(Saved(), (Labels{"/p/a.png"}));
    Add("/p/b.png");
    Add("/q/a.png");
    EXPECT_EQ(Entries(), (Labels{"a.png(0)", "b.png(1)", "a.png(2)", "-", kDeleteAll}));
    Add("/p/a.png");
    EXPECT_EQ(Saved(), (Labels{"/p/a.png", "/q/a.png", "/p/b.png"}));
    Remove("/q/a.png");
    Remove("/q/unknown.png");
    EXPECT_EQ(Entries(), (Labels{"a.png(0)", "b.png(1)", "-", kDeleteAll}));
    EXPECT_EQ(Saved(), (Labels{"/p/a.png", "/p/b.png"}));
}

TEST_F(History, KeepsTen) {
    Open();
    Show();
    for (int i = 0; i < 11; ++i)
        Add("/p/" + std::to_string(i));
    EXPECT_EQ(Entries(),
        (Labels{"10(0)", "9(1)", "8(2)", "7(3)", "6(4)", "5(5)", "4(6)", "3(7)", "2(8)", "1(9)",
            "-", kDeleteAll}));
    EXPECT_EQ(Saved().size(), 10U);
}

TEST_F(History, IgnoresRequestsWithoutAFile) {
    Open();
    Show();
    for (const uint32 what : {kMsgAddHistory, kMsgRemoveHistory}) {
        Do(BMessage(what));
        BMessage nothing(what);
        const entry_ref unset;
        (void)nothing.AddRef("refs", &unset);
        Do(nothing);
    }
    EXPECT_EQ(Entries(), (Labels{"-", kDeleteAll}));
}

TEST_F(History, ComesBackInItsOrder) {
    WriteList({"/p/oldest", "/p/middle", "/p/newest"});
    Open();
    Show();
    EXPECT_EQ(Entries(), (Labels{"newest(0)", "middle(1)", "oldest(2)", "-", kDeleteAll}));
    EXPECT_TRUE(CanDeleteAll());
    EXPECT_EQ(Saved(), (Labels{"/p/newest", "/p/middle", "/p/oldest"}));
}

TEST_F(History, StartsEmptyWithAFileThatIsNone) {
    WriteList({});
    std::ofstream(ListFile()) << "this is no message";
    Open();
    Show();
    EXPECT_EQ(Entries(), (Labels{"-", kDeleteAll}));
    Add("/p/a");
    EXPECT_EQ(Saved(), (Labels{"/p/a"}));
}

TEST_F(History, ForgetsEntriesThatAreSpelledInOtherWays) {
    WriteList({"/nowhere//at/all/", "no path"});
    Open();
    Show();
    // The messages of the items have no spelling.
    Remove("no path");
    EXPECT_EQ(Saved(), (Labels{"/nowhere//at/all/"}));
    Remove("/nowhere//at/all/");
    EXPECT_EQ(Entries(), (Labels{"-", kDeleteAll}));
}

TEST_F(History, ForgetsEntriesThatCanBeNoFiles) {
    const std::string tooLong = "/p/" + std::string(300, 'y');
    WriteList({"/p/a", tooLong, "/q/" + std::string(300, 'y')});
    Open();
    Show();
    Remove(tooLong);
    EXPECT_EQ(Saved(), (Labels{"/q/" + std::string(300, 'y'), "/p/a"}));
    BMessage nothing(kMsgRemoveHistory);
    const entry_ref unset;
    (void)nothing.AddRef("refs", &unset);
    Do(nothing);
    EXPECT_EQ(Saved().size(), 2U);
}

TEST_F(History, GoesOnWhereNothingCanBeSaved) {
    WriteList({"/p/old"});
    const std::filesystem::path folder = std::filesystem::path(ListFile()).parent_path();
    Open();
    Show();
    // A folder in the file's place is what no user, root included, can write over.
    std::filesystem::remove(ListFile());
    std::filesystem::create_directory(ListFile());
    Add("/p/new");
    EXPECT_EQ(Entries(), (Labels{"new(0)", "old(1)", "-", kDeleteAll}));
    std::filesystem::remove_all(folder);
    std::ofstream(folder) << "in the way";
    Add("/p/newer");
    EXPECT_EQ(Entries(), (Labels{"newer(0)", "new(1)", "old(2)", "-", kDeleteAll}));
}

TEST_F(History, GoesOnWithAFullDiskAndInAReadOnlyFolder) {
    WriteList({"/p/old"});
    const std::string before = read_text(ListFile());
    const std::filesystem::path folder = std::filesystem::path(ListFile()).parent_path();
    Open();
    Show();
    {
        const TFullDisk full;
        Add("/p/new");
    }
    EXPECT_EQ(Entries(), (Labels{"new(0)", "old(1)", "-", kDeleteAll}));
    EXPECT_EQ(read_text(ListFile()), before);
    {
        const TReadOnlyFolder readOnly(folder);
        Add("/p/newer");
    }
    EXPECT_EQ(Entries(), (Labels{"newer(0)", "new(1)", "old(2)", "-", kDeleteAll}));
    EXPECT_EQ(read_text(ListFile()), before);
    EXPECT_EQ(file_names_in(folder), std::set<std::string>{"Lorivane_MRUFs.arc"});
    Add("/p/newest");
    EXPECT_EQ(Saved(), (Labels{"/p/newest", "/p/newer", "/p/new", "/p/old"}));
}

TEST_F(History, FollowsTheFormatOfTheHintsAndTheLanguage) {
    WriteList({"/p/old", "/p/new"});
    Open();
    Show();
    BMessage change(kMsgSharedItemChanged);
    (void)change.AddString(kFieldSharedItem, "AccKeyFormat2");
    (void)gIAPs.SetString("AccKeyFormat2", "\1a - ");
    Do(change);
    auto menu = OpenMenu("F - File", "O - Open...");
    ASSERT_EQ(menu.size(), 4U);
    EXPECT_EQ(menu[0].label, "0 - new");
    EXPECT_EQ(menu[1].label, "1 - old");
    EXPECT_TRUE(menu[3].enabled);
    (void)gIAPs.SetString("AccKeyFormat2", "");
    Do(change);
    menu = OpenMenu("File", "Open...");
    ASSERT_EQ(menu.size(), 4U);
    EXPECT_EQ(menu[0].label, "new");

    Do(BMessage(kMsgLanguageChanged));
    EXPECT_EQ(OpenMenu("File", "Open...").size(), 4U);
    EXPECT_EQ(OpenMenu("File", "Open...")[1].label, "old");
    (void)gIAPs.SetString("AccKeyFormat2", "\2(a)");
}

TEST_F(History, OpensAnEntryAndMovesItToTheFront) {
    WriteList({fHome / "old", fHome / "new"});
    Open();
    Show();
    ASSERT_TRUE(Choose("old(1)"));
    EXPECT_TRUE(recording::WaitFor([&] { return Entries().front() == "old(0)"; }));
    EXPECT_EQ(Saved(), (Labels{fHome / "old", fHome / "new"}));
}

TEST_F(History, OpensEntriesByShiftCommandAndADigit) {
    Labels files;
    for (int i = 9; i >= 0; --i)
        files.push_back("/p/" + std::to_string(i));
    WriteList(files);
    Open();
    Show();
    // The oldest every time, so that all come round.
    for (int i = 9; i >= 0; --i) {
        fScreen->PressKey('9', B_COMMAND_KEY | B_SHIFT_KEY);
        const std::string first = std::to_string(i) + "(0)";
        EXPECT_TRUE(recording::WaitFor([&] { return Entries().front() == first; })) << first;
    }
    fScreen->PressKey('4', B_COMMAND_KEY | B_SHIFT_KEY);
    EXPECT_TRUE(recording::WaitFor([&] { return Entries().front() == "4(0)"; }));
    const Labels before = Entries();
    for (const uint32 others :
        {uint32{B_COMMAND_KEY}, uint32{B_SHIFT_KEY}, B_COMMAND_KEY | B_SHIFT_KEY | B_CONTROL_KEY}) {
        fScreen->PressKey('5', others);
        Settle();
        EXPECT_EQ(Entries(), before);
    }
}

// #pragma mark - Deleting

TEST_F(History, IsDeletedWhenTheUserSaysSo) {
    WriteList({"/p/old", "/p/new"});
    Open();
    Show();
    ASSERT_TRUE(Choose(kDeleteAll));
    const auto alert = Alert();
    ASSERT_TRUE(alert);
    EXPECT_EQ(TextOf(*alert),
        "Remove all entries from the list of recently used files?\n"
        "The files themselves are not deleted.\n\n"
        "To remove a single entry, hold down the Alt key while choosing it.");
    Answer(alert, "Delete All(A)");
    EXPECT_EQ(Entries(), (Labels{"-", kDeleteAll}));
    EXPECT_FALSE(CanDeleteAll());
    EXPECT_EQ(Saved(), Labels{});
}

TEST_F(History, StaysWhenTheUserSaysNo) {
    WriteList({"/p/old", "/p/new"});
    Open();
    Show();
    const auto answers = std::vector<std::function<void(recording::Window&)>>{
        [](recording::Window& alert) { alert.SetValue(alert.FindControl("No(N)")->id, 1); },
        [](recording::Window& alert) { alert.PressKey(B_ESCAPE); },
        [](recording::Window& alert) { alert.PressCloseBox(); },
    };
    for (const auto& answer : answers) {
        ASSERT_TRUE(Choose(kDeleteAll));
        const auto alert = Alert();
        ASSERT_TRUE(alert);
        answer(*alert);
        EXPECT_TRUE(recording::WaitFor([&] { return !alert->IsOpen(); }));
        Settle();
        EXPECT_EQ(Entries(), (Labels{"new(0)", "old(1)", "-", kDeleteAll}));
        EXPECT_EQ(Saved().size(), 2U);
    }
}

TEST_F(History, AsksBeforeItForgetsAnEntryChosenWithControl) {
    WriteList({"/p/old", "/p/new"});
    Open();
    Show();
    recording::TheRecordingDisplay().SetModifiers(B_CONTROL_KEY);
    ASSERT_TRUE(Choose("new(0)"));
    auto alert = Alert();
    ASSERT_TRUE(alert);
    EXPECT_EQ(TextOf(*alert),
        "Remove \"new\" from the list of recently used files?\n"
        "The file itself is not deleted.\n\n");
    Answer(alert, "No(N)");
    EXPECT_EQ(Entries(), (Labels{"new(0)", "old(1)", "-", kDeleteAll}));

    ASSERT_TRUE(Choose("old(1)"));
    alert = Alert();
    ASSERT_TRUE(alert);
    Answer(alert, "Yes(Y)");
    // And did not open it, or it would be first.
    EXPECT_EQ(Entries(), (Labels{"new(0)", "-", kDeleteAll}));
    EXPECT_EQ(Saved(), (Labels{"/p/new"}));
}

// The window may still be busy then, with an image that takes its time.
TEST_F(History, AsksWhenControlWasHeldAtTheChoice) {
    WriteList({"/p/old", "/p/new"});
    Open();
    Show();
    auto& display = recording::TheRecordingDisplay();
    with_lock(fWindow, [&] {
        display.SetModifiers(B_CONTROL_KEY);
        EXPECT_TRUE(Choose("old(1)"));
        display.SetModifiers(0);
    });
    const auto alert = Alert();
    ASSERT_TRUE(alert);
    Answer(alert, "No(N)");
    EXPECT_EQ(Entries(), (Labels{"new(0)", "old(1)", "-", kDeleteAll}));

    with_lock(fWindow, [&] {
        EXPECT_TRUE(Choose("old(1)"));
        display.SetModifiers(B_CONTROL_KEY);
    });
    EXPECT_TRUE(recording::WaitFor([&] { return Entries().front() == "old(0)"; }));
    EXPECT_EQ(Saved(), (Labels{"/p/old", "/p/new"}));
}

}  // namespace
