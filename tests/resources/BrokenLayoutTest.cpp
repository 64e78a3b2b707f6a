// Dialogs whose layout, among the program's resources, is not what it should be.

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <support/DataIO.h>
#include <translation/TranslatorRoster.h>

#include "framework/Layout.h"
#include "kits/storage/EmbeddedResources.h"
#include "resources/layouts/Layouts.h"
#include "tests/framework/TemporaryFolder.h"
#include "tests/framework/TestWindows.h"
#include "viewer/Image.h"
#include "window/PropertyView.h"
#include "window/PropertyWindow.h"

namespace {

// This program's only resource, whose bytes a test exchanges.
BPrivate::EmbeddedResource gTable[] = {{'ARCV', 1, "PropertyViewRsrc", nullptr, 0}};

std::string flattened(const BMessage& message) {
    BMallocIO bytes;
    EXPECT_EQ(message.Flatten(&bytes), B_OK);
    return {static_cast<const char*>(bytes.Buffer()), bytes.BufferLength()};
}

/// The archive among the children of that name; `change` gets it with the place it has there.
void change_child(
    BMessage& archive, const std::string& name, const std::function<void(BMessage&)>& change) {
    BMessage children;
    BMessage child;
    for (int32 i = 0; archive.FindMessage("_views", i, &child) == B_OK; i++) {
        if (name == child.GetString("_name", ""))
            change(child);
        EXPECT_EQ(children.AddMessage("_views", &child), B_OK);
    }
    archive.RemoveName("_views");
    for (int32 i = 0; children.FindMessage("_views", i, &child) == B_OK; i++)
        EXPECT_EQ(archive.AddMessage("_views", &child), B_OK);
}

class BrokenLayout : public testing::Test {
protected:
    BrokenLayout() {
        fRoster.AddTranslators(nullptr);
        EXPECT_EQ(make_property_layout()->Archive(&fLayout, true), B_OK);
    }
    ~BrokenLayout() override { SetResource("PropertyViewRsrc", ""); }

    void SetResource(const char* name, const std::string& bytes) {
        fBytes = bytes;
        gTable[0].name = name;
        gTable[0].data = fBytes.data();
        gTable[0].size = fBytes.size();
    }
    void SetLayout(const BMessage& layout) { SetResource("PropertyViewRsrc", flattened(layout)); }

    /// What a window made now says of itself.
    status_t Status() {
        const TImage image("", &fRoster, translator_info());
        auto* window = new TPropertyWindow(BRect(0, 0, 99, 99), &image);
        const TWindowQuitter quitter(window);
        EXPECT_EQ(window->CountChildren(), window->InitCheck() == B_OK ? 1 : 0);
        return window->InitCheck();
    }

    BTranslatorRoster fRoster;
    BMessage fLayout;

private:
    std::string fBytes;
};

TEST_F(BrokenLayout, IsTakenWhenItIsWhole) {
    SetLayout(fLayout);
    EXPECT_EQ(Status(), B_OK);
}

TEST_F(BrokenLayout, IsMissing) {
    SetResource("AnotherRsrc", flattened(fLayout));
    EXPECT_EQ(Status(), B_NO_INIT);
    BMessage archive('kept');
    EXPECT_EQ(load_layout("PropertyViewRsrc", &archive), B_NAME_NOT_FOUND);
    EXPECT_EQ(archive.what, uint32{'kept'});
}

TEST_F(BrokenLayout, IsTruncated) {
    const std::string whole = flattened(fLayout);
    for (size_t size = 0; size < whole.size(); size++) {
        SetResource("PropertyViewRsrc", whole.substr(0, size));
        BMessage archive('kept');
        ASSERT_EQ(load_layout("PropertyViewRsrc", &archive), B_BAD_DATA) << size;
        ASSERT_EQ(archive.what, uint32{'kept'});
    }
    EXPECT_EQ(Status(), B_NO_INIT);
}

TEST_F(BrokenLayout, HasFlippedBytes) {
    const std::string whole = flattened(fLayout);
    for (size_t i = 0; i < whole.size(); i++) {
        std::string bytes = whole;
        bytes[i] = static_cast<char>(bytes[i] ^ 0x55);
        SetResource("PropertyViewRsrc", bytes);
        BMessage archive;
        ASSERT_NE(load_layout("PropertyViewRsrc", &archive), B_OK) << i;
    }
}

TEST_F(BrokenLayout, IsOfAnotherClass) {
    fLayout.RemoveName("class");
    SetLayout(fLayout);
    EXPECT_EQ(Status(), B_NO_INIT);
    EXPECT_EQ(fLayout.AddString("class", "BMessage"), B_OK);
    SetLayout(fLayout);
    EXPECT_EQ(Status(), B_NO_INIT);
}

TEST_F(BrokenLayout, LacksAView) {
    for (const char* name : {"ButtonOK", "StrViewFileNameLabel", "StrViewMemoryValue"}) {
        BMessage layout = fLayout;
        change_child(layout, name, [](BMessage& child) { child.RemoveName("_name"); });
        SetLayout(layout);
        EXPECT_EQ(Status(), B_NO_INIT) << name;
    }
    fLayout.RemoveName("_views");
    SetLayout(fLayout);
    EXPECT_EQ(Status(), B_NO_INIT);
}

TEST_F(BrokenLayout, HasAViewOfAnotherClass) {
    for (const char* name : {"ButtonOK", "StrViewSizeValue"}) {
        for (const char* ofClass : {"BView", "BCheckBox", "BNothing"}) {
            BMessage layout = fLayout;
            change_child(layout, name, [&](BMessage& child) {
                child.RemoveName("class");
                EXPECT_EQ(child.AddString("class", ofClass), B_OK);
            });
            SetLayout(layout);
            EXPECT_EQ(Status(), B_NO_INIT) << name << " " << ofClass;
        }
    }
}

}  // namespace

std::span<const BPrivate::EmbeddedResource> BPrivate::embedded_resources() {
    return gTable;
}
