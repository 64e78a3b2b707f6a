#include <QAccessible>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <atomic>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>
#include <thread>

#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

class Controls : public testing::Test {
protected:
    void SetUp() override { fScreen.Show(); }

    /// Makes or changes a control.
    void Set(ControlId id, const ControlState& state, int32 serial = 1) {
        fScreen.Window().SetControl(id, state, serial);
    }
    void Place(ControlId id, ControlPlace place) {
        fScreen.Window().PlaceControl(id, place);
        Pump();
    }
    ControlPlace PlaceOf(const char* name, BRect frame = BRect(10, 20, 109, 44)) {
        ControlPlace place;
        place.name = name;
        place.frame = frame;
        place.navigable = true;
        return place;
    }
    /// All changes reported so far.
    std::vector<BMessage> Changes() { return fScreen.Messages().All(kControlChanged); }

    Screen fScreen;
};

TEST_F(Controls, HaveAPlaceANameAndCanBeTakenAway) {
    Set(1, ButtonState{"OK"});
    EXPECT_EQ(fScreen.Find<QPushButton>("OK"), nullptr);
    ControlPlace place = PlaceOf("OK");
    Place(1, place);
    auto* button = fScreen.Find<QPushButton>("OK");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->geometry(), QRect(10, 20, 100, 25));
    EXPECT_TRUE(button->isVisible());
    EXPECT_TRUE(button->isEnabled());
    place.enabled = false;
    place.visible = false;
    Place(1, place);
    EXPECT_FALSE(button->isVisible());
    EXPECT_FALSE(button->isEnabled());
    fScreen.Window().RemoveControl(1);
    Pump();
    EXPECT_EQ(fScreen.Find<QPushButton>("OK"), nullptr);
}

TEST_F(Controls, ShowOnlyWhatTheirSurroundingsLeave) {
    Set(1, ButtonState{"OK"});
    ControlPlace place = PlaceOf("OK");
    place.clip = BRect(10, 30, 200, 34);
    Place(1, place);
    EXPECT_EQ(fScreen.Find<QPushButton>("OK")->mask().boundingRect(), QRect(0, 10, 100, 5));
    place.clip = BRect();
    Place(1, place);
    EXPECT_TRUE(fScreen.Find<QPushButton>("OK")->mask().isEmpty());
}

TEST_F(Controls, LieAboveThoseMadeBefore) {
    Set(1, BoxState{});
    Place(1, PlaceOf("lower"));
    Set(2, ButtonState{"upper"});
    Place(2, PlaceOf("upper"));
    EXPECT_EQ(fScreen.Widget().childAt(20, 30), fScreen.Find<QPushButton>("upper"));
}

TEST_F(Controls, AButtonIsClicked) {
    Set(4, ButtonState{"Save && go", true}, 9);
    Place(4, PlaceOf("Save"));
    auto* button = fScreen.Find<QPushButton>("Save");
    EXPECT_EQ(button->text().toStdString(), "Save &&&& go");
    EXPECT_TRUE(button->isDefault());
    EXPECT_FALSE(button->isDown());
    QTest::mouseClick(button, Qt::LeftButton);
    const BMessage change = fScreen.Expect(kControlChanged);
    EXPECT_EQ(change.GetInt32("control", 0), 4);
    EXPECT_EQ(change.GetInt32("serial", 0), 9);
    EXPECT_EQ(change.GetInt32("value", 0), 1);
    Set(4, ButtonState{"Save", true, true}, 10);
    Pump();
    EXPECT_TRUE(button->isDown());
    Set(4, ButtonState{"Save", false, false}, 11);
    Pump();
    EXPECT_FALSE(button->isDown());
    EXPECT_FALSE(button->isDefault());
    EXPECT_FALSE(button->isFlat());
    Set(4, ButtonState{"Save", false, false, true}, 12);
    Pump();
    EXPECT_TRUE(button->isFlat());
    EXPECT_EQ(Changes().size(), 1U);
}

TEST_F(Controls, ACheckBoxReportsOnlyTheUser) {
    Set(1, CheckBoxState{"Enable", true}, 3);
    Place(1, PlaceOf("Enable"));
    auto* box = fScreen.Find<QCheckBox>("Enable");
    EXPECT_TRUE(box->isChecked());
    Set(1, CheckBoxState{"Enable", false}, 4);
    Pump();
    EXPECT_FALSE(box->isChecked());
    EXPECT_TRUE(Changes().empty());
    box->click();
    EXPECT_EQ(fScreen.Expect(kControlChanged).GetInt32("value", -1), 1);
    box->click();
    const BMessage off = fScreen.Expect(kControlChanged, 2);
    EXPECT_EQ(off.GetInt32("value", -1), 0);
    EXPECT_EQ(off.GetInt32("serial", -1), 4);
}

TEST_F(Controls, RadioButtonsActOnTheirOwnGroup) {
    Set(1, RadioButtonState{"Top", true, 1});
    Set(2, RadioButtonState{"Bottom", false, 1});
    Set(3, RadioButtonState{"Other group", true, 2});
    for (const int32 id : {1, 2, 3}) {
        const auto top = static_cast<float>(id * 30);
        Place(id,
            PlaceOf(id == 1   ? "Top"
                    : id == 2 ? "Bottom"
                              : "Other group",
                BRect(10, top, 109, top + 24)));
    }
    auto* top = fScreen.Find<QRadioButton>("Top");
    auto* bottom = fScreen.Find<QRadioButton>("Bottom");
    const auto* other = fScreen.Find<QRadioButton>("Other group");
    for (QRadioButton* button : {top, bottom})
        EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->role(), QAccessible::RadioButton);
    EXPECT_TRUE(top->isChecked());
    EXPECT_TRUE(other->isChecked());
    // A click does not turn one off that is on.
    top->click();
    EXPECT_TRUE(top->isChecked());
    EXPECT_EQ(fScreen.Expect(kControlChanged).GetInt32("control", -1), 1);

    bottom->click();
    EXPECT_FALSE(top->isChecked());
    EXPECT_TRUE(bottom->isChecked());
    EXPECT_EQ(fScreen.Expect(kControlChanged, 2).GetInt32("control", -1), 2);

    // The arrows go along them, and no further.
    bottom->setFocus();
    QTest::keyClick(bottom, Qt::Key_Down);
    EXPECT_TRUE(bottom->hasFocus());
    QTest::keyClick(bottom, Qt::Key_Up);
    EXPECT_TRUE(top->hasFocus());
    EXPECT_TRUE(top->isChecked());
    EXPECT_FALSE(bottom->isChecked());
    EXPECT_EQ(fScreen.Expect(kControlChanged, 3).GetInt32("control", -1), 1);
    EXPECT_TRUE(other->isChecked());

    // What the kits say holds in any order.
    Set(1, RadioButtonState{"Top", false, 1});
    Pump();
    EXPECT_FALSE(top->isChecked());
    Set(2, RadioButtonState{"Bottom", true, 1});
    Set(1, RadioButtonState{"Top", true, 1});
    Set(2, RadioButtonState{"Bottom", false, 1});
    Pump();
    EXPECT_TRUE(top->isChecked());
    EXPECT_FALSE(bottom->isChecked());
    // In another parent it is another choice.
    Set(2, RadioButtonState{"Bottom", true, 2});
    Pump();
    EXPECT_TRUE(top->isChecked());
    EXPECT_EQ(Changes().size(), 3U);
}

TEST_F(Controls, AScrollBarShowsItsState) {
    Set(1, ScrollBarState{B_VERTICAL, 0, 300, 120, 0.25F, 10, 50});
    Place(1, PlaceOf("ScrlBarV", BRect(280, 0, 293, 199)));
    auto* bar = fScreen.Find<QScrollBar>("ScrlBarV");
    EXPECT_EQ(bar->orientation(), Qt::Vertical);
    EXPECT_EQ(bar->maximum(), 300);
    EXPECT_EQ(bar->value(), 120);
    EXPECT_EQ(bar->singleStep(), 10);
    EXPECT_EQ(bar->pageStep(), 100);
    EXPECT_TRUE(Changes().empty());
}

TEST_F(Controls, AScrollBarReportsTheUsersSteps) {
    Set(1, ScrollBarState{B_VERTICAL, 0, 300.5F, 120, 0.25F, 10, 50}, 6);
    Place(1, PlaceOf("ScrlBarV", BRect(280, 0, 293, 199)));
    auto* bar = fScreen.Find<QScrollBar>("ScrlBarV");
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    const BMessage step = fScreen.Expect(kControlChanged);
    EXPECT_EQ(step.GetFloat("value", 0.0F), 130);
    EXPECT_EQ(step.GetInt32("serial", 0), 6);
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(fScreen.Expect(kControlChanged, 2).GetFloat("value", 0.0F), 180);
    bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(fScreen.Expect(kControlChanged, 3).GetFloat("value", 0.0F), 130);
    bar->triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(fScreen.Expect(kControlChanged, 4).GetFloat("value", 0.0F), 300.5F);
    Set(1, ScrollBarState{B_VERTICAL, 0, 200, 20, 0.25F, 10, 50}, 7);
    Pump();
    EXPECT_EQ(bar->value(), 20);
    EXPECT_EQ(Changes().size(), 4U);
}

TEST_F(Controls, AStringViewShowsItsTextWhole) {
    Set(1, StringViewState{"3/120", B_ALIGN_RIGHT});
    Place(1, PlaceOf("", BRect(2, 0, 47, 14)));
    auto* label = fScreen.Find<QLabel>("");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text().toStdString(), "3/120");
    EXPECT_TRUE(label->alignment() & Qt::AlignRight);
    // Text is text, whatever it looks like.
    Set(1, StringViewState{"<b>x</b> & y"});
    Pump();
    EXPECT_EQ(label->text().toStdString(), "<b>x</b> & y");
}

TEST_F(Controls, AStringViewInALowPlaceKeepsItsDescenders) {
    // The rows of a text's ink in a place of that height, of which only a part may be seen.
    const auto ink = [&](const char* text, float height, float seen) {
        Set(1, StringViewState{text});
        ControlPlace place = PlaceOf("s", BRect(10, 10, 109, 10 + height));
        place.clip = BRect(10, 10, 109, 10 + seen);
        Place(1, place);
        const QImage shown = fScreen.Widget().grab().toImage();
        const QRgb empty = shown.pixel(0, 0);
        int rows = 0;
        for (int y = 0; y < shown.height(); ++y) {
            bool inked = false;
            for (int x = 10; x < 110; ++x)
                inked = inked || shown.pixel(x, y) != empty;
            rows += inked;
        }
        return rows;
    };
    const int whole = ink("JPEG img", 40, 40);
    EXPECT_GT(whole, 9);
    EXPECT_EQ(ink("JPEG img", 14, 14), whole);
    EXPECT_EQ(ink("JPEG img", 14, 13), whole);
    // Where that is impossible the text is set smaller.
    const int low = ink("JPEG img", 40, 9);
    EXPECT_LT(low, whole);
    EXPECT_GT(low, 5);
}

TEST_F(Controls, AStringViewHasItsColourOrTheThemes) {
    StringViewState state{"x"};
    state.systemColor = false;
    state.color = {10, 200, 30, 255};
    Set(1, state);
    Place(1, PlaceOf("s"));
    auto* label = fScreen.Find<QLabel>("s");
    EXPECT_EQ(label->palette().color(QPalette::WindowText), QColor(10, 200, 30));
    state.systemColor = true;
    Set(1, state);
    Pump();
    EXPECT_EQ(label->palette().color(QPalette::WindowText),
        QApplication::palette().color(QPalette::WindowText));
}

TEST_F(Controls, ALongTextIsCutWithAnEllipsis) {
    const auto ink = [&](const char* text) {
        Set(1, StringViewState{text});
        Place(1, PlaceOf("s", BRect(0, 0, 59, 19)));
        return fScreen.Find<QLabel>("s")->grab().toImage();
    };
    // What is cut off makes no difference to what is seen.
    EXPECT_EQ(ink("wwwwwwwwwwwwwwwwwwwwA"), ink("wwwwwwwwwwwwwwwwwwwwB"));
    EXPECT_NE(ink("wwwA"), ink("wwwB"));
}

TEST_F(Controls, ATextThatIsCutIsToldByTheToolTip) {
    Set(1, StringViewState{"3/120"});
    Place(1, PlaceOf("s", BRect(0, 0, 59, 19)));
    auto* label = fScreen.Find<QLabel>("s");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->toolTip().toStdString(), "");
    Set(1, StringViewState{"wwwwwwwwwwww<wwwwwwww"});
    Pump();
    EXPECT_EQ(label->toolTip().toStdString(), "<span>wwwwwwwwwwww&lt;wwwwwwww</span>");
    Place(1, PlaceOf("s", BRect(0, 0, 999, 19)));
    EXPECT_EQ(label->toolTip().toStdString(), "");
}

TEST_F(Controls, AThinBoxIsALine) {
    Set(1, BoxState{B_FANCY_BORDER, ""});
    Place(1, PlaceOf("line", BRect(20, 10, 21, 28)));
    auto* box = fScreen.Find<QGroupBox>("line");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->size(), QSize(2, 19));
    const QImage shown = fScreen.Widget().grab().toImage();
    for (int y = 11; y < 28; ++y)
        EXPECT_NE(shown.pixel(20, y), shown.pixel(30, y)) << y;
    EXPECT_EQ(shown.pixel(22, 15), shown.pixel(30, 15));
}

TEST_F(Controls, ABoxHasALabelAndLetsClicksThrough) {
    Set(1, BoxState{B_FANCY_BORDER, "A & B"});
    Place(1, PlaceOf("A & B", BRect(10, 10, 200, 150)));
    EXPECT_EQ(fScreen.Find<QGroupBox>("A & B")->title().toStdString(), "A && B");
    QTest::mouseClick(fScreen.Widget().windowHandle(), Qt::LeftButton, {}, QPoint(100, 100));
    const BMessage down = fScreen.Expect(B_MOUSE_DOWN);
    EXPECT_EQ(down.GetPoint("be:window_where", BPoint()), BPoint(100, 100));
}

TEST_F(Controls, ATextControlReportsWhatIsTyped) {
    Set(1, TextControlState{"Margin:", "12", 60}, 2);
    Place(1, PlaceOf("Margin:", BRect(0, 0, 199, 24)));
    auto* field = fScreen.Find<QLineEdit>("Margin:");
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->geometry(), QRect(60, 0, 140, 25));
    EXPECT_EQ(field->text().toStdString(), "12");
    field->setFocus();
    field->end(false);
    QTest::keyClicks(field, QStringLiteral("3"));
    const BMessage change = fScreen.Expect(kControlChanged);
    EXPECT_STREQ(change.GetString("text"), "123");
    EXPECT_EQ(change.GetInt32("serial", 0), 2);
    Set(1, TextControlState{"Margin:", "7", 60}, 3);
    Pump();
    EXPECT_EQ(field->text().toStdString(), "7");
    EXPECT_EQ(Changes().size(), 1U);
}

TEST_F(Controls, ATextThatIsSetAgainLeavesTheCursor) {
    Set(1, TextControlState{"", "abcdef", 0});
    Place(1, PlaceOf("t", BRect(0, 0, 199, 24)));
    auto* field = fScreen.Find<QLineEdit>("t");
    field->setCursorPosition(2);
    Set(1, TextControlState{"", "abcdef", 0}, 2);
    Set(1, TextControlState{"", "abXdef", 0}, 3);
    Pump();
    EXPECT_EQ(field->cursorPosition(), 2);
}

TEST_F(Controls, TheUserMovesTheFocus) {
    Set(1, TextControlState{"One", "", 0});
    Place(1, PlaceOf("One", BRect(0, 0, 99, 24)));
    Set(2, TextControlState{"Two", "", 0});
    Place(2, PlaceOf("Two", BRect(0, 30, 99, 54)));
    fScreen.Find<QLineEdit>("Two")->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(fScreen.Expect(kControlFocused).GetInt32("control", -1), 2);
    fScreen.Widget().setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(fScreen.Expect(kControlFocused, 2).GetInt32("control", -1), 0);
}

TEST_F(Controls, TheProgramMovesTheFocusInSilence) {
    Set(1, TextControlState{"One", "", 0});
    ControlPlace place = PlaceOf("One", BRect(0, 0, 99, 24));
    place.focused = true;
    Place(1, place);
    EXPECT_TRUE(fScreen.Find<QLineEdit>("One")->hasFocus());
    place.focused = false;
    Place(1, place);
    EXPECT_FALSE(fScreen.Find<QLineEdit>("One")->hasFocus());
    EXPECT_TRUE(fScreen.Messages().All(kControlFocused).empty());
}

TEST_F(Controls, AWindowThatComesBackTellsNoFocus) {
    Set(1, TextControlState{"One", "", 0});
    ControlPlace place = PlaceOf("One", BRect(0, 0, 99, 24));
    place.focused = true;
    Place(1, place);
    {
        Screen other({BRect(0, 0, 99, 99), "Other"});
        other.Show();
    }
    fScreen.Window().Activate();
    EXPECT_TRUE(PumpUntil([&] { return fScreen.Find<QLineEdit>("One")->hasFocus(); }));
    EXPECT_TRUE(fScreen.Messages().All(kControlFocused).empty());
}

TEST_F(Controls, AControlThatCannotBeNavigatedToTakesNoFocus) {
    Set(1, ButtonState{"OK"});
    ControlPlace place = PlaceOf("OK");
    place.navigable = false;
    Place(1, place);
    QTest::mouseClick(fScreen.Widget().windowHandle(), Qt::LeftButton, {}, QPoint(20, 30));
    fScreen.Expect(kControlChanged);
    EXPECT_TRUE(fScreen.Messages().All(kControlFocused).empty());
}

struct KitKey {
    int key;
    const char* text;
    Qt::KeyboardModifiers modifiers;
    int32 rawChar;
};

class KitKeys : public Controls, public testing::WithParamInterface<KitKey> {};

TEST_P(KitKeys, GoToTheKitsFromEveryControl) {
    const KitKey& key = GetParam();
    Set(1, TextControlState{"Field", "", 0});
    ControlPlace place = PlaceOf("Field", BRect(0, 0, 99, 24));
    place.focused = true;
    Place(1, place);
    PressKey(fScreen.Widget(), {key.key, key.text, key.modifiers});
    const BMessage down = fScreen.Expect(B_KEY_DOWN);
    EXPECT_EQ(down.GetInt32("raw_char", 0), key.rawChar);
    EXPECT_EQ(down.GetInt32("control", 0), 1);
    ReleaseKey(fScreen.Widget(), {key.key, key.text, key.modifiers});
    fScreen.Expect(B_KEY_UP);
    EXPECT_TRUE(fScreen.Find<QLineEdit>("Field")->hasFocus());
    EXPECT_TRUE(fScreen.Find<QLineEdit>("Field")->text().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, KitKeys,
    testing::Values(KitKey{Qt::Key_Escape, "\x1b", {}, B_ESCAPE},
        KitKey{Qt::Key_Return, "\r", {}, B_ENTER}, KitKey{Qt::Key_Enter, "\r", {}, B_ENTER},
        KitKey{Qt::Key_Tab, "\t", {}, B_TAB},
        KitKey{Qt::Key_Backtab, "\t", Qt::ShiftModifier, B_TAB},
        KitKey{Qt::Key_F1, "", {}, B_FUNCTION_KEY}, KitKey{Qt::Key_M, "m", Qt::AltModifier, 'm'},
        // Not taken by the field, which has no use for it.
        KitKey{Qt::Key_O, "\x0f", Qt::ControlModifier, 'o'}));

TEST_F(Controls, WhatAControlTakesIsNotForTheKits) {
    Set(1, TextControlState{"Field", "", 0});
    ControlPlace place = PlaceOf("Field", BRect(0, 0, 99, 24));
    place.focused = true;
    Place(1, place);
    PressKey(fScreen.Widget(), {Qt::Key_A, "a"});
    EXPECT_STREQ(fScreen.Expect(kControlChanged).GetString("text"), "a");
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_DOWN).empty());
}

TEST_F(Controls, ComeBackInTheOrderTheyWereOperated) {
    for (ControlId id = 1; id <= 5; ++id) {
        const std::string label = "B" + std::to_string(id);
        Set(id, CheckBoxState{label});
        Place(id, PlaceOf(label.c_str(), BRect(0, 20.0F * id, 99, 20.0F * id + 19)));
    }
    const int order[] = {3, 1, 5, 3, 2, 4};
    for (const int id : order)
        fScreen.Find<QCheckBox>(("B" + std::to_string(id)).c_str())->click();
    fScreen.Expect(kControlChanged, std::size(order));
    for (size_t i = 0; i < std::size(order); ++i)
        EXPECT_EQ(Changes()[i].GetInt32("control", 0), order[i]);
}

TEST(PreferredSizes, GrowWithTheLabel) {
    const auto width = [](const ControlState& state) {
        return TheDisplay().PreferredSize(state).x;
    };
    EXPECT_GT(width(ButtonState{"A much longer label than the other"}), width(ButtonState{"OK"}));
    EXPECT_GT(width(CheckBoxState{"longer label"}), width(CheckBoxState{"x"}));
    EXPECT_GT(width(RadioButtonState{"longer label"}), width(RadioButtonState{"x"}));
    EXPECT_GT(width(StringViewState{"longer text"}), width(StringViewState{"x"}));
    EXPECT_GT(width(TextControlState{"A long label, very long", "", 0}),
        width(TextControlState{"x", "", 0}));
    EXPECT_EQ(TheDisplay().PreferredSize(StringViewState{"a\nb\tc"}),
        TheDisplay().PreferredSize(StringViewState{"a b c"}));
    EXPECT_GT(TheDisplay().PreferredSize(StringViewState{"x", B_ALIGN_LEFT, {"", 30}}).y,
        TheDisplay().PreferredSize(StringViewState{"x"}).y);
}

TEST(PreferredSizes, AreToldToOtherThreads) {
    std::atomic<bool> done = false;
    BPoint size;
    std::thread looper([&] {
        size = TheDisplay().PreferredSize(ButtonState{"OK"});
        done = true;
    });
    EXPECT_TRUE(PumpUntil([&] { return done.load(); }));
    looper.join();
    EXPECT_EQ(size, TheDisplay().PreferredSize(ButtonState{"OK"}));
    EXPECT_GT(size.x, 10);
}

}  // namespace
