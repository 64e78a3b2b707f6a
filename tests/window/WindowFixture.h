#pragma once

// The main window on the recording display, with an application that does not run: what is sent
// to it stays in its queue.

#include <app/Message.h>
#include <app/MessageQueue.h>
#include <gtest/gtest.h>

#include <memory>

#include "settings/Prefs.h"
#include "tests/framework/SettingsHome.h"
#include "tests/framework/TestWindows.h"
#include "window/LorivaneWindow.h"

class WindowFixture : public testing::Test {
protected:
    WindowFixture();
    ~WindowFixture() override;

    /// Makes the window, hidden.
    void Open(BRect frame = BRect(100, 110, 500, 410));
    void Show();
    /// Hands the message to the window and waits until it and all before it is dealt with.
    void Do(const BMessage& message);
    void Settle();

    BRect Frame() {
        return with_lock(fWindow, [&] { return fWindow->Frame(); });
    }
    BView* View(const char* name) {
        return with_lock(fWindow, [&] { return fWindow->FindView(name); });
    }
    /// The code of the oldest message that waits in the application's queue; 0 for none.
    uint32 TakeFromApplication();

    TSettingsHome fHome;
    BApplication fApp;
    TLorivaneWindow* fWindow = nullptr;
    std::shared_ptr<recording::Window> fScreen;
};
