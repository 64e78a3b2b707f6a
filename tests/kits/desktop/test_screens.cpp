#include <QGuiApplication>
#include <QScreen>
#include <gtest/gtest.h>

#include "kits/desktop/ScreenTable.h"
#include "kits/desktop/WindowWidget.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

// Three screens: the main one, one left of it, one above it and larger in its pixels.
const ScreenPlace kMain{QRect(0, 0, 1280, 1024), 1};
const ScreenPlace kLeft{QRect(-1920, 100, 1920, 1080), 1.25F};
const ScreenPlace kAbove{QRect(0, -720, 1280, 720), 2};

TEST(ScreenTable, AWindowIsOnTheScreenThatHoldsMostOfIt) {
    ScreenTable table;
    EXPECT_TRUE(table.Main().frame.isEmpty());
    EXPECT_FALSE(table.HasMiddle(QRect(0, 0, 10, 10)));
    table.Set({kMain, kLeft, kAbove});
    EXPECT_EQ(table.Main(), kMain);
    const struct {
        QRect frame;
        ScreenPlace screen;
    } rows[] = {
        {QRect(100, 100, 300, 200), kMain},
        {QRect(-100, 300, 300, 200), kMain},
        {QRect(-200, 300, 300, 200), kLeft},
        {QRect(100, -101, 300, 200), kAbove},
        {QRect(100, -99, 300, 200), kMain},
        {QRect(-1920, 100, 1920, 1080), kLeft},
        {QRect(0, -20, 1280, 1058), kMain},
        {QRect(5000, 5000, 300, 200), kMain},  // beside all of them
        {QRect(-5000, -5000, 10, 10), kMain},
        {QRect(), kMain},
    };
    for (const auto& row : rows)
        EXPECT_EQ(table.Holding(row.frame), row.screen) << row.frame.x() << "," << row.frame.y();
    EXPECT_TRUE(table.HasMiddle(QRect(-1930, 100, 21, 11)));
    EXPECT_FALSE(table.HasMiddle(QRect(-1930, 100, 19, 11)));
}

TEST(ScreenTable, CoveringIsTheWholeScreenAndMoreAboveOrBelow) {
    const struct {
        QRect frame;
        bool covers;
    } rows[] = {
        {QRect(0, -20, 1280, 1044), true},
        {QRect(0, 0, 1280, 1038), true},
        {QRect(0, -20, 1280, 1058), true},
        {QRect(-5, -1, 1290, 1025), true},
        {QRect(0, 0, 1280, 1024), false},  // as a maximised window may
        {QRect(-5, 0, 1290, 1024), false},
        {QRect(0, -20, 1279, 1058), false},
        {QRect(1, -20, 1280, 1058), false},
        {QRect(0, -20, 1280, 1043), false},
        {QRect(), false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CoversScreen(row.frame, kMain.frame), row.covers)
            << row.frame.x() << "," << row.frame.y() << " " << row.frame.width() << "x"
            << row.frame.height();
    EXPECT_TRUE(CoversScreen(QRect(-1920, 80, 1920, 1114), kLeft.frame));
    EXPECT_FALSE(CoversScreen(QRect(0, 0, 10, 10), QRect()));
}

TEST(ScreenTable, BringsAFrameOntoAScreen) {
    const QRect screen(-1920, 100, 1920, 1080);
    EXPECT_EQ(BroughtOnto(QRect(500, 50, 300, 200), screen), QRect(-300, 100, 300, 200));
    EXPECT_EQ(BroughtOnto(QRect(-5000, 5000, 300, 200), screen), QRect(-1920, 980, 300, 200));
    EXPECT_EQ(BroughtOnto(QRect(-100, 150, 3000, 2000), screen), QRect(-1920, 100, 3000, 2000));
    EXPECT_EQ(BroughtOnto(QRect(-900, 500, 30, 20), screen), QRect(-900, 500, 30, 20));
}

TEST(ScreenTable, BringsAFrameOntoAScreenWithWhatIsAroundIt) {
    const QRect screen(-1920, 100, 1920, 1080);
    const QMargins around(3, 20, 4, 5);
    const struct {
        QRect frame;
        QPoint place;
    } rows[] = {
        {QRect(-900, 500, 300, 200), {-900, 500}},
        {QRect(-1917, 120, 300, 200), {-1917, 120}},
        {QRect(-1918, 119, 300, 200), {-1917, 120}},
        {QRect(-304, 975, 300, 200), {-304, 975}},
        {QRect(-303, 976, 300, 200), {-304, 975}},
        {QRect(-900, -5000, 300, 200), {-900, 120}},
        // What has no room keeps its title bar.
        {QRect(-900, 500, 300, 1060), {-900, 120}},
        {QRect(-900, 500, 1915, 200), {-1917, 500}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(BroughtOnto(row.frame, around, screen), QRect(row.place, row.frame.size()))
            << row.frame.x() << "," << row.frame.y();
    }
}

QRect MainScreen() {
    return QGuiApplication::primaryScreen()->geometry();
}

/// The frame of a window that shows nothing but what is between its top and its bottom.
BRect Covering(const QRect& screen, int above, int below) {
    return KitRect(screen.adjusted(0, -above, 0, below));
}

/// Where the kits' coordinates begin on the screen.
QPoint Origin(Screen& screen) {
    return screen.Content().mapToGlobal(QPoint(0, 0));
}

/// Waits for the window manager's answers to all that was asked.
static bool Settles(Screen& screen) {
    Pump();
    const auto& widget = dynamic_cast<const BPrivate::WindowWidget&>(screen.Widget());
    return PumpUntil([&] { return widget.IsSettled(); });
}

TEST(FullScreen, TheContentIsWhereItsFrameSays) {
    Screen screen;
    screen.Show();
    const QRect covered = MainScreen();
    const size_t moves = screen.Messages().All(B_WINDOW_MOVED).size();
    const size_t sizes = screen.Messages().All(B_WINDOW_RESIZED).size();
    screen.Window().SetFrame(Covering(covered, 20, 14), 1);
    EXPECT_TRUE(PumpUntil([&] { return screen.Widget().geometry() == covered; }));
    EXPECT_TRUE(screen.Widget().isFullScreen());
    EXPECT_EQ(screen.Content().size(), QSize(covered.width(), covered.height() + 34));
    EXPECT_EQ(Origin(screen), QPoint(covered.left(), covered.top() - 20));
    EXPECT_EQ(screen.Window().ScreenFrame(), KitRect(covered));

    screen.Window().SetFrame(BRect(70, 80, 269, 229), 2);
    EXPECT_TRUE(PumpUntil([&] { return screen.Widget().geometry() == QRect(70, 80, 200, 150); }));
    EXPECT_FALSE(screen.Widget().isFullScreen());
    EXPECT_EQ(Origin(screen), QPoint(70, 80));
    EXPECT_EQ(screen.Content().size(), QSize(200, 150));
    // Past the time in which what the desktop says may be out of date.
    EXPECT_TRUE(Settles(screen));
    EXPECT_EQ(screen.Messages().All(B_WINDOW_MOVED).size(), moves);
    EXPECT_EQ(screen.Messages().All(B_WINDOW_RESIZED).size(), sizes);
    EXPECT_EQ(screen.Widget().geometry(), QRect(70, 80, 200, 150));
}

TEST(FullScreen, EventsAreInTheContentsCoordinates) {
    Screen screen;
    screen.Show();
    screen.Window().SetFrame(Covering(MainScreen(), 20, 14), 1);
    EXPECT_TRUE(PumpUntil([&] { return screen.Widget().geometry() == MainScreen(); }));
    QTest::mousePress(screen.Widget().windowHandle(), Qt::LeftButton, {}, QPoint(100, 0));
    EXPECT_EQ(screen.Expect(B_MOUSE_DOWN).GetPoint("be:window_where", BPoint()), BPoint(100, 20));
    QTest::mouseRelease(screen.Widget().windowHandle(), Qt::LeftButton, {}, QPoint(100, 0));
    screen.Window().SetControl(1, ButtonState{"here"}, 1);
    screen.Window().PlaceControl(1, {"here", BRect(40, 60, 139, 89), BRect()});
    Pump();
    EXPECT_EQ(screen.Widget().childAt(45, 45)->mapTo(&screen.Widget(), QPoint()), QPoint(40, 40));
}

TEST(FullScreen, SizeLimitsDoNotPreventIt) {
    Screen screen({BRect(50, 60, 249, 159), "Fixed", B_TITLED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL,
        B_NOT_RESIZABLE});
    screen.Show();
    screen.Window().SetFrame(Covering(MainScreen(), 20, 14), 1);
    EXPECT_TRUE(PumpUntil([&] { return screen.Widget().geometry() == MainScreen(); }));
    screen.Window().SetFrame(BRect(50, 60, 249, 159), 2);
    EXPECT_TRUE(PumpUntil([&] { return screen.Widget().geometry() == QRect(50, 60, 200, 100); }));
    EXPECT_EQ(screen.Widget().maximumSize(), QSize(200, 100));
}

TEST(FullScreen, ToggledQuicklyItEndsAsAskedLast) {
    Screen screen;
    screen.Show();
    for (int32 i = 1; i <= 101; ++i) {
        screen.Window().SetFrame(
            i % 2 != 0 ? Covering(MainScreen(), 20, 14) : BRect(50, 60, 349, 259), i);
        if (i % 7 == 0)
            Pump();
    }
    EXPECT_TRUE(Settles(screen));
    EXPECT_TRUE(screen.Widget().isFullScreen());
    EXPECT_EQ(screen.Widget().geometry(), MainScreen());
    screen.Window().SetFrame(BRect(50, 60, 349, 259), 102);
    EXPECT_TRUE(Settles(screen));
    EXPECT_FALSE(screen.Widget().isFullScreen());
    EXPECT_EQ(screen.Widget().geometry(), QRect(50, 60, 300, 200));
}

TEST(FullScreen, TheDesktopMayEndIt) {
    Screen screen;
    screen.Show();
    screen.Window().SetFrame(Covering(MainScreen(), 20, 14), 1);
    EXPECT_TRUE(PumpUntil([&] { return screen.Widget().geometry() == MainScreen(); }));
    EXPECT_TRUE(Settles(screen));
    const size_t sizes = screen.Messages().All(B_WINDOW_RESIZED).size();
    screen.Widget().setWindowState(Qt::WindowNoState);
    screen.Expect(B_WINDOW_RESIZED, sizes + 1);
    EXPECT_TRUE(PumpUntil([&] {
        const BMessage resized = screen.Messages().All(B_WINDOW_RESIZED).back();
        return screen.Widget().size() != MainScreen().size() &&
            resized.GetInt32("width", -1) == screen.Widget().width() - 1 &&
            resized.GetInt32("height", -1) == screen.Widget().height() - 1;
    }));
    EXPECT_EQ(screen.Messages().All(B_WINDOW_RESIZED).back().GetInt32("serial", -1), 1);
    EXPECT_EQ(screen.Content().geometry(), screen.Widget().rect());
}

TEST(FullScreen, BeingMaximisedIsNone) {
    Screen screen;
    screen.Show();
    screen.Widget().setWindowState(Qt::WindowMaximized);
    screen.Expect(B_ZOOM);
    EXPECT_EQ(screen.Content().geometry(), screen.Widget().rect());
    EXPECT_FALSE(screen.Widget().isFullScreen());
}

}  // namespace
