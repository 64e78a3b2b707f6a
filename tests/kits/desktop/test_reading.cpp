// What assistive programs are told, and what they do.

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>

#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

constexpr BRect kFrame(10, 20, 209, 44);

class Reading : public testing::Test {
protected:
    void SetUp() override { fScreen.Show(); }

    void Set(ControlId id, const ControlState& state, const char* name = "") {
        fScreen.Window().SetControl(id, state, 1);
        ControlPlace place;
        place.name = name;
        place.frame = kFrame.OffsetByCopy(0, 30.0F * static_cast<float>(id - 1));
        place.navigable = true;
        place.view = "CodeName";
        place.description = "what it is for";
        fScreen.Window().PlaceControl(id, place);
        Pump();
    }
    void Tell(const ReadableView& view) {
        fScreen.Window().SetReadableView(7, view);
        Pump();
    }
    static QAccessibleInterface& Of(QObject& object) {
        return *QAccessible::queryAccessibleInterface(&object);
    }
    template <typename Kind>
    QAccessibleInterface& OfOnly() {
        return Of(*fScreen.Widget().findChildren<Kind*>().front());
    }
    static std::string NameOf(const QAccessibleInterface& item) {
        return item.text(QAccessible::Name).toStdString();
    }
    static std::string DescriptionOf(const QAccessibleInterface& item) {
        return item.text(QAccessible::Description).toStdString();
    }
    /// The picture that assistive programs find in the window; null for none.
    QAccessibleInterface* Picture() {
        QAccessibleInterface& content = Of(fScreen.Content());
        for (int i = 0; i < content.childCount(); i++) {
            if (content.child(i)->role() == QAccessible::Graphic)
                return content.child(i);
        }
        return nullptr;
    }
    size_t CountChanges() { return fScreen.Messages().All(kControlChanged).size(); }

    Screen fScreen;
};

void Toggle(QAccessibleInterface& item) {
    item.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    Pump();
}

}  // namespace

TEST_F(Reading, AWindowIsAFrameOrADialog) {
    EXPECT_EQ(Of(fScreen.Widget()).role(), QAccessible::Window);
    EXPECT_EQ(NameOf(Of(fScreen.Widget())), "Window");
    EXPECT_FALSE(Of(fScreen.Widget()).state().focused);
    WindowSpec spec{BRect(50, 60, 349, 259), "Question"};
    spec.flags = B_NOT_ZOOMABLE | B_NOT_RESIZABLE;
    Screen dialog(spec);
    EXPECT_EQ(Of(dialog.Widget()).role(), QAccessible::Dialog);
}

TEST_F(Reading, ALabelIsCalledByWhatItSays) {
    Set(1, StringViewState{"3/120 & more"});
    QAccessibleInterface& label = OfOnly<QLabel>();
    EXPECT_EQ(label.role(), QAccessible::StaticText);
    EXPECT_EQ(NameOf(label), "3/120 & more");
    EXPECT_EQ(DescriptionOf(label), "what it is for");
    Set(1, StringViewState{"4/120"});
    EXPECT_EQ(NameOf(label), "4/120");
    Set(1, StringViewState{"4/120"}, "another");
    EXPECT_EQ(NameOf(label), "another");
}

TEST_F(Reading, ALabelIsReadByPieces) {
    Set(1, StringViewState{"3/120"});
    QAccessibleInterface& label = OfOnly<QLabel>();
    QAccessibleTextInterface* text = label.textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->characterCount(), 5);
    EXPECT_EQ(text->text(2, 5).toStdString(), "120");
    EXPECT_EQ(text->text(4, 2).toStdString(), "");
    const QRect first = text->characterRect(0);
    const QRect last = text->characterRect(4);
    EXPECT_TRUE(label.rect().contains(first));
    EXPECT_LT(first.right(), last.left());
    EXPECT_EQ(text->offsetAtPoint(last.center()), 4);
    EXPECT_EQ(text->offsetAtPoint(label.rect().bottomRight() + QPoint(5, 5)), -1);
}

TEST_F(Reading, TheNameInTheProgramIsForNobody) {
    Set(1, ScrollBarState{});
    Set(2, TabViewState{{"One", "Two"}, 0});
    Set(3, ListViewState{});
    Set(4, BoxState{});
    for (QWidget* widget : fScreen.Widget().findChildren<QWidget*>()) {
        const QAccessibleInterface* item = QAccessible::queryAccessibleInterface(widget);
        EXPECT_NE(item != nullptr ? NameOf(*item) : "", "CodeName");
    }
}

TEST_F(Reading, ADrawnViewIsAPictureThatHasTheKeyboard) {
    EXPECT_EQ(Picture(), nullptr);
    Tell({"a.png", "PNG image", BRect(5, 30, 204, 129), true});
    QAccessibleInterface* picture = Picture();
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(NameOf(*picture), "a.png");
    EXPECT_EQ(DescriptionOf(*picture), "PNG image");
    EXPECT_EQ(
        picture->rect(), QRect(fScreen.Content().mapToGlobal(QPoint(5, 30)), QSize(200, 100)));
    EXPECT_TRUE(picture->state().focused);
    EXPECT_TRUE(picture->state().focusable);
    EXPECT_FALSE(Of(fScreen.Content()).state().focused);
    EXPECT_EQ(
        Of(fScreen.Content()).childAt(picture->rect().x() + 9, picture->rect().y() + 9), picture);

    // The keys are the window's as before, and so is the mouse.
    Pump();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN).GetInt32("raw_char", 0), ' ');
    EXPECT_FALSE(fScreen.Expect(B_KEY_UP).HasInt32("control"));
    EXPECT_EQ(fScreen.Widget().childAt(fScreen.Content().mapTo(&fScreen.Widget(), QPoint(0, 0))),
        &fScreen.Content());
}

TEST_F(Reading, AnotherNameIsAnotherPictureWithTheKeyboard) {
    Tell({"a.png", "", kFrame, true});
    QWidget* const first = QApplication::focusWidget();
    Tell({"a.png", "with a comment now", kFrame, true});
    EXPECT_EQ(QApplication::focusWidget(), first);
    EXPECT_EQ(DescriptionOf(*Picture()), "with a comment now");
    Tell({"b.png", "", kFrame, true});
    EXPECT_NE(QApplication::focusWidget(), first);
    EXPECT_EQ(NameOf(Of(*QApplication::focusWidget())), "b.png");
    EXPECT_EQ(Picture(), &Of(*QApplication::focusWidget()));
    fScreen.Window().RemoveReadableView(7);
    Pump();
    EXPECT_EQ(Picture(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), &fScreen.Content());
    EXPECT_TRUE(fScreen.Messages().All(kControlFocused).empty());
}

TEST_F(Reading, APictureOfAWindowThatComesBackHasTheKeyboard) {
    Tell({"a.png", "", kFrame, true});
    Screen other({BRect(400, 60, 499, 159), "Other"});
    other.Show();
    Tell({"b.png", "", kFrame, true});
    fScreen.Window().Activate();
    ASSERT_TRUE(PumpUntil([&] { return fScreen.Widget().isActiveWindow(); }));
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(NameOf(Of(*QApplication::focusWidget())), "b.png");
}

TEST_F(Reading, APictureTakesTheKeyboardFromNoControl) {
    Set(1, CheckBoxState{"Box", false});
    auto* box = fScreen.Widget().findChildren<QCheckBox*>().front();
    box->setFocus();
    Pump();
    Tell({"a.png", "", kFrame, true});
    Tell({"b.png", "", kFrame, false});
    fScreen.Window().RemoveReadableView(7);
    Pump();
    EXPECT_EQ(QApplication::focusWidget(), box);
}

TEST_F(Reading, ACheckBoxIsTurnedOnWithoutAClick) {
    Set(1, CheckBoxState{"Box", false});
    QAccessibleInterface& box = OfOnly<QCheckBox>();
    Toggle(box);
    EXPECT_EQ(fScreen.Expect(kControlChanged).GetInt32("value", -1), 1);
    Toggle(box);
    EXPECT_EQ(fScreen.Expect(kControlChanged, 2).GetInt32("value", -1), 0);
    // What comes down is no change of the user's.
    Set(1, CheckBoxState{"Box", true});
    EXPECT_TRUE(box.state().checked);
    EXPECT_EQ(CountChanges(), 2U);
    fScreen.Widget().findChildren<QCheckBox*>().front()->click();
    EXPECT_EQ(fScreen.Expect(kControlChanged, 3).GetInt32("value", -1), 0);
    Pump();
    EXPECT_EQ(CountChanges(), 3U);
}

TEST_F(Reading, ARadioButtonIsTurnedOnWithoutAClick) {
    Set(1, RadioButtonState{"One", true, 5});
    Set(2, RadioButtonState{"Two", false, 5});
    const auto buttons = fScreen.Widget().findChildren<QRadioButton*>();
    QRadioButton* two = buttons[0]->text() == QStringLiteral("Two") ? buttons[0] : buttons[1];
    QRadioButton* one = two == buttons[0] ? buttons[1] : buttons[0];
    Toggle(Of(*two));
    EXPECT_EQ(fScreen.Expect(kControlChanged).GetInt32("control", 0), 2);
    EXPECT_EQ(CountChanges(), 1U);
    Set(1, RadioButtonState{"One", false, 5});
    Set(2, RadioButtonState{"Two", true, 5});
    Set(2, RadioButtonState{"Two", false, 5});
    Set(1, RadioButtonState{"One", true, 5});
    EXPECT_EQ(CountChanges(), 1U);
    EXPECT_TRUE(one->isChecked());
    // A click is told once, also of what is on already.
    two->click();
    EXPECT_EQ(fScreen.Expect(kControlChanged, 2).GetInt32("control", 0), 2);
    two->click();
    EXPECT_EQ(fScreen.Expect(kControlChanged, 3).GetInt32("control", 0), 2);
    Pump();
    EXPECT_EQ(CountChanges(), 3U);
}

TEST_F(Reading, ATextIsPutInAsAWhole) {
    Set(1, TextControlState{"Size: ", "12", 60}, "Size: ");
    QAccessibleInterface& field = OfOnly<QLineEdit>();
    EXPECT_EQ(NameOf(field), "Size: ");
    EXPECT_FALSE(field.relations(QAccessible::Label).isEmpty());
    field.setText(QAccessible::Value, QStringLiteral("34"));
    Pump();
    EXPECT_STREQ(fScreen.Expect(kControlChanged).GetString("text", ""), "34");
    Set(1, TextControlState{"Size: ", "56", 60}, "Size: ");
    EXPECT_EQ(field.text(QAccessible::Value).toStdString(), "56");
    EXPECT_EQ(CountChanges(), 1U);
}

TEST_F(Reading, AnItemOfAClosedMenuFieldIsChosen) {
    MenuFieldState field;
    field.label = "Font: ";
    field.divider = 60;
    for (const int32 id : {11, 12, 13}) {
        MenuItemState item;
        item.id = id;
        item.label = "Item " + std::to_string(id);
        item.marked = id == 11;
        item.radio = true;
        field.items.push_back(item);
    }
    Set(1, field);
    auto* box = fScreen.Widget().findChildren<QComboBox*>().front();
    QAccessibleInterface* list = Of(*box).child(0);
    ASSERT_EQ(list->childCount(), 3);
    Toggle(*list->child(2));
    EXPECT_EQ(fScreen.Expect(kControlChanged).GetInt32("item", 0), 13);
    EXPECT_EQ(box->currentIndex(), 2);
    EXPECT_EQ(CountChanges(), 1U);
}
