#include <app/Application.h>
#include <gmock/gmock.h>

// Most tests need an application that is there, and none that runs.
int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    BApplication application("application/x-vnd.ZELKAN-Lorivane-Tests");
    return RUN_ALL_TESTS();
}
