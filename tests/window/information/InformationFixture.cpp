#include "tests/window/information/InformationFixture.h"

#include <app/Looper.h>
#include <filesystem>
#include <storage/File.h>

#include "framework/MessageCodes.h"
#include "tests/viewer/FakeRoster.h"

InformationFixture::InformationFixture() {
    fake::ReleaseAll();
    BPrivate::set_catalogue(BPrivate::catalogue_of("en"));
    fRoster.AddTranslators(nullptr);
}

InformationFixture::~InformationFixture() {
    fake::SetFormatName(fake::kFormatName);
    BPrivate::set_catalogue(BPrivate::catalogue_of("en"));
    for (const BMessenger& messenger : fWindows) {
        if (!messenger.LockTarget())
            continue;  // it has ended
        BLooper* window = nullptr;
        (void)messenger.Target(&window);
        window->Quit();
    }
}

std::unique_ptr<TImage> InformationFixture::MakeImage(
    int32 width, int32 height, const std::string& path, const std::string& kind) {
    const std::string file = fFolder / path;
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
    write_text(file, fake::ImageFile("a", width, height, {1, 2, 3, 255}));
    fake::SetFormatName(kind);
    BFile source(file.c_str(), B_READ_ONLY);
    translator_info info;
    EXPECT_EQ(fRoster.Identify(&source, nullptr, &info, 0, nullptr, 0), B_OK);
    auto image = std::make_unique<TImage>(file, &fRoster, info);
    EXPECT_EQ(image->InitCheck(), B_OK);
    return image;
}

TPropertyWindow* InformationFixture::Open(const TImage& image) {
    auto* window = new TPropertyWindow(BRect(100, 100, 199, 199), &image);
    EXPECT_EQ(window->InitCheck(), B_OK);
    fScreen = recording::TheRecordingDisplay().Windows().back();
    fWindows.emplace_back(window);
    window->Show();
    EXPECT_TRUE(recording::WaitFor([&] { return fScreen->IsShown(); }));
    return window;
}

std::string InformationFixture::TextOn(const recording::Window& screen, const std::string& name) {
    const auto control = screen.FindControl(name);
    return control ? std::get<BPrivate::StringViewState>(control->state).text : "none";
}

void InformationFixture::SetLanguage(const std::string& language, TPropertyWindow* window) {
    SetTexts(BPrivate::catalogue_of(language), window);
}

void InformationFixture::SetTexts(const BPrivate::Catalogue& texts, TPropertyWindow* window) {
    BPrivate::set_catalogue(texts);
    EXPECT_EQ(window->PostMessage(kMsgLanguageChanged), B_OK);
}
