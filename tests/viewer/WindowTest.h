#pragma once

// A window with the viewer in it, on the recording display, and a folder to look at.

#include <app/AppDefs.h>
#include <app/Message.h>
#include <gtest/gtest.h>
#include <interface/Window.h>

#include <memory>
#include <string>
#include <vector>

#include "settings/Prefs.h"
#include "tests/framework/TemporaryFolder.h"
#include "tests/recording_display/RecordingDisplay.h"
#include "viewer/LorivaneView.h"

constexpr rgb_color kRed{255, 0, 0, 255};
constexpr rgb_color kGreen{0, 255, 0, 255};
constexpr rgb_color kBlue{0, 0, 255, 255};
constexpr rgb_color kGray{60, 60, 60, 255};
constexpr float kViewTop = 20;  // as high as a menu bar would be
constexpr auto kTop = static_cast<int32>(kViewTop);
constexpr BRect kWindowFrame(50, 50, 349, 269);  // with room for an image of 300 x 186

/// Lets the tests look into the list and the cache, and has a clock that stands still.
class TestView : public TLorivaneView {
public:
    bigtime_t fTime = 10'000'000;

    using TImageList::CurrentPath;
    using TImageList::IndexOf;
    using TLorivaneView::TLorivaneView;

    bool HasLoaders() const { return TLorivaneView::IsLoading(); }

protected:
    bigtime_t ScrollTime() const override { return fTime; }
};

/// Stands in for the main window: the view lies below where the menu bar is.
class TestWindow : public BWindow {
public:
    explicit TestWindow(BRect frame);

    void MessageReceived(BMessage* message) override;

    TestView* fView;
    std::vector<BMessage> fHistoryRequests;
};

class WindowTest : public testing::Test {
protected:
    WindowTest();
    ~WindowTest() override;

    void Write(const std::string& name, const std::string& content);

    /// Makes and shows the window. The preferences have their defaults but for the display
    /// option, which is 0, and the background, which is gray, unless the test has set them.
    void ShowWindow(BRect frame = kWindowFrame);
    void QuitWindow();
    /// Hands the entry in and waits until the view has dealt with it.
    void Open(const std::string& name);

    void Post(uint32 command);
    void Post(const BMessage& message);
    /// Posts and waits until it has been dealt with, and all that was queued before.
    void Do(uint32 command);
    void Do(const BMessage& message);
    /// Waits until all that is queued has been dealt with, and no image is decoded that is to be
    /// shown.
    void Settle();
    /// Waits until all that is queued has been dealt with.
    void WaitForQueue();
    /// Waits until no loader runs.
    void WaitForLoaders();
    /// Runs the function in the window's lock.
    template <typename Function>
    auto Locked(Function function) {
        fWindow->Lock();
        struct Unlocker {
            BWindow* window;
            ~Unlocker() { window->Unlock(); }
        } unlocker{fWindow};
        return function();
    }

    /// The file name in the window's title; empty when nothing is shown.
    std::string Shown();
    std::string StatusText(const std::string& field);
    bool IsShown(const std::string& view);
    /// A key down and up, and all it leads to.
    void Press(char key, uint32 modifiers = 0, int32 number = 0);
    bool IsCached(const std::string& name);
    recording::Picture Picture() { return fScreen->Shown(); }
    std::string Path(const std::string& name) { return fFolder / name; }
    void SetKeyHeld(int32 key, bool held);

    TTemporaryFolder fFolder;
    TestWindow* fWindow = nullptr;
    TestView* fView = nullptr;
    std::shared_ptr<recording::Window> fScreen;
};
