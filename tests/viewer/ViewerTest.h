#pragma once

#include "tests/viewer/FakeRoster.h"
#include "tests/viewer/WindowTest.h"

/// For a test that moves hundreds of megabytes of pixels, which takes the sanitizer of threads most of
/// its time, in steps that other tests take, too.
#ifdef __SANITIZE_THREAD__
#define SKIP_AS_NOT_ABOUT_THREADS() GTEST_SKIP() << "only many pixels"
#else
#define SKIP_AS_NOT_ABOUT_THREADS() (void)0
#endif

/// A window whose images the fake decoder knows by their file names.
class ViewerTest : public WindowTest {
protected:
    ViewerTest() { fake::ReleaseAll(); }
    ~ViewerTest() override { fake::ReleaseAll(); }

    void WriteImage(const std::string& name, rgb_color color, int32 width = 40, int32 height = 30) {
        Write(name, fake::ImageFile(name, width, height, color));
    }
    void WriteBrokenImage(const std::string& name) {
        Write(name, fake::ImageFile(name, 10, 10, kRed, true));
    }
    /// Images of the given names, all of one size and colour.
    void WriteImages(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            WriteImage(name, kRed);
    }

    /// Waits until a loader decodes the held image.
    static void WaitForHeld(const std::string& name) {
        ASSERT_TRUE(recording::WaitFor([&] { return fake::IsHeld(name); }));
    }
};
