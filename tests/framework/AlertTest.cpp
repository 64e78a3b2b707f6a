#include "framework/Alert.h"

#include "framework/Accelerator.h"
#include "iap/IAPItemAccKeyFormat.h"
#include "iap/InterAppPrefs.h"
#include "kits/interface/AlertAnswer.h"
#include "kits/locale/Catalogue.h"
#include "tests/framework/TestWindows.h"

#include <algorithm>
#include <app/Message.h>
#include <array>
#include <future>
#include <interface/InterfaceDefs.h>

namespace {

/// Somebody asks in a thread of his own, and the test answers.
class AlertTest : public testing::Test {
protected:
    // Other tests of this program have had applications, which have ended.
    AlertTest() { BPrivate::AlertAnswer::SetApplicationEnds(false); }
    ~AlertTest() override { BPrivate::set_catalogue(BPrivate::catalogue_of("en")); }

    template <typename Function>
    recording::Window& Ask(Function ask, const char* title = "* Lorivane *") {
        fAnswer = std::async(std::launch::async, ask);
        fAlert = recording::TheRecordingDisplay().WaitForWindow(title);
        EXPECT_TRUE(fAlert);
        return *fAlert;
    }
    int32 Answer() {
        const int32 answer = fAnswer.get();
        EXPECT_TRUE(recording::WaitFor([&] { return !fAlert->IsOpen(); }));
        return answer;
    }
    BPrivate::AlertTextState Text() const {
        for (const recording::Control& control : fAlert->Controls()) {
            if (const auto* text = std::get_if<BPrivate::AlertTextState>(&control.state))
                return *text;
        }
        return {"no text"};
    }
    bool HasButton(const char* label) const { return fAlert->FindControl(label).has_value(); }

    std::future<int32> fAnswer;
    std::shared_ptr<recording::Window> fAlert;
};

int32 ask_three(int32 escapeIndex) {
    return show_alert("text", "hint", "No(N)", "Maybe", "(Y)Yes", escapeIndex, B_STOP_ALERT);
}

}  // namespace

TEST_F(AlertTest, OneButtonAtTheEscapeIndexClosesOnEscape) {
    recording::Window& alert =
        Ask([] { return show_alert("text", "hint", "OK", nullptr, nullptr, 0, B_INFO_ALERT); });
    EXPECT_EQ(Text().text, "text\n\nhint");
    EXPECT_EQ(Text().type, B_INFO_ALERT);
    alert.PressKey(B_ESCAPE);
    EXPECT_EQ(Answer(), 0);
}

TEST_F(AlertTest, AnEmptyHintLeavesTheLineEnds) {
    for (const char* hint : {"", static_cast<const char*>(nullptr)}) {
        recording::Window& alert = Ask(
            [hint] { return show_alert("text", hint, "OK", nullptr, nullptr, 0, B_IDEA_ALERT); });
        EXPECT_EQ(Text().text, "text\n\n");
        alert.PressKey(B_ENTER);
        EXPECT_EQ(Answer(), 0);
    }
}

TEST_F(AlertTest, ButtonsAnswerToTheLettersTheyShow) {
    Ask([] { return ask_three(-1); }).PressKey('n');
    EXPECT_EQ(Answer(), 0);
    Ask([] { return ask_three(1); }).PressKey('Y', B_SHIFT_KEY);
    EXPECT_EQ(Answer(), 2);
    Ask([] { return ask_three(1); }).PressKey(B_ESCAPE);
    EXPECT_EQ(Answer(), 1);
    Ask([] { return ask_three(-1); }).PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 2);
}

TEST_F(AlertTest, AButtonWithoutAHintHasNoLetter) {
    recording::Window& alert = Ask([] { return ask_three(0); });
    for (const char key : {'m', 'M', 'a'})
        alert.PressKey(key);
    alert.PressKey('y');
    EXPECT_EQ(Answer(), 2);
}

TEST_F(AlertTest, TheButtonForEscapeAnswersToItsLetterAsWell) {
    for (const auto& [key, modifiers] : {std::pair('n', 0U), std::pair('N', uint32{B_SHIFT_KEY}),
             std::pair('n', uint32{B_CONTROL_KEY}), std::pair(char{B_ESCAPE}, 0U)}) {
        Ask([] { return ask_three(0); }).PressKey(key, modifiers);
        EXPECT_EQ(Answer(), 0);
    }
    // One that copies the text, or a menu's shortcut, agrees to nothing.
    recording::Window& alert = Ask([] { return ask_three(0); });
    alert.PressKey('n', B_COMMAND_KEY);
    alert.PressKey('y');
    EXPECT_EQ(Answer(), 2);
}

TEST_F(AlertTest, EveryFormatOfHintsGivesItsLetter) {
    for (const char* format : {"\x01"
                               "a)",
             "\x01(a)",
             "\x01"
             "a ",
             "\x01"
             "a\xE3\x83\xBB",
             "\x02(a)"}) {
        const std::string no = merge_accelerator_key(format, "N", "No");
        const std::string all = merge_accelerator_key(format, "A", "Delete All");
        const auto ask = [&] {
            return show_alert("?", "", no.c_str(), all.c_str(), nullptr, 0, B_WARNING_ALERT);
        };
        for (const auto& [key, answer] : {std::pair('n', 0), std::pair('a', 1)}) {
            for (const uint32 modifiers : {uint32{0}, uint32{B_CONTROL_KEY}}) {
                Ask(ask).PressKey(key, modifiers);
                EXPECT_EQ(Answer(), answer) << no << " " << key;
            }
        }
    }
}

TEST_F(AlertTest, AKeyHeldSinceBeforeIsNoAnswer) {
    recording::Window& alert = Ask([] { return ask_three(0); });
    BMessage repeated(B_KEY_DOWN);
    (void)repeated.AddInt32("raw_char", 'n');
    (void)repeated.AddString("bytes", "n");
    (void)repeated.AddInt32("be:key_repeat", 3);
    alert.Send(repeated);
    alert.PressKey('y');
    EXPECT_EQ(Answer(), 2);
}

TEST_F(AlertTest, EnterIsForTheButtonThatChangesNothing) {
    for (const int32 escapeIndex : {0, 1, 2}) {
        recording::Window& alert = Ask([=] { return ask_three(escapeIndex); });
        const auto button = alert.FindControl(std::array{"No(N)", "Maybe", "(Y)Yes"}[escapeIndex]);
        EXPECT_TRUE(std::get<BPrivate::ButtonState>(button->state).isDefault);
        EXPECT_TRUE(button->place.focused);
        alert.PressKey(B_ENTER);
        EXPECT_EQ(Answer(), escapeIndex);
    }
    // Who goes to another one means it.
    recording::Window& alert = Ask([] { return ask_three(0); });
    alert.PressKey(B_RIGHT_ARROW);
    alert.PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 1);
}

TEST_F(AlertTest, TheTitleIsTheApplicationsNameInTheUsersLanguage) {
    BPrivate::set_catalogue({{"* %AppName% *", "+ %AppName% +"}, {"Lorivane", "Die Lorivane"}});
    Ask([] { return ask_three(0); }, "+ Die Lorivane +").PressKey(B_ESCAPE);
    EXPECT_EQ(Answer(), 0);
}

TEST_F(AlertTest, WhoIsNotAnsweredBecauseAllEndsIsAnsweredAsByEscape) {
    for (const auto& [escape, answer] : {std::pair(1, 1), std::pair(-1, -1), std::pair(3, -1)}) {
        Ask([index = escape] { return ask_three(index); });
        BPrivate::AlertAnswer::SetApplicationEnds(true);
        EXPECT_EQ(Answer(), answer);
        BPrivate::AlertAnswer::SetApplicationEnds(false);
    }
}

TEST_F(AlertTest, AnErrorIsOnlyToBeUnderstood) {
    (void)gIAPs.AddItem(new TIAPItemAccKeyFormat);
    const auto error = [] {
        show_error("@Err_Cannot_Show_Help@", "hint");
        return int32(0);
    };
    ASSERT_EQ(gIAPs.SetString("AccKeyFormat2", "\x02(a)"), 0);
    for (const char key : {char{B_ESCAPE}, char{B_ENTER}, 'u', 'U'}) {
        recording::Window& alert = Ask(error);
        EXPECT_TRUE(HasButton("Understand(U)"));
        EXPECT_EQ(Text().text, "@Err_Cannot_Show_Help@\n\nhint");
        EXPECT_EQ(Text().type, B_WARNING_ALERT);
        alert.PressKey(key);
        EXPECT_EQ(Answer(), 0);
    }
    BPrivate::set_catalogue(BPrivate::catalogue_of("de"));
    ASSERT_EQ(gIAPs.SetString("AccKeyFormat2", ""), 0);
    recording::Window& alert = Ask(error);
    EXPECT_TRUE(HasButton("Verstanden"));
    alert.PressCloseBox();
    EXPECT_EQ(Answer(), 0);
}
