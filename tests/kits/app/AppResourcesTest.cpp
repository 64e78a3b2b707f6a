#include <app/Application.h>
#include <gtest/gtest.h>
#include <storage/Resources.h>

// This program links no resources.
TEST(AppResources, AreEmptyInAProgramWithout) {
    ASSERT_NE(BApplication::AppResources(), nullptr);
    EXPECT_EQ(BApplication::AppResources(), BApplication::AppResources());
    EXPECT_FALSE(BApplication::AppResources()->HasResource('APPF', "BEOS:APP_FLAGS"));
    EXPECT_FALSE(BApplication::AppResources()->HasResource('APPF', 1));
}
