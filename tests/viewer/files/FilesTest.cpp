#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>

#include <kernel/OS.h>
#include <storage/Entry.h>
#include <sys/stat.h>
#include <unistd.h>

#include "framework/MessageCodes.h"
#include "tests/viewer/WindowTest.h"

namespace {

constexpr uint8 kJpeg[] = {0xff, 0xd8, 0xff, 0xe0, 0x00, 0x10, 0x4a, 0x46, 0x49, 0x46, 0x00, 0x01,
    0x01, 0x00, 0x00, 0x01, 0x00, 0x01, 0x00, 0x00, 0xff, 0xdb, 0x00, 0x43, 0x00, 0x03, 0x02, 0x02,
    0x03, 0x02, 0x02, 0x03, 0x03, 0x03, 0x03, 0x04, 0x03, 0x03, 0x04, 0x05, 0x08, 0x05, 0x05, 0x04,
    0x04, 0x05, 0x0a, 0x07, 0x07, 0x06, 0x08, 0x0c, 0x0a, 0x0c, 0x0c, 0x0b, 0x0a, 0x0b, 0x0b, 0x0d,
    0x0e, 0x12, 0x10, 0x0d, 0x0e, 0x11, 0x0e, 0x0b, 0x0b, 0x10, 0x16, 0x10, 0x11, 0x13, 0x14, 0x15,
    0x15, 0x15, 0x0c, 0x0f, 0x17, 0x18, 0x16, 0x14, 0x18, 0x12, 0x14, 0x15, 0x14, 0xff, 0xdb, 0x00,
    0x43, 0x01, 0x03, 0x04, 0x04, 0x05, 0x04, 0x05, 0x09, 0x05, 0x05, 0x09, 0x14, 0x0d, 0x0b, 0x0d,
    0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14,
    0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14,
    0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14, 0x14,
    0x14, 0x14, 0xff, 0xc0, 0x00, 0x11, 0x08, 0x00, 0x10, 0x00, 0x10, 0x03, 0x01, 0x11, 0x00, 0x02,
    0x11, 0x01, 0x03, 0x11, 0x01, 0xff, 0xc4, 0x00, 0x15, 0x00, 0x01, 0x01, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x08, 0xff, 0xc4, 0x00, 0x14,
    0x10, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0xff, 0xc4, 0x00, 0x16, 0x01, 0x01, 0x01, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x07, 0x09, 0xff, 0xc4, 0x00, 0x14, 0x11, 0x01,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0xff, 0xda, 0x00, 0x0c, 0x03, 0x01, 0x00, 0x02, 0x11, 0x03, 0x11, 0x00, 0x3f, 0x00, 0x9d, 0x10,
    0xc6, 0xa9, 0x80, 0x00, 0x0f, 0xff, 0xd9};

std::string Jpeg() {
    return {reinterpret_cast<const char*>(kJpeg), sizeof(kJpeg)};
}

std::string Noise(size_t size) {
    std::string noise(size, '\0');
    std::mt19937_64 random(1);
    for (size_t i = 0; i + 8 <= size; i += 8) {
        uint64_t number = random();
        std::memcpy(noise.data() + i, &number, 8);
    }
    return noise;
}

class Files : public WindowTest {
protected:
    /// Steps over the whole folder and back, as far as images are shown.
    std::vector<std::string> ShowAll() {
        Open("");
        std::vector<std::string> shown;
        std::string last;
        while (Shown() != last) {
            last = Shown();
            shown.push_back(last);
            WaitForLoaders();
            Do(kMsgNextImage);
        }
        for (size_t i = 0; i < shown.size(); ++i) {
            WaitForLoaders();
            Do(kMsgPrevImage);
        }
        WaitForLoaders();
        EXPECT_EQ(Shown(), shown.empty() ? "" : shown.front());
        return shown;
    }
};

TEST_F(Files, ShowsImagesWhateverTheirNames) {
    const std::vector<std::string> kNames = {" ", "B.JPG", "a b.jpg", "a%20b", "line\nfeed.jpg",
        "no extension", "text.txt", "\xc3\xa4.jpg", "\xff\xfe\x80.jpg",
        std::string(251, 'x') + ".jpg"};
    for (const std::string& name : kNames)
        Write(name, Jpeg());
    ShowWindow();
    std::vector<std::string> sorted = kNames;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(ShowAll(), sorted);
    EXPECT_EQ(StatusText("StrViewSize"), "16 x 16");
}

TEST_F(Files, PassesOverWhatCannotBeShown) {
    Write("00 empty.jpg", "");
    Write("01 text.jpg", "This is no picture.");
    std::filesystem::create_symlink("/nowhere/at all", Path("02 dangling.jpg"));
    std::filesystem::create_symlink("03 loop.jpg", Path("03 loop.jpg"));
    std::filesystem::create_symlink("/dev/zero", Path("04 device.jpg"));
    ASSERT_EQ(mkfifo(Path("05 pipe.jpg").c_str(), 0600), 0);
    std::filesystem::create_directory(Path("06 folder.jpg"));
    std::filesystem::create_symlink(".", Path("07 link to the folder"));
    Write("08 noise.jpg", Noise(1 << 20));
    Write("09 unreadable.jpg", Jpeg());
    std::filesystem::permissions(Path("09 unreadable.jpg"), std::filesystem::perms::none);
    Write("10 image.jpg", Jpeg());
    std::filesystem::create_symlink("10 image.jpg", Path("11 link"));
    ASSERT_EQ(mkfifo(Path("12 pipe").c_str(), 0600), 0);
    Write("13 image.jpg", Jpeg());
    ShowWindow();
    std::vector<std::string> shown = ShowAll();
    // Who may read everything sees it.
    if (access(Path("09 unreadable.jpg").c_str(), R_OK) == 0) {
        ASSERT_FALSE(shown.empty());
        EXPECT_EQ(shown.front(), "09 unreadable.jpg");
        shown.erase(shown.begin());
    }
    EXPECT_EQ(shown, (std::vector<std::string>{"10 image.jpg", "11 link", "13 image.jpg"}));
}

TEST_F(Files, OpensEachOfThemByItself) {
    Write("image.jpg", Jpeg());
    Write("empty.jpg", "");
    ASSERT_EQ(mkfifo(Path("pipe.jpg").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", Path("device.jpg"));
    std::filesystem::create_symlink("gone", Path("dangling.jpg"));
    ShowWindow();
    for (const char* name : {"empty.jpg", "pipe.jpg", "device.jpg", "dangling.jpg"}) {
        Open("image.jpg");
        EXPECT_EQ(Shown(), "image.jpg");
        Open(name);
        EXPECT_EQ(Shown(), "image.jpg") << name;  // what was shown stays
    }
}

TEST_F(Files, ShowsTheFolderOfAMissingFile) {
    Write("image.jpg", Jpeg());
    ShowWindow();
    Open("missing.jpg");
    EXPECT_EQ(Shown(), "image.jpg");
    Open("missing folder/missing.jpg");
    EXPECT_EQ(Shown(), "");
}

TEST_F(Files, ShowsNothingOfFoldersWithoutImages) {
    ShowWindow();
    std::filesystem::create_directory(Path("empty"));
    Open("empty");
    EXPECT_EQ(Shown(), "");
    std::filesystem::create_directory(Path("texts"));
    for (int i = 0; i < 300; ++i)
        Write("texts/" + std::to_string(i) + ".jpg", "text");
    Open("texts");
    WaitForLoaders();
    EXPECT_EQ(Shown(), "");
    std::filesystem::permissions(Path("texts"), std::filesystem::perms::none);
    Open("texts");
    WaitForLoaders();
    EXPECT_EQ(Shown(), "");
    std::filesystem::permissions(Path("texts"), std::filesystem::perms::all);
}

// A truncated file is known as an image but cannot be decoded.
TEST_F(Files, ShowsNothingOfTruncatedImages) {
    Write("a.jpg", Jpeg());
    for (size_t length : {2U, 20U, 160U, 250U})
        Write("b" + std::to_string(length), Jpeg().substr(0, length));
    Write("c.jpg", Jpeg());
    ShowWindow();
    Open("a.jpg");
    for (int i = 0; i < 6; ++i) {
        WaitForLoaders();
        Do(kMsgNextImage);
        EXPECT_TRUE(Shown() == "a.jpg" || Shown() == "c.jpg") << Shown();
    }
    EXPECT_EQ(Shown(), "c.jpg");
}

TEST_F(Files, PassesOverMuchNoiseAtOnce) {
    Write("a.jpg", Jpeg());
    Write("b.jpg", Noise(100'000'000));
    Write("c.jpg", Jpeg());
    ShowWindow();
    Open("a.jpg");
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "c.jpg");
    Open("b.jpg");
    EXPECT_EQ(Shown(), "c.jpg");
}

TEST_F(Files, SurvivesFilesThatVanish) {
    for (const char* name : {"a", "b", "c", "d"})
        Write(name, Jpeg());
    ShowWindow();
    Open("b");
    WaitForLoaders();
    for (const char* name : {"a", "b", "c", "d"})
        std::filesystem::remove(Path(name));
    Do(kMsgNextImage);  // decoded already
    EXPECT_EQ(Shown(), "c");
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "c");
    Do(kMsgLastImage);
    Do(kMsgFirstImage);
    WaitForLoaders();
    Open("a");
    EXPECT_EQ(Shown(), "");
}

TEST_F(Files, TakesAFolderOfAHundredThousandEntries) {
    for (int i = 0; i < 100'000; ++i)
        std::ofstream(Path("file " + std::to_string(i)));
    Write("image.jpg", Jpeg());
    Write("z.jpg", Jpeg());
    ShowWindow();
    bigtime_t start = system_time();
    Open("image.jpg");
    EXPECT_EQ(Shown(), "image.jpg");
    EXPECT_EQ(StatusText("StrViewIdx"), "100001/100002");
    Do(kMsgNextImage);
    EXPECT_TRUE(recording::WaitFor([&] { return Shown() == "z.jpg"; }));
    RecordProperty("microseconds", std::to_string(system_time() - start));
    // The loader that looks for an image before the first one has all the others to look at;
    // the window does not wait for that to close.
    Do(kMsgFirstImage);
    bigtime_t end = system_time();
    QuitWindow();
    EXPECT_LT(system_time() - end, 1'000'000);
}

}  // namespace
