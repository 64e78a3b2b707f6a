#include <interface/Accessibility.h>
#include <interface/Box.h>
#include <interface/StringView.h>
#include <interface/TextControl.h>
#include <memory>

#include "tests/kits/controls/Receiver.h"

using namespace BPrivate;

namespace {

class TextsTest : public ControlTest {
protected:
    BTextControl* AddField() {
        auto* field = new BTextControl(
            BRect(10, 10, 209, 34), "field", "Margin:", "12", new BMessage('done'));
        field->SetModificationMessage(new BMessage('modi'));
        return Add(field);
    }
    void Type(const char* text) { fWindow.Screen().SetText(OnScreen("Margin:").id, text); }
};

}  // namespace

TEST_F(TextsTest, AStringViewShowsItsTextUnderItsName) {
    BStringView* view = Add(new BStringView(BRect(2, 0, 47, 14), "StrViewIdx", ""));
    EXPECT_EQ(StateOf<StringViewState>("StrViewIdx").text, "");
    view->SetText("3/120");
    view->SetAlignment(B_ALIGN_RIGHT);
    const auto state = StateOf<StringViewState>("StrViewIdx");
    EXPECT_EQ(state.text, "3/120");
    EXPECT_EQ(state.align, B_ALIGN_RIGHT);
    EXPECT_TRUE(state.systemColor);
    EXPECT_EQ(state.font, FontSpec());
    EXPECT_EQ(OnScreen("StrViewIdx").place.view, "StrViewIdx");
    EXPECT_EQ(OnScreen("StrViewIdx").place.name, "");  // the desktop tells the text
    set_accessible_description(view, "Position");
    set_accessible_name(view, "Three");
    EXPECT_EQ(OnScreen("StrViewIdx").place.name, "Three");
    EXPECT_EQ(OnScreen("StrViewIdx").place.description, "Position");
    EXPECT_EQ(OnScreen("StrViewIdx").place.frame, BRect(2, 0, 47, 14));
    view->SetText(nullptr);
    EXPECT_STREQ(view->Text(), "");
}

TEST_F(TextsTest, AStringViewHasItsOwnFontAndColour) {
    BStringView* view = Add(new BStringView(BRect(2, 0, 47, 14), "s", "text"));
    BFont font(be_bold_font);
    font.SetSize(18);
    view->SetFont(&font);
    view->SetHighColor(10, 20, 30);
    const auto state = StateOf<StringViewState>("s");
    EXPECT_EQ(state.font.size, 18);
    EXPECT_TRUE(state.font.bold);
    EXPECT_FALSE(state.systemColor);
    EXPECT_EQ(state.color, (rgb_color{10, 20, 30, 255}));
}

TEST_F(TextsTest, TheSameTextAgainIsNotHandedDown) {
    BStringView* view = Add(new BStringView(BRect(2, 0, 47, 14), "s", "text"));
    const int32 serial = OnScreen("s").serial;
    view->SetText("text");
    view->SetAlignment(B_ALIGN_LEFT);
    EXPECT_EQ(OnScreen("s").serial, serial);
}

TEST_F(TextsTest, ABoxHasABorderAndALabel) {
    BBox* box = Add(new BBox(BRect(0, 0, 99, 99), "box"));
    EXPECT_EQ(box->Label(), nullptr);
    EXPECT_EQ(box->Border(), B_FANCY_BORDER);
    box->SetLabel("Position");
    box->SetBorder(B_PLAIN_BORDER);
    const auto state = StateOf<BoxState>("Position");
    EXPECT_EQ(state.label, "Position");
    EXPECT_EQ(state.border, B_PLAIN_BORDER);
    EXPECT_EQ(OnScreen("Position").place.name, "Position");
    box->SetLabel(nullptr);
    EXPECT_EQ(OnScreen("box").place.name, "");
}

TEST_F(TextsTest, TypingIsToldAsItHappens) {
    BTextControl* field = AddField();
    EXPECT_EQ(StateOf<TextControlState>("Margin:").text, "12");
    Show();
    Type("123");
    const auto messages = Received('modi');
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].GetPointer("source"), field);
    fWindow.Do([&] { EXPECT_STREQ(field->Text(), "123"); });
    EXPECT_TRUE(Received('done').empty());
}

TEST_F(TextsTest, EnterSendsWhatWasTyped) {
    BTextControl* field = AddField();
    field->MakeFocus();
    Show();
    const ControlId id = OnScreen("Margin:").id;
    fWindow.Screen().KeyDown(B_ENTER, 0, 0, id);
    EXPECT_TRUE(Received('done').empty());
    Type("5");
    fWindow.Screen().KeyDown(B_ENTER, 0, 0, id);
    EXPECT_EQ(Received('done').size(), 1U);
    fWindow.Screen().KeyDown(B_ENTER, 0, 0, id);
    EXPECT_EQ(Received('done').size(), 1U);
}

TEST_F(TextsTest, LeavingTheFieldSendsWhatWasTyped) {
    BTextControl* field = AddField();
    BTextControl* other = Add(new BTextControl(BRect(0, 50, 99, 74), "other", "", "", nullptr));
    field->MakeFocus();
    Show();
    Type("5");
    fWindow.Do([&] { other->MakeFocus(); });
    EXPECT_EQ(Received('done').size(), 1U);
    fWindow.Do([&] { EXPECT_FALSE(field->IsFocus()); });
}

TEST_F(TextsTest, ATextThatIsSetIsNotTyped) {
    BTextControl* field = AddField();
    field->MakeFocus();
    Show();
    fWindow.Do([&] {
        field->SetText("two\nlines");
        EXPECT_STREQ(field->Text(), "two lines");
        field->MakeFocus(false);
    });
    EXPECT_EQ(StateOf<TextControlState>("Margin:").text, "two lines");
    EXPECT_TRUE(Received('modi').empty());
    EXPECT_TRUE(Received('done').empty());
}

TEST_F(TextsTest, ATextThatIsSetTakesTheTypedOnesPlace) {
    BTextControl* field = AddField();
    field->MakeFocus();
    Show();
    Type("5");
    fWindow.Do([&] {
        field->SetText("12");
        field->MakeFocus(false);
    });
    EXPECT_EQ(Received('modi').size(), 1U);
    EXPECT_TRUE(Received('done').empty());
}

TEST_F(TextsTest, TheDividerIsTheMiddleOrTheLeftAtFirst) {
    BTextControl* field = AddField();
    EXPECT_EQ(field->Divider(), 99);
    field->SetDivider(60);
    EXPECT_EQ(StateOf<TextControlState>("Margin:").divider, 60);
    EXPECT_EQ(
        std::make_unique<BTextControl>(BRect(0, 0, 99, 20), "", "", "", nullptr)->Divider(), 0);
}

TEST_F(TextsTest, NumbersInArchivesThatMeanNothingAreIgnored) {
    for (const int32 number : {-1, 3, 33559058}) {
        BMessage archive;
        archive.AddInt32("_style", number);
        archive.AddInt32("_align", number);
        EXPECT_EQ(BBox(&archive).Border(), B_FANCY_BORDER);
        EXPECT_EQ(BStringView(&archive).Alignment(), B_ALIGN_LEFT);
    }
}

TEST_F(TextsTest, AreMadeAgainFromTheirArchives) {
    BTextControl field(BRect(0, 0, 99, 20), "f", "Margin:", "12", new BMessage('done'));
    field.SetModificationMessage(new BMessage('modi'));
    field.SetDivider(33);
    BMessage archive;
    ASSERT_EQ(field.Archive(&archive), B_OK);
    std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* copy = dynamic_cast<BTextControl*>(made.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_STREQ(copy->Text(), "12");
    EXPECT_EQ(copy->Divider(), 33);
    ASSERT_NE(copy->ModificationMessage(), nullptr);
    EXPECT_EQ(copy->ModificationMessage()->what, uint32('modi'));

    BStringView text(BRect(), "s", "words");
    text.SetAlignment(B_ALIGN_CENTER);
    BMessage textArchive;
    ASSERT_EQ(text.Archive(&textArchive), B_OK);
    made.reset(instantiate_object(&textArchive));
    auto* textCopy = dynamic_cast<BStringView*>(made.get());
    ASSERT_NE(textCopy, nullptr);
    EXPECT_STREQ(textCopy->Text(), "words");
    EXPECT_EQ(textCopy->Alignment(), B_ALIGN_CENTER);

    BBox box(BRect(0, 0, 99, 99), "box");
    box.SetLabel("Position");
    box.SetBorder(B_NO_BORDER);
    box.AddChild(new BStringView(BRect(), "inner", "inside"));
    BMessage boxArchive;
    ASSERT_EQ(box.Archive(&boxArchive), B_OK);
    made.reset(instantiate_object(&boxArchive));
    auto* boxCopy = dynamic_cast<BBox*>(made.get());
    ASSERT_NE(boxCopy, nullptr);
    EXPECT_STREQ(boxCopy->Label(), "Position");
    EXPECT_EQ(boxCopy->Border(), B_NO_BORDER);
    EXPECT_NE(dynamic_cast<BStringView*>(boxCopy->FindView("inner")), nullptr);
}
