// What windows do when the program was started once more.

#include <gtest/gtest.h>

#include "kits/interface/Display.h"
#include "tests/kits/interface/TestWindow.h"

namespace {

/// As the application sends it.
void BringToFront(const std::vector<BMessenger>& windows) {
    BMessage message(BPrivate::kBringToFront);
    for (const BMessenger& window : windows)
        message.AddMessenger("windows", window);
    EXPECT_EQ(windows.front().SendMessage(&message), B_OK);
}

BMessenger AddressOf(const TestWindow& window) {
    return {window.Get(), window.Get()};
}

}  // namespace

TEST(BringToFront, TakesTheFirstThatIsShown) {
    TestWindow hidden, first, second;
    for (TestWindow* window : {&hidden, &first, &second})
        (*window)->Show();
    hidden.Do([&] { hidden->Hide(); });
    BMessenger gone;
    {
        TestWindow other;
        other->Show();
        gone = AddressOf(other);
    }
    BringToFront({AddressOf(hidden), gone, AddressOf(first), AddressOf(second)});
    EXPECT_TRUE(recording::WaitFor([&] { return first.Screen().CountActivations() == 1; }));
    second.Settle();
    EXPECT_EQ(hidden.Screen().CountActivations(), 0);
    EXPECT_EQ(second.Screen().CountActivations(), 0);
}

TEST(BringToFront, BringsItBackFromItsIcon) {
    TestWindow window;
    window->Show();
    window.Do([&] { window->Minimize(true); });
    EXPECT_TRUE(window.Screen().IsMinimized());
    BringToFront({AddressOf(window)});
    EXPECT_TRUE(recording::WaitFor([&] { return window.Screen().CountActivations() == 1; }));
    EXPECT_FALSE(window.Screen().IsMinimized());
}

TEST(BringToFront, WithoutAWindowNothingHappens) {
    TestWindow hidden;
    hidden->Show();
    hidden.Do([&] { hidden->Hide(); });
    BringToFront({AddressOf(hidden)});
    hidden.Settle();
    EXPECT_EQ(hidden.Screen().CountActivations(), 0);
}
