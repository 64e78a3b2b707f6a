#include <QTest>
#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>
#include <storage/Entry.h>

#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

bool IsHeld(int32 key) {
    key_info info;
    TheDisplay().GetKeyInfo(info);
    return (info.key_states[key >> 3] & (1 << (7 - (key & 7)))) != 0;
}

class Input : public testing::Test {
protected:
    void SetUp() override { fScreen.Show(); }
    QWidget& Window() { return fScreen.Widget(); }

    Screen fScreen;
};

TEST_F(Input, AKeySaysAllThatIsKnownOfIt) {
    PressKey(Window(), {Qt::Key_A, "A", Qt::ShiftModifier, false, 30});
    const BMessage down = fScreen.Expect(B_KEY_DOWN);
    EXPECT_EQ(down.GetInt32("key", -1), 0x3c);
    EXPECT_EQ(down.GetInt32("raw_char", -1), 'a');
    EXPECT_STREQ(down.GetString("bytes"), "A");
    EXPECT_EQ(down.GetInt8("byte", 0), 'A');
    EXPECT_EQ(down.GetInt32("modifiers", -1) & 0xff, int32(B_SHIFT_KEY));
    EXPECT_GT(down.GetInt64("when", 0), 0);
    EXPECT_FALSE(down.HasInt32("be:key_repeat"));
    EXPECT_FALSE(down.HasInt32("control"));
    ReleaseKey(Window(), {Qt::Key_A, "A", Qt::ShiftModifier, false, 30});
    EXPECT_EQ(fScreen.Expect(B_KEY_UP).GetInt32("key", -1), 0x3c);
}

TEST_F(Input, EachByteOfACharacterIsThere) {
    PressKey(Window(), {Qt::Key_Adiaeresis, "\xc3\xa4", {}, false, 40});
    const BMessage down = fScreen.Expect(B_KEY_DOWN);
    EXPECT_EQ(uint8(down.GetInt8("byte", 0, 0)), 0xc3);
    EXPECT_EQ(uint8(down.GetInt8("byte", 1, 0)), 0xa4);
    EXPECT_FALSE(down.HasInt8("byte", 2));
}

TEST_F(Input, RepeatsAreCountedAndTheirReleasesAreNone) {
    const KeyAction held{Qt::Key_Down, "", {}, true, 108};
    PressKey(Window(), {Qt::Key_Down, "", {}, false, 108});
    for (int i = 0; i < 3; ++i) {
        ReleaseKey(Window(), held);
        PressKey(Window(), held);
        EXPECT_TRUE(IsHeld(0x62));
    }
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN, 4).GetInt32("be:key_repeat", 0), 3);
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_UP).empty());
    ReleaseKey(Window(), {Qt::Key_Down, "", {}, false, 108});
    fScreen.Expect(B_KEY_UP);
    EXPECT_FALSE(IsHeld(0x62));
}

TEST_F(Input, PressesFasterThanAnyRepeatAreNone) {
    for (uint64_t time : {1000, 1500, 1533, 1533, 1534, 1567}) {
        KeyAction press{Qt::Key_Down, "", {}, time > 1000, 108};
        press.time = time;
        PressKey(Window(), press);
    }
    fScreen.Expect(B_KEY_DOWN, 6);
    std::vector<int32> repeats;
    for (const BMessage& message : fScreen.Messages().All(B_KEY_DOWN))
        repeats.push_back(message.GetInt32("be:key_repeat", 0));
    EXPECT_THAT(repeats, testing::ElementsAre(0, 1, 2, 0, 0, 1));
}

TEST_F(Input, ModifiersAreKnownAndTold) {
    PressKey(Window(), {Qt::Key_Control, "", Qt::NoModifier, false, 29});
    const BMessage changed = fScreen.Expect(B_MODIFIERS_CHANGED);
    EXPECT_EQ(changed.GetInt32("modifiers", 0), int32(B_COMMAND_KEY | B_LEFT_COMMAND_KEY));
    EXPECT_EQ(changed.GetInt32("be:old_modifiers", -1), 0);
    EXPECT_EQ(TheDisplay().Modifiers(), B_COMMAND_KEY | B_LEFT_COMMAND_KEY);
    fScreen.Expect(B_UNMAPPED_KEY_DOWN);
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_DOWN).empty());
    ReleaseKey(Window(), {Qt::Key_Control, "", Qt::ControlModifier, false, 29});
    EXPECT_EQ(fScreen.Expect(B_MODIFIERS_CHANGED, 2).GetInt32("modifiers", -1), 0);
    EXPECT_EQ(TheDisplay().Modifiers(), 0U);
}

TEST_F(Input, LosingTheKeyboardReleasesAllKeys) {
    PressKey(Window(), {Qt::Key_Shift, "", Qt::NoModifier, false, 42});
    PressKey(Window(), {Qt::Key_Down, "", Qt::ShiftModifier, false, 108});
    EXPECT_TRUE(IsHeld(0x62));
    EXPECT_TRUE(IsHeld(0x4b));
    Screen other({BRect(0, 0, 99, 99), "Other"});
    other.Show();
    EXPECT_FALSE(IsHeld(0x62));
    EXPECT_FALSE(IsHeld(0x4b));
}

TEST_F(Input, TabIsAKeyLikeAnother) {
    PressKey(Window(), {Qt::Key_Tab, "\t", {}, false, 15});
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN).GetInt32("raw_char", 0), B_TAB);
}

TEST_F(Input, ClicksSayWhereAndHowMany) {
    QWindow* window = Window().windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, QPoint(10, 20));
    BMessage down = fScreen.Expect(B_MOUSE_DOWN);
    EXPECT_EQ(down.GetPoint("be:window_where", BPoint()), BPoint(10, 20));
    EXPECT_EQ(down.GetInt32("buttons", 0), int32(B_PRIMARY_MOUSE_BUTTON));
    EXPECT_EQ(down.GetInt32("clicks", 0), 1);
    QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(11, 20));
    const BMessage up = fScreen.Expect(B_MOUSE_UP);
    EXPECT_EQ(up.GetPoint("be:window_where", BPoint()), BPoint(11, 20));
    EXPECT_EQ(up.GetInt32("buttons", -1), 0);
    QTest::mousePress(window, Qt::RightButton, Qt::ControlModifier, QPoint(10, 20));
    down = fScreen.Expect(B_MOUSE_DOWN, 2);
    EXPECT_EQ(down.GetInt32("buttons", 0), int32(B_SECONDARY_MOUSE_BUTTON));
    EXPECT_EQ(down.GetInt32("modifiers", 0) & 0xff, int32(B_COMMAND_KEY));
    EXPECT_EQ(down.GetInt32("clicks", 0), 1);
    QTest::mouseRelease(window, Qt::RightButton, {}, QPoint(10, 20));
}

TEST_F(Input, MovesSayWhetherThePointerIsInside) {
    QWindow* window = Window().windowHandle();
    QTest::mousePress(window, Qt::LeftButton, {}, QPoint(10, 20));
    QTest::mouseMove(window, QPoint(30, 40));
    const auto last = [&] { return fScreen.Messages().All(B_MOUSE_MOVED).back(); };
    fScreen.Expect(B_MOUSE_MOVED);
    EXPECT_TRUE(last().GetBool("be:inside"));
    const size_t before = fScreen.Messages().All(B_MOUSE_MOVED).size();
    QTest::mouseMove(window, QPoint(-30, 40));
    fScreen.Expect(B_MOUSE_MOVED, before + 1);
    EXPECT_FALSE(last().GetBool("be:inside", true));
    EXPECT_EQ(last().GetPoint("be:window_where", BPoint()), BPoint(-30, 40));
    QTest::mouseRelease(window, Qt::LeftButton, {}, QPoint(-30, 40));
}

TEST_F(Input, TheWheelTurnsInWholeNotches) {
    for (int i = 0; i < 9; ++i)
        TurnWheel(Window(), QPoint(0, -40));
    fScreen.Expect(B_MOUSE_WHEEL_CHANGED, 3);
    for (const BMessage& message : fScreen.Messages().All(B_MOUSE_WHEEL_CHANGED)) {
        EXPECT_EQ(message.GetFloat("be:wheel_delta_y", 0.0F), 1);
        EXPECT_EQ(message.GetFloat("be:wheel_delta_x", 5.0F), 0);
        EXPECT_EQ(message.GetPoint("be:window_where", BPoint()), BPoint(30, 40));
    }
    EXPECT_EQ(fScreen.Messages().All(B_MOUSE_WHEEL_CHANGED).size(), 3U);
}

TEST_F(Input, TheWheelIsTheWindowsOverItsControlsToo) {
    DisplayWindow& window = fScreen.Window();
    window.SetControl(1, ScrollBarState{B_VERTICAL, 0, 100, 50}, 1);
    window.SetControl(2, StringViewState{"text"}, 1);
    window.SetControl(3, BoxState{}, 1);
    window.SetControl(4, MenuBarState{{{.id = 1, .label = "Menu", .hasSubmenu = true}}}, 1);
    const BRect places[] = {{0, 0, 13, 99}, {20, 0, 79, 19}, {20, 30, 79, 69}, {0, 100, 199, 119}};
    for (int32 id = 1; id <= 4; ++id)
        window.PlaceControl(id, {"control", places[id - 1], BRect()});
    Pump();
    for (int32 id = 1; id <= 4; ++id) {
        const BPoint at = places[id - 1].LeftTop() + BPoint(5, 5);
        TurnWheel(Window(), QPoint(0, 120), {QPointF(at.x, at.y)});
        const BMessage turned = fScreen.Expect(B_MOUSE_WHEEL_CHANGED, static_cast<size_t>(id));
        EXPECT_EQ(turned.GetFloat("be:wheel_delta_y", 0.0F), -1) << id;
        EXPECT_EQ(turned.GetPoint("be:window_where", BPoint()), at);
    }
    Pump();
    EXPECT_TRUE(fScreen.Messages().All(kControlChanged).empty());
}

TEST_F(Input, ATouchpadTurnsAsFarAsTheFingerWent) {
    TurnWheel(Window(), QPoint(), {.pixels = QPoint(0, 0), .phase = Qt::ScrollBegin});
    // Two notches and a half, in steps none of which is a whole part of a notch's angle.
    for (int i = 0; i < 112; ++i)
        TurnWheel(Window(), QPoint(), {.pixels = QPoint(0, -1), .phase = Qt::ScrollUpdate});
    TurnWheel(Window(), QPoint(), {.pixels = QPoint(0, 0), .phase = Qt::ScrollEnd});
    fScreen.Expect(B_MOUSE_WHEEL_CHANGED, 2);
    for (int i = 0; i < 200; ++i)
        TurnWheel(Window(), QPoint(), {.pixels = QPoint(0, -9), .phase = Qt::ScrollMomentum});
    PressKey(Window(), {Qt::Key_A, "a"});
    fScreen.Expect(B_KEY_DOWN);
    EXPECT_EQ(fScreen.Messages().All(B_MOUSE_WHEEL_CHANGED).size(), 2U);
}

TEST_F(Input, ModifiersLetGoElsewhereAreToldWhenTheWindowHasTheKeysAgain) {
    PressKey(Window(), {Qt::Key_Control, "", Qt::NoModifier, false, 29});
    fScreen.Expect(B_MODIFIERS_CHANGED);
    Screen other({BRect(0, 0, 99, 99), "Other"});
    other.Show();
    // Without a modifier: it was let go in the other window.
    QTest::mouseMove(other.Widget().windowHandle(), QPoint(5, 5));
    other.Expect(B_MOUSE_MOVED);
    fScreen.Window().Activate();
    EXPECT_EQ(fScreen.Expect(B_MODIFIERS_CHANGED, 2).GetInt32("modifiers", -1), 0);
    // What is released now was pressed in no window that has the keys.
    PressKey(Window(), {Qt::Key_A, "a"});
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN).GetInt32("modifiers", -1), 0);
}

TEST_F(Input, DroppedFilesComeAsRefs) {
    EXPECT_TRUE(Drop(
        Window(), "file:///etc/pass%77d\r\nfile:///etc/%ff\r\n", Qt::CopyAction | Qt::MoveAction));
    const BMessage drop = fScreen.Expect(B_SIMPLE_DATA);
    EXPECT_TRUE(drop.IsSourceRemote());
    entry_ref ref;
    ASSERT_EQ(drop.FindRef("refs", 0, &ref), B_OK);
    EXPECT_STREQ(ref.name, "passwd");
    ASSERT_EQ(drop.FindRef("refs", 1, &ref), B_OK);
    EXPECT_STREQ(ref.name, "\xff");
    EXPECT_FALSE(drop.HasRef("refs", 2));
    EXPECT_EQ(drop.GetPoint("be:window_where", BPoint()), BPoint(30, 40));
    EXPECT_EQ(drop.GetPoint("_drop_point_", BPoint()), BPoint(80, 100));
}

TEST_F(Input, WhatIsNoFileOrMayOnlyBeMovedIsRefused) {
    EXPECT_FALSE(Drop(Window(), "http://example.org/a.png\r\n", Qt::CopyAction));
    EXPECT_FALSE(Drop(Window(), "", Qt::CopyAction));
    EXPECT_FALSE(Drop(Window(), "file:///etc/passwd\r\n", Qt::MoveAction));
    EXPECT_TRUE(fScreen.Messages().All(B_SIMPLE_DATA).empty());
}

}  // namespace
