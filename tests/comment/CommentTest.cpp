#include "comment/Comment.h"

#include <fstream>
#include <gtest/gtest.h>
#include <interface/GraphicsDefs.h>
#include <sys/stat.h>

#include "settings/Prefs.h"
#include "tests/framework/TemporaryFolder.h"

// Every character is half the font's size wide: 6 in 12 pixels, and a line is 12 high.

namespace {

constexpr rgb_color kText{10, 20, 30, 255};
constexpr rgb_color kBand{200, 100, 50, 127};

class Comment : public testing::Test {
protected:
    Comment() {
        gPrefs = TPrefs();
        gPrefs.fCommentPadding = 5.0F;
        gPrefs.fColors[kColorComment] = kText;
        gPrefs.fColors[kColorCommentBackground] = kBand;
    }
    ~Comment() override { gPrefs = TPrefs(); }

    void Write(const std::string& name, const std::string& text) {
        std::ofstream(fFolder / name, std::ios::binary) << text;
    }

    std::string Loaded(const std::string& image) {
        (void)fComment.Load(fFolder / image);
        return fComment.Text();
    }

    /// The comment laid out for a band of at most that width.
    void Show(const std::string& text, float width) {
        Write("a.txt", text);
        fComment.Resize(width);
        ASSERT_EQ(fComment.Load(fFolder / "a.jpg"), B_OK);
    }

    rgb_color PixelAt(int32 x, int32 y) {
        BBitmap* band = fComment.Image();
        const auto* row = static_cast<const uint8*>(band->Bits()) + y * band->BytesPerRow();
        const uint8* pixel = row + 4 * x;
        return {pixel[2], pixel[1], pixel[0], pixel[3]};
    }

    TTemporaryFolder fFolder;
    TComment fComment;
};

}  // namespace

TEST_F(Comment, IsLookedForByTheExtensionsInTheirOrder) {
    EXPECT_EQ(fComment.Load(fFolder / "a.jpg"), -1);
    Write("a.txt", "from txt");
    EXPECT_EQ(Loaded("a.jpg"), "from txt");
    Write("a.HED", "from HED");
    EXPECT_EQ(Loaded("a.jpg"), "from HED");
    Write("a.hed", "from hed");
    EXPECT_EQ(Loaded("a.jpg"), "from hed");
    Write("a.doc", "from doc");
    EXPECT_EQ(Loaded("a.jpg"), "from doc");
    EXPECT_EQ(Loaded("b.jpg"), "");
}

TEST_F(Comment, OnlyTwoSpellingsAreLookedFor) {
    Write("a.Txt", "mixed");
    EXPECT_EQ(fComment.Load(fFolder / "a.jpg"), -1);
    Write("a.TXT", "upper");
    EXPECT_EQ(Loaded("a.jpg"), "upper");
}

TEST_F(Comment, NamesWithoutExtensionGetOne) {
    Write("a.doc", "found");
    EXPECT_EQ(Loaded("a"), "found");
    const std::string folder = fFolder / "v1.2";
    mkdir(folder.c_str(), 0700);
    Write("v1.2/a.doc", "in a folder with a dot");
    EXPECT_EQ(Loaded("v1.2/a"), "in a folder with a dot");
    EXPECT_EQ(Loaded("v1.2/a.tar.gz"), "");
}

TEST_F(Comment, TellsTheLastNameItLookedFor) {
    std::string path;
    EXPECT_EQ(TComment::GetTextFileName("/nowhere/a.jpg", "txt", &path), -1);
    EXPECT_EQ(path, "/nowhere/a.TXT");
}

TEST_F(Comment, PreferencesSayWhatIsLookedFor) {
    Write("a.txt", "text");
    gPrefs.fCommentFileExts = std::vector<std::string>{};
    EXPECT_EQ(fComment.Load(fFolder / "a.jpg"), -1);
    gPrefs.fCommentFileExts = std::vector<std::string>{"", "..", "/", "txt"};
    EXPECT_EQ(Loaded("a.jpg"), "text");
    gPrefs.fEnableComment = false;
    EXPECT_EQ(Loaded("a.jpg"), "");
    EXPECT_EQ(fComment.Image(), nullptr);
}

TEST_F(Comment, WhatWasFoundWinsEvenWhenItCannotBeRead) {
    const std::string folder = fFolder / "a.doc";
    mkdir(folder.c_str(), 0700);
    Write("a.txt", "not looked at");
    EXPECT_EQ(fComment.Load(fFolder / "a.jpg"), B_OK);
    EXPECT_EQ(fComment.Text(), "");
    EXPECT_EQ(fComment.Image(), nullptr);
}

TEST_F(Comment, EmptyFilesHaveNoBand) {
    Show("\r\n\n", 100);
    EXPECT_EQ(fComment.Text(), "");
    EXPECT_EQ(fComment.Image(), nullptr);
}

TEST_F(Comment, EndsAtItsFirstNul) {
    using namespace std::string_literals;
    Show("abc\0def"s, 100);
    EXPECT_EQ(fComment.Text(), "abc");
    Show("\0abc"s, 100);
    EXPECT_EQ(fComment.Image(), nullptr);
}

TEST_F(Comment, ReloadingDropsWhatIsGone) {
    Show("text", 100);
    ASSERT_NE(fComment.Image(), nullptr);
    ASSERT_EQ(remove((fFolder / "a.txt").c_str()), 0);
    EXPECT_EQ(fComment.Load(fFolder / "a.jpg"), -1);
    EXPECT_EQ(fComment.Text(), "");
    EXPECT_EQ(fComment.Image(), nullptr);
}

TEST_F(Comment, BandIsAsWideAsItsWidestLine) {
    Show("word", 500);
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 10 + 4 * 6, 10 + 12));
    Show("a\nlonger\nbc", 500);
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 10 + 6 * 6, 10 + 3 * 12));
    Show("one two three", 10 + 7 * 6);
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 10 + 7 * 6, 10 + 2 * 12));
}

TEST_F(Comment, WidthIsNeverTooSmallForTheLayout) {
    Show("ab", -100);
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 10 + 6, 10 + 2 * 12));
    fComment.Resize(0);
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 10 + 6, 10 + 2 * 12));
}

TEST_F(Comment, PaddingIsAroundTheText) {
    gPrefs.fCommentPadding = 0.0F;
    Show("ab", 500);
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 12, 12));
    gPrefs.fCommentPadding = 20.0F;
    fComment.Resize(500);
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 52, 52));
    EXPECT_EQ(PixelAt(19, 26), kBand);
    EXPECT_EQ(PixelAt(20, 26), kText);
}

TEST_F(Comment, BandHasItsColourAndAlpha) {
    Show("ab", 500);
    EXPECT_EQ(PixelAt(0, 0), kBand);
    EXPECT_EQ(PixelAt(10 + 2 * 6, 10 + 12), kBand);
    // The text's first row lies 9 above its baseline, at the padding and the ascent of 9.
    EXPECT_EQ(PixelAt(5, 5), kText);
    EXPECT_EQ(PixelAt(5, 13), kText);
    EXPECT_EQ(PixelAt(5, 14), kBand);
    EXPECT_EQ(PixelAt(4, 5), kBand);
}

TEST_F(Comment, LinesAreBelowEachOther) {
    Show("a\r\nb", 500);
    EXPECT_EQ(PixelAt(5, 5), kText);
    EXPECT_EQ(PixelAt(5, 5 + 12), kText);
    EXPECT_EQ(PixelAt(5, 5 + 11), kBand);
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 16, 34));
}

TEST_F(Comment, DrawTakesTheColoursOfNow) {
    Show("ab", 500);
    BBitmap* const band = fComment.Image();
    for (const uint8 alpha : {uint8{0}, uint8{255}}) {
        const rgb_color colour{1, 2, 3, alpha};
        gPrefs.fColors[kColorCommentBackground] = colour;
        fComment.Draw();
        EXPECT_EQ(PixelAt(0, 0), colour);
        EXPECT_EQ(PixelAt(5, 5), kText);
    }
    EXPECT_EQ(fComment.Image(), band);
}

TEST_F(Comment, TranslucentTextIsBlendedIntoTheBand) {
    gPrefs.fColors[kColorCommentBackground] = rgb_color{0, 0, 0, 255};
    gPrefs.fColors[kColorComment] = rgb_color{255, 255, 255, 128};
    Show("ab", 500);
    EXPECT_EQ(PixelAt(5, 5), (rgb_color{128, 128, 128, 255}));
}

TEST_F(Comment, FontIsThatOfThePreferences) {
    Show("ab", 500);
    gPrefs.fCommentFontSize = 20.0F;
    gPrefs.fCommentFontFamily = std::string("Serif");
    fComment.SetFont();
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 10 + 20, 10 + 20));
    gPrefs.fCommentFontFamily = std::string("No such family");
    fComment.SetFont();
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 10 + 20, 10 + 20));
    EXPECT_EQ(std::string(gPrefs.fCommentFontFamily), "No such family");
}

TEST_F(Comment, ProgressMessageReplacesTheText) {
    Show("the comment", 500);
    fComment.SetProgressMessage("wait");
    EXPECT_EQ(fComment.Text(), "wait");
    EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 34, 22));
    EXPECT_EQ(Loaded("a.jpg"), "the comment");
}

TEST_F(Comment, AbsurdPreferencesDoNoHarm) {
    Show("text", 500);
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinite = std::numeric_limits<float>::infinity();
    for (const float value : {-1e30F, -1.0F, 1e9F, 1e30F, nan, infinite, -infinite}) {
        gPrefs.fCommentPadding = value;
        fComment.Resize(500);
        fComment.Draw();
        gPrefs.fCommentPadding = 5.0F;
        fComment.Resize(value);
        fComment.Draw();
        fComment.Resize(500);
        EXPECT_NE(fComment.Image(), nullptr) << value;
    }
    for (const float size : {-1e30F, 0.0F, nan, infinite}) {
        gPrefs.fCommentFontSize = size;
        fComment.SetFont();
        gPrefs.fCommentFontSize = 12.0F;
        fComment.SetFont();
        EXPECT_EQ(fComment.Image()->Bounds(), BRect(0, 0, 34, 22)) << size;
    }
}

TEST_F(Comment, LongTextsAreLaidOutAsFarAsThereIsRoom) {
    std::string text;
    for (int i = 0; i < 200'000; i++)
        text += "a line\n";
    Show(text, 500);
    ASSERT_NE(fComment.Image(), nullptr);
    EXPECT_LE(fComment.Image()->Bounds().Height(), 10000 + 10 + 12);
    EXPECT_EQ(fComment.Image()->Bounds().Width(), 10 + 6 * 6);
}

TEST_F(Comment, OneLongLine) {
    Show(std::string(10'000'000, 'x'), 500);
    ASSERT_NE(fComment.Image(), nullptr);
    EXPECT_LE(fComment.Image()->Bounds().Width(), 500);
    EXPECT_LE(fComment.Image()->Bounds().Height(), 10000 + 10 + 12);
}
