// Every key of the view with every combination of modifiers.

#include <app/Application.h>
#include <app/MessageQueue.h>
#include <bit>
#include <interface/InterfaceDefs.h>
#include <optional>

#include "tests/viewer/ViewerTest.h"

namespace {

constexpr uint32 kNone = 0;
constexpr uint32 kCommand = B_COMMAND_KEY;
constexpr uint32 kControl = B_CONTROL_KEY;
constexpr uint32 kAllModifiers[] = {B_SHIFT_KEY, B_COMMAND_KEY, B_CONTROL_KEY, B_OPTION_KEY};

struct KeyCase {
    const char* what;
    char key;
    int32 number;
    /// What the key does with these modifiers and no others, from image c of a to e.
    std::vector<std::pair<uint32, std::string>> effects;
};

const KeyCase kKeyCases[] = {
    {"Home", B_HOME, 0, {{kNone, "a"}}},
    {"End", B_END, 0, {{kNone, "e"}}},
    {"Backspace", B_BACKSPACE, 0, {{kNone, "b"}}},
    {"Space", B_SPACE, 0, {{kNone, "d"}}},
    {"Page Up", B_PAGE_UP, 0, {{kNone, "b"}, {kCommand, "b"}}},
    {"Up", B_UP_ARROW, 0, {{kNone, "b"}, {kCommand, "b"}}},
    {"Left", B_LEFT_ARROW, 0, {{kNone, "b"}, {kCommand, "b"}}},
    {"Page Down", B_PAGE_DOWN, 0, {{kNone, "d"}, {kCommand, "d"}}},
    {"Down", B_DOWN_ARROW, 0, {{kNone, "d"}, {kCommand, "d"}}},
    {"Right", B_RIGHT_ARROW, 0, {{kNone, "d"}, {kCommand, "d"}}},
    {"Enter", B_ENTER, 0, {{kNone, "full screen"}, {kControl, "full screen"}}},
    {"F5", B_FUNCTION_KEY, B_F5_KEY, {{kNone, "full screen"}}},
    {"F4", B_FUNCTION_KEY, B_F4_KEY, {}},
    {"F6", B_FUNCTION_KEY, B_F6_KEY, {}},
    {"Escape", B_ESCAPE, 0, {}},
    {"b", 'b', 0, {}},
    {"Delete", B_DELETE, 0, {}},
};

class Keys : public ViewerTest {
protected:
    void ShowThird() {
        WriteImages({"a", "b", "c", "d", "e"});
        ShowWindow();
        Open("c");
        WaitForLoaders();
    }

    /// What has become of image c in an ordinary window; both are there again afterwards.
    std::string Effect() {
        std::string effect;
        if (std::string shown = Shown(); shown != "c") {
            effect = shown;
            Open("c");
            WaitForLoaders();
        }
        if (Locked([&] { return fView->IsFullScreen(); })) {
            effect += "full screen";
            Locked([&] { fView->SetFullScreen(false); });
        }
        if (fScreen->IsMinimized()) {
            effect += "minimized";
            fScreen->UserMinimize(false);
            Settle();
        }
        while (std::unique_ptr<BMessage> told{be_app->MessageQueue()->NextMessage()})
            effect += told->what == B_ABOUT_REQUESTED ? "about" : "some message";
        return effect;
    }

    static std::vector<uint32> AllCombinations() {
        std::vector<uint32> all{0};
        for (uint32 modifier : kAllModifiers) {
            for (size_t i = 0, count = all.size(); i < count; ++i)
                all.push_back(all[i] | modifier);
        }
        return all;
    }
};

TEST_F(Keys, DoWhatTheyDoWithTheirModifiersAlone) {
    ShowThird();
    for (const KeyCase& c : kKeyCases) {
        for (uint32 held : AllCombinations()) {
            std::string expected;
            for (const auto& [modifiers, effect] : c.effects) {
                if (modifiers == held)
                    expected = effect;
            }
            Press(c.key, held, c.number);
            EXPECT_EQ(Effect(), expected) << c.what << " with " << std::hex << held;
        }
    }
}

TEST_F(Keys, LettersWorkWithAnyModifierButCommand) {
    ShowThird();
    for (uint32 held : AllCombinations()) {
        const bool isShortcut = (held & B_COMMAND_KEY) != 0;
        for (auto [key, effect] :
            {std::pair('a', "about"), {'h', "minimized"}, {'m', "minimized"}}) {
            Press(key, held);
            EXPECT_EQ(Effect(), isShortcut ? "" : effect) << key << " with " << std::hex << held;
        }
    }
}

TEST_F(Keys, TheLocksAreNoModifiers) {
    ShowThird();
    constexpr uint32 kLocks = B_CAPS_LOCK | B_NUM_LOCK | B_SCROLL_LOCK;
    Press(B_SPACE, kLocks);
    EXPECT_EQ(Effect(), "d");
    Press(B_ENTER, kLocks | B_CONTROL_KEY);
    EXPECT_EQ(Effect(), "full screen");
}

TEST_F(Keys, LeaveFullScreen) {
    ShowThird();
    struct {
        char key;
        int32 number;
        bool leaves;
    } const kLeaving[] = {
        {B_ENTER, 0, true}, {B_FUNCTION_KEY, B_F5_KEY, true}, {B_ESCAPE, 0, true}, {'f', 0, false}};
    for (const auto& c : kLeaving) {
        Locked([&] { fView->SetFullScreen(true); });
        Press(c.key, 0, c.number);
        EXPECT_EQ(Locked([&] { return fView->IsFullScreen(); }), !c.leaves) << int{c.key};
    }
    for (uint32 held : AllCombinations()) {
        if (held == 0)
            continue;
        Press(B_ESCAPE, held);
        EXPECT_EQ(Effect(), "full screen") << std::hex << held;
        Locked([&] { fView->SetFullScreen(true); });
    }
}

}  // namespace
