#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>

#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;
using testing::ElementsAre;

namespace {

constexpr ControlId kField = 1;

MenuItemState FieldItem(int32 id, const char* label, bool marked = false) {
    MenuItemState item;
    item.id = id;
    item.label = label;
    item.marked = marked;
    item.radio = true;
    return item;
}

class MenuField : public testing::Test {
protected:
    void SetUp() override { fScreen.Show(); }

    void Set(MenuFieldState state, BRect frame = BRect(10, 20, 209, 46)) {
        fState = std::move(state);
        fScreen.Window().SetControl(kField, fState, ++fSerial);
        ControlPlace place;
        place.name = "FieldView";
        place.frame = frame;
        place.navigable = true;
        place.focused = true;
        fScreen.Window().PlaceControl(kField, place);
        Pump();
    }
    void SetUsual() {
        MenuItemState off = FieldItem(13, "Off");
        off.enabled = false;
        MenuItemState line = FieldItem(14, "");
        line.separator = true;
        Set({"Option: ", 60, "Select...", true,
            {FieldItem(11, "One"), FieldItem(12, "Two", true), off, line, FieldItem(15, "Three")}});
    }

    QComboBox& Box() { return *fScreen.Find<QComboBox>("Option:"); }
    std::string Shown() {
        const QAccessibleInterface* box = QAccessible::queryAccessibleInterface(&Box());
        return box->text(QAccessible::Value).toStdString();
    }
    void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(fScreen.Widget().windowHandle(), key, modifiers);
    }
    bool IsOpen() { return Box().view()->isVisible(); }
    std::vector<int32> Chosen() {
        Pump();
        BMessenger(&fScreen.Messages()).SendMessage('last');
        fScreen.Expect('last', ++fSettled);
        std::vector<int32> items;
        for (const BMessage& change : fScreen.Messages().All(kControlChanged))
            items.push_back(change.GetInt32("item", -1));
        return items;
    }

    /// Of the first, the second and the third item, before any is answered.
    void MakeThreeQuickChoices() {
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Down})
            Type(key);
        ASSERT_THAT(Chosen(), ElementsAre(11, 12, 15));
    }
    /// The kits have got as far as the next of the choices, and mark the item.
    void Answer(int32 item) {
        fState.choice =
            fScreen.Messages().All(kControlChanged).at(fAnswered++).GetInt32("choice", 0);
        Mark(item);
    }
    void Mark(int32 item) {
        for (MenuItemState& other : fState.items)
            other.marked = other.id == item;
        Set(fState);
    }

    Screen fScreen;
    MenuFieldState fState;
    size_t fAnswered = 0;
    int32 fSerial = 0;
    size_t fSettled = 0;
};

TEST_F(MenuField, ShowsTheMarkedItem) {
    SetUsual();
    EXPECT_EQ(Shown(), "Two");
    EXPECT_EQ(Box().count(), 5);
    auto* label = fScreen.Widget().findChild<QLabel*>();
    EXPECT_EQ(label->text().toStdString(), "Option: ");
    EXPECT_EQ(label->buddy(), &Box());
    fState.items[1].marked = false;
    fState.items[4].marked = true;
    Set(fState);
    EXPECT_EQ(Shown(), "Three");
    EXPECT_TRUE(Chosen().empty());
}

TEST_F(MenuField, ShowsItsTitleWhileNothingIsMarked) {
    SetUsual();
    fState.items[1].marked = false;
    Set(fState);
    EXPECT_EQ(Box().currentIndex(), -1);
    EXPECT_EQ(Box().placeholderText().toStdString(), "Select...");
    const QImage before = Box().grab().toImage();
    fState.title = "Another";
    Set(fState);
    EXPECT_NE(Box().grab().toImage(), before);
}

TEST_F(MenuField, TellsWhatIsChosen) {
    SetUsual();
    Type(Qt::Key_Space);
    ASSERT_TRUE(IsOpen());
    Type(Qt::Key_Up);
    Type(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_THAT(Chosen(), ElementsAre(11));
    EXPECT_EQ(Shown(), "One");
    const BMessage change = fScreen.Messages().All(kControlChanged)[0];
    EXPECT_EQ(change.GetInt32("control", 0), kField);
    // The keys were the menu's.
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_DOWN).empty());
    for (const BMessage& up : fScreen.Messages().All(B_KEY_UP))
        EXPECT_NE(up.GetInt32("raw_char", 0), B_ENTER);
}

TEST_F(MenuField, TellsTheMarkedItemToo) {
    SetUsual();
    Type(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(IsOpen());
    Type(Qt::Key_Return);
    EXPECT_THAT(Chosen(), ElementsAre(12));
}

TEST_F(MenuField, EscapeChoosesNothing) {
    SetUsual();
    Type(Qt::Key_Space);
    ASSERT_TRUE(IsOpen());
    Type(Qt::Key_Up);
    Type(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(Chosen().empty());
    EXPECT_EQ(Shown(), "Two");
}

TEST_F(MenuField, ArrowsAndLettersChooseAndPassOverWhatCannotBe) {
    SetUsual();
    Type(Qt::Key_Down);
    Type(Qt::Key_Up);
    Type(Qt::Key_O);
    EXPECT_THAT(Chosen(), ElementsAre(15, 12, 11));
}

TEST_F(MenuField, AnAnswerToAnEarlierChoiceTakesNoStepBack) {
    SetUsual();
    ASSERT_NO_FATAL_FAILURE(MakeThreeQuickChoices());
    Answer(11);
    EXPECT_EQ(Shown(), "Three");
    Type(Qt::Key_Up);
    ASSERT_THAT(Chosen(), ElementsAre(11, 12, 15, 12));
    Answer(12);
    Answer(15);
    EXPECT_EQ(Shown(), "Two");
    Answer(12);
    EXPECT_EQ(Shown(), "Two");
}

TEST_F(MenuField, TheAnswerToTheLastChoiceIsShown) {
    SetUsual();
    ASSERT_NO_FATAL_FAILURE(MakeThreeQuickChoices());
    Answer(11);
    Answer(12);
    ASSERT_EQ(Shown(), "Three");
    // Not what was chosen, but what the kits have made of it.
    Answer(11);
    EXPECT_EQ(Shown(), "One");
    // From then on the program may move the mark.
    Mark(12);
    EXPECT_EQ(Shown(), "Two");
}

TEST_F(MenuField, AChoiceThatIsGoneIsNotWaitedFor) {
    SetUsual();
    Type(Qt::Key_Down);
    ASSERT_THAT(Chosen(), ElementsAre(15));
    fState.items.pop_back();
    Set(fState);
    EXPECT_EQ(Shown(), "Two");
}

TEST_F(MenuField, OneMadeAnewWaitsForNoAnswer) {
    SetUsual();
    ASSERT_NO_FATAL_FAILURE(MakeThreeQuickChoices());
    Answer(11);
    fScreen.Window().RemoveControl(kField);
    Set(fState);
    EXPECT_EQ(Shown(), "One");
    Type(Qt::Key_Down);
    Mark(11);
    EXPECT_EQ(Shown(), "Two");
}

TEST_F(MenuField, KeepsTheMarkWhereTheKitsMoveIt) {
    SetUsual();
    for (MenuItemState& item : fState.items)
        item.radio = false;
    Set(fState);
    Type(Qt::Key_Up);
    EXPECT_THAT(Chosen(), ElementsAre(11));
    EXPECT_EQ(Shown(), "Two");
}

TEST_F(MenuField, TheWheelLeavesItAloneUnlessItHasTheKeys) {
    SetUsual();
    ControlPlace place;
    place.name = "FieldView";
    place.frame = BRect(10, 20, 209, 46);
    place.navigable = true;
    fScreen.Window().PlaceControl(kField, place);
    Pump();
    ASSERT_FALSE(Box().hasFocus());
    const QPointF where = Box().mapTo(&fScreen.Widget(), QPoint(20, 10));
    TurnWheel(fScreen.Widget(), QPoint(0, -120), {where});
    fScreen.Expect(B_MOUSE_WHEEL_CHANGED);
    EXPECT_EQ(Shown(), "Two");
    EXPECT_TRUE(fScreen.Messages().All(kControlChanged).empty());
}

TEST_F(MenuField, IsAsWideAsItsLongestItemUnlessItFillsTheControl) {
    SetUsual();
    EXPECT_EQ(Box().geometry(), QRect(60, 0, 140, 27));
    fState.fixedSize = false;
    Set(fState);
    const int width = Box().width();
    EXPECT_LT(width, 140);
    fState.items[0].label = "One that is longer";
    Set(fState);
    EXPECT_GT(Box().width(), width);
    fState.items[0].label = std::string(200, 'm');
    Set(fState);
    EXPECT_EQ(Box().width(), 140);
    EXPECT_GT(TheDisplay().PreferredSize(fState).x, 200);
    EXPECT_GT(TheDisplay().PreferredSize(fState).y, 10);
}

TEST_F(MenuField, KeepsItsSizeWhenItsItemsChange) {
    SetUsual();
    // Longer than the timer of Qt's own adjusting, which is older.
    bool later = false;
    QTimer::singleShot(50, [&] { later = true; });
    ASSERT_TRUE(PumpUntil([&] { return later; }));
    EXPECT_EQ(Box().geometry(), QRect(60, 0, 140, 27));
}

TEST_F(MenuField, ShowsSubmenusBelowTheirTitles) {
    MenuItemState more = FieldItem(12, "More");
    more.hasSubmenu = true;
    more.command = false;
    more.items = {FieldItem(21, "Deep", true)};
    Set({"Option:", 60, "", true, {FieldItem(11, "One"), more}});
    EXPECT_EQ(Box().count(), 3);
    EXPECT_EQ(Box().itemText(2).toStdString(), "    Deep");
    EXPECT_EQ(Box().currentIndex(), 2);
    Type(Qt::Key_Up);
    EXPECT_THAT(Chosen(), ElementsAre(11));
}

TEST_F(MenuField, ShowsLabelsAsTheyAre) {
    Set({"A & B", 60, "", true,
        {FieldItem(11, "x & y\tz\n"), FieldItem(12, "\xd7\xa9\xd7\x9c", true)}});
    auto& box = *fScreen.Find<QComboBox>("A & B");
    EXPECT_EQ(box.itemText(0).toStdString(), "x & y z ");
    EXPECT_EQ(box.currentText().toStdString(), "\xd7\xa9\xd7\x9c");
}

TEST_F(MenuField, MayBeVeryLong) {
    std::vector<MenuItemState> items;
    for (int32 id = 1000; id < 11000; ++id)
        items.push_back(FieldItem(id, ("Item " + std::to_string(id)).c_str()));
    items[9000].marked = true;
    Set({"Option:", 60, "", false, items});
    Type(Qt::Key_Space);
    ASSERT_TRUE(IsOpen());
    Type(Qt::Key_Down);
    Type(Qt::Key_Return);
    EXPECT_THAT(Chosen(), ElementsAre(10001));
}

}  // namespace
