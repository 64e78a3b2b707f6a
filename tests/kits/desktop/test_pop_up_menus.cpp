#include <QAccessible>
#include <QMenu>

#include "tests/kits/desktop/MenuScreen.h"

using namespace BPrivate;
using namespace desktop_test;
using testing::ElementsAre;

namespace {

constexpr ControlId kPopUp = 7;

class PopUpMenus : public Menus {
protected:
    void Make(bool byKeyboard = false, BPoint where = BPoint(30, 40)) {
        MenuItemState one = Item(101, "One");
        one.trigger = 0;
        MenuItemState off = Item(102, "Off");
        off.enabled = false;
        MenuItemState marked = Item(103, "Two");
        marked.trigger = 0;
        marked.marked = true;
        const PopUpMenuState state{where, byKeyboard, {off, one, marked}};
        fScreen.Window().SetControl(kPopUp, state, 1);
        ControlPlace place;
        place.name = "Choices";
        place.visible = false;
        fScreen.Window().PlaceControl(kPopUp, place);
        Pump();
    }
    void OpenPopUp() {
        fScreen.Window().OpenMenu(kPopUp, 0);
        Pump();
    }
    QMenu& PopUp() { return *fScreen.Find<QMenu>("Choices"); }
    /// What was told: the item chosen, 0 for the end.
    std::vector<int32> Told() {
        Settle();
        std::vector<int32> told;
        for (const BMessage& change : fScreen.Messages().All(kControlChanged))
            told.push_back(change.HasBool("closed") ? 0 : change.GetInt32("item", -1));
        return told;
    }
};

TEST_F(PopUpMenus, OpenInTheirPlace) {
    Make();
    EXPECT_FALSE(PopUp().isVisible());
    OpenPopUp();
    ASSERT_TRUE(PopUp().isVisible());
    EXPECT_EQ(PopUp().pos(), fScreen.Content().mapToGlobal(QPoint(30, 40)));
    EXPECT_EQ(PopUp().activeAction(), nullptr);
    EXPECT_THAT(Texts(PopUp()), ElementsAre("Off", "&One", "&Two"));
    EXPECT_TRUE(PopUp().actions()[2]->isChecked());
    EXPECT_THAT(Told(), ElementsAre());
}

TEST_F(PopUpMenus, AreClosedBehindTheChoice) {
    Make();
    OpenPopUp();
    Click(PopUp(), 1);
    EXPECT_FALSE(PopUp().isVisible());
    EXPECT_THAT(Told(), ElementsAre(101, 0));
}

TEST_F(PopUpMenus, AreOperatedByKeys) {
    Make(true);
    OpenPopUp();
    ASSERT_NE(PopUp().activeAction(), nullptr);
    EXPECT_EQ(PopUp().activeAction()->text().toStdString(), "&One");
    Type(Qt::Key_Down);
    Type(Qt::Key_Return);
    EXPECT_THAT(Told(), ElementsAre(103, 0));
    OpenPopUp();
    Type(Qt::Key_T);
    EXPECT_THAT(Told(), ElementsAre(103, 0, 103, 0));
    OpenPopUp();
    Type(Qt::Key_Escape);
    EXPECT_THAT(Told(), ElementsAre(103, 0, 103, 0, 0));
    EXPECT_FALSE(PopUp().isVisible());
    // None of it was typed into the window.
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_DOWN).empty());
}

TEST_F(PopUpMenus, OpenedAnewTellThatTheyWereClosed) {
    Make();
    OpenPopUp();
    Make(false, BPoint(50, 60));
    OpenPopUp();
    EXPECT_EQ(PopUp().pos(), fScreen.Content().mapToGlobal(QPoint(50, 60)));
    EXPECT_THAT(Told(), ElementsAre(0));
    PopUp().close();
    EXPECT_THAT(Told(), ElementsAre(0, 0));
}

TEST_F(PopUpMenus, GoWithTheirControl) {
    Make();
    OpenPopUp();
    const QPointer<QMenu> menu(&PopUp());
    fScreen.Window().RemoveControl(kPopUp);
    EXPECT_TRUE(PumpUntil([&] { return menu.isNull(); }));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(PopUpMenus, DoNotOpenInAWindowThatIsGone) {
    Make();
    fScreen.Window().Hide();
    OpenPopUp();
    EXPECT_FALSE(PopUp().isVisible());
    EXPECT_THAT(Told(), ElementsAre(0));
}

TEST_F(PopUpMenus, AreFoundByScreenReaders) {
    Make();
    OpenPopUp();
    QAccessibleInterface* content = QAccessible::queryAccessibleInterface(&fScreen.Content());
    QAccessibleInterface* found = nullptr;
    for (int i = 0; i < content->childCount(); i++) {
        QAccessibleInterface* below = content->child(i)->child(0);
        if (below != nullptr && below->role() == QAccessible::PopupMenu)
            found = below;
    }
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->text(QAccessible::Name), "Choices");
    ASSERT_EQ(found->childCount(), 3);
    EXPECT_EQ(found->child(1)->text(QAccessible::Name), "One");
    EXPECT_TRUE(found->child(2)->state().checked);
}

}  // namespace
