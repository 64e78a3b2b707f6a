// What is handed in while the Control key is held.

#include <interface/InterfaceDefs.h>
#include <storage/Entry.h>

#include "framework/MessageCodes.h"
#include "tests/viewer/ViewerTest.h"

namespace {

class RecentFiles : public ViewerTest {
protected:
    ~RecentFiles() override { recording::TheRecordingDisplay().SetModifiers(0); }

    static void HoldControl() { recording::TheRecordingDisplay().SetModifiers(B_CONTROL_KEY); }

    /// As an entry of the menu sends it.
    BMessage FromMenu(const std::string& name) {
        BMessage message = FromProgram(name);
        (void)message.AddPointer("source", this);
        return message;
    }
    /// As anything else in the program does.
    BMessage FromProgram(const std::string& name) {
        entry_ref ref;
        get_ref_for_path(Path(name).c_str(), &ref);
        BMessage message(B_REFS_RECEIVED);
        (void)message.AddRef("refs", &ref);
        return message;
    }

    void Answer(const std::string& button) {
        const auto alert = recording::TheRecordingDisplay().WaitForWindow("* Lorivane *");
        ASSERT_NE(alert, nullptr);
        const auto found =
            recording::WaitFor([&] { return alert->FindControl(button).has_value(); });
        ASSERT_TRUE(found);
        alert->SetValue(alert->FindControl(button)->id, 1);
        ASSERT_TRUE(recording::WaitFor([&] { return !alert->IsOpen(); }));
        Settle();
    }

    std::vector<uint32> Requests() {
        std::vector<uint32> codes;
        for (const BMessage& request : Locked([&] { return fWindow->fHistoryRequests; }))
            codes.push_back(request.what);
        return codes;
    }
};

TEST_F(RecentFiles, AnEntryChosenWithControlIsForgottenOrNotAndNeverOpened) {
    WriteImages({"a", "b"});
    ShowWindow();
    Open("a");
    HoldControl();
    const std::vector<uint32> opened{kMsgAddHistory};
    Post(FromMenu("b"));
    Answer("No");
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(Requests(), opened);

    Post(FromMenu("b"));
    Answer("Yes");
    // The alert is gone before the view asks for what was answered.
    EXPECT_TRUE(recording::WaitFor([&] {
        return Requests() == std::vector<uint32>{kMsgAddHistory, kMsgRemoveHistory};
    }));
    EXPECT_EQ(Shown(), "a");
}

TEST_F(RecentFiles, AnEntryChosenWithoutControlIsOpened) {
    WriteImages({"a", "b"});
    ShowWindow();
    Open("a");
    for (const uint32 held : std::vector<uint32>{0, B_SHIFT_KEY, B_COMMAND_KEY, B_OPTION_KEY}) {
        recording::TheRecordingDisplay().SetModifiers(held);
        Do(FromMenu("b"));
        EXPECT_EQ(Shown(), "b");
        Do(FromMenu("a"));
        EXPECT_EQ(Shown(), "a");
    }
}

// Control and a letter press the buttons of the panel that files are chosen in.
TEST_F(RecentFiles, WhatComesFromElsewhereIsOpenedWithControlToo) {
    WriteImages({"a", "b"});
    ShowWindow();
    HoldControl();
    Do(FromProgram("a"));
    EXPECT_EQ(Shown(), "a");
    entry_ref ref;
    get_ref_for_path(Path("b").c_str(), &ref);
    fScreen->Drop({ref}, {20, 60});
    EXPECT_TRUE(recording::WaitFor([&] { return Shown() == "b"; }));
}

}  // namespace
