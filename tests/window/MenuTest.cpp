#include <app/AppDefs.h>
#include <app/MessageFilter.h>
#include <interface/InterfaceDefs.h>
#include <interface/MenuBar.h>
#include <interface/MenuItem.h>

#include <cctype>
#include <functional>
#include <set>

#include "framework/Accelerator.h"
#include "framework/MessageCodes.h"
#include "iap/InterAppPrefs.h"
#include "tests/window/WindowFixture.h"

namespace {

using BPrivate::MenuItemState;

constexpr char kSuffixFormat[] = "\2(a)";
constexpr uint32 kTellsNothing = 0;

/// Who is to hear of an item.
enum class Target { kNone, kView, kWindow, kApplication };

struct ItemCase {
    const char* path;  ///< the menus it stands in, "File" or "File/Open..."
    const char* key;   ///< "-" for a separator
    const char* letter;
    const char* label;  ///< with the hint of the usual format
    uint32 command = kTellsNothing;
    Target target = Target::kNone;
    char shortcut = 0;
    bool enabled = true;
    bool hasSubmenu = false;
};

const ItemCase kItems[] = {
    {"", "File", "F", "File(F)", 0, Target::kNone, 0, true, true},
    {"", "View", "V", "View(V)", 0, Target::kNone, 0, true, true},
    {"", "Tool", "T", "Tool(T)", 0, Target::kNone, 0, true, true},
    {"", "Help", "H", "Help(H)", 0, Target::kNone, 0, true, true},

    {"File", "Open...", "O", "Open(O)...", '_opn', Target::kApplication, 'O', true, true},
    {"File", "-", "", ""},
    {"File", "Quit", "Q", "Quit(Q)", B_QUIT_REQUESTED, Target::kApplication},

    {"File/Open...", "-", "", ""},
    {"File/Open...", "Delete All MRUFs", "D", "Delete All MRUFs(D)", '_dam', Target::kWindow, 0,
        false},

    {"View", "First Image [Home]", "F", "First Image(F) [Home]", 'dfri', Target::kView, 'F'},
    {"View", "Previous Image [Backspace]", "P", "Previous Image(P) [Backspace]", 'dpri',
        Target::kView},
    {"View", "Next Image [Space]", "N", "Next Image(N) [Space]", 'dnxi', Target::kView},
    {"View", "Last Image [End]", "L", "Last Image(L) [End]", 'dlsi', Target::kView, 'L'},
    {"View", "-", "", ""},
    {"View", "Full Screen [Enter]", "U", "Full Screen(U) [Enter]", 'flsc', Target::kView},
    {"View", "-", "", ""},
    {"View", "Don't Fit Anything", "D", "Don't Fit Anything(D)", 'dspo', Target::kView},
    {"View", "Fit Window to Image", "W", "Fit Window to Image(W)", 'dspo', Target::kView},
    {"View", "Fit Image to Window", "I", "Fit Image to Window(I)", 'dspo', Target::kView},
    {"View", "Scale Image to Window", "S", "Scale Image to Window(S)", 'dspo', Target::kView},
    {"View", "Scale Image to Window Width", "X", "Scale Image to Window Width(X)", 'dspo',
        Target::kView},
    {"View", "Scale Image to Window Height", "Y", "Scale Image to Window Height(Y)", 'dspo',
        Target::kView},
    {"View", "-", "", ""},
    {"View", "Enable Comment", "C", "Enable Comment(C)", 'encm', Target::kView},

    {"Tool", "Show Image Information...", "I", "Show Image Information(I)...", 'simi',
        Target::kApplication, 'I'},
    {"Tool", "-", "", ""},
    {"Tool", "Preferences...", "P", "Preferences(P)...", '_prf', Target::kApplication, 'P'},
    {"Tool", "ZELKAN Common Preferences...", "S", "ZELKAN Common Preferences(S)...", '_Ssp',
        Target::kApplication},

    {"Help", "Help", "H", "Help(H)", '_hlp', Target::kApplication},
    {"Help", "About...", "A", "About(A)...", '_ABR', Target::kApplication},
};

/// Writes down the commands on their way to a handler of the window.
class CommandLog : public BMessageFilter {
public:
    CommandLog() : BMessageFilter(B_ANY_DELIVERY, B_ANY_SOURCE) {}

    filter_result Filter(BMessage* message, BHandler** target) override {
        for (const ItemCase& item : kItems) {
            if (item.command == message->what) {
                int32 option = -1;
                (void)message->FindInt32(kFieldDisplayOption, &option);
                fLog.Add(std::to_string(message->what) + " to " + (*target)->Name() + " " +
                    std::to_string(option));
                break;
            }
        }
        return B_DISPATCH_MESSAGE;
    }

    TLog fLog;
};

class Menu : public WindowFixture {
protected:
    static void SetFormat(const std::string& format) {
        (void)gIAPs.SetString("AccKeyFormat2", format);
    }

    void OpenAndShow() {
        Open();
        Show();
    }

    recording::Control Bar() {
        auto bar = fScreen->FindControl("MenuBar");
        EXPECT_TRUE(bar);
        return bar.value_or(recording::Control());
    }

    /// The items of a menu, by the keys of the labels that lead to it.
    std::vector<MenuItemState> ItemsOf(
        const std::string& path, const std::function<std::string(const ItemCase&)>& label) {
        auto items = std::get<BPrivate::MenuBarState>(Bar().state).items;
        std::string parent;
        std::string rest = path;
        while (!rest.empty()) {
            const size_t end = rest.find('/');
            const std::string key = rest.substr(0, end);
            const auto step = std::ranges::find_if(
                kItems, [&](const ItemCase& c) { return c.path == parent && c.key == key; });
            if (step == std::end(kItems))
                return {};
            const auto found = std::ranges::find(items, label(*step), &MenuItemState::label);
            if (found == items.end())
                return {};
            items = std::vector(found->items);
            parent += (parent.empty() ? "" : "/") + key;
            rest = end == std::string::npos ? "" : rest.substr(end + 1);
        }
        return items;
    }

    /// The whole tree is as the table has it.
    void ExpectTree(const std::function<std::string(const ItemCase&)>& label) {
        for (const char* path : {"", "File", "File/Open...", "View", "Tool", "Help"}) {
            SCOPED_TRACE(path);
            const auto items = ItemsOf(path, label);
            size_t i = 0;
            std::set<char> letters;
            for (const ItemCase& c : kItems) {
                if (c.path != std::string(path))
                    continue;
                ASSERT_LT(i, items.size());
                const MenuItemState& item = items[i++];
                EXPECT_EQ(item.separator, c.key == std::string("-"));
                if (item.separator)
                    continue;
                EXPECT_EQ(item.label, label(c));
                EXPECT_EQ(item.shortcut, c.shortcut) << c.key;
                EXPECT_EQ(item.modifiers, c.shortcut != 0 ? uint32{B_COMMAND_KEY} : 0) << c.key;
                EXPECT_EQ(item.enabled, c.enabled) << c.key;
                EXPECT_EQ(item.hasSubmenu, c.hasSubmenu) << c.key;
                EXPECT_EQ(item.command, c.command != kTellsNothing) << c.key;
                EXPECT_FALSE(item.radio) << c.key;
                EXPECT_EQ(item.marked, IsToBeMarked(c)) << c.key;
                ASSERT_GE(item.trigger, 0) << c.key;
                const char letter = item.label[static_cast<size_t>(item.trigger)];
                EXPECT_TRUE(letters.insert(Small(letter)).second) << c.key;
                const char wanted[] = {c.letter[0], Small(c.letter[0]), 0};
                // Without hints there may be no such letter in the label.
                if (item.label.find_first_of(wanted) != std::string::npos) {
                    EXPECT_EQ(Small(letter), wanted[1]) << c.key;
                }
            }
            EXPECT_EQ(i, items.size());
        }
    }

    static char Small(char letter) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    }

    static bool IsToBeMarked(const ItemCase& c) {
        if (c.command == kMsgToggleComment)
            return gPrefs.fEnableComment;
        if (c.command != kMsgChooseDisplayOption)
            return false;
        const auto first = std::ranges::find(kItems, kMsgChooseDisplayOption, &ItemCase::command);
        return &c - &*first == gPrefs.fDisplayOption;
    }

    static std::string Hinted(const ItemCase& c) { return c.label; }

    /// The labels of the usual format that lead to the item.
    static std::vector<std::string> WayTo(const ItemCase& c) {
        std::vector<std::string> way{c.label};
        if (c.path == std::string("File/Open..."))
            way.insert(way.begin(), {"File(F)", "Open(O)..."});
        else if (*c.path != 0)
            way.insert(way.begin(), std::string(c.path) + "(" + c.path[0] + ")");
        return way;
    }
};

TEST_F(Menu, HasAllItemsInTheirOrder) {
    OpenAndShow();
    ExpectTree(Hinted);
}

TEST_F(Menu, IsThereBeforeTheWindowIsShown) {
    Open();
    auto* bar = dynamic_cast<BMenuBar*>(View("MenuBar"));
    EXPECT_EQ(bar->CountItems(), 4);
}

TEST_F(Menu, ShowsTheLettersInEveryFormat) {
    const auto before = [](const std::string& middle) {
        return [middle](const ItemCase& c) { return c.letter + middle + c.key; };
    };
    const std::pair<std::string, std::function<std::string(const ItemCase&)>> kFormats[] = {
        {kSuffixFormat, Hinted},
        {"\1a) ", before(") ")},
        {"\1a\u30fb", before("\u30fb")},
        {"\1a - ", before(" - ")},
        {"", [](const ItemCase& c) { return std::string(c.key); }},
    };
    OpenAndShow();
    BMessage change(kMsgSharedItemChanged);
    (void)change.AddString(kFieldSharedItem, "AccKeyFormat2");
    for (const auto& [format, label] : kFormats) {
        SetFormat(format);
        Do(change);
        ExpectTree(label);
    }
}

TEST_F(Menu, IsBuiltAnewOnlyForTheFormatOfTheHints) {
    OpenAndShow();
    SetFormat("");
    BMessage other(kMsgSharedItemChanged);
    (void)other.AddString(kFieldSharedItem, "FlatToolBar");
    Do(other);
    Do(BMessage(kMsgSharedItemChanged));
    ExpectTree(Hinted);
}

TEST_F(Menu, IsBuiltAnewInAnotherLanguage) {
    OpenAndShow();
    const int32 before = std::get<BPrivate::MenuBarState>(Bar().state).items.at(0).id;
    Do(BMessage(kMsgLanguageChanged));
    ExpectTree(Hinted);
    EXPECT_NE(std::get<BPrivate::MenuBarState>(Bar().state).items.at(0).id, before);
}

TEST_F(Menu, KeepsItsMarksWhenItIsBuiltAnew) {
    OpenAndShow();
    gPrefs.fDisplayOption = 4;
    gPrefs.fEnableComment = false;
    Do(BMessage(kMsgLanguageChanged));
    ExpectTree(Hinted);
    gPrefs.fDisplayOption = 2;
    gPrefs.fEnableComment = true;
    BMessage change(kMsgSharedItemChanged);
    (void)change.AddString(kFieldSharedItem, "AccKeyFormat2");
    SetFormat("");
    Do(change);
    SetFormat(kSuffixFormat);
    Do(change);
    ExpectTree(Hinted);
}

TEST_F(Menu, IsBuiltOnceForAllChangesThatWait) {
    OpenAndShow();
    const auto firstId = [&] {
        return std::get<BPrivate::MenuBarState>(Bar().state).items.at(0).id;
    };
    BMessage change(kMsgSharedItemChanged);
    (void)change.AddString(kFieldSharedItem, "AccKeyFormat2");
    int32 before = firstId();
    Do(change);
    EXPECT_EQ(firstId(), before);  // what is shown already

    SetFormat("");
    Do(change);
    const int32 once = firstId() - before;
    EXPECT_GT(once, 0);
    before = firstId();
    ASSERT_TRUE(fWindow->Lock());
    for (int i = 0; i < 9; ++i) {
        SetFormat(i % 2 == 0 ? kSuffixFormat : "");
        EXPECT_EQ(BMessenger(fWindow).SendMessage(&change), B_OK);
    }
    fWindow->Unlock();
    Do(change);
    ExpectTree(Hinted);
    EXPECT_EQ(firstId() - before, once);
}

TEST_F(Menu, MarksFollowThePreferences) {
    OpenAndShow();
    for (int32 option : {0, 1, 2, 3, 4, 5, 6, -1, INT32_MAX}) {
        gPrefs.fDisplayOption = option;
        Do(BMessage(kPrefDisplayOption));
        ExpectTree(Hinted);
    }
    for (bool enabled : {false, true}) {
        gPrefs.fEnableComment = enabled;
        Do(BMessage(kPrefEnableComment));
        ExpectTree(Hinted);
    }
}

TEST_F(Menu, OpensWithAnOptionThereIsNot) {
    gPrefs.fDisplayOption = 17;
    OpenAndShow();
    ExpectTree(Hinted);
}

TEST_F(Menu, SendsEachItemToItsTarget) {
    OpenAndShow();
    auto* log = new CommandLog;
    with_lock(fWindow, [&] { fWindow->AddCommonFilter(log); });
    size_t told = 0;
    int32 option = 0;
    for (const ItemCase& c : kItems) {
        SCOPED_TRACE(c.key);
        const bool isChoosable = c.command != kTellsNothing && c.enabled;
        EXPECT_EQ(fScreen->ChooseItem(Bar().id, WayTo(c)), isChoosable);
        if (!isChoosable)
            continue;
        Settle();
        if (c.target == Target::kApplication) {
            EXPECT_EQ(TakeFromApplication(), c.command);
        }
        if (c.target == Target::kView) {
            const bool hasOption = c.command == kMsgChooseDisplayOption;
            ASSERT_EQ(log->fLog.Entries().size(), ++told);
            EXPECT_EQ(log->fLog.Entries().back(),
                std::to_string(c.command) + " to LorivaneView " +
                    std::to_string(hasOption ? option++ : -1));
        }
        if (c.command == B_QUIT_REQUESTED) {
            // It came by way of the window, which is hidden by it.
            EXPECT_TRUE(recording::WaitFor([&] { return !fScreen->IsShown(); }));
            told = log->fLog.Entries().size();
        }
        // What the view makes of the command goes to the application, too.
        while (TakeFromApplication() != 0) {
        }
    }
    EXPECT_EQ(option, 6);
}

TEST_F(Menu, InvokesItemsByTheirShortcuts) {
    OpenAndShow();
    auto* log = new CommandLog;
    with_lock(fWindow, [&] { fWindow->AddCommonFilter(log); });
    size_t told = 0;
    for (const ItemCase& c : kItems) {
        if (c.shortcut == 0)
            continue;
        SCOPED_TRACE(c.key);
        const char key = static_cast<char>(c.shortcut - 'A' + 'a');
        fScreen->PressKey(key, B_COMMAND_KEY);
        Settle();
        if (c.target == Target::kApplication) {
            EXPECT_EQ(TakeFromApplication(), c.command);
        } else {
            ASSERT_EQ(log->fLog.Entries().size(), ++told);
            EXPECT_EQ(
                log->fLog.Entries().back(), std::to_string(c.command) + " to LorivaneView -1");
        }
    }
    EXPECT_EQ(told, 2U);
}

TEST_F(Menu, OpensByTheKeysThatTheViewLeavesAlone) {
    OpenAndShow();
    const auto press = [&](char key, uint32 modifiers, int32 number = 0) {
        recording::TheRecordingDisplay().SetModifiers(modifiers);
        fScreen->PressKey(key, modifiers, number);
        Settle();
        recording::TheRecordingDisplay().SetModifiers(0);
        return fScreen->OpenedMenus().size();
    };
    const auto menus = std::get<BPrivate::MenuBarState>(Bar().state).items;
    ASSERT_EQ(menus.size(), 4U);
    size_t opened = 0;
    for (size_t i : {0, 1, 2}) {
        ASSERT_EQ(press("fvt"[i], B_CONTROL_KEY), ++opened);
        EXPECT_EQ(fScreen->OpenedMenus().back().second, menus[i].id);
    }
    EXPECT_EQ(press(B_FUNCTION_KEY, 0, B_F10_KEY), ++opened);
    for (int key : {+B_SPACE, +B_ENTER, +B_ESCAPE, +B_HOME, +'a', +'h', +'m', +'v'})
        EXPECT_EQ(press(static_cast<char>(key), 0), opened) << key;
    EXPECT_EQ(press(B_ENTER, B_CONTROL_KEY), opened);
    // The view's own key, whatever is held.
    EXPECT_EQ(press('h', B_CONTROL_KEY), opened);
}

// By way of the application, which sends the notice on.
TEST_F(Menu, TogglesTheComments) {
    OpenAndShow();
    for (bool enabled : {false, true}) {
        ASSERT_TRUE(fScreen->ChooseItem(Bar().id, {"View(V)", "Enable Comment(C)"}));
        Settle();
        EXPECT_EQ(gPrefs.fEnableComment, enabled);
        TPrefs saved;
        ASSERT_EQ(saved.LoadFromFile(), 0);
        EXPECT_EQ(saved.fEnableComment, enabled);
        EXPECT_EQ(TakeFromApplication(), kPrefEnableComment);
        Do(BMessage(kPrefEnableComment));
        ExpectTree(Hinted);
    }
}

TEST_F(Menu, GoesFullScreen) {
    OpenAndShow();
    ASSERT_TRUE(fScreen->ChooseItem(Bar().id, {"View(V)", "Full Screen(U) [Enter]"}));
    Settle();
    EXPECT_EQ(Frame(), BRect(0, -(View("LorivaneView")->Frame().top), 1919, 1093));
    fScreen->PressKey(B_ESCAPE);
    Settle();
    EXPECT_EQ(Frame(), BRect(100, 110, 500, 410));
}

}  // namespace
