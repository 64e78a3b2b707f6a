#include <app/Application.h>
#include <gmock/gmock.h>

// The application's looper never runs; it is there because controls send to it.
int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    BApplication application("application/x-vnd.ZELKAN-Lorivane-Tests");
    return RUN_ALL_TESTS();
}
