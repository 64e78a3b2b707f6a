// Files that come, go and change while their folder is looked through.

#include <filesystem>

#include "framework/MessageCodes.h"
#include "tests/viewer/ViewerTest.h"

namespace {

namespace fs = std::filesystem;

class Outdated : public ViewerTest {
protected:
    std::string ShownIndex() { return StatusText("StrViewIdx"); }

    void Step(uint32 command) {
        WaitForLoaders();
        Do(command);
    }

    rgb_color ShownColor() {
        rgb_color color{};
        EXPECT_TRUE(recording::WaitFor([&] {
            color = Picture().At(149, kTop + 90);
            return !(color == kGray);
        }));
        return color;
    }
};

TEST_F(Outdated, AnImageKeptFromBeforeHasItsPlaceInTheNewListing) {
    WriteImages({"p02", "p03", "p05", "p06", "p07"});
    ShowWindow();
    Open("p05");
    Step(kMsgNextImage);
    Step(kMsgPrevImage);
    EXPECT_EQ(ShownIndex(), "3/5");
    WaitForLoaders();
    WriteImages({"p01"});
    Open("p06");
    EXPECT_EQ(ShownIndex(), "5/6");
    Step(kMsgPrevImage);
    EXPECT_EQ(Shown(), "p05");
    EXPECT_EQ(ShownIndex(), "4/6");
    Step(kMsgPrevImage);
    EXPECT_EQ(Shown(), "p03");
    EXPECT_EQ(ShownIndex(), "3/6");
}

TEST_F(Outdated, AnImageBetweenTwoThatWereNeighboursIsNotPassedBy) {
    WriteImages({"a", "c"});
    ShowWindow();
    Open("a");
    Step(kMsgNextImage);
    WriteImages({"b"});
    Open("c");
    Step(kMsgPrevImage);
    EXPECT_EQ(Shown(), "b");
}

TEST_F(Outdated, RemovedFilesLeaveNoStaleNumbers) {
    WriteImages({"a", "b", "c", "d", "e", "f"});
    ShowWindow();
    Open("e");
    Step(kMsgNextImage);
    WaitForLoaders();
    for (const char* name : {"a", "b", "c"})
        fs::remove(Path(name));
    Open("f");
    EXPECT_EQ(ShownIndex(), "3/3");
    Step(kMsgPrevImage);
    EXPECT_EQ(Shown(), "e");
    EXPECT_EQ(ShownIndex(), "2/3");
    Step(kMsgPrevImage);
    EXPECT_EQ(Shown(), "d");
    EXPECT_EQ(ShownIndex(), "1/3");
}

TEST_F(Outdated, AnImageWhoseFileIsGoneIsSteppedOver) {
    WriteImages({"a", "b", "c"});
    ShowWindow();
    Open("a");
    Step(kMsgNextImage);
    WaitForLoaders();
    fs::remove(Path("a"));
    Open("c");
    Step(kMsgPrevImage);
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(ShownIndex(), "1/2");
    Step(kMsgPrevImage);
    EXPECT_EQ(Shown(), "b");
}

TEST_F(Outdated, ANeighbourThatWasWrittenSinceIsDecodedAnew) {
    for (const bool opensAgain : {false, true}) {
        WriteImage("a", kRed, 300, 186);
        WriteImage("b", kRed, 300, 186);
        if (fWindow == nullptr)
            ShowWindow();
        Open("a");
        WaitForLoaders();
        ASSERT_TRUE(IsCached("b"));
        // Of the same length.
        Write("b", fake::ImageFile("b", 300, 186, {255, 9, 0, 255}));
        fs::last_write_time(
            Path("b"), fs::last_write_time(Path("b")) + std::chrono::microseconds(1));
        if (opensAgain) {
            Open("a");
            WaitForLoaders();
        }
        EXPECT_EQ(IsCached("b"), opensAgain);
        Do(kMsgNextImage);
        EXPECT_EQ(Shown(), "b");
        EXPECT_EQ(ShownColor(), (rgb_color{255, 9, 0, 255}));
    }
}

TEST_F(Outdated, AFileInThePlaceOfAnotherIsAnother) {
    WriteImage("a", kRed, 300, 186);
    WriteImage("b", kRed, 300, 186);
    ShowWindow();
    Open("b");
    Step(kMsgPrevImage);
    const auto time = fs::last_write_time(Path("b"));
    Write("new", fake::ImageFile("b", 300, 186, {255, 9, 0, 255}));
    fs::rename(Path("new"), Path("b"));
    fs::last_write_time(Path("b"), time);
    Step(kMsgLastImage);
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(ShownColor(), (rgb_color{255, 9, 0, 255}));
}

}  // namespace
