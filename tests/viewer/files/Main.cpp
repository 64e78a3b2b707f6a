#include <gmock/gmock.h>
#include <support/DataIO.h>
#include <translation/TranslatorRoster.h>

// The library behind one of the translators takes the first thread that uses it for the main one,
// and keeps objects that belong to it until the process ends. In the program that is the display's
// thread; here it must not be a loader's.
int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    const char kUnknown[64] = "of no format at all";
    BMemoryIO source(kUnknown, sizeof(kUnknown));
    translator_info info;
    BTranslatorRoster::Default()->Identify(&source, nullptr, &info);
    return RUN_ALL_TESTS();
}
