#include "window/PropertyWindow.h"

#include <app/Application.h>
#include <cstring>
#include <interface/Button.h>
#include <interface/InterfaceDefs.h>
#include <kernel/OS.h>
#include <storage/Resources.h>

#include "framework/FindChild.h"
#include "tests/settings/BrokenLayout.h"
#include "tests/window/information/InformationFixture.h"
#include "window/PropertyView.h"

namespace {

class PropertyWindow : public InformationFixture {
protected:
    bool HasEnded(const recording::Window& screen) {
        return recording::WaitFor([&] { return !screen.IsOpen(); });
    }
    bool HasEnded() { return HasEnded(Screen()); }

    status_t MakeAndEnd() const {
        auto* window = new TPropertyWindow(BRect(0, 0, 99, 99), fImage.get());
        const status_t status = window->InitCheck();
        EXPECT_EQ(window->CountChildren(), status == B_OK ? 1 : 0);
        const BRect bounds = window->Bounds();
        EXPECT_TRUE(bounds.Width() >= 0 && bounds.Width() < 1e5F) << bounds.Width();
        EXPECT_TRUE(bounds.Height() >= 0 && bounds.Height() < 1e5F) << bounds.Height();
        EXPECT_TRUE(window->Lock());
        window->Quit();
        return status;
    }

    const std::unique_ptr<TImage> fImage = MakeImage(20, 10);
    const TBrokenLayout fBroken{"PropertyViewRsrc", [this] { return MakeAndEnd(); }};
};

TEST_F(PropertyWindow, IsMadeFromTheProgramsOwnResource) {
    const BResources& resources = *BApplication::AppResources();
    EXPECT_TRUE(resources.HasResource('ARCV', "PropertyViewRsrc"));
    size_t size = 0;
    const void* flags = resources.LoadResource('APPF', "BEOS:APP_FLAGS", &size);
    ASSERT_EQ(size, sizeof(uint32));
    uint32 launch = 99;
    std::memcpy(&launch, flags, sizeof(launch));
    EXPECT_EQ(launch, 0U);  // a second start hands its files to the first
}

TEST_F(PropertyWindow, IsMadeOfAWholeLayoutOnly) {
    fBroken.ExpectOnlyAWholeOneIsTaken();
}

TEST_F(PropertyWindow, NeedsEveryViewOfItsClass) {
    const std::vector<std::string> names = fBroken.Names();
    EXPECT_EQ(names.size(), 11U);
    fBroken.ExpectAllAreNeeded(names);
    fBroken.ExpectNoneMayBeOf("BCheckBox", names);
}

TEST_F(PropertyWindow, MakesAbsurdFramesGood) {
    fBroken.ExpectAbsurdFramesAreMadeGood();
}

TEST_F(PropertyWindow, TellsOfTheImage) {
    auto image = MakeImage(640, 480, "some folder/image.test.png", "PNG image");
    Open(*image);
    EXPECT_EQ(Screen().Title(), "image.test.png Information");
    EXPECT_EQ(TextOf("StrViewFileNameValue"), "image.test.png");
    EXPECT_EQ(TextOf("StrViewFolderNameValue"), fFolder / "some folder");
    EXPECT_EQ(TextOf("StrViewKindValue"), "PNG image");
    EXPECT_EQ(TextOf("StrViewSizeValue"), "640 x 480");
    EXPECT_EQ(TextOf("StrViewMemoryValue"), "1.17 MB ( 1,228,800 B)");
    EXPECT_EQ(TextOf("StrViewFileNameLabel"), "File Name: ");
    EXPECT_EQ(TextOf("StrViewFolderNameLabel"), "Folder: ");
    EXPECT_EQ(TextOf("StrViewKindLabel"), "Format: ");
    EXPECT_EQ(TextOf("StrViewSizeLabel"), "Size: ");
    EXPECT_EQ(TextOf("StrViewMemoryLabel"), "Memory Usage: ");
}

TEST_F(PropertyWindow, TellsOfSmallImages) {
    Open(*MakeImage(16, 16));
    EXPECT_EQ(TextOf("StrViewSizeValue"), "16 x 16");
    EXPECT_EQ(TextOf("StrViewMemoryValue"), "1,024 B");
    Open(*MakeImage(512, 512));
    EXPECT_EQ(TextOf("StrViewMemoryValue"), "1,024 KB ( 1,048,576 B)");
}

TEST_F(PropertyWindow, ShowsNothingForAFormatWithoutAName) {
    Open(*MakeImage(16, 16, "a.png", ""));
    EXPECT_EQ(TextOf("StrViewKindValue"), "");
    EXPECT_EQ(TextOf("StrViewSizeValue"), "16 x 16");
}

TEST_F(PropertyWindow, KeepsNothingOfTheImage) {
    auto image = MakeImage(20, 10);
    TPropertyWindow* window = Open(*image);
    image.reset();
    SetLanguage("de", window);
    EXPECT_TRUE(recording::WaitFor([&] { return TextOf("StrViewFolderNameLabel") == "Ordner: "; }));
    EXPECT_EQ(TextOf("StrViewSizeValue"), "20 x 10");
    EXPECT_EQ(TextOf("StrViewFileNameValue"), "a.png");
}

TEST_F(PropertyWindow, HasTheSizeOfItsView) {
    TPropertyWindow* window = Open(*MakeImage(20, 10));
    with_lock(window, [&] {
        EXPECT_EQ(window->Bounds(), window->ChildAt(0)->Frame());
        EXPECT_GT(window->Bounds().Width(), 200);
        EXPECT_EQ(window->ChildAt(0)->ViewColor(), ui_color(B_PANEL_BACKGROUND_COLOR));
    });
    EXPECT_EQ(Screen().Spec().look, B_TITLED_WINDOW_LOOK);
    EXPECT_EQ(Screen().Spec().flags, uint32{B_NOT_ZOOMABLE | B_NOT_RESIZABLE});
}

TEST_F(PropertyWindow, ChangesItsLanguage) {
    TPropertyWindow* window = Open(*MakeImage(20, 10, "Bild.png"));
    SetLanguage("de", window);
    EXPECT_TRUE(
        recording::WaitFor([&] { return Screen().Title() == "Informationen zu Bild.png"; }));
    EXPECT_TRUE(
        recording::WaitFor([&] { return TextOf("StrViewMemoryLabel") == "Speicherbedarf: "; }));
    EXPECT_EQ(TextOf("StrViewFileNameLabel"), "Dateiname: ");
    SetLanguage("ja", window);
    EXPECT_TRUE(recording::WaitFor(
        [&] { return TextOf("StrViewFolderNameLabel").find("フォルダー") == 0; }));
    EXPECT_EQ(Screen().Title(), "Bild.png の情報");
    with_lock(window, [&] { EXPECT_EQ(window->Bounds(), window->ChildAt(0)->Frame()); });
}

TEST_F(PropertyWindow, EndsWithItsButton) {
    Open(*MakeImage(20, 10));
    const auto button = Screen().FindControl("OK");
    ASSERT_TRUE(button);
    Screen().SetValue(button->id, 1);
    EXPECT_TRUE(HasEnded());
}

TEST_F(PropertyWindow, EndsWithItsCloseBox) {
    Open(*MakeImage(20, 10));
    Screen().PressCloseBox();
    EXPECT_TRUE(HasEnded());
}

TEST_F(PropertyWindow, EndsWithEnterAndEscape) {
    for (const char key : {char{B_ENTER}, char{B_ESCAPE}}) {
        Open(*MakeImage(20, 10));
        Screen().PressKey(key);
        EXPECT_TRUE(HasEnded()) << int{key};
    }
}

TEST_F(PropertyWindow, EndsTwiceAtOnce) {
    Open(*MakeImage(20, 10));
    Screen().PressCloseBox();
    Screen().PressCloseBox();
    Screen().PressKey(B_ESCAPE);
    EXPECT_TRUE(HasEnded());
}

TEST_F(PropertyWindow, EndsBeforeItWasShown) {
    auto image = MakeImage(20, 10);
    auto* window = new TPropertyWindow(BRect(0, 0, 99, 99), image.get());
    const auto screen = recording::TheRecordingDisplay().Windows().back();
    ASSERT_TRUE(window->Lock());
    window->Quit();
    EXPECT_TRUE(HasEnded(*screen));
}

TEST_F(PropertyWindow, StandsBesideOthers) {
    Open(*MakeImage(20, 10, "a.png"));
    const auto first = SharedScreen();
    Open(*MakeImage(30, 10, "b.png"));
    const auto second = SharedScreen();
    Open(*MakeImage(20, 10, "a.png"));
    EXPECT_EQ(TextOn(*first, "StrViewSizeValue"), "20 x 10");
    EXPECT_EQ(TextOn(*second, "StrViewSizeValue"), "30 x 10");
    second->PressCloseBox();
    EXPECT_TRUE(HasEnded(*second));
    EXPECT_TRUE(first->IsShown());
    EXPECT_TRUE(Screen().IsShown());
    EXPECT_EQ(TextOf("StrViewSizeValue"), "20 x 10");
}

TEST_F(PropertyWindow, AnswersForItsPath) {
    auto image = MakeImage(20, 10, "x/y.png");
    TPropertyWindow* window = Open(*image);
    with_lock(window, [&] {
        const auto* view = dynamic_cast<TPropertyView*>(window->ChildAt(0));
        ASSERT_NE(view, nullptr);
        EXPECT_EQ(view->FileName(), fFolder / "x/y.png");
        EXPECT_TRUE(find_child<BButton>(window->ChildAt(0), "ButtonOK")->IsDefault());
    });
}

TEST_F(PropertyWindow, ShowsOddNamesAsTheyAre) {
    for (const std::string name : {"%FileName%.png", "line\nfeed.png", "\xff\xfe.png", "a b&c"}) {
        Open(*MakeImage(20, 10, name));
        EXPECT_EQ(TextOf("StrViewFileNameValue"), name);
        EXPECT_EQ(Screen().Title(), name + " Information");
    }
}

}  // namespace
