#include <kernel/OS.h>

#include "tests/kits/interface/TestWindow.h"

namespace {

class SlowView : public LoggingView {
public:
    using LoggingView::LoggingView;
    void KeyDown(const char* bytes, int32 numBytes) override {
        LoggingView::KeyDown(bytes, numBytes);
        int32 repeats = 0;
        (void)Window()->CurrentMessage()->FindInt32("be:key_repeat", &repeats);
        Add(std::to_string(repeats));
    }
};

void Send(const TestWindow& window, uint32 what, char key, int32 repeat = 0) {
    BMessage message(what);
    (void)message.AddInt32("key", key);
    (void)message.AddInt32("raw_char", key);
    (void)message.AddInt32("modifiers", 0);
    (void)message.AddInt8("byte", key);
    const char bytes[] = {key, 0};
    (void)message.AddString("bytes", bytes);
    if (repeat > 0)
        (void)message.AddInt32("be:key_repeat", repeat);
    window.Screen().Send(message);
}

}  // namespace

TEST(KeyRepeat, OfThoseThatWaitTheLastCounts) {
    Log log;
    TestWindow window;
    auto* view = new SlowView(BRect(0, 0, 99, 79), "v", log);
    window->AddChild(view);
    view->MakeFocus();
    window->Show();
    window.Settle();
    log.Clear();
    window.Do([&] {
        // All of it waits while the lock is held here.
        Send(window, B_KEY_DOWN, 'a');
        for (int32 i = 1; i <= 500; i++)
            Send(window, B_KEY_DOWN, 'a', i);
        Send(window, B_KEY_UP, 'a');
        Send(window, B_KEY_DOWN, 'a');
        Send(window, B_KEY_DOWN, 'a', 1);
        Send(window, B_KEY_DOWN, 'b');
        Send(window, B_KEY_DOWN, 'b', 1);
        Send(window, B_KEY_DOWN, 'b', 2);
        Send(window, B_KEY_UP, 'b');
    });
    EXPECT_THAT(log.Entries(),
        testing::ElementsAre("v: key a", "v: 0", "v: key a", "v: 500", "v: key up a", "v: key a",
            "v: 0", "v: key a", "v: 1", "v: key b", "v: 0", "v: key b", "v: 2", "v: key up b"));
}

TEST(KeyRepeat, OneAtATimeNoneIsLost) {
    Log log;
    TestWindow window;
    auto* view = new SlowView(BRect(0, 0, 99, 79), "v", log);
    window->AddChild(view);
    view->MakeFocus();
    window->Show();
    window.Settle();
    log.Clear();
    std::vector<std::string> expected;
    for (int32 i = 0; i < 20; i++) {
        Send(window, B_KEY_DOWN, 'a', i);
        window.Settle();
        expected.insert(expected.end(), {"v: key a", "v: " + std::to_string(i)});
    }
    EXPECT_EQ(log.Entries(), expected);
}
