#pragma once

// A window that keeps the messages its controls send it, and one control's state on the screen.

#include <mutex>
#include <vector>

#include "tests/kits/interface/TestWindow.h"

class Receiver : public BWindow {
public:
    Receiver() : BWindow(BRect(100, 100, 399, 299), "controls", B_TITLED_WINDOW, 0) {}

    void MessageReceived(BMessage* message) override {
        {
            const std::lock_guard guard(fLock);
            fMessages.push_back(*message);
        }
        BWindow::MessageReceived(message);
    }

    /// The messages of that code so far.
    std::vector<BMessage> All(uint32 what) const {
        const std::lock_guard guard(fLock);
        std::vector<BMessage> found;
        for (const BMessage& message : fMessages) {
            if (message.what == what)
                found.push_back(message);
        }
        return found;
    }

private:
    mutable std::mutex fLock;
    std::vector<BMessage> fMessages;
};

/// A window with controls, on the screen once the test has shown it.
class ControlTest : public testing::Test {
protected:
    ControlTest() : fReceiver(new Receiver), fWindow(fReceiver) {}

    template <typename View>
    View* Add(View* view) {
        fReceiver->AddChild(view);
        return view;
    }
    void Show() { fReceiver->Show(); }

    recording::Control OnScreen(const char* name) const {
        const auto control = fWindow.Screen().FindControl(name);
        EXPECT_TRUE(control.has_value()) << name;
        return control.value_or(recording::Control());
    }
    template <typename State>
    State StateOf(const char* name) const {
        const recording::Control control = OnScreen(name);
        const State* state = std::get_if<State>(&control.state);
        EXPECT_NE(state, nullptr) << name;
        return state != nullptr ? *state : State();
    }
    std::vector<BMessage> Received(uint32 what) const {
        fWindow.Settle();
        fWindow.Settle();  // a message may have sent another
        return fReceiver->All(what);
    }

    Receiver* fReceiver;
    TestWindow fWindow;
};
