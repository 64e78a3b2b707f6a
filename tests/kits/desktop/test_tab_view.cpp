#include <QAccessible>
#include <QMouseEvent>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <app/AppDefs.h>
#include <gtest/gtest.h>

#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

class TabViews : public testing::Test {
protected:
    void SetUp() override {
        fScreen.Show();
        Set({{"Comment", "Colors & more", "Etc."}, 0});
        Place(false);
    }
    void Set(const TabViewState& state, int32 serial = 1) {
        fScreen.Window().SetControl(1, state, serial);
        Pump();
    }
    void Place(bool focused) {
        ControlPlace place;
        place.name = "Settings";
        place.frame = BRect(10, 10, 289, 149);
        place.navigable = true;
        place.focused = focused;
        fScreen.Window().PlaceControl(1, place);
        Pump();
    }
    QTabBar& Strip() { return *fScreen.Find<QTabBar>("Settings"); }
    std::vector<BMessage> Changes() { return fScreen.Messages().All(kControlChanged); }
    /// The kits' pixels: one colour.
    void Present(uint32 pixel) {
        std::vector<uint32> pixels(300 * 200, pixel);
        fScreen.Window().Present(
            {reinterpret_cast<uint8*>(pixels.data()), 1200, 300, 200, 1}, BRect(0, 0, 299, 199));
        Pump();
    }

    Screen fScreen;
};

}  // namespace

TEST_F(TabViews, ShowTheirTabs) {
    EXPECT_EQ(Strip().count(), 3);
    EXPECT_EQ(Strip().tabText(1).toStdString(), "Colors && more");
    EXPECT_EQ(Strip().currentIndex(), 0);
    Set({{"Kommentar", "Farben"}, 1, {0}}, 2);
    EXPECT_EQ(Strip().count(), 2);
    EXPECT_EQ(Strip().tabText(0).toStdString(), "Kommentar");
    EXPECT_EQ(Strip().currentIndex(), 1);
    EXPECT_FALSE(Strip().isTabEnabled(0));
    Set({{}, -1}, 3);
    EXPECT_EQ(Strip().count(), 0);
    Set({{"a", "b"}, 1}, 4);
    EXPECT_EQ(Strip().currentIndex(), 1);
    EXPECT_TRUE(Changes().empty());
}

TEST_F(TabViews, AClickIsReported) {
    QTest::mouseClick(&Strip(), Qt::LeftButton, {}, Strip().tabRect(2).center());
    const BMessage change = fScreen.Expect(kControlChanged);
    EXPECT_EQ(change.GetInt32("control", 0), 1);
    EXPECT_EQ(change.GetInt32("value", -1), 2);
    QTest::mouseClick(&Strip(), Qt::LeftButton, {}, Strip().tabRect(2).center());
    Pump();
    EXPECT_EQ(Changes().size(), 1U);
}

TEST_F(TabViews, ArrowsOnTheStripChangeTheTab) {
    Place(true);
    EXPECT_TRUE(Strip().hasFocus());
    PressKey(fScreen.Widget(), {Qt::Key_Right});
    EXPECT_EQ(fScreen.Expect(kControlChanged).GetInt32("value", -1), 1);
    PressKey(fScreen.Widget(), {Qt::Key_Left});
    EXPECT_EQ(fScreen.Expect(kControlChanged, 2).GetInt32("value", -1), 0);
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_DOWN).empty());
}

TEST_F(TabViews, ControlTabChangesTheTabFromAnyControl) {
    fScreen.Window().SetControl(2, ButtonState{"Inside"}, 1);
    ControlPlace place;
    place.name = "Inside";
    place.frame = BRect(30, 70, 99, 94);
    place.navigable = true;
    place.focused = true;
    fScreen.Window().PlaceControl(2, place);
    Set({{"a", "b", "c"}, 0, {1}});
    const auto now = [&] { return Strip().currentIndex(); };
    PressKey(fScreen.Widget(), {Qt::Key_Tab, "\t", Qt::ControlModifier});
    EXPECT_EQ(now(), 2) << "over the disabled one";
    PressKey(fScreen.Widget(), {Qt::Key_PageDown, "", Qt::ControlModifier});
    EXPECT_EQ(now(), 0);
    PressKey(fScreen.Widget(), {Qt::Key_PageUp, "", Qt::ControlModifier});
    EXPECT_EQ(now(), 2);
    PressKey(fScreen.Widget(), {Qt::Key_Backtab, "", Qt::ControlModifier | Qt::ShiftModifier});
    EXPECT_EQ(now(), 0);
    fScreen.Expect(kControlChanged, 4);
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_DOWN).empty());
    // Without a tab view on the screen such keys are the kits'.
    ControlPlace hidden;
    hidden.frame = BRect(10, 10, 289, 149);
    hidden.visible = false;
    fScreen.Window().PlaceControl(1, hidden);
    Pump();
    PressKey(fScreen.Widget(), {Qt::Key_Tab, "\t", Qt::ControlModifier});
    fScreen.Expect(B_KEY_DOWN);
}

TEST_F(TabViews, ControlTabChangesTheTabWithoutAnyControlFocusedToo) {
    PressKey(fScreen.Widget(), {Qt::Key_PageDown, "", Qt::ControlModifier});
    EXPECT_EQ(Strip().currentIndex(), 1);
    PressKey(fScreen.Widget(), {Qt::Key_Tab, "\t", Qt::ControlModifier});
    EXPECT_EQ(Strip().currentIndex(), 2);
    fScreen.Expect(kControlChanged, 2);
    PressKey(fScreen.Widget(), {Qt::Key_Tab, "\t"});
    fScreen.Expect(B_KEY_DOWN);
    EXPECT_EQ(fScreen.Messages().All(B_KEY_DOWN).size(), 1U);
}

TEST_F(TabViews, WhatTheKitsDrewIsSeenInThePane) {
    Present(0xff2080f0);
    const QImage picture = fScreen.Widget().grab().toImage();
    const double ratio = picture.devicePixelRatio();
    const auto colorAt = [&](QPoint point) {
        return picture.pixelColor((QPointF(point) * ratio).toPoint());
    };
    const int strip = Strip().height();
    const QRect page = QRect(10, 10, 280, 140).adjusted(3, strip + 3, -3, -3);
    for (const QPoint corner :
        {page.topLeft(), page.topRight(), page.bottomLeft(), page.bottomRight(), page.center()})
        EXPECT_EQ(colorAt(corner), QColor(0x20, 0x80, 0xf0));
    // The frame is there, all around.
    const auto isPainted = [&](QPoint from, QPoint step) {
        for (int i = 0; i < 3; i++) {
            if (colorAt(from + i * step) != QColor(0x20, 0x80, 0xf0))
                return true;
        }
        return false;
    };
    EXPECT_TRUE(isPainted(QPoint(10, 120), QPoint(1, 0)));
    EXPECT_TRUE(isPainted(QPoint(289, 120), QPoint(-1, 0)));
    EXPECT_TRUE(isPainted(QPoint(150, 149), QPoint(0, -1)));
}

TEST_F(TabViews, ThePointerInThePaneIsForTheKits) {
    Present(0xffffffff);
    const QPoint where(100, 100);
    QWidget* under = fScreen.Widget().childAt(where);
    ASSERT_NE(under, nullptr);
    const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
        const QPoint local = under->mapFrom(&fScreen.Widget(), where);
        QMouseEvent event(type, local, under->mapToGlobal(local),
            type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(under, &event);
    };
    send(QEvent::MouseMove, Qt::NoButton);
    send(QEvent::MouseButtonPress, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, Qt::NoButton);
    EXPECT_EQ(
        fScreen.Expect(B_MOUSE_MOVED).GetPoint("be:window_where", BPoint()), BPoint(100, 100));
    EXPECT_EQ(fScreen.Expect(B_MOUSE_DOWN).GetPoint("be:window_where", BPoint()), BPoint(100, 100));
    fScreen.Expect(B_MOUSE_UP);
}

TEST_F(TabViews, AreAListOfTabsToAssistiveTechnology) {
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&Strip());
    EXPECT_EQ(list->role(), QAccessible::PageTabList);
    EXPECT_EQ(list->parent()->text(QAccessible::Name).toStdString(), "Settings");
    QAccessibleInterface* tab = list->child(2);
    EXPECT_EQ(tab->role(), QAccessible::PageTab);
    EXPECT_EQ(tab->text(QAccessible::Name).toStdString(), "Etc.");
}

TEST(TabViewSize, IsThatOfTheStrip) {
    const BPoint none = TheDisplay().PreferredSize(TabViewState{});
    const BPoint some = TheDisplay().PreferredSize(TabViewState{{"one", "two"}, 0});
    EXPECT_GT(none.y, 10);
    EXPECT_EQ(none.y, some.y);
    EXPECT_GT(some.x, none.x);
}
