#include "kits/interface/AlertLayout.h"

#include <gmock/gmock.h>

using namespace BPrivate;

namespace {

AlertParts Parts(std::vector<BPoint> buttons) {
    AlertParts parts;
    parts.text = BPoint(299, 59);
    parts.buttons = std::move(buttons);
    parts.width = B_WIDTH_FROM_LABEL;
    parts.largest = BPoint(1263, 975);
    return parts;
}

std::vector<float> Widths(const AlertLayout& layout) {
    std::vector<float> widths;
    for (const BRect& frame : layout.buttons)
        widths.push_back(frame.Width() + 1);
    return widths;
}

/// Everything is inside, with a margin, and nothing overlaps.
void ExpectSound(const AlertLayout& layout) {
    const BRect inside = BRect(0, 0, layout.size.x, layout.size.y).InsetByCopy(12, 12);
    EXPECT_TRUE(inside.Contains(layout.text));
    for (std::size_t i = 0; i < layout.buttons.size(); i++) {
        EXPECT_TRUE(inside.Contains(layout.buttons[i])) << i;
        EXPECT_FALSE(layout.buttons[i].Intersects(layout.text)) << i;
        for (std::size_t j = 0; j < i; j++)
            EXPECT_FALSE(layout.buttons[i].Intersects(layout.buttons[j])) << i << " " << j;
    }
}

}  // namespace

TEST(AlertLayout, PutsTheButtonsInARowAtTheRightBelowTheText) {
    const AlertLayout layout = LayOutAlert(Parts({{89, 29}, {99, 29}}));
    ExpectSound(layout);
    EXPECT_EQ(layout.text, BRect(12, 12, 311, 71));
    EXPECT_EQ(layout.buttons[1], BRect(212, 88, 311, 117));
    EXPECT_EQ(layout.buttons[0], BRect(114, 88, 203, 117));
    EXPECT_EQ(layout.size, BPoint(323, 129));
    EXPECT_FALSE(layout.textIsCut);
}

TEST(AlertLayout, ButtonsAreAsWideAsAsked) {
    AlertParts parts = Parts({{29, 29}, {149, 29}, {99, 29}});
    EXPECT_THAT(Widths(LayOutAlert(parts)), testing::ElementsAre(30, 150, 100));
    parts.width = B_WIDTH_AS_USUAL;
    EXPECT_THAT(Widths(LayOutAlert(parts)), testing::ElementsAre(80, 150, 100));
    parts.width = B_WIDTH_FROM_WIDEST;
    EXPECT_THAT(Widths(LayOutAlert(parts)), testing::ElementsAre(150, 150, 150));
}

TEST(AlertLayout, TheFirstButtonCanStandApart) {
    AlertParts parts = Parts({{49, 29}, {49, 29}, {49, 29}});
    const auto gap = [&](std::size_t i) {
        const AlertLayout layout = LayOutAlert(parts);
        return layout.buttons[i + 1].left - layout.buttons[i].right;
    };
    EXPECT_EQ(gap(0), gap(1));
    parts.spacing = B_OFFSET_SPACING;
    EXPECT_GT(gap(0), gap(1) + 10);
    parts.buttons.resize(1);
    ExpectSound(LayOutAlert(parts));
}

TEST(AlertLayout, AWideRowWidensTheAlert) {
    const AlertLayout layout = LayOutAlert(Parts({{199, 29}, {199, 29}, {199, 29}}));
    ExpectSound(layout);
    EXPECT_EQ(layout.text.Width() + 1, 3 * 200 + 2 * 8);
    EXPECT_EQ(layout.buttons[0].left, 12);
}

TEST(AlertLayout, ButtonsThatHaveNoRoomSideBySideStandBelowEachOther) {
    const AlertLayout layout = LayOutAlert(Parts({{599, 29}, {499, 29}, {399, 29}}));
    ExpectSound(layout);
    EXPECT_THAT(Widths(layout), testing::Each(600));
    EXPECT_GT(layout.buttons[1].top, layout.buttons[0].bottom);
    EXPECT_EQ(layout.buttons[1].left, layout.buttons[0].left);
}

TEST(AlertLayout, NothingIsLargerThanAllowed) {
    for (const BPoint text : {BPoint(100000, 20), BPoint(300, 100000), BPoint(0, 0)}) {
        for (const float button : {20.0F, 700.0F, 50000.0F}) {
            AlertParts parts = Parts({{button, 29}, {button, 29}, {button, 29}});
            parts.text = text;
            const AlertLayout layout = LayOutAlert(parts);
            ExpectSound(layout);
            EXPECT_LE(layout.size.x, parts.largest.x);
            EXPECT_LE(layout.size.y, parts.largest.y);
            EXPECT_EQ(layout.textIsCut, text.x > 1000 || text.y > 1000);
        }
    }
}

TEST(AlertLayout, OnATinyScreenTheTextKeepsSomeHeight) {
    AlertParts parts = Parts({{99, 29}});
    parts.text = BPoint(200, 500);
    parts.largest = BPoint(10, 10);
    const AlertLayout layout = LayOutAlert(parts);
    EXPECT_EQ(layout.text.Height() + 1, 48);
    EXPECT_TRUE(layout.text.IsValid());
    EXPECT_TRUE(layout.buttons[0].IsValid());
}

TEST(AlertPlace, IsTheMiddleButOnTheScreen) {
    const BRect screen(0, 0, 1279, 1023);
    const BPoint size(299, 199);
    EXPECT_EQ(PlaceOfAlert(size, BRect(400, 300, 799, 699), screen), BPoint(450, 400));
    EXPECT_EQ(PlaceOfAlert(size, BRect(0, 0, 99, 99), screen), BPoint(5, 32));
    EXPECT_EQ(PlaceOfAlert(size, BRect(1200, 1000, 1279, 1023), screen), BPoint(975, 819));
    const BRect second(1280, -200, 2559, 823);
    EXPECT_EQ(PlaceOfAlert(size, BRect(1290, -200, 1300, -190), second), BPoint(1285, -168));
    EXPECT_EQ(PlaceOfAlert(BPoint(5000, 5000), screen, screen), BPoint(5, 32));
}
