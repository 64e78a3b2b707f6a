#include <app/Application.h>
#include <app/Message.h>
#include <app/Roster.h>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <interface/StringView.h>
#include <iterator>
#include <memory>
#include <storage/Resources.h>
#include <string>

namespace {

std::string content_of(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string resource(type_code type, const char* name) {
    size_t size = 0;
    const void* data = BApplication::AppResources()->LoadResource(type, name, &size);
    return data != nullptr ? std::string(static_cast<const char*>(data), size) : "none";
}

TEST(Embedding, KeepsTheBytesOfFiles) {
    ASSERT_FALSE(content_of(DATA_FILE).empty());
    EXPECT_EQ(resource('ICON', "BEOS:L:STD_ICON"), content_of(DATA_FILE));
    EXPECT_EQ(resource('TEST', "another one"), content_of(LAYOUT_FILE));
}

TEST(Embedding, HasTheLaunchFlags) {
    const std::string bytes = resource('APPF', "BEOS:APP_FLAGS");
    uint32 flags = 99;
    ASSERT_EQ(bytes.size(), sizeof(flags));
    std::memcpy(&flags, bytes.data(), sizeof(flags));
    EXPECT_EQ(flags, B_MULTIPLE_LAUNCH);
}

TEST(Embedding, CompilesLayouts) {
    const std::string bytes = resource('ARCV', "SmallRsrc");
    BMessage archive;
    ASSERT_EQ(archive.Unflatten(bytes.data(), static_cast<ssize_t>(bytes.size())), B_OK);
    const std::unique_ptr<BArchivable> object(instantiate_object(&archive));
    const auto* view = dynamic_cast<BView*>(object.get());
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->Frame(), BRect(1, 2, 3, 4));
    const auto* text = dynamic_cast<BStringView*>(view->FindView("Text"));
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text->Text(),
        "Gr\xc3\xb6\xc3\x9f"
        "e: \"\\");
}

TEST(Embedding, NumbersResources) {
    const BResources& resources = *BApplication::AppResources();
    EXPECT_TRUE(resources.HasResource('ARCV', 1));
    EXPECT_TRUE(resources.HasResource('ICON', 2));
    EXPECT_TRUE(resources.HasResource('TEST', 3));
    EXPECT_TRUE(resources.HasResource('APPF', 4));
}

}  // namespace
