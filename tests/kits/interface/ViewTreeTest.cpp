#include "tests/kits/interface/TestWindow.h"

using testing::ElementsAre;

namespace {

BView* NewView(const char* name) {
    return new BView(BRect(0, 0, 9, 9), name, 0, 0);
}

/// Counts how many of it are alive.
class CountedView : public BView {
public:
    explicit CountedView(int& count) : BView(BRect(), nullptr, 0, 0), fCount(count) { fCount++; }
    ~CountedView() override { fCount--; }

private:
    int& fCount;
};

}  // namespace

TEST(ViewTree, OrderAndNames) {
    BView root(BRect(0, 0, 99, 99), "root", 0, 0);
    BView* a = NewView("a");
    BView* b = NewView("b");
    BView* c = NewView("c");
    root.AddChild(a);
    root.AddChild(c);
    root.AddChild(b, c);
    EXPECT_EQ(root.CountChildren(), 3);
    EXPECT_EQ(root.ChildAt(0), a);
    EXPECT_EQ(root.ChildAt(1), b);
    EXPECT_EQ(root.ChildAt(2), c);
    EXPECT_EQ(root.ChildAt(3), nullptr);
    EXPECT_EQ(root.ChildAt(-1), nullptr);
    EXPECT_EQ(a->NextSibling(), b);
    EXPECT_EQ(c->NextSibling(), nullptr);
    EXPECT_EQ(c->PreviousSibling(), b);
    EXPECT_EQ(a->PreviousSibling(), nullptr);
    EXPECT_EQ(root.NextSibling(), nullptr);
    EXPECT_EQ(a->Parent(), &root);
    EXPECT_EQ(root.Parent(), nullptr);

    BView* deep = NewView("deep");
    b->AddChild(deep);
    c->AddChild(NewView("deep"));
    EXPECT_EQ(root.FindView("deep"), deep);
    EXPECT_EQ(root.FindView("root"), &root);
    EXPECT_EQ(a->FindView("deep"), nullptr);
    EXPECT_EQ(root.FindView(nullptr), nullptr);
}

TEST(ViewTree, WhatCannotBeAdded) {
    BView root(BRect(0, 0, 99, 99), "root", 0, 0);
    BView* child = NewView("child");
    BView* grandchild = NewView("grandchild");
    root.AddChild(child);
    child->AddChild(grandchild);
    root.AddChild(nullptr);
    root.AddChild(&root);
    root.AddChild(grandchild);
    grandchild->AddChild(&root);
    auto other = std::make_unique<BView>(BRect(), "other", 0, 0);
    root.AddChild(other.get(), grandchild);
    EXPECT_EQ(root.CountChildren(), 1);
    EXPECT_EQ(grandchild->CountChildren(), 0);
    EXPECT_EQ(other->Parent(), nullptr);
}

TEST(ViewTree, Ownership) {
    int count = 0;
    {
        CountedView root(count);
        auto* child = new CountedView(count);
        auto* kept = new CountedView(count);
        root.AddChild(child);
        root.AddChild(kept);
        child->AddChild(new CountedView(count));
        EXPECT_EQ(count, 4);
        EXPECT_FALSE(child->RemoveChild(kept));
        EXPECT_TRUE(kept->RemoveSelf());
        EXPECT_FALSE(kept->RemoveSelf());
        EXPECT_EQ(root.CountChildren(), 1);
        delete child;
        EXPECT_EQ(root.CountChildren(), 0);
        EXPECT_EQ(count, 2);
        delete kept;
    }
    EXPECT_EQ(count, 0);
}

TEST(ViewTree, HooksOfAttaching) {
    Log log;
    TestWindow window;
    auto* outer = new LoggingView(BRect(0, 0, 50, 50), "outer", log);
    outer->AddChild(new LoggingView(BRect(0, 0, 9, 9), "first", log));
    outer->AddChild(new LoggingView(BRect(0, 0, 9, 9), "second", log));
    EXPECT_TRUE(log.Entries().empty());
    window->AddChild(outer);
    EXPECT_THAT(log.Entries(),
        ElementsAre("outer: attached", "first: attached", "second: attached", "first: all attached",
            "second: all attached", "outer: all attached"));
    EXPECT_EQ(outer->Window(), window.Get());
    EXPECT_EQ(outer->Looper(), window.Get());
    EXPECT_EQ(outer->Parent(), nullptr);
    EXPECT_EQ(outer->NextHandler(), window.Get());
    EXPECT_EQ(outer->ChildAt(0)->NextHandler(), outer);
    EXPECT_EQ(window->FindView("second"), outer->ChildAt(1));
    EXPECT_EQ(window->CountChildren(), 1);

    log.Clear();
    EXPECT_TRUE(window->RemoveChild(outer));
    EXPECT_THAT(log.Entries(),
        ElementsAre("outer: detached", "first: detached", "second: detached", "first: all detached",
            "second: all detached", "outer: all detached"));
    EXPECT_EQ(outer->Window(), nullptr);
    EXPECT_EQ(outer->ChildAt(0)->Looper(), nullptr);
    EXPECT_FALSE(window->RemoveChild(outer));
    delete outer;
}

TEST(ViewTree, ChildAddedByAHookIsToldOnce) {
    class AddingView : public LoggingView {
    public:
        AddingView(Log& log) : LoggingView(BRect(0, 0, 50, 50), "adding", log), fOwnLog(log) {}
        void AttachedToWindow() override {
            LoggingView::AttachedToWindow();
            AddChild(new LoggingView(BRect(0, 0, 9, 9), "added", fOwnLog));
        }
        void DetachedFromWindow() override {
            LoggingView::DetachedFromWindow();
            RemoveSelf();
        }

    private:
        Log& fOwnLog;
    };
    Log log;
    TestWindow window;
    auto* view = new AddingView(log);
    window->AddChild(view);
    EXPECT_THAT(log.Entries(),
        ElementsAre(
            "adding: attached", "added: attached", "added: all attached", "adding: all attached"));
    log.Clear();
    window->RemoveChild(view);
    EXPECT_THAT(log.Entries(),
        ElementsAre(
            "adding: detached", "added: detached", "added: all detached", "adding: all detached"));
    EXPECT_EQ(view->Window(), nullptr);
    delete view;
}

TEST(ViewTree, ArchiveAndBack) {
    BView root(BRect(1, 2, 30, 40), "root", B_FOLLOW_ALL, B_WILL_DRAW | B_FRAME_EVENTS);
    root.SetViewColor(1, 2, 3);
    root.SetHighColor(4, 5, 6, 7);
    root.SetLowColor(8, 9, 10);
    BFont font;
    ASSERT_EQ(font.SetFamilyAndStyle("Serif", "Bold"), B_OK);
    font.SetSize(20);
    root.SetFont(&font);
    root.AddChild(NewView("a"));
    root.AddChild(NewView("b"));
    root.ChildAt(1)->AddChild(NewView("c"));

    BMessage archive;
    ASSERT_EQ(root.Archive(&archive), B_OK);
    std::unique_ptr<BArchivable> object(instantiate_object(&archive));
    auto* copy = dynamic_cast<BView*>(object.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy->Name(), "root");
    EXPECT_EQ(copy->Frame(), root.Frame());
    EXPECT_EQ(copy->ResizingMode(), root.ResizingMode());
    EXPECT_EQ(copy->Flags(), root.Flags());
    EXPECT_EQ(copy->ViewColor(), root.ViewColor());
    EXPECT_EQ(copy->HighColor(), root.HighColor());
    EXPECT_EQ(copy->LowColor(), root.LowColor());
    BFont copiedFont;
    copy->GetFont(&copiedFont);
    EXPECT_EQ(copiedFont, font);
    ASSERT_EQ(copy->CountChildren(), 2);
    EXPECT_STREQ(copy->ChildAt(0)->Name(), "a");
    EXPECT_NE(copy->ChildAt(1)->FindView("c"), nullptr);

    BMessage shallow;
    ASSERT_EQ(root.Archive(&shallow, false), B_OK);
    object.reset(instantiate_object(&shallow));
    EXPECT_EQ(dynamic_cast<BView*>(object.get())->CountChildren(), 0);
}

TEST(ViewTree, BadArchives) {
    BMessage empty;
    const BView fromNothing(&empty);
    EXPECT_FALSE(fromNothing.Frame().IsValid());
    EXPECT_EQ(BView::Instantiate(&empty), nullptr);
    BMessage strange;
    (void)strange.AddString("class", "BView");
    (void)strange.AddInt32("_frame", 5);
    BMessage unknown;
    (void)unknown.AddString("class", "NoSuchClass");
    (void)strange.AddMessage("_views", &unknown);
    const std::unique_ptr<BArchivable> view(instantiate_object(&strange));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(dynamic_cast<BView*>(view.get())->CountChildren(), 0);
}
