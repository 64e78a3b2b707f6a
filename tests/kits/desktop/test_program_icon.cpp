#include <QImage>
#include <gtest/gtest.h>
#include <vector>

#include "kits/desktop/ProgramIcon.h"
#include "tests/kits/desktop/Screen.h"

using BPrivate::EmbeddedResource;
using BPrivate::ProgramIcon;

namespace {

std::vector<uint8> pixels(int side, uint8 blue, uint8 green, uint8 red, uint8 alpha) {
    std::vector<uint8> data;
    for (int i = 0; i < side * side; i++)
        data.insert(data.end(), {blue, green, red, alpha});
    return data;
}

class ProgramIconTest : public testing::Test {
protected:
    // Pixmaps need the application.
    void SetUp() override { (void)BPrivate::TheDisplay(); }
};

TEST_F(ProgramIconTest, HasTheSizesAndColoursOfTheResources) {
    const auto mini = pixels(16, 1, 2, 3, 255);
    const auto large = pixels(32, 10, 20, 30, 128);
    const EmbeddedResource resources[] = {
        {'ICON', 1, "BEOS:L:STD_ICON", large.data(), large.size()},
        {'MICN', 2, "BEOS:M:STD_ICON", mini.data(), mini.size()},
    };
    const QIcon icon = ProgramIcon(BResources(resources));
    EXPECT_EQ(icon.availableSizes(), (QList<QSize>{{16, 16}, {32, 32}}));
    EXPECT_EQ(icon.pixmap(16).toImage().pixelColor(3, 4), QColor(3, 2, 1, 255));
    const QColor soft = icon.pixmap(32).toImage().pixelColor(3, 4);
    EXPECT_EQ(soft.alpha(), 128);
    // Within what premultiplying loses.
    EXPECT_NEAR(soft.red(), 30, 1);
    EXPECT_NEAR(soft.blue(), 10, 1);
}

TEST_F(ProgramIconTest, IsNullWithoutResources) {
    EXPECT_TRUE(ProgramIcon(BResources()).isNull());
}

TEST_F(ProgramIconTest, LeavesOutDataOfAWrongSize) {
    const auto large = pixels(31, 0, 0, 0, 255);
    const auto small = pixels(48, 0, 0, 0, 255);
    const EmbeddedResource resources[] = {
        {'ICON', 1, "BEOS:L:STD_ICON", large.data(), large.size()},
        {'ICON', 2, "48", small.data(), small.size()},
    };
    EXPECT_EQ(ProgramIcon(BResources(resources)).availableSizes(), (QList<QSize>{{48, 48}}));
}

}  // namespace
