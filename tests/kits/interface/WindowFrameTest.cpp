#include "tests/kits/interface/TestWindow.h"

using testing::ElementsAre;

namespace {

/// A window that writes down its frame hooks.
class FrameWindow : public BWindow {
public:
    FrameWindow(Log& log, BRect frame = BRect(100, 100, 199, 179))
        : BWindow(frame, "frame", B_TITLED_WINDOW, 0), fLog(log) {}
    void FrameMoved(BPoint where) override { fLog.Add("moved " + Text(where)); }
    void FrameResized(float width, float height) override {
        fLog.Add("resized " + Text(BPoint(width, height)));
    }

private:
    Log& fLog;
};

}  // namespace

TEST(WindowFrame, ChangesHoldAtOnce) {
    Log log;
    Log views;
    TestWindow window(new FrameWindow(log));
    auto* view = new LoggingView(BRect(0, 10, 99, 79), "view", views, B_FOLLOW_ALL);
    window->AddChild(view);
    window->MoveTo(5, 6);
    window->ResizeBy(10, 20);
    EXPECT_EQ(window->Frame(), BRect(5, 6, 114, 105));
    EXPECT_EQ(view->Frame(), BRect(0, 10, 109, 99));
    EXPECT_EQ(window.Screen().Frame(), BRect(5, 6, 114, 105));
    EXPECT_TRUE(log.Entries().empty());
    window->Show();
    window.Settle();
    EXPECT_THAT(log.Entries(), ElementsAre("moved 5,6", "resized 109,99"));
    EXPECT_TRUE(views.WaitFor("view: resized 109,89"));
}

TEST(WindowFrame, CoversWholePixels) {
    const struct {
        BRect given;
        BRect frame;
    } table[] = {
        {{0.4F, 0.6F, 99.9F, 50.6F}, {0, 1, 100, 51}},
        {{-20.5F, -1, 9, 9}, {-21, -1, 9, 9}},
        {{10, 10, 5, 5}, {10, 10, 10, 10}},
        {{0, 0, 1e9F, 1e9F}, {0, 0, 32766, 32766}},
        {{std::numeric_limits<float>::quiet_NaN(), 0, 10, 10}, {0, 0, 0, 10}},
    };
    for (const auto& row : table) {
        TestWindow window(row.given);
        EXPECT_EQ(window->Frame(), row.frame);
    }
    TestWindow window(BRect(0, 0, 9, 9));
    window->ResizeTo(99.4F, 50.6F);
    EXPECT_EQ(window->Bounds(), BRect(0, 0, 99, 51));
}

TEST(WindowFrame, SizeLimits) {
    TestWindow window(BRect(100, 100, 110, 110));
    window->SetSizeLimits(70, 300, 84, 200);
    EXPECT_EQ(window->Frame(), BRect(100, 100, 170, 184));
    EXPECT_EQ(window.Screen().Frame(), BRect(100, 100, 170, 184));
    EXPECT_EQ(window.Screen().SizeLimits().minHeight, 84);
    window->ResizeTo(5000, 5000);
    EXPECT_EQ(window->Bounds(), BRect(0, 0, 300, 200));
    window->ResizeTo(-5, 100);
    EXPECT_EQ(window->Bounds(), BRect(0, 0, 70, 100));
    float limits[4] = {};
    window->GetSizeLimits(&limits[0], &limits[1], &limits[2], &limits[3]);
    EXPECT_THAT(limits, ElementsAre(70, 300, 84, 200));
    window->GetSizeLimits(nullptr, nullptr, nullptr, nullptr);
    window->SetSizeLimits(50, 20, 50, 20);
    EXPECT_EQ(window->Bounds(), BRect(0, 0, 50, 50));
}

TEST(WindowFrame, UserChanges) {
    Log log;
    Log views;
    TestWindow window(new FrameWindow(log));
    window->AddChild(new LoggingView(BRect(0, 0, 99, 79), "view", views, B_FOLLOW_ALL));
    window->Show();
    window.Screen().UserResize(149, 119);
    window.Screen().UserMove(BPoint(30, 40));
    window.Do([&] { EXPECT_EQ(window->Frame(), BRect(30, 40, 179, 159)); });
    EXPECT_THAT(log.Entries(), ElementsAre("resized 149,119", "moved 30,40"));
    EXPECT_TRUE(views.WaitFor("view: resized 149,119"));
    // Drawn once the views have heard of it.
    EXPECT_TRUE(recording::WaitFor([&] {
        const recording::Picture shown = window.Screen().Shown();
        return shown.width == 150 && shown.height == 120;
    }));
}

// A report of the screen's that was on its way when the program changed the frame is of no use.
TEST(WindowFrame, ReportThatCrossedAChangeIsIgnored) {
    Log log;
    TestWindow window(new FrameWindow(log));
    window->Show();
    window.Do([&] {
        BMessage late(B_WINDOW_RESIZED);
        (void)late.AddInt32("width", 500);
        (void)late.AddInt32("height", 500);
        (void)late.AddInt32("serial", 0);
        window.Screen().Send(late);
        window->ResizeTo(200, 150);
    });
    window.Do([&] { EXPECT_EQ(window->Bounds(), BRect(0, 0, 200, 150)); });
    EXPECT_THAT(log.Entries(), ElementsAre("resized 200,150"));

    // What the screen made of the change itself counts.
    BMessage echo(B_WINDOW_RESIZED);
    (void)echo.AddInt32("width", 190);
    (void)echo.AddInt32("height", 150);
    (void)echo.AddInt32("serial", 1);
    window.Screen().Send(echo);
    window.Do([&] { EXPECT_EQ(window->Bounds(), BRect(0, 0, 190, 150)); });
    EXPECT_THAT(log.Entries(), ElementsAre("resized 200,150", "resized 190,150"));
}

namespace {

/// A window that moves and resizes itself when it is told to.
class JumpingWindow : public BWindow {
public:
    JumpingWindow() : BWindow(BRect(100, 100, 199, 179), "jumping", B_TITLED_WINDOW, 0) {}
    void MessageReceived(BMessage* message) override {
        if (message->what != 'jump') {
            BWindow::MessageReceived(message);
            return;
        }
        MoveTo(0, -20);
        ResizeTo(799, 633);
        EXPECT_EQ(Frame(), BRect(0, -20, 799, 613));
        onTheWay.push_back(recording::TheRecordingDisplay().Windows().back()->Frame());
        if (message->HasBool("flush")) {
            Flush();
            onTheWay.push_back(recording::TheRecordingDisplay().Windows().back()->Frame());
        }
    }
    std::vector<BRect> onTheWay;
};

}  // namespace

// On a screen the window would be seen at each step.
TEST(WindowFrame, OfOneMessageIsOneChangeOnTheScreen) {
    auto* jumping = new JumpingWindow;
    TestWindow window(jumping);
    window->Show();
    (void)window->PostMessage('jump');
    window.Settle();
    EXPECT_THAT(jumping->onTheWay, ElementsAre(BRect(100, 100, 199, 179)));
    EXPECT_EQ(window.Screen().Frame(), BRect(0, -20, 799, 613));
    window.Do([&] { window->MoveTo(100, 100); });
    EXPECT_EQ(window.Screen().Frame(), BRect(100, 100, 899, 733));

    BMessage flushed('jump');
    (void)flushed.AddBool("flush", true);
    (void)window->PostMessage(&flushed);
    window.Settle();
    EXPECT_THAT(jumping->onTheWay,
        ElementsAre(BRect(100, 100, 199, 179), BRect(100, 100, 899, 733), BRect(0, -20, 799, 613)));
}

TEST(WindowFrame, OfManyReportsTheLastCounts) {
    Log log;
    TestWindow window(new FrameWindow(log));
    window->Show();
    window.Do([&] {
        for (int i = 0; i < 50; i++)
            window.Screen().UserResize(static_cast<float>(200 + i), 100);
    });
    EXPECT_THAT(log.Entries(), ElementsAre("resized 249,100"));
}

TEST(WindowFrame, IsTheDesktopsWhileItHoldsTheWindow) {
    Log log;
    TestWindow window(new FrameWindow(log));
    window->Show();
    const BRect held(0, 24, 1023, 767);
    window.Screen().Hold(true);
    window.Screen().UserMove(held.LeftTop());
    window.Screen().UserResize(held.Width(), held.Height());
    window.Settle();
    log.Clear();
    window.Do([&] {
        window->MoveTo(5, 6);
        window->ResizeTo(300, 200);
        window->MoveBy(10, 10);
        window->ResizeBy(10, 10);
        EXPECT_EQ(window->Frame(), held);
        EXPECT_EQ(window->Bounds(), BRect(0, 0, 1023, 743));
        EXPECT_EQ(window->NormalFrame(), BRect(100, 100, 199, 179));
    });
    window.Settle();
    EXPECT_EQ(window.Screen().Frame(), held);
    EXPECT_TRUE(log.Entries().empty());

    window.Screen().Hold(false);
    window.Settle();
    window.Do([&] {
        window->MoveTo(5, 6);
        EXPECT_EQ(window->Frame(), BRect(5, 6, 1028, 749));
        EXPECT_EQ(window->NormalFrame(), window->Frame());
    });
}

TEST(WindowFrame, OfAHeldWindowMayCoverTheScreen) {
    const BRect screen = recording::TheRecordingDisplay().MainScreenFrame();
    const BRect covering(screen.left, screen.top - 20, screen.right, screen.bottom + 14);
    const BRect before(100, 100, 199, 179);
    TestWindow window(before);
    window->Show();
    const auto cover = [&] {
        window->MoveTo(covering.LeftTop());
        window->ResizeTo(covering.Width(), covering.Height());
        EXPECT_EQ(window->Frame(), covering);
    };
    const BRect held(screen.left, screen.top + 24, screen.right, screen.bottom);
    window.Screen().Hold(true);
    window.Screen().UserMove(held.LeftTop());
    window.Screen().UserResize(held.Width(), held.Height());
    window.Settle();
    for (int i = 0; i < 2; i++) {
        window.Do(cover);
        EXPECT_EQ(window.Screen().Frame(), covering);
        window.Do([&] {
            window->MoveTo(before.LeftTop());
            window->ResizeTo(before.Width(), before.Height());
            EXPECT_EQ(window->Frame(), held);
            EXPECT_EQ(window->NormalFrame(), before);
        });
        EXPECT_EQ(window.Screen().Frame(), held);
    }

    // Taken while it covers the screen, it had another size before that. It was moved first.
    window.Screen().Hold(false);
    window.Screen().UserMove(before.LeftTop());
    window.Screen().UserResize(before.Width(), before.Height());
    window.Settle();
    window.Do(cover);
    window.Screen().Hold(true);
    window.Settle();
    window.Do([&] { EXPECT_EQ(window->NormalFrame(), before.OffsetToCopy(covering.LeftTop())); });
}
