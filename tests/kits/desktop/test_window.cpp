#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>
#include <thread>

#include "kits/desktop/WindowWidget.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

/// Presents a window-sized buffer of one colour.
void PresentAll(Screen& screen, int32 width, int32 height, uint32 pixel) {
    std::vector<uint32> pixels(static_cast<size_t>(width) * height, pixel);
    screen.Window().Present({reinterpret_cast<uint8*>(pixels.data()), width * 4, width, height},
        BRect(0, 0, width - 1, height - 1));
}

QRgb Shown(Screen& screen, int x, int y) {
    return screen.Widget().grab().toImage().pixel(x, y);
}

TEST(Window, HasTheFrameItWasAskedFor) {
    Screen screen;
    screen.Show();
    EXPECT_EQ(screen.Widget().geometry(), QRect(50, 60, 300, 200));
    EXPECT_EQ(screen.Widget().windowTitle().toStdString(), "Window");
    screen.Window().SetTitle("Other \xe6\x97\xa5");
    Pump();
    EXPECT_EQ(screen.Widget().windowTitle().toStdString(), "Other \xe6\x97\xa5");
}

TEST(Window, ShowsWhatIsPresented) {
    Screen screen;
    screen.Show();
    PresentAll(screen, 300, 200, 0xff204060);
    Pump();
    EXPECT_EQ(Shown(screen, 0, 0), 0xff204060);
    EXPECT_EQ(Shown(screen, 299, 199), 0xff204060);
}

TEST(Window, ShowsManyPresentsOfAnotherThread) {
    Screen screen;
    screen.Show();
    std::thread looper([&] {
        for (uint32 i = 0; i <= 200; ++i)
            PresentAll(screen, 300, 200, i);
    });
    looper.join();
    EXPECT_TRUE(PumpUntil([&] { return Shown(screen, 10, 10) == 0xff0000c8; }));
}

TEST(Window, TellsTheSerialOfTheLastFrameItTook) {
    Screen screen;
    screen.Show();
    screen.Window().SetFrame(BRect(70, 80, 469, 379), 7);
    const BMessage resized = screen.Expect(B_WINDOW_RESIZED);
    EXPECT_EQ(screen.Messages().All(B_WINDOW_RESIZED).back().GetInt32("serial", -1), 7);
    EXPECT_EQ(screen.Messages().All(B_WINDOW_RESIZED).back().GetInt32("width", -1), 399);
    EXPECT_EQ(screen.Messages().All(B_WINDOW_RESIZED).back().GetInt32("height", -1), 299);
    screen.Expect(B_WINDOW_MOVED);
    const BMessage moved = screen.Messages().All(B_WINDOW_MOVED).back();
    EXPECT_EQ(moved.GetPoint("where", BPoint()), BPoint(70, 80));
    EXPECT_EQ(moved.GetInt32("serial", -1), 7);
    EXPECT_GT(resized.GetInt64("when", 0), 0);

    // The user's own resizing carries it as well.
    const size_t before = screen.Messages().All(B_WINDOW_RESIZED).size();
    screen.Widget().resize(420, 310);
    const BMessage users = screen.Expect(B_WINDOW_RESIZED, before + 1);
    EXPECT_EQ(users.GetInt32("width", -1), 419);
    EXPECT_EQ(users.GetInt32("serial", -1), 7);
}

TEST(Window, TakesCallsInTheirOrder) {
    Screen screen;
    screen.Show();
    std::thread looper([&] {
        for (int32 i = 1; i <= 50; ++i) {
            const float width = 200.0F + static_cast<float>(i);
            screen.Window().SetFrame(BRect(10, 10, 10 + width, 110), i);
        }
    });
    looper.join();
    screen.Expect(B_WINDOW_RESIZED, 50);
    int32 last = 0;
    for (const BMessage& message : screen.Messages().All(B_WINDOW_RESIZED)) {
        const int32 serial = message.GetInt32("serial", -1);
        if (serial == 0)
            continue;  // from being shown
        EXPECT_EQ(serial, last + 1);
        EXPECT_EQ(message.GetInt32("width", -1), 200 + serial);
        last = serial;
    }
    EXPECT_EQ(last, 50);
}

TEST(Window, KeepsItsSizeLimits) {
    Screen screen;
    screen.Window().SetSizeLimits(99, 499, 49, 1e30F);
    Pump();
    EXPECT_EQ(screen.Widget().minimumSize(), QSize(100, 50));
    EXPECT_EQ(screen.Widget().maximumSize(), QSize(500, QWIDGETSIZE_MAX));
}

TEST(Window, OfFixedSizeIsStillResizedByTheProgram) {
    Screen screen({BRect(0, 0, 99, 49), "Fixed", B_TITLED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL,
        B_NOT_RESIZABLE});
    screen.Show();
    EXPECT_EQ(screen.Widget().minimumSize(), QSize(100, 50));
    EXPECT_EQ(screen.Widget().maximumSize(), QSize(100, 50));
    screen.Window().SetFrame(BRect(0, 0, 149, 79), 1);
    Pump();
    EXPECT_EQ(screen.Widget().size(), QSize(150, 80));
    EXPECT_EQ(screen.Widget().maximumSize(), QSize(150, 80));
}

struct Style {
    window_look look;
    window_feel feel;
    uint32 flags;
    Qt::WindowType type;
    Qt::WindowFlags has;
    Qt::WindowFlags hasNot;
    Qt::WindowModality modality;
};

class WindowStyles : public testing::TestWithParam<Style> {};

TEST_P(WindowStyles, AreQts) {
    const Style& style = GetParam();
    Screen screen({BRect(0, 0, 99, 99), "Style", style.look, style.feel, style.flags});
    EXPECT_EQ(screen.Widget().windowType(), style.type);
    EXPECT_EQ(screen.Widget().windowFlags() & style.has, style.has);
    EXPECT_EQ(screen.Widget().windowFlags() & style.hasNot, Qt::WindowFlags());
    EXPECT_EQ(screen.Widget().windowModality(), style.modality);
}

INSTANTIATE_TEST_SUITE_P(All, WindowStyles,
    testing::Values(
        Style{B_TITLED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL, 0, Qt::Window,
            Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint,
            Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint, Qt::NonModal},
        Style{B_TITLED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL,
            B_NOT_CLOSABLE | B_NOT_ZOOMABLE | B_NOT_MINIMIZABLE, Qt::Window, Qt::WindowTitleHint,
            Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint,
            Qt::NonModal},
        Style{B_TITLED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL, B_NOT_RESIZABLE, Qt::Window, {},
            Qt::WindowMaximizeButtonHint, Qt::NonModal},
        Style{B_BORDERED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL, 0, Qt::Window, Qt::FramelessWindowHint,
            {}, Qt::NonModal},
        Style{B_MODAL_WINDOW_LOOK, B_MODAL_APP_WINDOW_FEEL, 0, Qt::Dialog, {}, {},
            Qt::ApplicationModal},
        Style{B_FLOATING_WINDOW_LOOK, B_FLOATING_ALL_WINDOW_FEEL, 0, Qt::Tool,
            Qt::WindowStaysOnTopHint, {}, Qt::NonModal},
        Style{B_TITLED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL, B_AVOID_FOCUS, Qt::Window,
            Qt::WindowDoesNotAcceptFocus, {}, Qt::NonModal}));

TEST(Window, AsksTheLooperBeforeItCloses) {
    Screen screen;
    screen.Show();
    EXPECT_FALSE(screen.Widget().close());
    screen.Expect(B_QUIT_REQUESTED);
    EXPECT_TRUE(screen.Widget().isVisible());
}

TEST(Window, HidesAndComesBack) {
    Screen screen;
    screen.Show();
    screen.Window().Hide();
    EXPECT_TRUE(PumpUntil([&] { return !screen.Widget().isVisible(); }));
    screen.Window().Show();
    EXPECT_TRUE(PumpUntil([&] { return screen.Widget().isVisible(); }));
    EXPECT_EQ(screen.Widget().geometry(), QRect(50, 60, 300, 200));
}

TEST(Window, TellsOfActivation) {
    Screen first({BRect(0, 0, 99, 99), "First"});
    first.Show();
    EXPECT_TRUE(first.Expect(B_WINDOW_ACTIVATED).GetBool("active"));
    Screen second({BRect(0, 0, 99, 99), "Second"});
    second.Show();
    EXPECT_FALSE(first.Expect(B_WINDOW_ACTIVATED, 2).GetBool("active", true));
}

TEST(Window, TellsWhatTheDesktopDidToIt) {
    Screen screen;
    screen.Show();
    screen.Widget().setWindowState(Qt::WindowMinimized);
    EXPECT_TRUE(screen.Expect(B_MINIMIZE).GetBool("minimize"));
    screen.Widget().setWindowState(Qt::WindowNoState);
    EXPECT_FALSE(screen.Expect(B_MINIMIZE, 2).GetBool("minimize", true));
}

TEST(Window, IsZoomedWhenItHasTheSize) {
    Screen screen;
    screen.Show();
    screen.Widget().setWindowState(Qt::WindowMaximized);
    screen.Expect(B_ZOOM);
    const BMessage resized = screen.Messages().All(B_WINDOW_RESIZED).back();
    EXPECT_EQ(resized.GetInt32("width", -1), screen.Widget().width() - 1);
    EXPECT_GT(resized.GetInt32("width", -1), 299);
    EXPECT_LT(screen.Messages().IndexOf(B_WINDOW_RESIZED), screen.Messages().IndexOf(B_ZOOM));
    screen.Widget().setWindowState(Qt::WindowNoState);
    screen.Expect(B_ZOOM, 2);
    EXPECT_EQ(screen.Widget().geometry(), QRect(50, 60, 300, 200));
}

TEST(Window, KeepsWhatTheDesktopGivesItWhileThatHoldsIt) {
    Screen screen;
    screen.Show();
    QWidget& widget = screen.Widget();
    widget.setWindowState(Qt::WindowMaximized);
    EXPECT_TRUE(screen.Expect(kWindowHeld).GetBool("held"));
    screen.Expect(B_ZOOM);
    EXPECT_LT(screen.Messages().IndexOf(kWindowHeld), screen.Messages().IndexOf(B_WINDOW_RESIZED));
    const QRect held = widget.geometry();
    EXPECT_GT(held.width(), 300);

    // On its way when the desktop took the window.
    const size_t resized = screen.Messages().All(B_WINDOW_RESIZED).size();
    screen.Window().SetFrame(BRect(70, 80, 169, 159), 5);
    const BMessage truth = screen.Expect(B_WINDOW_RESIZED, resized + 1);
    EXPECT_EQ(truth.GetInt32("serial", 0), 5);
    EXPECT_EQ(truth.GetInt32("width", 0), held.width() - 1);
    EXPECT_TRUE(widget.isMaximized());
    EXPECT_EQ(widget.geometry(), held);

    widget.setWindowState(Qt::WindowNoState);
    EXPECT_FALSE(screen.Expect(kWindowHeld, 2).GetBool("held", true));
    screen.Window().SetFrame(BRect(70, 80, 169, 159), 6);
    EXPECT_TRUE(PumpUntil([&] { return widget.geometry() == QRect(70, 80, 100, 80); }));
}

TEST(Window, HeldByTheDesktopItComesBackFromFullScreenToThat) {
    Screen screen;
    screen.Show();
    QWidget& widget = screen.Widget();
    const auto settles = [&] {
        return PumpUntil([&] { return static_cast<WindowWidget&>(widget).IsSettled(); });
    };
    widget.setWindowState(Qt::WindowMaximized);
    screen.Expect(B_ZOOM);
    const QRect held = widget.geometry();
    const QRect whole = widget.screen()->geometry();
    screen.Window().SetFrame(BRect(-1, -1, whole.width(), whole.height()), 1);
    EXPECT_TRUE(PumpUntil([&] { return widget.isFullScreen(); }));
    EXPECT_TRUE(settles());
    screen.Window().SetFrame(KitRect(held), 2);
    EXPECT_TRUE(PumpUntil([&] { return !widget.isFullScreen(); }));
    EXPECT_TRUE(settles());
    EXPECT_TRUE(widget.isMaximized());
    EXPECT_EQ(widget.geometry(), held);
    EXPECT_EQ(screen.Messages().All(kWindowHeld).size(), 1U);
}

TEST(Window, OfADialogKeepsTheSizeItTakes) {
    Screen screen({BRect(50, 60, 349, 259), "Dialog", B_TITLED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL,
        B_NOT_ZOOMABLE});
    screen.Show();
    screen.Widget().setWindowState(Qt::WindowMaximized);
    screen.Expect(B_ZOOM);
    screen.Window().SetFrame(BRect(70, 80, 169, 159), 1);
    EXPECT_TRUE(PumpUntil([&] { return screen.Widget().geometry() == QRect(70, 80, 100, 80); }));
    EXPECT_TRUE(screen.Messages().All(kWindowHeld).empty());
}

TEST(Window, MinimisedInFullScreenItComesBackToThat) {
    Screen screen;
    screen.Show();
    QWidget& widget = screen.Widget();
    const auto settles = [&] {
        return PumpUntil([&] { return static_cast<WindowWidget&>(widget).IsSettled(); });
    };
    const QRect whole = widget.screen()->geometry();
    screen.Window().SetFrame(BRect(-1, -1, whole.width(), whole.height()), 1);
    EXPECT_TRUE(PumpUntil([&] { return widget.isFullScreen(); }));
    EXPECT_TRUE(settles());
    const size_t moved = screen.Messages().All(B_WINDOW_MOVED).size();
    const size_t resized = screen.Messages().All(B_WINDOW_RESIZED).size();

    screen.Window().Minimize(true);
    EXPECT_TRUE(PumpUntil([&] { return widget.isMinimized(); }));
    // Window managers are asked in parts, and tell of each.
    widget.setWindowState(Qt::WindowNoState);
    widget.setWindowState(Qt::WindowMinimized);
    EXPECT_TRUE(settles());
    EXPECT_TRUE(screen.Messages().All(B_MINIMIZE).empty());

    // By the user, and full screen is forgotten.
    widget.setWindowState(Qt::WindowNoState);
    EXPECT_FALSE(screen.Expect(B_MINIMIZE).GetBool("minimize", true));
    EXPECT_TRUE(PumpUntil([&] { return widget.isFullScreen(); }));
    EXPECT_TRUE(settles());
    EXPECT_EQ(screen.Messages().All(B_MINIMIZE).size(), 1U);
    EXPECT_EQ(screen.Messages().All(B_WINDOW_MOVED).size(), moved);
    EXPECT_EQ(screen.Messages().All(B_WINDOW_RESIZED).size(), resized);
}

TEST(Window, DoesNotTellWhatTheProgramDidItself) {
    Screen screen;
    screen.Show();
    screen.Window().Minimize(true);
    EXPECT_TRUE(PumpUntil([&] { return screen.Widget().isMinimized(); }));
    screen.Window().Minimize(false);
    EXPECT_TRUE(PumpUntil([&] { return !screen.Widget().isMinimized(); }));
    EXPECT_TRUE(screen.Messages().All(B_MINIMIZE).empty());
}

TEST(Window, GoesWithItsHandle) {
    auto screen = std::make_unique<Screen>(WindowSpec{BRect(0, 0, 9, 9), "Goes"});
    screen->Show();
    screen.reset();
    for (const QWidget* widget : QApplication::topLevelWidgets())
        EXPECT_NE(widget->windowTitle().toStdString(), "Goes");
}

TEST(Display, KnowsTheScreenAndTheTheme) {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const BRect frame = TheDisplay().MainScreenFrame();
    EXPECT_EQ(frame,
        BRect(
            0, 0, static_cast<float>(screen.width() - 1), static_cast<float>(screen.height() - 1)));
    const rgb_color panel = TheDisplay().UiColor(B_PANEL_BACKGROUND_COLOR);
    const QColor window = QApplication::palette().color(QPalette::Window);
    EXPECT_EQ(panel.red, window.red());
    EXPECT_EQ(panel.blue, window.blue());
    EXPECT_EQ(panel.alpha, 255);

    QPalette other = QApplication::palette();
    other.setColor(QPalette::Window, QColor(1, 2, 3));
    const QPalette before = QApplication::palette();
    QApplication::setPalette(other);
    EXPECT_TRUE(PumpUntil([&] {
        return TheDisplay().UiColor(B_PANEL_BACKGROUND_COLOR) == rgb_color{1, 2, 3, 255};
    }));
    QApplication::setPalette(before);
}

TEST(Display, QuittingBeforeRunningEndsTheRun) {
    TheDisplay().Quit();
    TheDisplay().Run();
    std::thread other([] { TheDisplay().Quit(); });
    TheDisplay().Run();
    other.join();
}

}  // namespace
