// The controls that show a colour: the colour control, and the box as a sample.

#include <interface/Box.h>
#include <interface/ColorControl.h>
#include <limits>
#include <memory>

#include "tests/kits/controls/Receiver.h"

using namespace BPrivate;

namespace {

class ColorsTest : public ControlTest {
protected:
    BColorControl* AddControl() {
        return Add(
            new BColorControl(BPoint(10, 20), B_CELLS_32x8, 5, "color", new BMessage('cclc')));
    }
};

}  // namespace

TEST_F(ColorsTest, AColorIsAValue) {
    BColorControl* control = AddControl();
    control->SetValue(rgb_color{255, 128, 7, 3});
    EXPECT_EQ(static_cast<uint32>(control->Value()), 0xff800700U);
    EXPECT_EQ(control->ValueAsColor(), (rgb_color{255, 128, 7, 255}));
    EXPECT_EQ(StateOf<ColorControlState>("color").value, (rgb_color{255, 128, 7, 255}));
    control->SetValue(static_cast<int32>(0x010203ffU));
    EXPECT_EQ(control->Value(), 0x01020300);
    EXPECT_EQ(control->ValueAsColor(), (rgb_color{1, 2, 3, 255}));
}

TEST_F(ColorsTest, EveryChangeOfTheUsersIsTold) {
    BColorControl* control = AddControl();
    Show();
    fWindow.Screen().SetColor(OnScreen("color").id, {200, 100, 50, 0});
    fWindow.Screen().SetColor(OnScreen("color").id, {201, 100, 50, 0});
    const auto messages = Received('cclc');
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(static_cast<uint32>(messages[0].GetInt32("be:value", 0)), 0xc8643200U);
    fWindow.Do([&] {
        EXPECT_EQ(control->ValueAsColor(), (rgb_color{201, 100, 50, 255}));
        control->SetValue(rgb_color{1, 1, 1, 255});
        control->SetEnabled(false);
    });
    EXPECT_EQ(Received('cclc').size(), 2U);
    EXPECT_FALSE(OnScreen("color").place.enabled);
}

TEST_F(ColorsTest, TakesTheSizeItPrefers) {
    BColorControl* control = AddControl();
    const BPoint wanted = TheDisplay().PreferredSize(ColorControlState{});
    EXPECT_EQ(control->Frame(), BRect(10, 20, 10 + wanted.x, 20 + wanted.y));
    EXPECT_EQ(control->CellSize(), 5);
    control->SetCellSize(-1);
    control->SetCellSize(std::numeric_limits<float>::infinity());
    EXPECT_EQ(control->CellSize(), 5);
    control->SetLayout(B_CELLS_16x16);
    EXPECT_EQ(control->Layout(), B_CELLS_16x16);
}

TEST_F(ColorsTest, AColorControlIsMadeAgainFromItsArchive) {
    BColorControl* control = AddControl();
    control->SetValue(rgb_color{9, 8, 7, 255});
    control->ResizeTo(222, 77);
    BMessage archive;
    ASSERT_EQ(control->Archive(&archive), B_OK);
    const std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* copy = dynamic_cast<BColorControl*>(made.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->ValueAsColor(), (rgb_color{9, 8, 7, 255}));
    EXPECT_EQ(copy->Frame(), control->Frame());
    EXPECT_EQ(copy->Layout(), B_CELLS_32x8);
    EXPECT_EQ(copy->CellSize(), 5);
    EXPECT_EQ(copy->Message()->what, uint32('cclc'));
}

TEST_F(ColorsTest, AnAbsurdArchiveStillGivesAColorControl) {
    BMessage archive;
    archive.AddString("class", "BColorControl");
    archive.AddRect("_frame", BRect(5, 6, 5, 6));
    archive.AddInt32("_val", -1);
    archive.AddInt32("_layout", 12345);
    archive.AddFloat("_csize", std::numeric_limits<float>::quiet_NaN());
    const std::unique_ptr<BArchivable> made(instantiate_object(&archive));
    auto* control = dynamic_cast<BColorControl*>(made.get());
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->ValueAsColor(), (rgb_color{255, 255, 255, 255}));
    EXPECT_EQ(control->Layout(), B_CELLS_32x8);
    EXPECT_GT(control->CellSize(), 0);
    EXPECT_EQ(control->Frame().LeftTop(), BPoint(5, 6));
    EXPECT_GT(control->Frame().Width(), 0);
    BMessage other;
    other.AddString("class", "BButton");
    EXPECT_EQ(BColorControl::Instantiate(&other), nullptr);
}

TEST_F(ColorsTest, ABoxShowsTheColourItIsGiven) {
    BBox* box = Add(new BBox(BRect(10, 10, 59, 59), "sample"));
    EXPECT_FALSE(StateOf<BoxState>("sample").fill.has_value());
    box->SetViewColor(1, 2, 3, 128);
    EXPECT_EQ(StateOf<BoxState>("sample").fill, (rgb_color{1, 2, 3, 128}));
    EXPECT_EQ(box->ViewColor(), (rgb_color{1, 2, 3, 128}));
    BView* view = box;
    view->SetViewColor(rgb_color{4, 5, 6, 255});
    EXPECT_EQ(StateOf<BoxState>("sample").fill, (rgb_color{4, 5, 6, 255}));
    // White is what views have from the start, and yet it was asked for.
    view->SetViewColor(rgb_color{255, 255, 255, 255});
    EXPECT_TRUE(StateOf<BoxState>("sample").fill.has_value());
    box->SetViewColor(B_TRANSPARENT_COLOR);
    EXPECT_FALSE(StateOf<BoxState>("sample").fill.has_value());
}

TEST_F(ColorsTest, ABoxKeepsItsColourInTheArchive) {
    BBox plain(BRect(0, 0, 9, 9), "plain");
    BBox sample(BRect(0, 0, 9, 9), "sample");
    sample.SetViewColor(1, 2, 3, 128);
    BMessage plainArchive;
    BMessage sampleArchive;
    ASSERT_EQ(plain.Archive(&plainArchive), B_OK);
    ASSERT_EQ(sample.Archive(&sampleArchive), B_OK);
    plainArchive.ReplaceString("_name", "plain copy");
    Add(dynamic_cast<BView*>(instantiate_object(&plainArchive)));
    Add(dynamic_cast<BView*>(instantiate_object(&sampleArchive)));
    EXPECT_FALSE(StateOf<BoxState>("plain copy").fill.has_value());
    EXPECT_EQ(StateOf<BoxState>("sample").fill, (rgb_color{1, 2, 3, 128}));
}
