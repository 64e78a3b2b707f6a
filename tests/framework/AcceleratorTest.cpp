#include "framework/Accelerator.h"

#include <gtest/gtest.h>
#include <interface/Button.h>
#include <kernel/OS.h>
#include <string>
#include <vector>

namespace {

constexpr char kAfter[] = "\2(a)";
constexpr char kBeforeBracket[] = "\1a) ";
constexpr char kBeforeDot[] = "\1a・";
constexpr char kBeforeDash[] = "\1a - ";
constexpr char kNone[] = "";

struct MergeCase {
    const char* format;
    const char* key;
    const char* label;
    const char* merged;
};

class MergeTest : public testing::TestWithParam<MergeCase> {};

TEST_P(MergeTest, PutsTheHintIntoTheLabel) {
    const MergeCase& c = GetParam();
    EXPECT_EQ(merge_accelerator_key(c.format, c.key, c.label), c.merged);
}

INSTANTIATE_TEST_SUITE_P(After, MergeTest,
    testing::Values(MergeCase{kAfter, "O", "Open...", "Open(O)..."},
        MergeCase{kAfter, "O", "Next Image [Space]", "Next Image(O) [Space]"},
        MergeCase{kAfter, "O", "Accelerator Format: ", "Accelerator Format(O): "},
        MergeCase{kAfter, "Q", "Quit", "Quit(Q)"}, MergeCase{kAfter, "Q", "", "(Q)"},
        MergeCase{kAfter, "M", "余白：", "余白(M)："},
        MergeCase{kAfter, "M", "余白  ：", "余白(M)  ："},
        // The first of each decoration, and "..." before "[" before the colons.
        MergeCase{kAfter, "A", "a...b...", "a(A)...b..."},
        MergeCase{kAfter, "A", "a [b] c ...", "a [b] c(A) ..."},
        MergeCase{kAfter, "A", "a: b [c]", "a: b(A) [c]"},
        MergeCase{kAfter, "A", "a: b：", "a: b(A)："}, MergeCase{kAfter, "A", "a: b:", "a(A): b:"},
        MergeCase{kAfter, "A", "...", "(A)..."}, MergeCase{kAfter, "A", "   ...", "(A)   ..."},
        MergeCase{kAfter, "A", "a..", "a..(A)"}, MergeCase{kAfter, "A", "a\t...", "a\t(A)..."}));

INSTANTIATE_TEST_SUITE_P(Before, MergeTest,
    testing::Values(MergeCase{kBeforeBracket, "O", "Open...", "O) Open..."},
        MergeCase{kBeforeDot, "O", "Open...", "O・Open..."},
        MergeCase{kBeforeDash, "O", "Open...", "O - Open..."},
        MergeCase{kBeforeDash, "O", "", "O - "}));

INSTANTIATE_TEST_SUITE_P(Odd, MergeTest,
    testing::Values(MergeCase{kNone, "O", "Open...", "Open..."},
        MergeCase{"\1", "O", "Open...", "Open..."}, MergeCase{"\2", "O", "Open...", "Open..."},
        MergeCase{"\2xyz", "O", "Open...", "Open..."},  // no mark, no hint
        MergeCase{"\2<a|a>", "O", "Open...", "Open<O|a>..."},
        MergeCase{"\3(a)", "O", "Open...", "Open(O)..."},
        MergeCase{"a", "O", "Open...", "Open..."},  // the first byte is no part of the hint
        MergeCase{kAfter, "", "Open...", "Open()..."},
        MergeCase{kAfter, "F1", "Open...", "Open(F1)..."}));

struct ShortCutCase {
    const char* label;
    char key;
};

class ShortCutTest : public testing::TestWithParam<ShortCutCase> {};

TEST_P(ShortCutTest, IsReadBack) {
    EXPECT_EQ(short_cut_from_label(GetParam().label), GetParam().key);
}

INSTANTIATE_TEST_SUITE_P(Labels, ShortCutTest,
    testing::Values(ShortCutCase{"Open(O)...", 'o'}, ShortCutCase{"O) Open...", 'o'},
        ShortCutCase{"O・Open...", 'o'}, ShortCutCase{"O - Open...", 'o'},
        ShortCutCase{"Open...", 0}, ShortCutCase{"", 0}, ShortCutCase{"(", 0},
        ShortCutCase{"(O", 0}, ShortCutCase{"(O)", 'o'}, ShortCutCase{"()", '('},
        ShortCutCase{"Next Image(N) [Space]", 'n'}, ShortCutCase{"はい(Y)", 'y'},
        ShortCutCase{"Size (px)(S)", 's'}, ShortCutCase{"Five(5)", '5'}, ShortCutCase{")", 0},
        ShortCutCase{" x", 0}, ShortCutCase{"x", 0},
        ShortCutCase{"A nice label", 'a'},  // reads like the hint of "a - "
        ShortCutCase{"ab) c", 0}, ShortCutCase{"・x", 0}, ShortCutCase{"q)", 'q'}));

TEST(ShortCut, IsReadBackFromEveryFormat) {
    for (const char* label : {"Open...", "Next Image [Space]", "Accelerator Format: ", "Quit"}) {
        for (const char* format : {kAfter, kBeforeBracket, kBeforeDot, kBeforeDash}) {
            const std::string merged = merge_accelerator_key(format, "X", label);
            EXPECT_EQ(short_cut_from_label(merged), 'x') << merged;
        }
        EXPECT_EQ(short_cut_from_label(merge_accelerator_key(kNone, "X", label)), 0) << label;
    }
}

/// Keeps what is done to it, and when.
class WatchedButton : public BButton {
public:
    WatchedButton() : BButton(BRect(0, 0, 49, 19), "Button", "Press", nullptr) {}

    void SetValue(int32 value) override {
        fDone.push_back(value == B_CONTROL_ON ? "pressed" : "released");
        fTimes.push_back(system_time());
        BButton::SetValue(value);
    }

    status_t Invoke(BMessage*) override {
        fDone.emplace_back("invoked");
        return B_OK;
    }

    std::vector<std::string> fDone;
    std::vector<bigtime_t> fTimes;
};

TEST(ClickButton, PressesItForATwentiethOfASecondAndInvokesIt) {
    WatchedButton button;
    click_button(&button);
    ASSERT_EQ(button.fDone, (std::vector<std::string>{"pressed", "released", "invoked"}));
    EXPECT_GE(button.fTimes[1] - button.fTimes[0], 50000);
}

}  // namespace
