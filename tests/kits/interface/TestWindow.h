#pragma once

#include <app/AppDefs.h>
#include <app/Message.h>
#include <gmock/gmock.h>
#include <interface/View.h>
#include <interface/Window.h>
#include <mutex>
#include <string>
#include <vector>

#include "tests/recording_display/RecordingDisplay.h"

/// What happened, in order. Any thread.
class Log {
public:
    void Add(const std::string& entry) {
        const std::lock_guard guard(fLock);
        fEntries.push_back(entry);
    }
    std::vector<std::string> Entries() const {
        const std::lock_guard guard(fLock);
        return fEntries;
    }
    void Clear() {
        const std::lock_guard guard(fLock);
        fEntries.clear();
    }
    bool WaitFor(const std::string& entry) const {
        return recording::WaitFor([&] {
            const auto entries = Entries();
            return std::find(entries.begin(), entries.end(), entry) != entries.end();
        });
    }

private:
    mutable std::mutex fLock;
    std::vector<std::string> fEntries;
};

inline std::string Text(float number) {
    std::string text = std::to_string(number);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

inline std::string Text(BPoint p) {
    return Text(p.x) + "," + Text(p.y);
}

inline std::string Text(BRect r) {
    return Text(r.LeftTop()) + " " + Text(r.RightBottom());
}

/// A window for the length of a test, and what the screen has of it. Locked by the test until
/// Show().
class TestWindow {
public:
    explicit TestWindow(BWindow* window) : fWindow(window) {
        fScreen = recording::TheRecordingDisplay().Windows().back();
    }
    explicit TestWindow(BRect frame = BRect(100, 100, 199, 179), uint32 flags = 0)
        : TestWindow(new BWindow(frame, "test", B_TITLED_WINDOW, flags)) {}
    ~TestWindow() {
        if (fWindow->Lock())
            fWindow->Quit();
    }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    BWindow* operator->() const { return fWindow; }
    BWindow* Get() const { return fWindow; }
    recording::Window& Screen() const { return *fScreen; }

    /// Waits until the window has dispatched all that was sent to it before.
    void Settle() const {
        BMessage reply;
        BMessage ping('ping');
        // A message nobody knows is answered when its turn has come.
        (void)BMessenger(fWindow, fWindow).SendMessage(&ping, &reply);
        // And the window has shown what was drawn when the lock is free.
        if (fWindow->Lock())
            fWindow->Unlock();
    }
    /// Runs something under the lock, after what was sent before, and what that sends.
    template <typename Work>
    void Do(Work work) const {
        Settle();
        ASSERT_TRUE(fWindow->Lock());
        work();
        fWindow->Unlock();
        Settle();
    }

private:
    BWindow* fWindow;
    std::shared_ptr<recording::Window> fScreen;
};

/// A view that writes down its hooks.
class LoggingView : public BView {
public:
    LoggingView(BRect frame, const char* name, Log& log, uint32 mode = B_FOLLOW_NONE,
        uint32 flags = B_WILL_DRAW | B_FRAME_EVENTS)
        : BView(frame, name, mode, flags), fLog(log) {}

    void AttachedToWindow() override { Add("attached"); }
    void AllAttached() override { Add("all attached"); }
    void DetachedFromWindow() override { Add("detached"); }
    void AllDetached() override { Add("all detached"); }
    void Draw(BRect update) override {
        Add("draw " + Text(update));
        if (fill.alpha != 0) {
            SetHighColor(fill);
            FillRect(Bounds());
        }
    }
    void FrameMoved(BPoint where) override { Add("moved " + Text(where)); }
    void FrameResized(float width, float height) override {
        Add("resized " + Text(BPoint(width, height)));
    }
    void WindowActivated(bool active) override { Add(active ? "active" : "inactive"); }
    void MakeFocus(bool focused = true) override {
        BView::MakeFocus(focused);
        Add(focused ? "focus" : "no focus");
    }
    void MouseDown(BPoint where) override {
        Add("down " + Text(where));
        if (captureMask != 0) {
            EXPECT_EQ(SetMouseEventMask(captureMask, captureOptions), B_OK);
        }
    }
    void MouseUp(BPoint where) override { Add("up " + Text(where)); }
    void MouseMoved(BPoint where, uint32 transit, const BMessage* drag) override {
        const char* names[] = {"entered ", "inside ", "exited ", "outside "};
        EXPECT_EQ(drag, nullptr);
        Add(names[transit] + Text(where));
    }
    void KeyDown(const char* bytes, int32 numBytes) override {
        Add("key " + std::string(bytes, static_cast<std::size_t>(numBytes)));
        BView::KeyDown(bytes, numBytes);
    }
    void KeyUp(const char* bytes, int32 numBytes) override {
        Add("key up " + std::string(bytes, static_cast<std::size_t>(numBytes)));
    }

    rgb_color fill{0, 0, 0, 0};
    uint32 captureMask = 0;
    uint32 captureOptions = 0;

protected:
    void Add(const std::string& what) { fLog.Add(std::string(Name()) + ": " + what); }

private:
    Log& fLog;
};
