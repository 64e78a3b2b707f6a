#include "kits/interface/ControlPeer.h"
#include "tests/kits/interface/Pixels.h"
#include "tests/kits/interface/TestWindow.h"

using testing::ElementsAre;

namespace {

/// A view shown as a check box.
class PeerView : public BView {
public:
    PeerView(BRect frame, const char* name, Log& log)
        : BView(frame, name, B_FOLLOW_NONE, B_WILL_DRAW | B_NAVIGABLE), fLog(log) {
        BPrivate::ControlPeer::Install(*this, std::make_unique<Peer>(*this));
    }
    BPrivate::ControlPeer& ThePeer() { return *BPrivate::ControlPeer::Of(this); }
    void Draw(BRect) override { fLog.Add("drawn"); }

    bool on = false;

private:
    class Peer : public BPrivate::ControlPeer {
    public:
        explicit Peer(PeerView& view) : fPeerView(view) {}
        BPrivate::ControlState State() const override {
            return BPrivate::CheckBoxState{"", fPeerView.on};
        }
        void UserChanged(const BMessage& event) override {
            int32 value = 0;
            EXPECT_EQ(event.FindInt32("value", &value), B_OK);
            fPeerView.on = value != 0;
            fPeerView.fLog.Add(fPeerView.on ? "on" : "off");
        }
        void Attached() override { fPeerView.fLog.Add("attached"); }

    private:
        PeerView& fPeerView;
    };

    Log& fLog;
};

bool IsOn(const recording::Control& control) {
    return std::get<BPrivate::CheckBoxState>(control.state).on;
}

class ControlPeerTest : public testing::Test {
protected:
    ControlPeerTest() {
        outer = new BView(BRect(10, 10, 59, 59), "outer", 0, B_WILL_DRAW);
        outer->SetViewColor(BPrivate::kGreen);
        view = new PeerView(BRect(5, 5, 24, 14), "box", log);
        outer->AddChild(view);
        window->AddChild(outer);
    }
    recording::Control Control() {
        const auto control = window.Screen().FindControl("box");
        EXPECT_TRUE(control.has_value());
        return control.value_or(recording::Control());
    }

    Log log;
    TestWindow window;
    BView* outer = nullptr;
    PeerView* view = nullptr;
};

}  // namespace

TEST_F(ControlPeerTest, AttachingHandsItDown) {
    EXPECT_THAT(log.Entries(), ElementsAre("attached"));
    const recording::Control control = Control();
    EXPECT_EQ(control.id, view->ThePeer().Id());
    EXPECT_GT(control.id, 0);
    EXPECT_EQ(control.place.frame, BRect(15, 15, 34, 24));
    EXPECT_TRUE(control.place.visible);
    EXPECT_TRUE(control.place.enabled);
    EXPECT_FALSE(control.place.focused);
    EXPECT_TRUE(control.place.navigable);
    EXPECT_FALSE(IsOn(control));
}

TEST_F(ControlPeerTest, PlaceFollowsTheViewsItLiesIn) {
    outer->MoveBy(10, 0);
    EXPECT_EQ(Control().place.frame, BRect(25, 15, 44, 24));
    view->ResizeBy(5, 5);
    EXPECT_EQ(Control().place.frame, BRect(25, 15, 49, 29));
    outer->ScrollTo(0, 3);
    EXPECT_EQ(Control().place.frame, BRect(25, 12, 49, 26));
    outer->Hide();
    EXPECT_FALSE(Control().place.visible);
    view->Hide();
    outer->Show();
    EXPECT_FALSE(Control().place.visible);
    view->Show();
    EXPECT_TRUE(Control().place.visible);
    view->MakeFocus();
    EXPECT_TRUE(Control().place.focused);
    outer->MakeFocus();
    EXPECT_FALSE(Control().place.focused);
}

TEST_F(ControlPeerTest, DetachingTakesItAway) {
    const auto id = view->ThePeer().Id();
    outer->RemoveSelf();
    EXPECT_TRUE(window.Screen().Controls().empty());
    EXPECT_EQ(view->ThePeer().Id(), 0);
    view->ThePeer().StateChanged();
    window->AddChild(outer);
    EXPECT_GT(Control().id, id);
    delete view;
    EXPECT_TRUE(window.Screen().Controls().empty());
}

TEST_F(ControlPeerTest, UserChanges) {
    window->Show();
    window.Screen().SetValue(view->ThePeer().Id(), 1);
    window.Do([&] { EXPECT_TRUE(view->on); });
    EXPECT_THAT(log.Entries(), ElementsAre("attached", "on"));

    // One that crossed a change of the program's on its way does not count.
    window.Do([&] {
        window.Screen().SetValue(view->ThePeer().Id(), 1);
        view->on = false;
        view->ThePeer().StateChanged();
    });
    window.Do([&] { EXPECT_FALSE(view->on); });
    EXPECT_FALSE(IsOn(Control()));

    // Nor does one for a control that is gone.
    BMessage late(BPrivate::kControlChanged);
    (void)late.AddInt32("control", 123456);
    (void)late.AddInt32("serial", 99);
    window.Screen().Send(late);
    window.Settle();
}

TEST_F(ControlPeerTest, UserMovesTheFocus) {
    outer->MakeFocus();
    window->Show();
    auto& screen = window.Screen();
    screen.FocusControl(view->ThePeer().Id());
    window.Do([&] { EXPECT_TRUE(view->IsFocus()); });
    // Not handed down again: it is where it came from.
    EXPECT_FALSE(Control().place.focused);
    screen.FocusControl(0);
    window.Do([&] { EXPECT_TRUE(outer->IsFocus()); });
    screen.FocusControl(123456);
    window.Do([&] { EXPECT_TRUE(outer->IsFocus()); });
    // The program's own wish is handed down as ever.
    window.Do([&] { view->MakeFocus(); });
    EXPECT_TRUE(Control().place.focused);
}

TEST_F(ControlPeerTest, WhatLiesBehindShowsThrough) {
    window->Show();
    EXPECT_TRUE(window.Screen().Shown().IsAll(BRect(10, 10, 59, 59), BPrivate::kGreen));
    EXPECT_THAT(log.Entries(), ElementsAre("attached"));
}
