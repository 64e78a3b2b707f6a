#pragma once

// A window of the display under test and the messages it sends.

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <app/Messenger.h>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "kits/interface/Display.h"

namespace desktop_test {

/// Serves the display's events until the condition holds; false when it does not in time.
bool PumpUntil(const std::function<bool()>& condition);
/// Serves the events there are, and those they lead to.
void Pump();

/// A looper that keeps what it is sent.
class Recorder : public BLooper {
public:
    void DispatchMessage(BMessage* message, BHandler* handler) override;

    /// The messages of that kind that have been sent so far.
    std::vector<BMessage> All(uint32 what) const;
    /// The place of the last message of that kind among all; -1 when there is none.
    int IndexOf(uint32 what) const;

private:
    mutable std::mutex fLock;
    std::vector<BMessage> fMessages;
};

/// A window on the screen with a recorder behind it.
class Screen {
public:
    explicit Screen(BPrivate::WindowSpec spec = {BRect(50, 60, 349, 259), "Window"});
    ~Screen();

    BPrivate::DisplayWindow& Window() { return *fWindow; }
    QWidget& Widget() { return *fWidget; }
    /// What is in the window, in the kits' coordinates.
    QWidget& Content() { return *fWidget->focusProxy(); }
    Recorder& Messages() { return *fRecorder; }

    /// Waits for so many messages of the kind, and returns the last of them.
    BMessage Expect(uint32 what, size_t count = 1);
    /// Shows the window and gives it the keyboard.
    void Show();

    /// The widget of that class and accessible name in the window; null when there is none.
    template <typename Kind>
    Kind* Find(const char* name) const {
        for (Kind* widget : fWidget->findChildren<Kind*>()) {
            if (widget->accessibleName() == QString::fromUtf8(name))
                return widget;
        }
        return nullptr;
    }

private:
    Recorder* fRecorder;  // deletes itself when it is told to quit
    std::unique_ptr<BPrivate::DisplayWindow> fWindow;
    QWidget* fWidget = nullptr;
};

}  // namespace desktop_test
