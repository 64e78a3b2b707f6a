#include <app/MessageQueue.h>
#include <interface/ScrollBar.h>

#include "framework/MessageCodes.h"
#include "settings/DisplayOption.h"
#include "tests/viewer/ViewerTest.h"

namespace {

// An image area of 300 x 186; see DrawingTest.cpp. Extents are one less than the pixels.
// An image of 600 rows: 599 - 185 to scroll, by trunc(599 * 185 / 599 / 2).
constexpr float kTallMax = 414;
constexpr float kTallStep = 92;

class Scrolling : public ViewerTest {
protected:
    BScrollBar* Bar(const char* name) { return dynamic_cast<BScrollBar*>(fWindow->FindView(name)); }
    float Value(const char* name) {
        return Locked([&] { return Bar(name)->Value(); });
    }
    void SetValue(const char* name, float value) {
        Locked([&] { Bar(name)->SetValue(value); });
    }
    /// As many key events as a held key sends: they are one press.
    void Hold(char key, int count) {
        Locked([&] {
            for (int i = 0; i < count; ++i)
                fScreen->KeyDown(key);
        });
        Settle();
    }
    /// Lets so much time pass that the next key is a new press.
    void Pause() {
        Locked([&] { fView->fTime += 400'001; });
    }

    void ShowTall(int32 width = 100, int32 height = 600) {
        WriteImage("a", kGreen);
        WriteImage("b", kRed, width, height);
        WriteImage("c", kGreen);
        ShowWindow(kWindowFrame);
        Open("b");
        WaitForLoaders();
    }
};

TEST_F(Scrolling, ShowsTheBarsAnImageNeeds) {
    struct {
        int32 width;
        int32 height;
        bool horizontal;
        bool vertical;
    } const kCases[] = {
        {300, 186, false, false},
        {301, 100, true, false},
        {100, 187, false, true},
        {301, 187, true, true},
        {301, 186, true, true},  // each bar may call for the other
        {300, 187, true, true},
        {286, 187, false, true},
        {301, 173, true, false},
    };
    ShowWindow(kWindowFrame);
    for (const auto& c : kCases) {
        std::string name = std::to_string(c.width) + "x" + std::to_string(c.height);
        WriteImage(name, kRed, c.width, c.height);
        Open(name);
        EXPECT_EQ(IsShown("ScrlBarH"), c.horizontal) << name;
        EXPECT_EQ(IsShown("ScrlBarV"), c.vertical) << name;
        EXPECT_EQ(IsShown("ScrlCornerView"), c.horizontal && c.vertical) << name;
    }
}

TEST_F(Scrolling, SetsTheRangesToWhatIsHidden) {
    WriteImage("large", kRed, 601, 401);
    ShowWindow(kWindowFrame);
    Open("large");
    Locked([&] {
        float min = -1;
        float max = -1;
        float small = 0;
        float big = 0;
        Bar("ScrlBarH")->GetRange(&min, &max);
        Bar("ScrlBarH")->GetSteps(&small, &big);
        EXPECT_EQ(min, 0);
        EXPECT_EQ(max, 600 - 285);
        EXPECT_EQ(small, 10);
        EXPECT_EQ(big, 142);
        EXPECT_FLOAT_EQ(Bar("ScrlBarH")->Proportion(), 285.0F / 600);
        EXPECT_EQ(Bar("ScrlBarH")->Frame(), BRect(0, 173, 286, 186));
        Bar("ScrlBarV")->GetRange(&min, &max);
        Bar("ScrlBarV")->GetSteps(&small, &big);
        EXPECT_EQ(min, 0);
        EXPECT_EQ(max, 400 - 172);
        EXPECT_EQ(small, 10);
        EXPECT_EQ(big, 86);
        EXPECT_FLOAT_EQ(Bar("ScrlBarV")->Proportion(), 172.0F / 400);
        EXPECT_EQ(Bar("ScrlBarV")->Frame(), BRect(286, 0, 299, 173));
    });
}

TEST_F(Scrolling, DrawsThePartTheBarsSelect) {
    ShowTall();
    EXPECT_TRUE(Picture().IsAll({93, kViewTop, 192, kViewTop + 185}, kRed));
    Locked([&] { EXPECT_EQ(fView->Bounds().LeftTop(), B_ORIGIN); });
    SetValue("ScrlBarV", 200);
    Settle();
    Locked([&] { EXPECT_EQ(fView->Bounds().LeftTop(), B_ORIGIN); });
}

TEST_F(Scrolling, HidesTheBarsUnderOptionsThatFit) {
    ShowTall();
    SetValue("ScrlBarV", 200);
    for (int32 option : {kFitImageToWindow, kScaleImageToWindow}) {
        gPrefs.fDisplayOption = option;
        Do(kPrefDisplayOption);
        EXPECT_FALSE(IsShown("ScrlBarV"));
        EXPECT_EQ(Value("ScrlBarV"), 0);
    }
    gPrefs.fDisplayOption = kDontFitAnything;
    Do(kPrefDisplayOption);
    EXPECT_TRUE(IsShown("ScrlBarV"));
    EXPECT_EQ(Value("ScrlBarV"), 0);
}

TEST_F(Scrolling, KeepsThePlaceWhenTheWindowChanges) {
    ShowTall();
    SetValue("ScrlBarV", 200);
    fScreen->UserResize(299, 239);
    EXPECT_TRUE(recording::WaitFor([&] {
        Settle();
        return Locked([&] {
            float min = 0;
            float max = 0;
            Bar("ScrlBarV")->GetRange(&min, &max);
            return max == kTallMax - 20;
        });
    }));
    EXPECT_EQ(Value("ScrlBarV"), 200);
}

TEST_F(Scrolling, StepsHalfAScreenDownAndThenToTheNextImage) {
    for (char key : {B_DOWN_ARROW, B_PAGE_DOWN}) {
        if (fWindow == nullptr)
            ShowTall();
        Open("b");
        WaitForLoaders();
        Pause();
        Press(key);
        EXPECT_EQ(Value("ScrlBarV"), kTallStep);
        Hold(key, 10);
        EXPECT_EQ(Value("ScrlBarV"), kTallMax);
        EXPECT_EQ(Shown(), "b");  // held, it stays at the end
        Pause();
        Press(key);
        EXPECT_EQ(Shown(), "c");
    }
}

TEST_F(Scrolling, StepsUpAndStaysAtTheTopOfAnImageThatWasScrolled) {
    for (char key : {B_UP_ARROW, B_PAGE_UP}) {
        if (fWindow == nullptr)
            ShowTall();
        Open("b");
        WaitForLoaders();
        SetValue("ScrlBarV", kTallMax);
        Pause();
        Press(key);
        EXPECT_EQ(Value("ScrlBarV"), kTallMax - kTallStep);
        Hold(key, 10);
        EXPECT_EQ(Value("ScrlBarV"), 0);
        EXPECT_EQ(Shown(), "b");
        Pause();
        Press(key);
        EXPECT_EQ(Shown(), "a");
    }
}

TEST_F(Scrolling, NeverTakesARepeatForANewPress) {
    ShowTall();
    const struct {
        char key;
        float edge;
        const char* beyond;
    } edges[] = {{B_DOWN_ARROW, kTallMax, "c"}, {B_UP_ARROW, 0, "a"}};
    for (const auto& [key, edge, beyond] : edges) {
        Open("b");
        WaitForLoaders();
        SetValue("ScrlBarV", edge == 0 ? kTallStep : kTallMax - kTallStep);
        Pause();
        Press(key);
        EXPECT_EQ(Value("ScrlBarV"), edge);
        // However late it comes.
        for (int32 count : {1, 2}) {
            Pause();
            Locked([&] { fScreen->KeyRepeated(key, count); });
            Settle();
            EXPECT_EQ(Shown(), "b");
        }
        Pause();
        Press(key);
        EXPECT_EQ(Shown(), beyond);
    }
}

TEST_F(Scrolling, GoesBackThroughImagesThatWereNotScrolled) {
    WriteImages({"a"});
    WriteImage("b", kRed, 100, 600);
    WriteImage("c", kRed, 100, 600);
    ShowWindow(kWindowFrame);
    Open("c");
    WaitForLoaders();
    Pause();
    Press(B_UP_ARROW);
    EXPECT_EQ(Shown(), "b");
    WaitForLoaders();
    Hold(B_UP_ARROW, 1);
    EXPECT_EQ(Shown(), "a");
}

TEST_F(Scrolling, ScrollsSidewaysWithLeftAndRight) {
    ShowTall(900, 100);
    Pause();
    Press(B_RIGHT_ARROW);
    EXPECT_EQ(Value("ScrlBarH"), 149);
    Press(B_LEFT_ARROW);
    EXPECT_EQ(Value("ScrlBarH"), 0);
    WaitForLoaders();
    // No vertical bar: these change the image.
    Press(B_DOWN_ARROW);
    EXPECT_EQ(Shown(), "c");
}

TEST_F(Scrolling, StepsThroughImagesThatFit) {
    WriteImages({"a", "b", "c", "d", "e"});
    ShowWindow(kWindowFrame);
    Open("a");
    WaitForLoaders();
    std::string seen;
    for (char key : {B_DOWN_ARROW, B_RIGHT_ARROW, B_PAGE_DOWN, B_SPACE, B_UP_ARROW, B_LEFT_ARROW,
             B_PAGE_UP, B_BACKSPACE, B_END, B_HOME}) {
        Press(key);
        WaitForLoaders();
        seen += Shown();
    }
    EXPECT_EQ(seen, "bcdedcbaea");
}

TEST_F(Scrolling, ChangesTheImageWithCommandHeld) {
    for (char key : {B_DOWN_ARROW, B_RIGHT_ARROW, B_PAGE_DOWN}) {
        if (fWindow == nullptr)
            ShowTall();
        Open("b");
        WaitForLoaders();
        Press(key, B_COMMAND_KEY);
        EXPECT_EQ(Shown(), "c") << int{key};
    }
    for (char key : {B_UP_ARROW, B_LEFT_ARROW, B_PAGE_UP}) {
        Open("b");
        WaitForLoaders();
        Press(key, B_COMMAND_KEY);
        EXPECT_EQ(Shown(), "a") << int{key};
    }
}

TEST_F(Scrolling, StepsOnceForEachCommandKey) {
    WriteImages({"a", "b", "c", "d"});
    ShowWindow(kWindowFrame);
    Open("a");
    WaitForLoaders();
    Press(B_DOWN_ARROW, B_COMMAND_KEY);
    WaitForLoaders();
    EXPECT_EQ(Shown(), "b");
}

TEST_F(Scrolling, DoesNothingWithOtherModifiers) {
    WriteImages({"a", "b", "c"});
    ShowWindow(kWindowFrame);
    Open("b");
    WaitForLoaders();
    for (uint32 held : {B_SHIFT_KEY, B_CONTROL_KEY, B_OPTION_KEY}) {
        for (char key : {B_DOWN_ARROW, B_UP_ARROW, B_SPACE, B_BACKSPACE, B_HOME, B_END}) {
            Press(key, held);
            EXPECT_EQ(Shown(), "b") << held << " " << int{key};
        }
    }
    Press(B_SPACE, B_COMMAND_KEY);
    EXPECT_EQ(Shown(), "b");
    // The locks are none of them.
    Press(B_SPACE, B_CAPS_LOCK | B_NUM_LOCK | B_SCROLL_LOCK);
    EXPECT_EQ(Shown(), "c");
}

TEST_F(Scrolling, MinimizesTheWindow) {
    ShowWindow(kWindowFrame);
    Press('m');
    EXPECT_TRUE(recording::WaitFor([&] { return fScreen->IsMinimized(); }));
}

TEST_F(Scrolling, TurnsTheWheelByTheBarsShown) {
    ShowTall();
    auto turn = [&](float delta) {
        fScreen->Wheel({20, 60}, 0, delta);
        Settle();
    };
    Pause();
    turn(1);
    EXPECT_EQ(Value("ScrlBarV"), kTallStep);
    turn(5);  // one step, however far
    EXPECT_EQ(Value("ScrlBarV"), 2 * kTallStep);
    turn(-1);
    EXPECT_EQ(Value("ScrlBarV"), kTallStep);
    turn(0);
    EXPECT_EQ(Value("ScrlBarV"), 2 * kTallStep);

    WriteImage("d", kRed, 900, 100);
    Open("d");
    turn(1);
    EXPECT_EQ(Value("ScrlBarH"), 149);
    turn(-1);
    EXPECT_EQ(Value("ScrlBarH"), 0);

    Open("a");
    WaitForLoaders();
    turn(1);
    EXPECT_EQ(Shown(), "b");
}

TEST_F(Scrolling, IgnoresAWheelThatSaysNothing) {
    WriteImages({"a", "b"});
    ShowWindow(kWindowFrame);
    Open("a");
    Do(BMessage(B_MOUSE_WHEEL_CHANGED));
    EXPECT_EQ(Shown(), "a");
}

TEST_F(Scrolling, FollowsABarTheUserDrags) {
    WriteImage("b", kRed, 100, 600);
    ShowWindow(kWindowFrame);
    Open("b");
    auto bar = fScreen->FindControl("ScrlBarV");
    ASSERT_TRUE(bar);
    fScreen->SetScrollBar(bar->id, 300);
    EXPECT_TRUE(recording::WaitFor([&] { return Value("ScrlBarV") == 300; }));
}

TEST_F(Scrolling, RemovesOnlyKeysAndWheelFromTheQueue) {
    WriteImages({"a", "b"});
    ShowWindow(kWindowFrame);
    Open("a");
    WaitForLoaders();
    Locked([&] {
        const BMessageQueue* queue = fWindow->MessageQueue();
        for (int i = 0; i < 2; i++) {
            fScreen->KeyDown(B_SPACE);
            fScreen->Wheel({20, 60}, 0, 1);
        }
        Post(kMsgNextImage);
        for (const uint32 what : {uint32{B_KEY_DOWN}, uint32{B_MOUSE_WHEEL_CHANGED}})
            EXPECT_NE(queue->FindMessage(what, 1), nullptr);
        fView->RemoveScrollMessages();
        for (const uint32 what : {uint32{B_KEY_DOWN}, uint32{B_MOUSE_WHEEL_CHANGED}})
            EXPECT_EQ(queue->FindMessage(what, 0), nullptr);
    });
    Settle();
    EXPECT_EQ(Shown(), "b");
}

}  // namespace
