#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/RadioButton.h>
#include <memory>

#include "tests/kits/controls/Receiver.h"

using namespace BPrivate;

namespace {

class ButtonsTest : public ControlTest {
protected:
    BButton* AddButton(const char* label) {
        return Add(new BButton(BRect(10, 10, 89, 34), "button", label, new BMessage('push')));
    }
    BCheckBox* AddBox(const char* label) {
        return Add(new BCheckBox(BRect(10, 50, 89, 69), "box", label, new BMessage('chek')));
    }
    static BRadioButton* Radio(const char* label) {
        return new BRadioButton(BRect(0, 0, 89, 19), label, label, new BMessage('rado'));
    }
};

}  // namespace

TEST_F(ButtonsTest, AControlSendsToItsWindow) {
    BButton* button = AddButton("OK");
    EXPECT_TRUE(button->Messenger().IsValid());
    Show();
    fWindow.Screen().SetValue(OnScreen("OK").id, 1);
    const auto messages = Received('push');
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].GetPointer("source"), button);
    EXPECT_GT(messages[0].GetInt64("when", 0), 0);
    EXPECT_EQ(messages[0].GetInt32("be:value", -1), 0);
    fWindow.Do([&] { EXPECT_TRUE(button->Message()->IsEmpty()); });
}

TEST_F(ButtonsTest, AControlWithATargetKeepsIt) {
    auto* button = new BButton(BRect(), "b", "b", new BMessage('push'));
    BView* target = Add(new BView(BRect(), "target", 0, 0));
    button->SetTarget(BMessenger(target));
    Add(button);
    EXPECT_EQ(button->Target(), target);
}

TEST_F(ButtonsTest, WithoutAMessageNothingIsSent) {
    BButton* button = Add(new BButton(BRect(0, 0, 9, 9), "b", "OK", nullptr));
    EXPECT_EQ(button->Invoke(), B_BAD_VALUE);
    BMessage other('othr');
    other.AddInt32("be:value", 77);
    button->SetValue(1);
    EXPECT_EQ(button->Invoke(&other), B_OK);
    EXPECT_EQ(other.GetInt32("be:value", 0), 77);
    Show();
    const auto messages = Received('othr');
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].GetInt32("be:value", 0), 1);
    EXPECT_FALSE(messages[0].HasInt32("be:value", 1));
}

TEST_F(ButtonsTest, AButtonShowsItsState) {
    BButton* button = AddButton("Cancel");
    EXPECT_EQ(OnScreen("Cancel").place.name, "Cancel");
    EXPECT_TRUE(OnScreen("Cancel").place.navigable);
    button->SetValue(1);
    button->SetLabel("Stop");
    button->SetEnabled(false);
    const auto state = StateOf<ButtonState>("Stop");
    EXPECT_TRUE(state.pressed);
    EXPECT_FALSE(state.isDefault);
    EXPECT_EQ(OnScreen("Stop").place.name, "Stop");
    EXPECT_FALSE(OnScreen("Stop").place.enabled);
    button->SetLabel(nullptr);
    EXPECT_STREQ(button->Label(), "");
    EXPECT_EQ(OnScreen("button").place.name, "");
}

TEST_F(ButtonsTest, AButtonMayBeFlat) {
    BButton* button = AddButton("OK");
    Show();
    const auto isFlat = [this] { return std::get<ButtonState>(OnScreen("OK").state).flat; };
    EXPECT_FALSE(isFlat());
    fWindow.Do([&] { button->SetFlat(true); });
    EXPECT_TRUE(isFlat());
    EXPECT_TRUE(button->IsFlat());
    fWindow.Do([&] { button->SetFlat(false); });
    EXPECT_FALSE(isFlat());
}

TEST_F(ButtonsTest, OneButtonIsTheDefault) {
    BButton* first = AddButton("first");
    auto* second = new BButton(BRect(), "second", "second", nullptr);
    second->MakeDefault(true);
    first->MakeDefault(true);
    EXPECT_EQ(fReceiver->DefaultButton(), first);
    Add(second);
    EXPECT_EQ(fReceiver->DefaultButton(), second);
    EXPECT_FALSE(first->IsDefault());
    EXPECT_FALSE(StateOf<ButtonState>("first").isDefault);
    EXPECT_TRUE(StateOf<ButtonState>("second").isDefault);
    second->MakeDefault(false);
    EXPECT_EQ(fReceiver->DefaultButton(), nullptr);
}

TEST_F(ButtonsTest, ADefaultButtonThatLeavesIsForgotten) {
    BButton* button = AddButton("first");
    button->MakeDefault(true);
    fReceiver->RemoveChild(button);
    EXPECT_EQ(fReceiver->DefaultButton(), nullptr);
    EXPECT_TRUE(button->IsDefault());
    delete button;
}

TEST_F(ButtonsTest, ACheckBoxFollowsTheUser) {
    BCheckBox* box = AddBox("Enable");
    box->SetValue(5);
    EXPECT_EQ(box->Value(), B_CONTROL_ON);
    EXPECT_TRUE(StateOf<CheckBoxState>("Enable").on);
    Show();
    fWindow.Screen().SetValue(OnScreen("Enable").id, 0);
    const auto messages = Received('chek');
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].GetInt32("be:value", -1), 0);
    fWindow.Do([&] { EXPECT_EQ(box->Value(), B_CONTROL_OFF); });
}

TEST_F(ButtonsTest, SettingAValueSendsNothing) {
    BCheckBox* box = AddBox("Enable");
    Show();
    fWindow.Do([&] { box->SetValue(1); });
    EXPECT_TRUE(Received('chek').empty());
}

TEST_F(ButtonsTest, AClickThatCrossedAChangeIsIgnored) {
    BCheckBox* box = AddBox("Enable");
    Show();
    const recording::Control before = OnScreen("Enable");
    fWindow.Do([&] { box->SetValue(1); });
    BMessage late(kControlChanged);
    late.AddInt32("control", before.id);
    late.AddInt32("serial", before.serial);
    late.AddInt32("value", 0);
    fWindow.Screen().Send(late);
    EXPECT_TRUE(Received('chek').empty());
    fWindow.Do([&] { EXPECT_EQ(box->Value(), B_CONTROL_ON); });
}

TEST_F(ButtonsTest, OneOfTheRadioButtonsOfAParentIsOn) {
    auto* group = new BView(BRect(0, 0, 99, 99), "group", 0, 0);
    BRadioButton* top = Radio("Top");
    BRadioButton* bottom = Radio("Bottom");
    group->AddChild(top);
    group->AddChild(new BCheckBox(BRect(), "between", "between", nullptr));
    group->AddChild(bottom);
    Add(group);
    BRadioButton* other = Add(Radio("Other"));
    other->SetValue(1);
    top->SetValue(1);
    bottom->SetValue(1);
    EXPECT_EQ(top->Value(), B_CONTROL_OFF);
    EXPECT_EQ(bottom->Value(), B_CONTROL_ON);
    EXPECT_EQ(other->Value(), B_CONTROL_ON);
    EXPECT_FALSE(StateOf<RadioButtonState>("Top").on);

    Show();
    fWindow.Screen().SetValue(OnScreen("Top").id, 1);
    EXPECT_EQ(Received('rado').size(), 1U);
    fWindow.Do([&] {
        EXPECT_EQ(top->Value(), B_CONTROL_ON);
        EXPECT_EQ(bottom->Value(), B_CONTROL_OFF);
    });
    EXPECT_FALSE(StateOf<RadioButtonState>("Bottom").on);
}

TEST_F(ButtonsTest, OfTwoQuickClicksTheLastRadioButtonIsOn) {
    BRadioButton* top = Add(Radio("Top"));
    BRadioButton* bottom = Add(Radio("Bottom"));
    bottom->SetValue(B_CONTROL_ON);
    Show();
    fWindow.Do([&] {
        for (const char* name : {"Top", "Bottom"})
            fWindow.Screen().SetValue(OnScreen(name).id, 1);
    });
    EXPECT_EQ(Received('rado').size(), 2U);
    EXPECT_FALSE(StateOf<RadioButtonState>("Top").on);
    EXPECT_TRUE(StateOf<RadioButtonState>("Bottom").on);
    fWindow.Do([&] {
        EXPECT_EQ(top->Value(), B_CONTROL_OFF);
        EXPECT_EQ(bottom->Value(), B_CONTROL_ON);
    });
}

TEST_F(ButtonsTest, RadioButtonsOfTheWindowItselfAreSiblings) {
    BRadioButton* one = Add(Radio("one"));
    BRadioButton* two = Add(Radio("two"));
    one->SetValue(1);
    two->SetValue(1);
    EXPECT_EQ(one->Value(), B_CONTROL_OFF);
}

TEST_F(ButtonsTest, PreferredSizesComeFromTheDesktop) {
    BButton* button = AddButton("A longer label");
    float width = 0;
    float height = 0;
    button->GetPreferredSize(&width, &height);
    const BPoint wanted = TheDisplay().PreferredSize(ButtonState{"A longer label"});
    EXPECT_EQ(BPoint(width, height), wanted);
    button->ResizeToPreferred();
    EXPECT_EQ(button->Frame().Width(), wanted.x);
    EXPECT_EQ(button->Frame().LeftTop(), BPoint(10, 10));
}

TEST_F(ButtonsTest, AreMadeAgainFromTheirArchives) {
    BButton button(BRect(1, 2, 30, 40), "name", "label", new BMessage('mesg'));
    button.MakeDefault(true);
    button.SetEnabled(false);
    BCheckBox box(BRect(), "box", "Enable", nullptr);
    box.SetValue(1);
    BRadioButton radio(BRect(), "radio", "Top", nullptr);
    radio.SetValue(1);

    BMessage archive;
    ASSERT_EQ(button.Archive(&archive), B_OK);
    std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* copy = dynamic_cast<BButton*>(made.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy->Label(), "label");
    EXPECT_STREQ(copy->Name(), "name");
    EXPECT_TRUE(copy->IsDefault());
    EXPECT_FALSE(copy->IsEnabled());
    ASSERT_NE(copy->Message(), nullptr);
    EXPECT_EQ(copy->Message()->what, uint32('mesg'));

    BMessage boxArchive;
    ASSERT_EQ(box.Archive(&boxArchive), B_OK);
    made.reset(instantiate_object(&boxArchive));
    auto* boxCopy = dynamic_cast<BCheckBox*>(made.get());
    ASSERT_NE(boxCopy, nullptr);
    EXPECT_EQ(boxCopy->Value(), B_CONTROL_ON);
    EXPECT_EQ(boxCopy->Message(), nullptr);

    BMessage radioArchive;
    ASSERT_EQ(radio.Archive(&radioArchive), B_OK);
    made.reset(instantiate_object(&radioArchive));
    auto* radioCopy = dynamic_cast<BRadioButton*>(made.get());
    ASSERT_NE(radioCopy, nullptr);
    EXPECT_EQ(radioCopy->Value(), B_CONTROL_ON);
    EXPECT_EQ(BButton::Instantiate(&radioArchive), nullptr);
}
