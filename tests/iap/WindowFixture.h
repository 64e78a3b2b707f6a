#pragma once

// The common preferences window on the recording display, with an application that does not run:
// what is broadcast stays in its queue.

#include <app/Message.h>
#include <gtest/gtest.h>
#include <interface/View.h>
#include <memory>
#include <string>
#include <vector>

#include "iap/IAPView.h"
#include "iap/IAPWindow.h"
#include "iap/InterAppPrefs.h"
#include "tests/framework/TestWindows.h"
#include "tests/iap/Components.h"

class TIAPFixture : public testing::Test {
protected:
    TIAPFixture();
    ~TIAPFixture() override;

    /// Makes the window and shows it.
    void Open();
    /// Ends it, if it is there.
    void Quit();
    /// Sends the view the message and waits until it is dealt with.
    void Do(const BMessage& message);
    void Do(uint32 command) { Do(BMessage(command)); }
    /// Until what was sent so far, and what that has led to, is dealt with.
    void Settle();

    /// The changes broadcast since the last time, in order.
    std::vector<BMessage> Broadcasts();
    /// The same as "item value" each, the value that of the item's field, else of the check box.
    std::vector<std::string> BroadcastValues();

    /// Contributes the format and the tool bar as this application does.
    void AddOwnComponents();

    recording::Control Shown(const std::string& label);
    bool HasLabel(const std::string& label) { return fScreen->FindControl(label).has_value(); }
    void Click(const std::string& label, int32 value = 1);
    /// Chooses the format, by what its item says.
    void ChooseFormat(const std::string& format);
    BRect FrameOf(const char* name);
    /// The names of the components, in the order of the views.
    std::vector<std::string> ComponentNames();

    TSharedFiles fFiles;
    BApplication fApp;
    TInterAppPrefs fStore;
    TIAPWindow* fWindow = nullptr;
    TIAPView* fView = nullptr;
    std::shared_ptr<recording::Window> fScreen;
};
