#include <interface/Bitmap.h>
#include <interface/StringView.h>

#include "tests/kits/interface/Pixels.h"
#include "tests/kits/interface/TestWindow.h"

using BPrivate::kBlack;
using BPrivate::kBlue;
using BPrivate::kGreen;
using BPrivate::kRed;
using BPrivate::kWhite;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> Drawings(const Log& log) {
    auto entries = log.Entries();
    std::erase_if(entries, [](const auto& entry) { return entry.find("draw") == entry.npos; });
    return entries;
}

LoggingView* AddView(BWindow& window, BRect frame, const char* name, Log& log, rgb_color fill) {
    auto* view = new LoggingView(frame, name, log);
    view->fill = fill;
    window.AddChild(view);
    return view;
}

}  // namespace

TEST(WindowUpdate, AppearsWithItsContent) {
    Log log;
    TestWindow window;
    AddView(*window.Get(), BRect(10, 10, 29, 29), "view", log, kRed);
    EXPECT_THAT(window.Screen().Presented(), IsEmpty());
    window->Show();
    ASSERT_FALSE(window.Screen().Presented().empty());
    EXPECT_EQ(window.Screen().Presented().front(), BRect(0, 0, 99, 79));
    const auto shown = window.Screen().Shown();
    EXPECT_TRUE(shown.IsAll(BRect(10, 10, 29, 29), kRed));
    EXPECT_TRUE(shown.IsAll(BRect(30, 0, 99, 79), kWhite));
    EXPECT_THAT(Drawings(log), ElementsAre("view: draw 0,0 19,19"));
}

TEST(WindowUpdate, InvalidateDrawsOnce) {
    Log log;
    TestWindow window;
    LoggingView* view = AddView(*window.Get(), BRect(10, 10, 49, 49), "view", log, kRed);
    window->Show();
    window.Settle();
    log.Clear();
    const auto before = window.Screen().Presented().size();
    window.Do([&] {
        view->Invalidate(BRect(0, 0, 4, 4));
        view->Invalidate(BRect(10, 10, 14, 14));
        EXPECT_TRUE(window->NeedsUpdate());
    });
    EXPECT_THAT(Drawings(log), ElementsAre("view: draw 0,0 14,14"));
    const auto presented = window.Screen().Presented();
    ASSERT_EQ(presented.size(), before + 1);
    EXPECT_EQ(presented.back(), BRect(10, 10, 24, 24));
}

TEST(WindowUpdate, InvalidateOutsideDoesNothing) {
    Log log;
    TestWindow window;
    LoggingView* view = AddView(*window.Get(), BRect(10, 10, 19, 19), "view", log, kRed);
    window->Show();
    window.Settle();
    log.Clear();
    window.Do([&] {
        const float nan = std::numeric_limits<float>::quiet_NaN();
        view->Invalidate(BRect(20, 20, 30, 30));
        view->Invalidate(BRect());
        view->Invalidate(BRect(nan, nan, nan, nan));
        EXPECT_FALSE(window->NeedsUpdate());
        view->Invalidate(BRect(-1e30F, -1e30F, 1e30F, 1e30F));
    });
    EXPECT_THAT(Drawings(log), ElementsAre("view: draw 0,0 9,9"));
}

TEST(WindowUpdate, UpdateIfNeededDrawsNow) {
    Log log;
    TestWindow window;
    LoggingView* view = AddView(*window.Get(), BRect(0, 0, 9, 9), "view", log, kRed);
    window->Show();
    window.Settle();
    log.Clear();
    window.Do([&] {
        view->fill = kBlue;
        view->Invalidate();
        window->UpdateIfNeeded();
        EXPECT_THAT(Drawings(log), ElementsAre("view: draw 0,0 9,9"));
        EXPECT_EQ(window.Screen().Shown().At(5, 5), kBlue);
        EXPECT_FALSE(window->NeedsUpdate());
    });
    EXPECT_EQ(Drawings(log).size(), 1U);
}

TEST(WindowUpdate, ParentsDrawBeforeChildrenAndNotOverThem) {
    Log log;
    TestWindow window;
    LoggingView* parent = AddView(*window.Get(), BRect(0, 0, 49, 49), "parent", log, kRed);
    auto* child = new LoggingView(BRect(10, 10, 19, 19), "child", log);
    child->fill = kBlue;
    parent->AddChild(child);
    AddView(*window.Get(), BRect(40, 40, 59, 59), "above", log, kGreen);
    window->Show();
    EXPECT_THAT(Drawings(log),
        ElementsAre("parent: draw 0,0 49,49", "child: draw 0,0 9,9", "above: draw 0,0 19,19"));
    auto shown = window.Screen().Shown();
    EXPECT_TRUE(shown.IsAll(BRect(10, 10, 19, 19), kBlue));
    EXPECT_TRUE(shown.IsAll(BRect(20, 20, 39, 39), kRed));
    EXPECT_TRUE(shown.IsAll(BRect(40, 40, 59, 59), kGreen));

    // The same holds for what is drawn in between.
    window.Do([&] {
        parent->SetHighColor(kBlack);
        parent->FillRect(parent->Bounds());
        EXPECT_EQ(window.Screen().Shown().At(0, 0), kRed);
        parent->Flush();
        EXPECT_EQ(window.Screen().Shown().At(0, 0), kBlack);
    });
    shown = window.Screen().Shown();
    EXPECT_TRUE(shown.IsAll(BRect(10, 10, 19, 19), kBlue));
    EXPECT_TRUE(shown.IsAll(BRect(20, 20, 39, 39), kBlack));
    EXPECT_TRUE(shown.IsAll(BRect(40, 40, 59, 59), kGreen));
}

TEST(WindowUpdate, DrawingIsClippedToTheView) {
    Log log;
    TestWindow window;
    LoggingView* parent = AddView(*window.Get(), BRect(10, 10, 29, 29), "parent", log, kWhite);
    auto* child = new LoggingView(BRect(15, 15, 40, 40), "child", log);
    child->fill = kBlue;
    parent->AddChild(child);
    window->Show();
    const auto shown = window.Screen().Shown();
    EXPECT_TRUE(shown.IsAll(BRect(25, 25, 29, 29), kBlue));
    EXPECT_TRUE(shown.IsAll(BRect(30, 0, 99, 79), kWhite));
}

TEST(WindowUpdate, DrawnAtTheEndOfTheMessage) {
    class MessageView : public BView {
    public:
        MessageView() : BView(BRect(0, 0, 9, 9), "message", 0, B_WILL_DRAW) {}
        void MessageReceived(BMessage*) override {
            SetHighColor(kRed);
            FillRect(Bounds());
        }
    };
    TestWindow window;
    auto* view = new MessageView;
    window->AddChild(view);
    window->Show();
    window->PostMessage('draw', view);
    window.Settle();
    EXPECT_TRUE(window.Screen().Shown().IsAll(BRect(0, 0, 9, 9), kRed));
    EXPECT_EQ(window.Screen().Presented().back(), BRect(0, 0, 9, 9));
}

TEST(WindowUpdate, ViewColourErasesFirst) {
    class Painting : public BView {
    public:
        Painting(BRect frame) : BView(frame, nullptr, 0, B_WILL_DRAW) {}
        void Draw(BRect) override {
            SetHighColor(kRed);
            FillRect(BRect(0, 0, 4, 4));
        }
    };
    TestWindow window;
    auto* erased = new Painting(BRect(0, 0, 9, 9));
    erased->SetViewColor(kGreen);
    auto* kept = new Painting(BRect(20, 0, 29, 9));
    window->AddChild(erased);
    window->AddChild(kept);
    window->Show();
    auto shown = window.Screen().Shown();
    EXPECT_EQ(shown.At(2, 2), kRed);
    EXPECT_EQ(shown.At(7, 7), kGreen);
    window.Do([&] {
        kept->SetHighColor(kBlack);
        kept->FillRect(kept->Bounds());
        kept->SetViewColor(B_TRANSPARENT_COLOR);
        kept->Invalidate();
    });
    shown = window.Screen().Shown();
    EXPECT_EQ(shown.At(22, 2), kRed);
    EXPECT_EQ(shown.At(27, 7), kBlack);
}

TEST(WindowUpdate, HiddenViewsAndWindowsDoNotDraw) {
    Log log;
    TestWindow window;
    LoggingView* view = AddView(*window.Get(), BRect(0, 0, 9, 9), "view", log, kRed);
    view->Hide();
    window->Show();
    EXPECT_THAT(Drawings(log), IsEmpty());
    window.Do([&] { view->Show(); });
    EXPECT_THAT(Drawings(log), ElementsAre("view: draw 0,0 9,9"));
    EXPECT_EQ(window.Screen().Shown().At(0, 0), kRed);
    window.Do([&] { view->Hide(); });
    EXPECT_EQ(window.Screen().Shown().At(0, 0), kWhite);

    window.Do([&] { view->Show(); });
    window->Hide();
    log.Clear();
    window.Do([&] {
        view->Invalidate();
        window->UpdateIfNeeded();
        view->SetHighColor(kBlack);
        view->FillRect(view->Bounds());
        window->Flush();
    });
    EXPECT_THAT(Drawings(log), IsEmpty());
    EXPECT_EQ(window.Screen().Shown().At(0, 0), kRed);
    window->Show();
    EXPECT_THAT(Drawings(log), ElementsAre("view: draw 0,0 9,9"));
}

TEST(WindowUpdate, MovedViewUncoversWhatWasBelow) {
    Log log;
    TestWindow window;
    AddView(*window.Get(), BRect(0, 0, 99, 79), "below", log, kGreen);
    LoggingView* view = AddView(*window.Get(), BRect(0, 0, 9, 9), "view", log, kRed);
    window->Show();
    window.Do([&] { view->MoveTo(50, 50); });
    auto shown = window.Screen().Shown();
    EXPECT_TRUE(shown.IsAll(BRect(0, 0, 49, 49), kGreen));
    EXPECT_TRUE(shown.IsAll(BRect(50, 50, 59, 59), kRed));
    window.Do([&] { delete view; });
    EXPECT_TRUE(window.Screen().Shown().IsAll(BRect(0, 0, 99, 79), kGreen));
}

TEST(WindowUpdate, NothingIsShownWhileDisabled) {
    Log log;
    TestWindow window;
    LoggingView* view = AddView(*window.Get(), BRect(0, 0, 9, 9), "view", log, kRed);
    window->Show();
    window.Settle();
    const auto before = window.Screen().Presented().size();
    window.Do([&] {
        window->DisableUpdates();
        view->Invalidate();
        window->UpdateIfNeeded();
        view->FillRect(view->Bounds());
        view->Flush();
    });
    EXPECT_EQ(window.Screen().Presented().size(), before);
    window.Do([&] { window->EnableUpdates(); });
    EXPECT_GT(window.Screen().Presented().size(), before);
}

TEST(WindowUpdate, ScrolledViewAndDrawOnChildren) {
    TestWindow window;
    auto* view = new BView(BRect(0, 0, 19, 19), nullptr, 0, B_DRAW_ON_CHILDREN);
    view->AddChild(new BView(BRect(0, 0, 9, 9), nullptr, 0, 0));
    window->AddChild(view);
    window->Show();
    window.Do([&] {
        view->ScrollTo(100, 0);
        window->UpdateIfNeeded();
        view->SetHighColor(kRed);
        view->FillRect(BRect(100, 0, 104, 4));
        view->FillRect(BRect(0, 5, 99, 9));
    });
    const auto shown = window.Screen().Shown();
    EXPECT_TRUE(shown.IsAll(BRect(0, 0, 4, 4), kRed));
    EXPECT_TRUE(shown.IsAll(BRect(0, 5, 19, 19), kWhite));
}

TEST(WindowUpdate, StringsAndStrokes) {
    TestWindow window;
    auto* view = new BView(BRect(0, 0, 99, 79), nullptr, 0, 0);
    window->AddChild(view);
    window->Show();
    window.Do([&] {
        view->SetHighColor(kRed);
        view->DrawString("ab c", BPoint(10, 30));
        EXPECT_EQ(view->PenLocation(), BPoint(34, 30));
        view->DrawString("xyz", 1);
        EXPECT_EQ(view->PenLocation(), BPoint(40, 30));
        view->DrawString("no", BPoint(std::numeric_limits<float>::quiet_NaN(), 0));
        view->SetHighColor(kBlue);
        view->StrokeRect(BRect(50, 50, 59, 54));
        view->StrokeLine(BPoint(50, 60), BPoint(59, 60));
        view->StrokeLine(BPoint(59, 65));
        view->InvertRect(BRect(0, 70, 9, 79));
    });
    const auto shown = window.Screen().Shown();
    EXPECT_TRUE(shown.IsAll(BRect(10, 21, 14, 29), kRed));
    EXPECT_TRUE(shown.IsAll(BRect(16, 21, 20, 29), kRed));
    EXPECT_TRUE(shown.IsAll(BRect(21, 21, 27, 29), kWhite));
    EXPECT_TRUE(shown.IsAll(BRect(28, 21, 32, 29), kRed));
    EXPECT_TRUE(shown.IsAll(BRect(34, 21, 38, 29), kRed));
    EXPECT_TRUE(shown.IsAll(BRect(50, 50, 59, 50), kBlue));
    EXPECT_TRUE(shown.IsAll(BRect(50, 50, 50, 54), kBlue));
    EXPECT_TRUE(shown.IsAll(BRect(51, 51, 58, 53), kWhite));
    EXPECT_TRUE(shown.IsAll(BRect(50, 60, 59, 60), kBlue));
    EXPECT_TRUE(shown.IsAll(BRect(59, 60, 59, 65), kBlue));
    EXPECT_TRUE(shown.IsAll(BRect(0, 70, 9, 79), kBlack));
}

// The rules of positions as the composition of a view uses them: bands beside a picture leave no
// gap and the picture starts at the floor.
TEST(WindowUpdate, PictureAtFractionalPosition) {
    BBitmap bitmap(BRect(0, 0, 60, 9), B_RGBA32, true);
    auto* painter = new BView(bitmap.Bounds(), nullptr, 0, 0);
    bitmap.AddChild(painter);
    painter->SetHighColor(kRed);
    painter->FillRect(painter->Bounds());
    TestWindow window(BRect(0, 0, 99, 79));
    auto* view = new BView(BRect(0, 0, 99, 79), nullptr, 0, 0);
    window->AddChild(view);
    window->Show();
    window.Do([&] {
        const float margin = 99 - 60;
        view->SetHighColor(kBlue);
        view->FillRect(BRect(0, 0, margin * 0.5F - 1, 9));
        view->FillRect(BRect(99 - margin * 0.5F + 1, 0, 99, 9));
        const BRect area(0, 0, 99, 79);
        view->DrawBitmap(&bitmap, area, area.OffsetToCopy(margin * 0.5F, 0));
    });
    const auto shown = window.Screen().Shown();
    EXPECT_TRUE(shown.IsAll(BRect(0, 0, 18, 9), kBlue));
    EXPECT_TRUE(shown.IsAll(BRect(19, 0, 79, 9), kRed));
    EXPECT_TRUE(shown.IsAll(BRect(80, 0, 99, 9), kBlue));
    EXPECT_TRUE(shown.IsAll(BRect(0, 10, 99, 79), kWhite));
}

namespace {

/// Answers a message by changing its own control and what is drawn.
class ChangingWindow : public BWindow {
public:
    ChangingWindow() : BWindow(BRect(100, 100, 199, 179), "test", B_TITLED_WINDOW, 0) {}

    void MessageReceived(BMessage* message) override {
        if (message->what != 'chng') {
            BWindow::MessageReceived(message);
            return;
        }
        text->SetText("new");
        SetTitle("new");
        if (view != nullptr)
            view->Invalidate();
    }

    BStringView* text = nullptr;
    BView* view = nullptr;
};

std::vector<recording::Seen> SeenSince(const recording::Window& window, std::size_t before) {
    EXPECT_TRUE(recording::WaitFor([&] { return window.Moments().size() > before; }));
    auto moments = window.Moments();
    moments.erase(moments.begin(), moments.begin() + static_cast<std::ptrdiff_t>(before));
    return moments;
}

}  // namespace

TEST(WindowUpdate, ControlsAreSeenWithThePictureOfTheirLayout) {
    Log log;
    TestWindow window;
    AddView(*window.Get(), BRect(0, 0, 99, 79), "view", log, kRed)->SetResizingMode(B_FOLLOW_ALL);
    window->AddChild(
        new BStringView(BRect(0, 60, 50, 79), "one", "one", B_FOLLOW_LEFT | B_FOLLOW_BOTTOM));
    window->AddChild(
        new BStringView(BRect(51, 60, 99, 79), "two", "two", B_FOLLOW_LEFT | B_FOLLOW_BOTTOM));
    window->Show();
    window.Settle();
    const auto before = window.Screen().Moments().size();
    window.Screen().UserResize(149, 119);
    window.Settle();
    window.Settle();
    EXPECT_THAT(SeenSince(window.Screen(), before), ElementsAre(recording::Seen{2, true}));
}

TEST(WindowUpdate, WhatAMessageChangesIsSeenAtOnce) {
    Log log;
    auto* changing = new ChangingWindow;
    TestWindow window(changing);
    changing->text = new BStringView(BRect(0, 60, 50, 79), "one", "one");
    changing->AddChild(changing->text);
    changing->Show();
    window.Settle();
    auto before = window.Screen().Moments().size();
    (void)changing->PostMessage('chng');
    window.Settle();
    EXPECT_THAT(SeenSince(window.Screen(), before), ElementsAre(recording::Seen{2, false}));

    ASSERT_TRUE(changing->Lock());
    changing->text->SetText("old");
    changing->SetTitle("old");
    changing->view = AddView(*changing, BRect(0, 0, 99, 59), "view", log, kRed);
    changing->Unlock();
    window.Settle();
    window.Settle();
    before = window.Screen().Moments().size();
    (void)changing->PostMessage('chng');
    window.Settle();
    window.Settle();
    EXPECT_THAT(SeenSince(window.Screen(), before), ElementsAre(recording::Seen{2, true}));
}

TEST(WindowUpdate, ViewsHearOfTheirSizeBeforeTheyDraw) {
    Log log;
    TestWindow window;
    LoggingView* view = AddView(*window.Get(), BRect(0, 0, 49, 39), "view", log, kRed);
    window->Show();
    window.Settle();
    log.Clear();
    window.Do([&] {
        view->Invalidate();
        view->ResizeTo(79, 59);
    });
    window.Settle();
    EXPECT_THAT(log.Entries(), ElementsAre("view: resized 79,59", "view: draw 0,0 79,59"));
}

TEST(WindowUpdate, NothingIsKeptWhileUpdatesAreDisabled) {
    Log log;
    auto* changing = new ChangingWindow;
    TestWindow window(changing);
    changing->text = new BStringView(BRect(0, 60, 50, 79), "one", "one");
    changing->AddChild(changing->text);
    changing->view = AddView(*changing, BRect(0, 0, 99, 59), "view", log, kRed);
    changing->Show();
    window.Settle();
    window.Do([&] { changing->DisableUpdates(); });
    const auto before = window.Screen().Moments().size();
    (void)changing->PostMessage('chng');
    window.Settle();
    window.Settle();
    EXPECT_THAT(SeenSince(window.Screen(), before), ElementsAre(recording::Seen{2, false}));
    window.Do([&] { changing->EnableUpdates(); });
}

TEST(WindowUpdate, NewAreaHasTheGroundOfTheLargestView) {
    Log log;
    TestWindow window;
    LoggingView* small = AddView(*window.Get(), BRect(0, 0, 9, 9), "small", log, kRed);
    LoggingView* large = AddView(*window.Get(), BRect(0, 10, 99, 79), "large", log, kRed);
    small->SetViewColor(kBlue);
    large->SetViewColor(kGreen);
    window->Show();
    EXPECT_EQ(window.Screen().Ground(), kGreen);
    window.Do([&] {
        large->SetViewColor(B_TRANSPARENT_COLOR);
        large->SetLowColor(kBlack);
        large->Invalidate();
    });
    window.Settle();
    EXPECT_EQ(window.Screen().Ground(), kBlack);
}
