#pragma once

#include "tests/viewer/FakeRoster.h"
#include "tests/viewer/WindowTest.h"

/// A window whose images the fake decoder knows by their file names.
class ViewerTest : public WindowTest {
protected:
    ViewerTest() { fake::ReleaseAll(); }
    /// A loader still at work would be waited for.
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
