#include "viewer/PictureReading.h"

#include "framework/MessageCodes.h"
#include "settings/Prefs.h"
#include "tests/viewer/ViewerTest.h"

namespace {

class PictureReading : public ViewerTest {
protected:
    /// What assistive programs are told of the picture: its name and its description.
    std::pair<std::string, std::string> Told() {
        const auto views = fScreen->ReadableViews();
        if (views.size() != 1)
            return {};
        EXPECT_TRUE(views.front().focused);
        return {views.front().name, views.front().description};
    }
    std::string StatusDescription(const char* field) {
        const auto control = fScreen->FindControl(field);
        return control ? control->place.description : "no such field";
    }
};

}  // namespace

TEST_F(PictureReading, DescribesFormatSizeAndComment) {
    const BRect bounds(0, 0, 639, 479);
    EXPECT_EQ(picture_description("PNG image", bounds, ""), "PNG image, 640 x 480");
    EXPECT_EQ(picture_description("", bounds, "Sunset"), "640 x 480. Sunset");
    EXPECT_EQ(
        picture_description("JPEG", bounds, "Sunset\nin May"), "JPEG, 640 x 480. Sunset\nin May");
}

TEST_F(PictureReading, TellsTheBeginningOfALongComment) {
    std::string book = "x";
    for (int i = 0; i < 5000; i++)
        book += "\xE3\x81\x82";  // three bytes each
    const std::string description = picture_description("", BRect(0, 0, 9, 9), book);
    EXPECT_EQ(description.size(), std::string("10 x 10. ").size() + 1999 + 3);
    EXPECT_TRUE(description.ends_with("\xE3\x81\x82\xE2\x80\xA6"));
}

TEST_F(PictureReading, EachStepIsTold) {
    WriteImages({"a", "b"});
    Write("a.txt", "A comment");
    ShowWindow();
    EXPECT_EQ(Told().first, "");
    Open("a");
    EXPECT_EQ(Told().first, "a");
    EXPECT_TRUE(Told().second.ends_with(", 40 x 30. A comment")) << Told().second;
    Do(kMsgNextImage);
    WaitForLoaders();
    EXPECT_EQ(Told().first, "b");
    EXPECT_TRUE(Told().second.ends_with(", 40 x 30")) << Told().second;
    Locked([&] { fView->Clear(); });
    EXPECT_EQ(Told().first, "");
}

TEST_F(PictureReading, ACommentThatIsTurnedOffIsNotTold) {
    WriteImages({"a"});
    Write("a.txt", "A comment");
    ShowWindow();
    Open("a");
    gPrefs.fEnableComment = false;
    Do(kPrefEnableComment);
    EXPECT_TRUE(Told().second.ends_with(", 40 x 30")) << Told().second;
    gPrefs.fEnableComment = true;
    Do(kPrefEnableComment);
    EXPECT_TRUE(Told().second.ends_with(". A comment")) << Told().second;
}

TEST_F(PictureReading, AMessageIsToldInThePicturesPlace) {
    WriteImages({"a"});
    WriteBrokenImage("b");
    ShowWindow();
    Open("b");
    EXPECT_NE(Told().first.find("b"), std::string::npos);
    EXPECT_GT(Told().first.size(), 10U) << Told().first;
    Open("a");
    EXPECT_EQ(Told().first, "a");
}

TEST_F(PictureReading, TheStatusBarSaysWhatItsTextsAre) {
    ShowWindow();
    EXPECT_EQ(StatusDescription("StrViewIdx"), "Position in Folder");
    EXPECT_EQ(StatusDescription("StrViewKind"), "Format");
    EXPECT_EQ(StatusDescription("StrViewSize"), "Size");
    EXPECT_EQ(StatusDescription("StrViewScale"), "Scale");
}
