#include <filesystem>

#include "framework/MessageCodes.h"
#include "settings/DisplayOption.h"
#include "tests/viewer/ViewerTest.h"

// The comment over the image. Every character is 6 wide and a line 12 high; the padding is 5, the
// margin 20. The image area of the window is 300 x 186 pixels.

namespace {

constexpr rgb_color kUnderBand{128, 0, 0, 255};  // red below black of alpha 127
constexpr rgb_color kWhite{255, 255, 255, 255};

class CommentOverImage : public ViewerTest {
protected:
    void Show(const std::string& comment, int32 width = 300, int32 height = 186) {
        WriteImage("a", kRed, width, height);
        Write("a.txt", comment);
        ShowWindow(kWindowFrame);
        Open("a");
    }

    rgb_color At(int32 x, int32 y) {
        rgb_color color = fPicture.At(x, y + kTop);
        color.alpha = 255;
        return color;
    }

    /// The rectangle of the area that the band covers, with the image in red below and beside it.
    BRect FindBand() {
        Settle();
        fPicture = Picture();
        BRect found;
        for (int32 y = 0; y < 186; y++) {
            for (int32 x = 0; x < 300; x++) {
                const BPoint at(static_cast<float>(x), static_cast<float>(y));
                if (At(x, y) == kUnderBand || At(x, y) == kWhite)
                    found = found.IsValid() ? found | BRect(at, at) : BRect(at, at);
            }
        }
        return found;
    }

    BBitmap* Band() {
        return Locked([&] { return fView->CurrentImage()->Comment()->Image(); });
    }

    std::string Text() {
        return Locked([&] { return fView->CurrentImage()->Comment()->Text(); });
    }

    recording::Picture fPicture;
};

}  // namespace

TEST_F(CommentOverImage, StandsAtTheBottom) {
    Show("ab");
    EXPECT_EQ(FindBand(), BRect(20, 143, 42, 165));
    EXPECT_EQ(At(19, 150), kRed);
    EXPECT_EQ(At(20, 143), kUnderBand);
    EXPECT_EQ(At(24, 148), kUnderBand);
    EXPECT_EQ(At(25, 148), kWhite);
    EXPECT_EQ(At(42, 165), kUnderBand);
    EXPECT_EQ(At(43, 165), kRed);
    EXPECT_EQ(At(42, 166), kRed);
}

TEST_F(CommentOverImage, StandsAtTheTop) {
    gPrefs.fCommentAlign = kCommentAtTop;
    Show("ab");
    EXPECT_EQ(FindBand(), BRect(20, 20, 42, 42));
}

TEST_F(CommentOverImage, AnyOtherAlignmentIsTheBottom) {
    gPrefs.fCommentAlign = -7;
    Show("ab");
    EXPECT_EQ(FindBand(), BRect(20, 143, 42, 165));
}

TEST_F(CommentOverImage, StandsAboveTheHorizontalBar) {
    Show("ab", 600, 100);
    ASSERT_TRUE(IsShown("ScrlBarH"));
    Settle();
    fPicture = Picture();
    // The image is in the middle of the area, whose lower 13 rows the bar has taken.
    EXPECT_EQ(At(20, 129), kRed);
    EXPECT_EQ(At(20, 130), kUnderBand);
    EXPECT_EQ(At(20, 152), (rgb_color{30, 30, 30, 255}));
    EXPECT_EQ(At(20, 153), kGray);
    const BPoint point = Locked(
        [&] { return fView->CommentPoint(fView->CurrentImage()->Comment()->Image()->Bounds()); });
    EXPECT_EQ(point, BPoint(20, 130));
}

TEST_F(CommentOverImage, IsAsWideAsTheAreaWithoutItsMargins) {
    std::string words;
    for (int i = 0; i < 40; i++)
        words += "words ";
    Show(words);
    // 299 - 2 x 20 leaves 249 for the text: 41 characters, which are 7 words.
    EXPECT_EQ(FindBand().Width(), 10 + 41 * 6);
    EXPECT_EQ(FindBand().Height(), 10 + 6 * 12);
    EXPECT_EQ(FindBand().bottom, 165);
}

TEST_F(CommentOverImage, LeavesRoomForTheVerticalBar) {
    std::string words;
    for (int i = 0; i < 60; i++)
        words += "words ";
    Show(words, 200, 600);
    ASSERT_TRUE(IsShown("ScrlBarV"));
    EXPECT_LE(Locked([&] { return fView->CurrentImage()->Comment()->Image()->Bounds().Width(); }),
        299 - 14 - 40);
}

TEST_F(CommentOverImage, IsBlendedOverTheMarginsToo) {
    Show("ab", 30, 30);
    Settle();
    fPicture = Picture();
    // The background is 60: 60 x 128 / 255.
    EXPECT_EQ(At(20, 143), (rgb_color{30, 30, 30, 255}));
    EXPECT_EQ(At(19, 143), kGray);
    EXPECT_EQ(At(25, 148), kWhite);
}

TEST_F(CommentOverImage, AlphaIsThatOfThePreferences) {
    Show("ab");
    gPrefs.fColors[kColorCommentBackground] = rgb_color{0, 0, 255, 255};
    Do(kPrefColors);
    Settle();
    fPicture = Picture();
    EXPECT_EQ(At(20, 143), kBlue);
    EXPECT_EQ(At(25, 148), kWhite);
    gPrefs.fColors[kColorCommentBackground] = rgb_color{0, 0, 255, 0};
    gPrefs.fColors[kColorComment] = kGreen;
    Do(kPrefColors);
    Settle();
    fPicture = Picture();
    EXPECT_EQ(At(20, 143), kRed);
    EXPECT_EQ(At(25, 148), kGreen);
}

TEST_F(CommentOverImage, ScrollingMovesTheImageBelowItAndLaysNothingOut) {
    Show("ab", 300, 1000);
    ASSERT_TRUE(IsShown("ScrlBarV"));
    const BRect before = FindBand();
    BBitmap* const band = Band();
    Locked([&] { fView->ScrollDown(); });
    EXPECT_EQ(FindBand(), before);
    EXPECT_EQ(Band(), band);
}

TEST_F(CommentOverImage, IsLaidOutAnewWhenTheWindowIsResized) {
    std::string words;
    for (int i = 0; i < 40; i++)
        words += i == 0 ? "words" : " words";
    gPrefs.fDisplayOption = kFitImageToWindow;
    Show(words);
    fScreen->UserResize(199, 219);
    EXPECT_TRUE(recording::WaitFor([&] { return FindBand().Width() == 10 + 23 * 6; }));
    EXPECT_EQ(FindBand().bottom, 165);
}

TEST_F(CommentOverImage, EveryImageHasItsOwn) {
    WriteImages({"a", "b", "c"});
    Write("a.txt", "of a");
    Write("c.doc", "of c");
    ShowWindow(kWindowFrame);
    Open("a");
    EXPECT_EQ(Text(), "of a");
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(Band(), nullptr);
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Text(), "of c");
    Write("c.doc", "changed meanwhile");
    WaitForLoaders();
    Do(kMsgPrevImage);
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Text(), "changed meanwhile");
}

TEST_F(CommentOverImage, AProgressTextStandsInWhileOneWaits) {
    WriteImages({"a", "b"});
    Write("a.txt", "of a");
    fake::Hold("b");
    ShowWindow(kWindowFrame);
    Open("a");
    ASSERT_TRUE(recording::WaitFor([] { return fake::IsHeld("b"); }));
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(Text(), "Just a moment...");
    EXPECT_EQ(Band()->Bounds(), BRect(0, 0, 10 + 16 * 6, 22));
    fake::Release("b");
    ASSERT_TRUE(recording::WaitFor([&] { return Shown() == "b"; }));
    EXPECT_EQ(Text(), "");
    WaitForLoaders();
    Do(kMsgPrevImage);
    EXPECT_EQ(Text(), "of a");
}

TEST_F(CommentOverImage, AnImageThatStaysGetsItsCommentBack) {
    WriteImages({"a"});
    Write("a.txt", "of a");
    Write("b", fake::ImageFile("b", 10, 10, kRed, true));
    gPrefs.fEnablePreload = false;
    ShowWindow(kWindowFrame);
    Open("a");
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(Text(), "of a");
}

TEST_F(CommentOverImage, FollowsThePreferences) {
    Show("ab");
    Write("a.hed", "of hed");
    gPrefs.fEnableComment = false;
    Do(kPrefEnableComment);
    EXPECT_EQ(Band(), nullptr);
    EXPECT_FALSE(FindBand().IsValid());
    gPrefs.fEnableComment = true;
    Do(kPrefEnableComment);
    EXPECT_EQ(Text(), "of hed");
    gPrefs.fCommentFileExts = std::vector<std::string>{"txt"};
    Do(kPrefCommentFileExts);
    EXPECT_EQ(Text(), "ab");
    Write("a.txt", "\x93\xfa");
    gPrefs.fCommentEncoding = kEncodingShiftJIS;
    Do(kPrefCommentEncoding);
    EXPECT_EQ(Text(), "日");
    gPrefs.fCommentFontSize = 24.0F;
    Do(kPrefCommentFontSize);
    EXPECT_EQ(FindBand(), BRect(20, 185 - 20 - 34, 20 + 22, 165));
    gPrefs.fCommentFontFamily = std::string("Serif");
    Do(kPrefCommentFontFamily);
    gPrefs.fCommentPadding = 10.0F;
    Do(kPrefCommentPadding);
    EXPECT_EQ(FindBand(), BRect(20, 185 - 20 - 44, 20 + 32, 165));
    gPrefs.fCommentAlign = kCommentAtTop;
    Do(kPrefCommentAlign);
    EXPECT_EQ(FindBand(), BRect(20, 20, 52, 64));
}

TEST_F(CommentOverImage, AMarginMovesItAndLaysNothingOut) {
    Show("ab");
    BBitmap* const band = Band();
    gPrefs.fCommentMargin = 30.0F;
    Do(kPrefCommentMargin);
    EXPECT_EQ(FindBand(), BRect(30, 133, 52, 155));
    EXPECT_EQ(Band(), band);
}

TEST_F(CommentOverImage, AbsurdMarginsDoNoHarm) {
    Show("ab");
    for (const float margin : {-1e30F, -50.0F, 1e9F, std::numeric_limits<float>::infinity(),
             std::numeric_limits<float>::quiet_NaN()}) {
        gPrefs.fCommentMargin = margin;
        Do(kPrefCommentMargin);
        Do(kPrefCommentPadding);
    }
    gPrefs.fCommentMargin = 20.0F;
    Do(kPrefCommentPadding);
    EXPECT_EQ(FindBand(), BRect(20, 143, 42, 165));
}

TEST_F(CommentOverImage, NoticesWithoutAnImageDoNothing) {
    ShowWindow(kWindowFrame);
    for (const uint32 notice :
        {kPrefEnableComment, kPrefCommentEncoding, kPrefCommentFileExts, kPrefCommentFontFamily,
            kPrefCommentFontSize, kPrefCommentPadding, kPrefCommentMargin, kPrefCommentAlign})
        Do(notice);
    Locked([&] { fView->DrawProgressString(); });
    EXPECT_EQ(Locked([&] { return fView->CurrentImage(); }), nullptr);
}
