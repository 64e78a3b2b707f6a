#include <gtest/gtest.h>

#include "kits/interface/Display.h"

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    testing::InitGoogleTest(&argc, argv);
    // The display belongs to the thread that asks for it first.
    BPrivate::TheDisplay();
    return RUN_ALL_TESTS();
}
