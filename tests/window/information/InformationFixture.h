#pragma once

// Image information windows on the recording display, of images the test describes.

#include <app/Messenger.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <translation/TranslatorRoster.h>
#include <vector>

#include "kits/locale/Catalogue.h"
#include "tests/framework/TemporaryFolder.h"
#include "tests/framework/TestWindows.h"
#include "viewer/Image.h"
#include "window/PropertyWindow.h"

class InformationFixture : public testing::Test {
protected:
    InformationFixture();
    ~InformationFixture() override;

    /// An image below the test's folder; folders on its path are made.
    std::unique_ptr<TImage> MakeImage(int32 width, int32 height, const std::string& path = "a.png",
        const std::string& kind = "Test image");

    /// Makes a window and shows it. It ends with the test unless it has ended before.
    TPropertyWindow* Open(const TImage& image);
    /// The screen's side of the window that was opened last.
    recording::Window& Screen() { return *fScreen; }
    std::shared_ptr<recording::Window> SharedScreen() { return fScreen; }
    /// What the string view of that name shows there.
    std::string TextOf(const std::string& name) { return TextOn(Screen(), name); }
    static std::string TextOn(const recording::Window& screen, const std::string& name);

    /// As the system does it: the catalogue, then the message.
    static void SetLanguage(const std::string& language, TPropertyWindow* window);
    static void SetTexts(const BPrivate::Catalogue& texts, TPropertyWindow* window);

    TTemporaryFolder fFolder;

private:
    BTranslatorRoster fRoster;
    std::shared_ptr<recording::Window> fScreen;
    std::vector<BMessenger> fWindows;
};
