#include <gtest/gtest.h>

#include "kits/interface/MenuTriggers.h"

using BPrivate::FindTriggers;
using BPrivate::TriggerWish;

namespace {

/// The labels with "_" before the letter that chooses each.
std::vector<std::string> Shown(const std::vector<TriggerWish>& items) {
    const std::vector<int32> found = FindTriggers(items);
    EXPECT_EQ(found.size(), items.size());
    std::vector<std::string> shown;
    for (std::size_t i = 0; i < items.size(); i++) {
        std::string label(items[i].label);
        if (found[i] >= 0)
            label.insert(static_cast<std::size_t>(found[i]), "_");
        shown.push_back(label);
    }
    return shown;
}

using Labels = std::vector<std::string>;

}  // namespace

TEST(TriggersTest, ALabelShowsItsOwnByAHint) {
    EXPECT_EQ(Shown({{"Open(O)..."}}), Labels{"Open(_O)..."});
    EXPECT_EQ(Shown({{"O) Open..."}}), Labels{"_O) Open..."});
    EXPECT_EQ(Shown({{"O - Open..."}}), Labels{"_O - Open..."});
    EXPECT_EQ(Shown({{"O\u30fbOpen..."}}), Labels{"_O\u30fbOpen..."});
    EXPECT_EQ(Shown({{"\u958b\u304f(O)..."}}), Labels{"\u958b\u304f(_O)..."});
    EXPECT_EQ(Shown({{"picture.png(0)"}}), Labels{"picture.png(_0)"});
}

TEST(TriggersTest, AFilesOwnParenthesesAreNotTheHint) {
    EXPECT_EQ(Shown({{"holiday (1).jpg(0)"}}), Labels{"holiday (1).jpg(_0)"});
    EXPECT_EQ(Shown({{"0) holiday (1).jpg"}}), Labels{"_0) holiday (1).jpg"});
}

TEST(TriggersTest, WhatIsNoHintIsNot) {
    EXPECT_EQ(Shown({{"view (all)"}}), Labels{"_view (all)"});
    EXPECT_EQ(Shown({{"zoom (-)"}}), Labels{"_zoom (-)"});
    EXPECT_EQ(Shown({{"a bc"}}), Labels{"_a bc"});
    EXPECT_EQ(Shown({{"(b"}}), Labels{"(_b"});
}

TEST(TriggersTest, WithoutAHintTheFirstLetterThatIsFree) {
    EXPECT_EQ(Shown({{"File"}, {"Find"}, {"Fi"}, {"FI"}}), (Labels{"_File", "F_ind", "Fi", "FI"}));
    EXPECT_EQ(Shown({{"save As"}}), Labels{"save _As"});
    EXPECT_EQ(Shown({{"save As"}, {"all"}}), (Labels{"save _As", "a_ll"}));
}

TEST(TriggersTest, HintsGoBeforeLettersThatWereFound) {
    EXPECT_EQ(Shown({{"Open"}, {"Other(O)"}}), (Labels{"O_pen", "Other(_O)"}));
    EXPECT_EQ(Shown({{"One(O)"}, {"Other(o)"}}), (Labels{"One(_O)", "O_ther(o)"}));
}

TEST(TriggersTest, WhatIsAskedForGoesBeforeHints) {
    EXPECT_EQ(Shown({{"Open(O)"}, {"Close", 'O'}}), (Labels{"O_pen(O)", "Cl_ose"}));
    EXPECT_EQ(Shown({{"oO", 'O'}}), Labels{"o_O"});
    EXPECT_EQ(Shown({{"Open", 'x'}}), Labels{"_Open"});
    EXPECT_EQ(Shown({{"A-1", '1'}}), Labels{"A-_1"});
    EXPECT_EQ(Shown({{"A-1", '-'}}), Labels{"_A-1"});
    EXPECT_EQ(Shown({{"Ab", 'b'}, {"Cb", 'b'}}), (Labels{"A_b", "_Cb"}));
}

TEST(TriggersTest, SomeHaveNone) {
    EXPECT_EQ(Shown({}), Labels{});
    EXPECT_EQ(Shown({{""}, {"\u958b\u304f"}, {"..."}, {"7 8"}}),
        (Labels{"", "\u958b\u304f", "...", "7 8"}));
    EXPECT_EQ(Shown({{"\xff(\xff)", '\xff'}, {"(\xff"}}), (Labels{"\xff(\xff)", "(\xff"}));
}
