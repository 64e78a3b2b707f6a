// What is said when an image cannot be shown.

#include <gmock/gmock.h>
#include <storage/Entry.h>
#include <unistd.h>

#include <filesystem>

#include "framework/MessageCodes.h"
#include "tests/viewer/ViewerTest.h"

namespace {

namespace fs = std::filesystem;

class Problems : public ViewerTest {
protected:
    ~Problems() override {
        std::error_code ignored;
        fs::permissions(Path("closed"), fs::perms::owner_all, ignored);
    }

    TLoadProblem Said() {
        return Locked([&] {
            const TLoadProblem* problem = fView->ShownProblem();
            return problem != nullptr ? *problem : TLoadProblem();
        });
    }
    TLoadProblem::Reason Reason() { return Said().reason; }
    std::string About() { return Said().path; }

    /// Whether a band is seen at the top of the image area, in the middle of nothing else.
    bool SeesBand() {
        const recording::Picture picture = Picture();
        const auto x = static_cast<int32>(gPrefs.fCommentMargin) + 2;
        return !(picture.At(x, kTop + x) == kGray);
    }
};

TEST_F(Problems, NothingIsSaidOfWhatIsShown) {
    WriteImages({"a", "b"});
    ShowWindow();
    Open("a");
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Reason(), TLoadProblem::kNone);
}

TEST_F(Problems, ADamagedFileSaysSoWithoutAnImage) {
    gPrefs.fCommentAlign = 0;
    WriteBrokenImage("a");
    ShowWindow();
    Open("a");
    EXPECT_EQ(Reason(), TLoadProblem::kDamaged);
    EXPECT_EQ(About(), Path("a"));
    EXPECT_EQ(Said().details, "the test says so");
    EXPECT_EQ(Shown(), "");
    EXPECT_TRUE(recording::WaitFor([&] { return SeesBand(); }));
}

TEST_F(Problems, TheMessageStaysUntilTheNextAction) {
    gPrefs.fCommentAlign = 0;
    WriteBrokenImage("a");
    ShowWindow();
    for (const uint32 action : {kMsgNextImage, kMsgToggleComment}) {
        Open("a");
        EXPECT_TRUE(recording::WaitFor([&] { return SeesBand(); }));
        Post(kPrefColors);
        Settle();
        EXPECT_EQ(Reason(), TLoadProblem::kDamaged);
        Do(action);
        EXPECT_EQ(Reason(), TLoadProblem::kNone);
        EXPECT_TRUE(recording::WaitFor([&] { return !SeesBand(); }));
    }
    Open("a");
    Press('x');
    EXPECT_EQ(Reason(), TLoadProblem::kNone);
}

TEST_F(Problems, ABrokenNeighbourIsNamedOverTheImageThatStays) {
    WriteImages({"a"});
    Write("a.txt", "a comment");
    WriteBrokenImage("b");
    ShowWindow();
    Open("a");
    WaitForLoaders();
    EXPECT_EQ(Reason(), TLoadProblem::kNone);  // it is not asked for yet
    Do(kMsgNextImage);
    EXPECT_EQ(Reason(), TLoadProblem::kDamaged);
    EXPECT_EQ(About(), Path("b"));
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(StatusText("StrViewIdx"), "1/3");
    Do(kMsgPrevImage);
    EXPECT_EQ(Reason(), TLoadProblem::kNone);
    EXPECT_EQ(Locked([&] { return fView->CurrentImage()->Comment()->Text(); }), "a comment");
}

TEST_F(Problems, AnAwaitedImageThatIsBrokenIsNamed) {
    WriteImages({"a"});
    WriteBrokenImage("b");
    fake::Hold("b");
    ShowWindow();
    Open("a");
    WaitForHeld("b");
    Do(kMsgNextImage);
    fake::Release("b");
    WaitForLoaders();
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(Reason(), TLoadProblem::kDamaged);
    EXPECT_EQ(About(), Path("b"));
}

TEST_F(Problems, TheTranslatorsReasonsAreTold) {
    Write("huge", fake::ImageFile("huge", 9, 9, kRed, true));
    Write("incomplete", fake::ImageFile("incomplete", 9, 9, kRed, true));
    Write("text.jpg", "no picture");
    ShowWindow();
    Open("huge");
    EXPECT_EQ(Reason(), TLoadProblem::kTooLarge);
    Open("incomplete");
    EXPECT_EQ(Reason(), TLoadProblem::kIncomplete);
    Open("text.jpg");
    EXPECT_EQ(Reason(), TLoadProblem::kNoImage);
}

TEST_F(Problems, AFileThatIsGoneIsNamedOverWhatIsShownInstead) {
    WriteImages({"a", "b"});
    ShowWindow();
    Open("b");
    WaitForLoaders();
    Open("gone");
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(Reason(), TLoadProblem::kGone);
    EXPECT_EQ(About(), Path("gone"));
    Open("no folder/gone");
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(Reason(), TLoadProblem::kGone);
}

TEST_F(Problems, AFolderWithoutPicturesSaysSo) {
    fs::create_directory(Path("empty"));
    fs::create_directory(Path("texts"));
    Write("texts/a.txt", "text");
    ShowWindow();
    for (const char* name : {"empty", "texts"}) {
        Open(name);
        EXPECT_EQ(Reason(), TLoadProblem::kNoImageInFolder);
        EXPECT_EQ(About(), Path(name));
    }
}

TEST_F(Problems, TheFirstImageOfAFolderIsNamedWhenItIsBroken) {
    fs::create_directory(Path("folder"));
    WriteImages({"folder/c"});
    Write("folder/a", "text");
    Write("folder/b", fake::ImageFile("b", 9, 9, kRed, true));
    ShowWindow();
    Open("folder");
    EXPECT_EQ(Reason(), TLoadProblem::kDamaged);
    EXPECT_EQ(About(), Path("folder/b"));
    fs::remove(Path("folder/a"));
    Open("folder");
    EXPECT_EQ(Shown(), "c");
    EXPECT_EQ(About(), Path("folder/b"));
    Write("folder/b", "text");
    Open("folder");
    EXPECT_EQ(Shown(), "c");
    EXPECT_EQ(Reason(), TLoadProblem::kNone);
}

TEST_F(Problems, WhatMayNotBeReadSaysSo) {
    if (getuid() == 0)
        GTEST_SKIP() << "root may read everything";
    fs::create_directory(Path("closed"));
    WriteImages({"a", "closed/b"});
    fs::permissions(Path("a"), fs::perms::none);
    fs::permissions(Path("closed"), fs::perms::none);
    ShowWindow();
    Open("a");
    EXPECT_EQ(Reason(), TLoadProblem::kUnreadable);
    Open("closed");
    EXPECT_EQ(Reason(), TLoadProblem::kUnreadableFolder);
    Open("closed/b");
    EXPECT_EQ(Reason(), TLoadProblem::kUnreadable);
}

TEST(ProblemTexts, NameTheFileInOneLine) {
    const TLoadProblem problem = problem_with("/folder/two\nlines", B_BAD_DATA);
    EXPECT_EQ(problem.reason, TLoadProblem::kDamaged);
    EXPECT_THAT(problem_text(problem), testing::Not(testing::HasSubstr("\n")));
    EXPECT_EQ(problem_line(problem), "/folder/two\nlines: the file is damaged");
}

TEST(ProblemTexts, EveryReasonHasATextOfItsOwn) {
    std::set<std::string> lines;
    for (int reason = TLoadProblem::kDamaged; reason <= TLoadProblem::kUnreadableFolder; ++reason)
        lines.insert(problem_line({static_cast<TLoadProblem::Reason>(reason), "x", ""}));
    EXPECT_EQ(lines.size(), size_t{TLoadProblem::kUnreadableFolder});
}

}  // namespace
