#include "window/MRUF.h"

#include <app/AppDefs.h>
#include <app/Application.h>
#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>
#include <interface/Menu.h>
#include <interface/MenuItem.h>
#include <storage/Path.h>
#include <unistd.h>
#include <vector>

#include "tests/framework/SettingsHome.h"

namespace {

using Paths = std::vector<std::string>;

Paths paths_of(const TMRUF& history) {
    Paths paths;
    for (int32 i = 0; i < history.CountMRUFs(); ++i)
        paths.emplace_back(history.MRUFAt(i));
    return paths;
}

void add(TMRUF* history, const Paths& paths) {
    for (const std::string& path : paths)
        history->AddMRUF(path.c_str());
}

/// "/p/0" to "/p/<count - 1>".
Paths numbered(int32 count) {
    Paths paths;
    for (int32 i = 0; i < count; ++i)
        paths.push_back("/p/" + std::to_string(i));
    return paths;
}

TEST(Mruf, PutsTheNewestFirst) {
    TMRUF history;
    EXPECT_EQ(history.CountMRUFs(), 0);
    add(&history, {"/a", "/b", "/c"});
    EXPECT_EQ(paths_of(history), (Paths{"/c", "/b", "/a"}));
}

TEST(Mruf, MovesAnEntryThatIsListedToTheFront) {
    TMRUF history;
    add(&history, {"/a", "/b", "/c", "/a"});
    EXPECT_EQ(paths_of(history), (Paths{"/a", "/c", "/b"}));
    add(&history, {"/a"});
    EXPECT_EQ(paths_of(history), (Paths{"/a", "/c", "/b"}));
    // By a string of its own.
    history.AddMRUF(history.MRUFAt(2));
    EXPECT_EQ(paths_of(history), (Paths{"/b", "/a", "/c"}));
}

TEST(Mruf, TellsPathsApartByEveryByte) {
    TMRUF history;
    add(&history, {"/a", "/A", "/a/", "//a"});
    EXPECT_EQ(history.CountMRUFs(), 4);
    EXPECT_EQ(history.FindMRUF("/A"), 2);
    EXPECT_EQ(history.FindMRUF("/b"), -1);
    EXPECT_EQ(history.FindMRUF(nullptr), -1);
}

TEST(Mruf, DropsTheOldestBeyondTheMost) {
    TMRUF history;
    add(&history, numbered(11));
    EXPECT_EQ(history.CountMRUFs(), 10);
    EXPECT_STREQ(history.MRUFAt(0), "/p/10");
    EXPECT_STREQ(history.MRUFAt(9), "/p/1");
    EXPECT_EQ(history.MRUFAt(10), nullptr);
    EXPECT_EQ(history.MRUFAt(-1), nullptr);
    // One that is listed drops none.
    add(&history, {"/p/1"});
    EXPECT_EQ(history.CountMRUFs(), 10);
    EXPECT_STREQ(history.MRUFAt(9), "/p/2");
}

TEST(Mruf, TrimsItselfToALowerMaximumAtOnce) {
    TMRUF history;
    history.SetMaxMRUF(20);
    add(&history, numbered(25));
    EXPECT_EQ(history.CountMRUFs(), 20);
    history.SetMaxMRUF(3);
    EXPECT_EQ(paths_of(history), (Paths{"/p/24", "/p/23", "/p/22"}));
}

TEST(Mruf, BringsTheMaximumIntoItsRange) {
    struct Case {
        int32 given;
        int32 kept;
    };
    for (const Case& c : {Case{INT32_MIN, 1}, Case{-1, 1}, Case{0, 1}, Case{1, 1}, Case{2, 2},
             Case{20, 20}, Case{21, 20}, Case{INT32_MAX, 20}}) {
        TMRUF history;
        history.SetMaxMRUF(c.given);
        add(&history, numbered(30));
        EXPECT_EQ(history.CountMRUFs(), c.kept) << c.given;
    }
}

TEST(Mruf, TakesEntriesOut) {
    TMRUF history;
    add(&history, {"/a", "/b", "/c"});
    EXPECT_EQ(history.RemoveMRUF(int32{1}), "/b");
    EXPECT_EQ(paths_of(history), (Paths{"/c", "/a"}));
    for (int32 none : {-1, 2, INT32_MAX, INT32_MIN})
        EXPECT_EQ(history.RemoveMRUF(none), "");
    history.RemoveMRUF("/nothing");
    history.RemoveMRUF(nullptr);
    EXPECT_EQ(paths_of(history), (Paths{"/c", "/a"}));
    history.RemoveMRUF("/c");
    EXPECT_EQ(paths_of(history), (Paths{"/a"}));
    history.ClearMRUF();
    EXPECT_EQ(history.CountMRUFs(), 0);
}

TEST(Mruf, TakesNoEmptyPath) {
    TMRUF history;
    history.AddMRUF("");
    history.AddMRUF(nullptr);
    EXPECT_EQ(history.CountMRUFs(), 0);
}

TEST(Mruf, ArchivesTheOldestFirst) {
    TMRUF history;
    add(&history, {"/a", "/b", "/c"});
    BMessage archive;
    EXPECT_EQ(history.Archive(&archive), B_OK);
    Paths archived;
    for (int32 i = 0; archive.HasString("MRUF", i); ++i)
        archived.emplace_back(archive.GetString("MRUF", i, ""));
    EXPECT_EQ(archived, (Paths{"/a", "/b", "/c"}));
    EXPECT_EQ(archive.CountNames(B_ANY_TYPE), 1);

    TMRUF other;
    add(&other, {"/x"});
    EXPECT_EQ(other.Unarchive(archive), B_OK);
    EXPECT_EQ(paths_of(other), (Paths{"/c", "/b", "/a"}));
}

TEST(Mruf, TakesWhatIsMissingForAnEmptyList) {
    TMRUF history;
    add(&history, {"/a"});
    EXPECT_EQ(history.Unarchive(BMessage()), B_OK);
    EXPECT_EQ(history.CountMRUFs(), 0);

    BMessage wrong;
    (void)wrong.AddInt32("MRUF", 17);
    add(&history, {"/a"});
    EXPECT_EQ(history.Unarchive(wrong), B_OK);
    EXPECT_EQ(history.CountMRUFs(), 0);
}

TEST(Mruf, KeepsTheNewestOfAnArchiveThatIsTooLong) {
    BMessage archive;
    for (const std::string& path : numbered(100'000))
        (void)archive.AddString("MRUF", path.c_str());
    TMRUF history;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(history.Unarchive(archive), B_OK);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_EQ(history.CountMRUFs(), 10);
    EXPECT_STREQ(history.MRUFAt(0), "/p/99999");
}

TEST(Mruf, ReadsAnArchiveOfOddEntries) {
    BMessage archive;
    for (const char* path : {"/a", "", "no path", "\xff\xfe", "/a", "/b/"})
        (void)archive.AddString("MRUF", path);
    TMRUF history;
    EXPECT_EQ(history.Unarchive(archive), B_OK);
    EXPECT_EQ(paths_of(history), (Paths{"/b/", "/a", "\xff\xfe", "no path"}));
}

TEST(Mruf, SurvivesARestart) {
    TSettingsHome home;
    const BEntry file((home / "list.arc").c_str());
    TMRUF history;
    add(&history, numbered(10));
    ASSERT_EQ(history.Save(file), B_OK);
    TMRUF next;
    ASSERT_EQ(next.Load(file), B_OK);
    EXPECT_EQ(paths_of(next), paths_of(history));
}

TEST(Mruf, LeavesTheListAloneWhenTheFileIsNone) {
    TSettingsHome home;
    const std::string path = home / "list.arc";
    TMRUF history;
    add(&history, {"/a"});
    EXPECT_EQ(history.Load(BEntry(path.c_str())), -1);
    std::ofstream(path) << "no message";
    EXPECT_EQ(history.Load(BEntry(path.c_str())), -1);
    EXPECT_EQ(paths_of(history), (Paths{"/a"}));
}

// #pragma mark - The menu

constexpr char kSuffix[] = "\2(a)";

using Items = std::vector<std::string>;

class MrufMenu : public testing::Test {
protected:
    MrufMenu() {
        fMenu.AddSeparatorItem();
        fMenu.AddItem(new BMenuItem("Delete", new BMessage('dele')));
        fHistory.SetTgtMenu(&fMenu);
        fHistory.SetTgtHandler(&fApp);
        fHistory.SetAccFormat(kSuffix);
        fHistory.SetShowSC(true);
    }

    /// The labels, "-" for a separator, with the shortcuts behind them.
    Items Shown() {
        Items items;
        for (int32 i = 0; i < fMenu.CountItems(); ++i) {
            const BMenuItem* item = fMenu.ItemAt(i);
            const bool isLine = dynamic_cast<const BSeparatorItem*>(item) != nullptr;
            items.emplace_back(isLine ? "-" : item->Label());
            uint32 modifiers = 0;
            if (const char key = item->Shortcut(&modifiers))
                items.back() += std::string(" ") + key +
                    (modifiers == (B_SHIFT_KEY | B_COMMAND_KEY) ? "+" : "?");
        }
        return items;
    }

    std::string PathOf(int32 index) {
        entry_ref ref;
        EXPECT_EQ(fMenu.ItemAt(index)->BInvoker::Message()->FindRef("refs", &ref), B_OK);
        return BPath(&ref).Path();
    }

    BApplication fApp{"application/x-vnd.ZELKAN-Test"};
    BMenu fMenu{"Open"};
    TMRUF fHistory;
};

TEST_F(MrufMenu, HasAnItemForEachEntryBeforeTheSeparator) {
    add(&fHistory, {"/p/a.png", "/p/b.png"});
    fHistory.GenerateMenu();
    EXPECT_EQ(Shown(), (Items{"b.png(0) 0+", "a.png(1) 1+", "-", "Delete"}));
    EXPECT_EQ(PathOf(0), "/p/b.png");
    EXPECT_EQ(PathOf(1), "/p/a.png");
    for (int32 i : {0, 1}) {
        const BMenuItem* item = fMenu.ItemAt(i);
        EXPECT_EQ(item->Command(), static_cast<uint32>(B_REFS_RECEIVED));
        EXPECT_EQ(item->Target(), &fApp);
        EXPECT_TRUE(item->IsEnabled());
    }
}

TEST_F(MrufMenu, ReplacesTheItemsOfBefore) {
    add(&fHistory, numbered(3));
    fHistory.GenerateMenu();
    fHistory.GenerateMenu();
    EXPECT_EQ(fMenu.CountItems(), 5);
    add(&fHistory, {"/p/0"});
    fHistory.GenerateMenu();
    EXPECT_EQ(Shown(), (Items{"0(0) 0+", "2(1) 1+", "1(2) 2+", "-", "Delete"}));
    fHistory.ClearMRUF();
    fHistory.GenerateMenu();
    EXPECT_EQ(Shown(), (Items{"-", "Delete"}));
}

TEST_F(MrufMenu, GoesOnWithCapitalsAfterTheDigits) {
    fHistory.SetMaxMRUF(20);
    add(&fHistory, numbered(20));
    fHistory.GenerateMenu();
    const auto items = Shown();
    ASSERT_EQ(items.size(), 22U);
    EXPECT_EQ(items[0], "19(0) 0+");
    EXPECT_EQ(items[9], "10(9) 9+");
    EXPECT_EQ(items[10], "9(A)");
    EXPECT_EQ(items[11], "8(B)");
    EXPECT_EQ(items[19], "0(J)");
}

TEST_F(MrufMenu, CountsItsKeysFromTheTriggerBase) {
    add(&fHistory, {"/a", "/b"});
    struct Case {
        int32 base;
        Items items;
    };
    for (const Case& c : {Case{9, {"b(9) 9+", "a(A)", "-", "Delete"}},
             Case{34, {"b(Y)", "a(Z)", "-", "Delete"}}, Case{35, {"b(Z)", "a", "-", "Delete"}},
             Case{-1, {"b", "a(0) 0+", "-", "Delete"}}, Case{INT32_MAX, {"b", "a", "-", "Delete"}},
             Case{INT32_MIN, {"b", "a", "-", "Delete"}}}) {
        fHistory.SetTriggerBase(c.base);
        fHistory.GenerateMenu();
        EXPECT_EQ(Shown(), c.items) << c.base;
    }
}

TEST_F(MrufMenu, LeavesTheItemsBeforeTheTargetBaseAlone) {
    fMenu.AddItem(new BMenuItem("First", nullptr), 0);
    fHistory.SetTgtBase(1);
    add(&fHistory, {"/a", "/b"});
    fHistory.GenerateMenu();
    fHistory.GenerateMenu();
    EXPECT_EQ(Shown(), (Items{"First", "b(0) 0+", "a(1) 1+", "-", "Delete"}));
    fHistory.SetTgtBase(-7);
    fHistory.GenerateMenu();
    EXPECT_EQ(Shown(), (Items{"b(0) 0+", "a(1) 1+", "-", "Delete"}));
    // A base beyond the end is no place for items.
    fHistory.SetTgtBase(50);
    fHistory.GenerateMenu();
    EXPECT_EQ(fMenu.CountItems(), 4);
}

TEST_F(MrufMenu, MayHaveNoShortcuts) {
    fHistory.SetShowSC(false);
    add(&fHistory, {"/a"});
    fHistory.GenerateMenu();
    EXPECT_EQ(Shown(), (Items{"a(0)", "-", "Delete"}));
}

TEST_F(MrufMenu, ShowsTheKeysInEveryFormat) {
    struct Case {
        std::string format;
        std::string label;
        char trigger;
    };
    add(&fHistory, {"/p/a 0.png"});
    for (const Case& c : {Case{"\1a) ", "0) a 0.png 0+", 0}, Case{"\1a - ", "0 - a 0.png 0+", 0},
             Case{"", "a 0.png 0+", '0'}, Case{kSuffix, "a 0.png(0) 0+", 0}}) {
        fHistory.SetAccFormat(c.format);
        fHistory.GenerateMenu();
        EXPECT_EQ(Shown().front(), c.label);
        EXPECT_EQ(fMenu.ItemAt(0)->Trigger(), c.trigger);
    }
}

TEST_F(MrufMenu, NamesEveryPath) {
    struct Case {
        const char* path;
        const char* label;
    };
    for (const Case& c : {Case{"/", "/(0) 0+"}, Case{"/p/", "/p/(0) 0+"},
             Case{"/nowhere/at/all.jpg", "all.jpg(0) 0+"}, Case{"no path", "no path(0) 0+"},
             Case{"/p/a(3).png", "a(3).png(0) 0+"},
             Case{"/p/\xe7\x8c\xab.png", "\xe7\x8c\xab.png(0) 0+"},
             Case{"/p/100%AppName%&.png", "100%AppName%&.png(0) 0+"}}) {
        fHistory.ClearMRUF();
        add(&fHistory, {c.path});
        fHistory.GenerateMenu();
        EXPECT_EQ(Shown(), (Items{c.label, "-", "Delete"}));
        EXPECT_TRUE(fMenu.ItemAt(0)->BInvoker::Message()->HasRef("refs"));
    }
}

TEST_F(MrufMenu, KeepsTheFolderOfAFileThatIsGone) {
    add(&fHistory, {"/nowhere/at/all.jpg"});
    fHistory.GenerateMenu();
    EXPECT_EQ(PathOf(0), "/nowhere/at/all.jpg");
}

TEST_F(MrufMenu, SendsCopiesOfItsMessage) {
    BMessage message('test');
    (void)message.AddInt32("tag", 7);
    fHistory.SetMessage(&message);
    add(&fHistory, {"/a", "/b"});
    fHistory.GenerateMenu();
    for (int32 i : {0, 1}) {
        const BMessage* sent = fMenu.ItemAt(i)->BInvoker::Message();
        EXPECT_EQ(sent->what, 'test');
        EXPECT_EQ(sent->GetInt32("tag", 0), 7);
        int32 refs = 0;
        (void)sent->GetInfo("refs", nullptr, &refs);
        EXPECT_EQ(refs, 1);
    }
}

TEST_F(MrufMenu, DoesNothingWithoutAMenu) {
    fHistory.SetTgtMenu(nullptr);
    add(&fHistory, {"/a"});
    fHistory.GenerateMenu();
    EXPECT_EQ(Shown(), (Items{"-", "Delete"}));
}

}  // namespace
