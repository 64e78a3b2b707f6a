#pragma once

// The application on the recording display. It has no resources, so that dialogs that are built
// from a layout fail.

#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "app/LorivaneApp.h"
#include "tests/framework/SettingsHome.h"
#include "tests/framework/TestWindows.h"
#include "window/LorivaneWindow.h"

class AppFixture : public testing::Test {
protected:
    /// Runs the application, and beside it `user`, who must make it quit.
    void RunApp(const std::function<void(recording::Window&)>& user) {
        auto app = std::make_unique<TLorivaneApp>();
        EXPECT_STREQ(app->Signature(), "application/x-vnd.ZELKAN-Lorivane");
        EXPECT_EQ(app->CountWindows(), 1);
        fApp = app.get();
        fWindow = dynamic_cast<TLorivaneWindow*>(app->WindowAt(0));
        ASSERT_NE(fWindow, nullptr);
        WindowMade();
        std::thread thread([&] {
            const auto windows = recording::TheRecordingDisplay().Windows();
            ASSERT_EQ(windows.size(), 1U);
            fScreen = windows.front();
            EXPECT_TRUE(recording::WaitFor([&] { return fScreen->IsShown(); }));
            user(*fScreen);
        });
        app->Run();
        thread.join();
        app.reset();
        EXPECT_FALSE(fScreen->IsOpen());
        EXPECT_TRUE(recording::TheRecordingDisplay().Windows().empty());
    }

    /// Before anything happens in the window.
    virtual void WindowMade() {}

    TSettingsHome fHome;
    TLorivaneApp* fApp = nullptr;
    TLorivaneWindow* fWindow = nullptr;
    std::shared_ptr<recording::Window> fScreen;
};
