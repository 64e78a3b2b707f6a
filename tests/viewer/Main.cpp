#include <app/Application.h>
#include <gmock/gmock.h>

// The application's looper never runs: what is sent to it stays in its queue for a test to read.
int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    BApplication application("application/x-vnd.ZELKAN-Lorivane-Tests");
    return RUN_ALL_TESTS();
}
