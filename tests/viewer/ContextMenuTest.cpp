// The picture's context menu: what is in it, what opens it, and what choosing does.

#include <app/Message.h>
#include <filesystem>
#include <interface/InterfaceDefs.h>

#include "settings/Additions.h"
#include "tests/framework/SettingsHome.h"
#include "tests/viewer/ViewerTest.h"

namespace {

constexpr char kSmooth[] = "Smooth Scaling";
constexpr int32 kMenuKey = 0x68;
const BPoint kPlace(30, kViewTop + 40);

class ContextMenu : public ViewerTest {
protected:
    ~ContextMenu() override { gAdditions.fSmoothScaling = false; }

    std::optional<recording::Control> Menu() { return fScreen->FindControl("Picture"); }
    BPrivate::PopUpMenuState State() {
        EXPECT_TRUE(recording::WaitFor([this] { return Menu().has_value(); }));
        const auto menu = Menu();
        return menu ? std::get<BPrivate::PopUpMenuState>(menu->state) : BPrivate::PopUpMenuState();
    }
    void RightClick(BPoint where) {
        fScreen->MouseDown(where, B_SECONDARY_MOUSE_BUTTON);
        Settle();
    }
    void PressMenuKey(uint32 modifiers = 0) {
        BMessage key(B_UNMAPPED_KEY_DOWN);
        (void)key.AddInt32("key", kMenuKey);
        (void)key.AddInt32("modifiers", static_cast<int32>(modifiers));
        fScreen->Send(key);
        Settle();
    }
    void Close() {
        fScreen->ClosePopUp(Menu()->id);
        Settle();
    }
    void ChooseSmooth() {
        RightClick(kPlace);
        EXPECT_TRUE(fScreen->ChooseItem(Menu()->id, {kSmooth}));
        Close();
        Settle();
    }
    std::string Record() const { return fHome.File("Lorivane_Additions.arc"); }

    TSettingsHome fHome;
};

TEST_F(ContextMenu, HoldsItsItem) {
    ShowWindow();
    RightClick(kPlace);
    const BPrivate::PopUpMenuState state = State();
    EXPECT_EQ(state.where, kPlace);
    EXPECT_FALSE(state.byKeyboard);
    ASSERT_EQ(state.items.size(), 1U);
    EXPECT_EQ(state.items[0].label, kSmooth);
    EXPECT_EQ(state.items[0].trigger, 0);
    EXPECT_FALSE(state.items[0].marked);
    EXPECT_FALSE(state.items[0].radio);
    EXPECT_TRUE(state.items[0].enabled);
    Close();
    EXPECT_FALSE(Menu());
}

TEST_F(ContextMenu, OpensByTheRightButtonAlone) {
    ShowWindow();
    for (const int32 buttons : {1, 3, 4, 6}) {
        fScreen->MouseDown(kPlace, buttons);
        fScreen->MouseUp(kPlace);
        Settle();
        EXPECT_FALSE(Menu()) << buttons;
    }
    // However quickly it is pressed again.
    for (const int32 clicks : {1, 2, 3}) {
        fScreen->MouseDown(kPlace, B_SECONDARY_MOUSE_BUTTON, clicks);
        Settle();
        EXPECT_TRUE(Menu()) << clicks;
        Close();
    }
}

TEST_F(ContextMenu, OpensByItsKeys) {
    ShowWindow();
    PressMenuKey();
    EXPECT_TRUE(State().byKeyboard);
    EXPECT_EQ(State().where.x, 149.5F);
    EXPECT_GT(State().where.y, kViewTop + 50);
    EXPECT_LT(State().where.y, kViewTop + 150);
    Close();
    Press(B_FUNCTION_KEY, B_SHIFT_KEY, B_F10_KEY);
    EXPECT_TRUE(State().byKeyboard);
    Close();

    for (const uint32 held : {B_SHIFT_KEY, B_COMMAND_KEY, B_CONTROL_KEY, B_OPTION_KEY}) {
        PressMenuKey(held);
        EXPECT_FALSE(Menu()) << held;
        if (held != B_SHIFT_KEY)
            Press(B_FUNCTION_KEY, held, B_F10_KEY);
        EXPECT_FALSE(Menu()) << held;
    }
    Press(B_FUNCTION_KEY, 0, B_F10_KEY);
    Press(B_FUNCTION_KEY, B_SHIFT_KEY, B_F9_KEY);
    EXPECT_FALSE(Menu());
    // The keyboard's locks are no modifiers of the user's.
    PressMenuKey(B_CAPS_LOCK | B_NUM_LOCK);
    EXPECT_TRUE(Menu());
}

TEST_F(ContextMenu, WithNothingChosenNothingIsWritten) {
    ShowWindow();
    RightClick(kPlace);
    Close();
    EXPECT_FALSE(std::filesystem::exists(Record()));
    EXPECT_FALSE(gAdditions.fSmoothScaling);
}

TEST_F(ContextMenu, SmoothScalingIsMarkedAndSaved) {
    ShowWindow();
    ChooseSmooth();
    EXPECT_TRUE(gAdditions.fSmoothScaling);
    TAdditions read;
    EXPECT_EQ(read.LoadFromFile(), 0);
    EXPECT_TRUE(read.fSmoothScaling);
    RightClick(kPlace);
    EXPECT_TRUE(State().items[0].marked);
    Close();
    ChooseSmooth();
    EXPECT_FALSE(gAdditions.fSmoothScaling);
    EXPECT_EQ(read.LoadFromFile(), 0);
    EXPECT_FALSE(read.fSmoothScaling);
}

TEST_F(ContextMenu, GoesWithItsWindow) {
    ShowWindow();
    RightClick(kPlace);
    EXPECT_TRUE(Menu());
    QuitWindow();
}

}  // namespace
