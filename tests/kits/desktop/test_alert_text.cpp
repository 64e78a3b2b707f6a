#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>
#include <string>

#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

const char kName[] = "what it says";

class AlertText : public testing::Test {
protected:
    void Show(const AlertTextState& state, BRect frame) {
        fScreen.Show();
        fScreen.Window().SetControl(1, state, 1);
        ControlPlace place;
        place.name = kName;
        place.frame = frame;
        fScreen.Window().PlaceControl(1, place);
        Pump();
    }
    QWidget* Pane() const {
        for (QWidget* widget : fScreen.Find<QWidget>(kName)->parentWidget()->findChildren<QWidget*>(
                 Qt::FindDirectChildrenOnly)) {
            if (widget->accessibleName() == QLatin1String(kName))
                return widget;
        }
        return nullptr;
    }
    QTextEdit* Text() const { return Pane()->findChild<QTextEdit*>(); }
    QLabel* Picture() const { return Pane()->findChild<QLabel*>(); }

    Screen fScreen{{BRect(50, 60, 649, 459), "Window"}};
};

BPoint SizeOf(const std::string& text, alert_type type = B_WARNING_ALERT) {
    return TheDisplay().PreferredSize(AlertTextState{text, type});
}

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; i++)
        all += text;
    return all;
}

}  // namespace

TEST_F(AlertText, ShowsTheTextAndThePictureOfItsType) {
    Show({"Some text", B_WARNING_ALERT}, BRect(10, 10, 409, 109));
    EXPECT_EQ(Text()->toPlainText().toStdString(), "Some text");
    EXPECT_TRUE(Text()->isReadOnly());
    EXPECT_TRUE(Picture()->isVisible());
    const QImage warning = Picture()->pixmap().toImage();
    EXPECT_FALSE(warning.isNull());
    fScreen.Window().SetControl(1, AlertTextState{"Other <b>text</b>", B_STOP_ALERT}, 2);
    Pump();
    EXPECT_EQ(Text()->toPlainText().toStdString(), "Other <b>text</b>");
    EXPECT_NE(Picture()->pixmap().toImage(), warning);
    fScreen.Window().SetControl(1, AlertTextState{"None", B_EMPTY_ALERT}, 3);
    Pump();
    EXPECT_FALSE(Picture()->isVisible());
}

TEST_F(AlertText, IsReadOutAsAnAlert) {
    Show({"Some text", B_INFO_ALERT}, BRect(10, 10, 409, 109));
    QAccessibleInterface* pane = QAccessible::queryAccessibleInterface(Pane());
    ASSERT_NE(pane, nullptr);
    EXPECT_EQ(pane->role(), QAccessible::AlertMessage);
    EXPECT_EQ(pane->text(QAccessible::Name).toStdString(), kName);
    EXPECT_EQ(Text()->accessibleName().toStdString(), "Some text");
}

TEST_F(AlertText, WantsAWidthThatIsGoodToRead) {
    const BPoint one = SizeOf("One line");
    const BPoint two = SizeOf("One line\n\n");
    EXPECT_GT(two.y, one.y);
    const BPoint words = SizeOf(Repeated("A sentence of some length. ", 40));
    EXPECT_GT(words.x, 2 * one.x);
    EXPECT_LT(words.x, 700);
    EXPECT_GT(words.y, 3 * one.y);
    EXPECT_LT(SizeOf("One line", B_EMPTY_ALERT).x, one.x);
    const BPoint japanese = SizeOf(Repeated("画像を表示することができませんでした。", 20));
    EXPECT_LT(japanese.x, 700);
    EXPECT_GT(japanese.y, one.y);
}

TEST_F(AlertText, TheSizeItWantsShowsAllOfIt) {
    for (const std::string& text : {std::string("Short"), std::string("Two\nlines"),
             Repeated("A sentence of some length. ", 40), Repeated("長い文。", 90),
             std::string(900, 'x')}) {
        const BPoint size = SizeOf(text);
        Show({text, B_WARNING_ALERT}, BRect(0, 0, size.x, size.y));
        EXPECT_EQ(Text()->verticalScrollBar()->maximum(), 0) << text;
        EXPECT_LE(Text()->document()->idealWidth(), Text()->viewport()->width()) << text;
    }
}

TEST_F(AlertText, WhatIsTooMuchIsScrolled) {
    const std::string lines = Repeated("A line.\n", 12000);
    EXPECT_GT(SizeOf(lines).y, 10000);
    Show({lines, B_WARNING_ALERT}, BRect(0, 0, 399, 299));
    EXPECT_GT(Text()->verticalScrollBar()->maximum(), 1000);
    EXPECT_EQ(Text()->verticalScrollBar()->value(), 0);
    EXPECT_LE(Text()->document()->idealWidth(), Text()->viewport()->width());
    // A word without an end is broken somewhere.
    fScreen.Window().SetControl(1, AlertTextState{std::string(10000, 'w')}, 2);
    Pump();
    EXPECT_LE(Text()->document()->idealWidth(), Text()->viewport()->width());
    EXPECT_LT(SizeOf(std::string(10000, 'w')).x, 900);
}

TEST_F(AlertText, IsSelectedWithTheMouseAndLeavesTheOtherKeysToTheWindow) {
    Show({"Some text", B_WARNING_ALERT}, BRect(0, 0, 399, 99));
    QTest::mouseDClick(Text()->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(Text()->textCursor().selectedText().toStdString(), "Some");
    ASSERT_TRUE(PumpUntil([&] { return Text()->hasFocus(); }));
    PressKey(fScreen.Widget(), {Qt::Key_Y, "y"});
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN).GetInt32("raw_char", 0), 'y');
    PressKey(fScreen.Widget(), {Qt::Key_Escape, "\x1b"});
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN, 2).GetInt32("raw_char", 0), B_ESCAPE);
    EXPECT_EQ(Text()->toPlainText().toStdString(), "Some text");
}

TEST_F(AlertText, KeysOfAnAlertReachItFromAButton) {
    fScreen.Show();
    fScreen.Window().SetControl(2, ButtonState{"Yes", true}, 1);
    ControlPlace place;
    place.name = "Yes";
    place.frame = BRect(10, 10, 109, 39);
    place.focused = place.navigable = true;
    fScreen.Window().PlaceControl(2, place);
    Pump();
    ASSERT_TRUE(PumpUntil([&] { return fScreen.Find<QPushButton>("Yes")->hasFocus(); }));
    size_t count = 0;
    const auto expect = [&](Qt::Key key, const std::string& text, int32 character) {
        PressKey(fScreen.Widget(), {key, text});
        ReleaseKey(fScreen.Widget(), {key, text});
        const BMessage down = fScreen.Expect(B_KEY_DOWN, ++count);
        EXPECT_EQ(down.GetInt32("raw_char", 0), character);
        EXPECT_EQ(down.GetInt32("control", 0), 2);
    };
    expect(Qt::Key_N, "n", 'n');
    expect(Qt::Key_Escape, "\x1b", B_ESCAPE);
    expect(Qt::Key_Return, "\r", B_ENTER);
    expect(Qt::Key_Tab, "\t", B_TAB);
    expect(Qt::Key_Left, "", B_LEFT_ARROW);
    expect(Qt::Key_Right, "", B_RIGHT_ARROW);
    expect(Qt::Key_Up, "", B_UP_ARROW);
    expect(Qt::Key_Down, "", B_DOWN_ARROW);
    EXPECT_TRUE(fScreen.Find<QPushButton>("Yes")->hasFocus());
    EXPECT_TRUE(fScreen.Messages().All(kControlChanged).empty());
}
