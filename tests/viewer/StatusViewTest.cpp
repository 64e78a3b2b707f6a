#include <interface/Box.h>

#include "tests/viewer/ViewerTest.h"

namespace {

using StatusView = ViewerTest;

struct FieldCase {
    const char* name;
    BRect frame;
    BRect line;
};

TEST_F(StatusView, HasItsFieldsSideBySide) {
    const FieldCase kFields[] = {
        {"StrViewIdx", {2, 0, 47, 14}, {49, -2, 50, 16}},
        {"StrViewKind", {52, 0, 122, 14}, {124, -2, 125, 16}},
        {"StrViewSize", {127, 0, 197, 14}, {199, -2, 200, 16}},
        {"StrViewScale", {202, 0, 282, 14}, {284, -2, 285, 16}},
    };
    ShowWindow();
    Locked([&] {
        BView* status = fWindow->FindView("StatusView");
        ASSERT_NE(status, nullptr);
        EXPECT_EQ(status->Frame(), BRect(0, 186, 299, 199));
        EXPECT_EQ(status->ViewColor(), ui_color(B_PANEL_BACKGROUND_COLOR));
        ASSERT_EQ(status->CountChildren(), 8);
        for (int32 i = 0; i < 4; ++i) {
            auto* text = dynamic_cast<BStringView*>(status->ChildAt(2 * i));
            auto* line = dynamic_cast<BBox*>(status->ChildAt(2 * i + 1));
            ASSERT_TRUE(text != nullptr && line != nullptr);
            EXPECT_STREQ(text->Name(), kFields[i].name);
            EXPECT_EQ(text->Frame(), kFields[i].frame);
            EXPECT_STREQ(text->Text(), "");
            EXPECT_EQ(line->Frame(), kFields[i].line);
            EXPECT_EQ(line->Border(), B_FANCY_BORDER);
        }
    });
}

TEST_F(StatusView, StaysAtTheBottom) {
    ShowWindow();
    Locked([&] { fWindow->ResizeTo(399, 299); });
    Locked([&] {
        EXPECT_EQ(fWindow->FindView("StatusView")->Frame(), BRect(0, 266, 399, 279));
        EXPECT_EQ(fWindow->FindView("StrViewIdx")->Frame(), BRect(2, 0, 47, 14));
        EXPECT_EQ(fWindow->FindView("ScrlCornerView")->Frame(), BRect(386, 253, 399, 266));
    });
}

// Every character is half the font's size wide.
TEST_F(StatusView, SetsLongTextsSmallerWhereTheyFitThen) {
    struct {
        const char* text;
        float size;
    } const kCases[] = {
        {"", 10},
        {"70 pixels wide", 10},     // 14 characters
        {"15 characters..", 9},     // 75, or 67.5 wide
        {"16 or more letters", 8},  // 90, 81 or 72: it ends in an ellipsis
        {"A kind with a very long name", 8},
    };
    ShowWindow();
    for (const auto& c : kCases) {
        WriteImage("a", kRed);
        Open("a");
        fake::SetFormatName(c.text);
        Open("a");
        EXPECT_EQ(StatusText("StrViewKind"), c.text);
        auto field = fScreen->FindControl(c.text);
        if (*c.text == 0)
            continue;
        ASSERT_TRUE(field) << c.text;
        EXPECT_EQ(std::get<BPrivate::StringViewState>(field->state).font.size, c.size) << c.text;
    }
    fake::SetFormatName(fake::kFormatName);
    Open("a");
    EXPECT_EQ(Locked([&] {
        BFont font;
        fWindow->FindView("StrViewKind")->GetFont(&font);
        return font.Size();
    }),
        10);
}

TEST_F(StatusView, IsCleared) {
    WriteImages({"a"});
    ShowWindow();
    Open("a");
    EXPECT_EQ(StatusText("StrViewIdx"), "1/1");
    Locked([&] { fView->Clear(); });
    for (const char* field : {"StrViewIdx", "StrViewKind", "StrViewSize", "StrViewScale"})
        EXPECT_EQ(StatusText(field), "");
}

}  // namespace
