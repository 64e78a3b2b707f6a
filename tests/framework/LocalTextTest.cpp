#include "framework/LocalText.h"

#include <gtest/gtest.h>

#include "kits/locale/Catalogue.h"

namespace {

class LocalText : public testing::Test {
protected:
    ~LocalText() override { BPrivate::set_catalogue(BPrivate::catalogue_of("en")); }
};

TEST_F(LocalText, ReplacesEveryPlaceholderAfterTheTranslation) {
    BPrivate::set_catalogue({{"About %AppName%", "%AppName%, das ist %AppName%"},
        {"Lorivane", "Die Lorivane"}, {"%FileName% Information", "Zu %FileName%"}});
    EXPECT_EQ(local_text_with_app("About %AppName%"), "Die Lorivane, das ist Die Lorivane");
    EXPECT_EQ(local_text_with("%FileName% Information", "%FileName%", "Lorivane"), "Zu Lorivane");
}

TEST_F(LocalText, TakesAValueAsItStands) {
    EXPECT_EQ(local_text_with("%FileName% Information", "%FileName%", "%FileName%.png"),
        "%FileName%.png Information");
}

TEST_F(LocalText, ReplacesByAnEmptyName) {
    EXPECT_EQ(local_name(""), "");
    EXPECT_EQ(local_text_with("About %AppName%", "%AppName%", local_name("")), "About ");
}

TEST_F(LocalText, FillsInAKeyThatNoCatalogueHas) {
    EXPECT_EQ(local_text_with_app("%AppName% and %AppName%"), "Lorivane and Lorivane");
}

TEST_F(LocalText, ReadsTheNamesOfRelabelledControls) {
    EXPECT_EQ(named_label("FFlat Tool Bar").shortcut, "F");
    EXPECT_EQ(named_label("FFlat Tool Bar").key, "Flat Tool Bar");
    EXPECT_EQ(named_label("F").shortcut, "F");
    EXPECT_EQ(named_label("F").key, "");
    EXPECT_EQ(named_label("").shortcut, "");
    EXPECT_EQ(named_label("").key, "");
}

}  // namespace
