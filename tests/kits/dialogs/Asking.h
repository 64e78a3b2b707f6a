#pragma once

// Threads that ask the user by an alert and wait, and windows whose threads do.

#include <app/AppDefs.h>
#include <app/Message.h>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <interface/Alert.h>
#include <interface/View.h>
#include <map>
#include <mutex>
#include <string>

#include "tests/recording_display/RecordingDisplay.h"

/// A thread of no looper's that waits for the answer to an alert. The alert was locked by the
/// thread that made it until then.
class Asking {
public:
    explicit Asking(BAlert* alert) : fAlert(alert), fTitle(alert->Title()) {
        fScreen = recording::TheRecordingDisplay().Windows().back();
        alert->Unlock();
        fAnswer = std::async(std::launch::async, [alert] {
            alert->Lock();
            return alert->Go();
        });
    }

    /// The alert's window once it is shown; null when it does not appear.
    std::shared_ptr<recording::Window> Screen() const {
        const bool shown = recording::WaitFor([&] { return fScreen->IsShown(); });
        return shown ? fScreen : nullptr;
    }
    int32 Answer() { return fAnswer.get(); }

    /// Waits until the alert has dispatched all that was sent to it before. Only while it is open.
    void Settle() const {
        BMessage ping('ping');
        BMessage reply;
        (void)BMessenger(fAlert).SendMessage(&ping, &reply);
    }

private:
    BAlert* fAlert;
    const std::string fTitle;
    std::shared_ptr<recording::Window> fScreen;
    std::future<int32> fAnswer;
};

/// A window that asks in its own thread, and keeps what it is sent. Quit with this object.
class AskingWindow {
public:
    explicit AskingWindow(BRect frame = BRect(100, 100, 299, 299)) : fWindow(new Own(frame)) {
        fScreen = recording::TheRecordingDisplay().Windows().back();
    }
    ~AskingWindow() {
        if (fWindow->Lock())
            fWindow->Quit();
    }
    AskingWindow(const AskingWindow&) = delete;
    AskingWindow& operator=(const AskingWindow&) = delete;

    BWindow* Get() const { return fWindow; }
    recording::Window& Screen() const { return *fScreen; }
    void Show() { fWindow->Show(); }
    /// The user goes to it.
    void Activate() {
        fScreen->SetActive(true);
        (void)Received(B_WINDOW_ACTIVATED);
    }
    /// Makes the window's thread show the alert it makes.
    void Ask(std::function<BAlert*()> make) {
        BMessage ask('ask!');
        {
            const std::lock_guard guard(fWindow->fLock);
            fWindow->fMake = std::move(make);
        }
        fScreen->Send(ask);
    }
    /// The answer the window's thread got. -9 when there is none in time.
    int32 Answer() { return Received('got!').GetInt32("answer", -9); }
    /// In the window's thread: fills the window with the colour.
    void SetColor(rgb_color color) {
        BView* view = fWindow->ChildAt(0);
        view->SetViewColor(color);
        view->Invalidate();
    }

    /// Waits for a message of that code; the last of them.
    BMessage Received(uint32 what) {
        EXPECT_TRUE(recording::WaitFor([&] { return Count(what) > 0; })) << std::hex << what;
        const std::lock_guard guard(fWindow->fLock);
        return fWindow->fLast[what];
    }
    /// How many messages of that code it has handled.
    std::size_t Count(uint32 what) {
        const std::lock_guard guard(fWindow->fLock);
        return fWindow->fCounts[what];
    }

private:
    struct Own : BWindow {
        explicit Own(BRect frame) : BWindow(frame, "asker", B_TITLED_WINDOW, 0) {
            AddChild(new BView(Bounds(), "view", B_FOLLOW_ALL, B_WILL_DRAW));
        }

        void DispatchMessage(BMessage* message, BHandler* handler) override {
            if (message->what == 'ask!') {
                std::function<BAlert*()> make;
                {
                    const std::lock_guard guard(fLock);
                    make = fMake;
                }
                BMessage got('got!');
                (void)got.AddInt32("answer", make()->Go());
                (void)PostMessage(&got);
            }
            BWindow::DispatchMessage(message, handler);
            const std::lock_guard guard(fLock);
            fLast[message->what] = *message;
            fCounts[message->what]++;
        }

        std::mutex fLock;
        std::function<BAlert*()> fMake;
        std::map<uint32, BMessage> fLast;
        std::map<uint32, std::size_t> fCounts;
    };

    Own* fWindow;
    std::shared_ptr<recording::Window> fScreen;
};
