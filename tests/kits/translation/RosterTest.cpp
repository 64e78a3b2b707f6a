#include "kits/interface/BitmapAccess.h"
#include <app/Message.h>
#include <atomic>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <interface/Bitmap.h>
#include <memory>
#include <png.h>
#include <storage/File.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <translation/BitmapStream.h>
#include <translation/TranslatorRoster.h>
#include <vector>

namespace {

std::vector<uint8> MakePng(uint32 width, uint32 height) {
    std::vector<uint8> pixels(size_t(width) * height * 4);
    for (size_t i = 0; i < pixels.size(); i++)
        pixels[i] = uint8(i * 5);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_BGRA;
    png_alloc_size_t size = 0;
    png_image_write_to_memory(&image, nullptr, &size, 0, pixels.data(), 0, nullptr);
    std::vector<uint8> file(size);
    png_image_write_to_memory(&image, file.data(), &size, 0, pixels.data(), 0, nullptr);
    file.resize(size);
    return file;
}

std::unique_ptr<BMemoryIO> Open(const std::vector<uint8>& file) {
    return std::make_unique<BMemoryIO>(static_cast<const void*>(file.data()), file.size());
}

std::unique_ptr<BBitmap> Detach(BBitmapStream& stream) {
    BBitmap* bitmap = nullptr;
    stream.DetachBitmap(&bitmap);
    return std::unique_ptr<BBitmap>(bitmap);
}

// Knows files that begin with "mine", as one white pixel.
class OwnTranslator : public BTranslator {
public:
    explicit OwnTranslator(bool* gone) : fGone(gone) {}

    const char* TranslatorName() const override { return "Mine"; }
    const char* TranslatorInfo() const override { return "A test's own"; }
    int32 TranslatorVersion() const override { return 7; }

    status_t Identify(BPositionIO* source, const translation_format*, BMessage*,
        translator_info* info, uint32) override {
        char head[4];
        if (source->Read(head, 4) != 4 || memcmp(head, "mine", 4) != 0)
            return B_NO_TRANSLATOR;
        info->type = 'mine';
        info->group = B_TRANSLATOR_BITMAP;
        strcpy(info->name, "My image");
        strcpy(info->MIME, "image/x-mine");
        return B_OK;
    }

    status_t Translate(BPositionIO* source, const translator_info*, BMessage*, uint32,
        BPositionIO* destination) override {
        if (source->Position() != 0)
            return B_ERROR;
        BBitmapStream stream(new BBitmap(BRect(0, 0, 0, 0), B_RGBA32));
        std::vector<uint8> bytes(size_t(stream.Size()));
        stream.ReadAt(0, bytes.data(), bytes.size());
        return destination->WriteExactly(bytes.data(), bytes.size());
    }

private:
    ~OwnTranslator() override { *fGone = true; }

    bool* fGone;
};

bool IsLoaded(const char* name) {
    const std::filesystem::path program = std::filesystem::canonical("/proc/self/exe");
    const std::string path = program.parent_path().parent_path() / "add-ons/translators" / name;
    void* module = dlopen(path.c_str(), RTLD_NOLOAD | RTLD_NOW);
    if (module != nullptr)
        dlclose(module);
    return module != nullptr;
}

}  // namespace

TEST(RosterTest, FindsTheAddOnsBesideTheProgram) {
    BTranslatorRoster roster;
    translator_info info;
    const std::vector<uint8> file = MakePng(3, 2);
    EXPECT_EQ(roster.Identify(Open(file).get(), nullptr, &info), B_NO_TRANSLATOR);
    ASSERT_EQ(roster.AddTranslators(), B_OK);
    ASSERT_EQ(roster.AddTranslators(nullptr), B_OK);
    translator_id* list = nullptr;
    int32 count = 0;
    ASSERT_EQ(roster.GetAllTranslators(&list, &count), B_OK);
    const std::unique_ptr<translator_id[]> owner(list);
    ASSERT_EQ(count, 3);
    const char* name = nullptr;
    EXPECT_EQ(roster.GetTranslatorInfo(list[0], &name, nullptr, nullptr), B_OK);
    EXPECT_STREQ(name, "JPEG images");
    EXPECT_EQ(roster.GetTranslatorInfo(list[2], &name, nullptr, nullptr), B_OK);
    EXPECT_STREQ(name, "Images known to Qt");
    EXPECT_EQ(roster.GetTranslatorInfo(12345, &name, nullptr, nullptr), B_NO_TRANSLATOR);
    EXPECT_EQ(roster.AddTranslators("/no/such/folder"), B_ENTRY_NOT_FOUND);
}

TEST(RosterTest, IdentifiesByContentsAlone) {
    BTranslatorRoster roster;
    roster.AddTranslators();
    const std::vector<uint8> file = MakePng(3, 2);
    const auto source = Open(file);
    source->Seek(7, SEEK_SET);
    translator_info info;
    ASSERT_EQ(roster.Identify(source.get(), nullptr, &info), B_OK);
    EXPECT_EQ(source->Position(), 0);
    EXPECT_EQ(info.type, uint32('PNG '));
    EXPECT_EQ(info.group, B_TRANSLATOR_BITMAP);
    EXPECT_STREQ(info.name, "PNG image");
    EXPECT_STREQ(info.MIME, "image/png");
    EXPECT_GT(info.translator, 0);

    EXPECT_EQ(roster.Identify(source.get(), nullptr, &info, 'PNG ', "image/png", 'bits'), B_OK);
    EXPECT_EQ(roster.Identify(source.get(), nullptr, &info, 'JPEG'), B_NO_TRANSLATOR);
    EXPECT_EQ(roster.Identify(source.get(), nullptr, &info, 0, "image/jpeg"), B_NO_TRANSLATOR);
    EXPECT_EQ(roster.Identify(source.get(), nullptr, &info, 0, nullptr, 'TEXT'), B_NO_TRANSLATOR);
    EXPECT_EQ(info.translator, 0);
    EXPECT_EQ(info.group, 0u);
    EXPECT_EQ(roster.Identify(nullptr, nullptr, &info), B_BAD_VALUE);
    EXPECT_EQ(roster.Identify(source.get(), nullptr, nullptr), B_BAD_VALUE);

    BFile folder("/tmp", B_READ_ONLY);
    EXPECT_EQ(roster.Identify(&folder, nullptr, &info), B_IS_A_DIRECTORY);
    BFile missing("/no/such/file", B_READ_ONLY);
    EXPECT_EQ(roster.Identify(&missing, nullptr, &info), B_NO_INIT);
    EXPECT_EQ(roster.Identify(Open({}).get(), nullptr, &info), B_NO_TRANSLATOR);
}

TEST(RosterTest, LoadsAnAddOnOnlyForAFileThatMightBeItsOwn) {
    if (IsLoaded("qt-translator.so") || IsLoaded("png-translator.so"))
        GTEST_SKIP() << "another test has loaded them; alone this one shows it";
    BTranslatorRoster roster;
    roster.AddTranslators();
    translator_info info;
    const std::string text = "A comment beside a picture, in a folder of pictures.\n";
    BMemoryIO comment(static_cast<const void*>(text.data()), text.size());
    EXPECT_EQ(roster.Identify(&comment, nullptr, &info), B_NO_TRANSLATOR);
    EXPECT_FALSE(IsLoaded("png-translator.so"));
    const std::vector<uint8> file = MakePng(3, 2);
    EXPECT_EQ(roster.Identify(Open(file).get(), nullptr, &info), B_OK);
    EXPECT_TRUE(IsLoaded("png-translator.so"));
    EXPECT_FALSE(IsLoaded("jpeg-translator.so"));
    EXPECT_FALSE(IsLoaded("qt-translator.so"));
}

TEST(RosterTest, TranslatesIntoABitmap) {
    BTranslatorRoster roster;
    roster.AddTranslators();
    const std::vector<uint8> file = MakePng(5, 4);
    const auto source = Open(file);
    translator_info info;
    ASSERT_EQ(roster.Identify(source.get(), nullptr, &info), B_OK);
    BBitmapStream stream;
    ASSERT_EQ(roster.Translate(source.get(), &info, nullptr, &stream, B_TRANSLATOR_BITMAP), B_OK);
    const std::unique_ptr<BBitmap> bitmap = Detach(stream);
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(bitmap->Bounds(), BRect(0, 0, 4, 3));
    EXPECT_EQ(bitmap->ColorSpace(), B_RGBA32);
    const uint8* bits = BPrivate::BitmapAccess::Pixels(*bitmap).bits;
    for (int i = 0; i < 5 * 4 * 4; i++)
        ASSERT_EQ(bits[i], uint8(i * 5));

    // The same without being told the format, and into any stream.
    BMallocIO memory;
    ASSERT_EQ(roster.Translate(source.get(), nullptr, nullptr, &memory, 0), B_OK);
    EXPECT_EQ(memory.BufferLength(), 32u + 80u);
    EXPECT_EQ(memcmp(static_cast<const uint8*>(memory.Buffer()) + 32, bits, 80), 0);
}

TEST(RosterTest, AFailedTranslationLeavesNothing) {
    BTranslatorRoster roster;
    roster.AddTranslators();
    std::vector<uint8> file = MakePng(5, 4);
    translator_info info;
    ASSERT_EQ(roster.Identify(Open(file).get(), nullptr, &info), B_OK);
    BBitmapStream stream;
    EXPECT_EQ(roster.Translate(Open(file).get(), &info, nullptr, &stream, 'TEXT'), B_NO_TRANSLATOR);
    file.resize(file.size() - 1);
    EXPECT_EQ(roster.Translate(Open(file).get(), &info, nullptr, &stream, 'bits'), B_BAD_DATA);
    // What was a PNG file when it was looked at may be another now.
    const std::vector<uint8> other(100, 'x');
    EXPECT_EQ(roster.Translate(Open(other).get(), &info, nullptr, &stream, 'bits'), B_BAD_DATA);
    EXPECT_EQ(
        roster.Translate(Open(other).get(), nullptr, nullptr, &stream, 'bits'), B_NO_TRANSLATOR);
    const translator_info nobody;
    EXPECT_EQ(
        roster.Translate(Open(other).get(), &nobody, nullptr, &stream, 'bits'), B_NO_TRANSLATOR);
    BFile missing("/no/such/file", B_READ_ONLY);
    EXPECT_LT(roster.Translate(&missing, &info, nullptr, &stream, 'bits'), 0);
    EXPECT_EQ(Detach(stream), nullptr);
}

TEST(RosterTest, AFailedTranslationSaysWhy) {
    BTranslatorRoster roster;
    roster.AddTranslators();
    const std::vector<uint8> whole = MakePng(20, 20);
    std::vector<uint8> half(whole.begin(), whole.begin() + ptrdiff_t(whole.size() / 2));
    std::vector<uint8> damaged = whole;
    damaged[damaged.size() / 2] ^= 0xff;
    for (const auto& [file, isIncomplete] : {std::pair(half, true), {damaged, false}}) {
        const auto source = Open(file);
        BBitmapStream stream;
        BMessage explanation;
        EXPECT_EQ(
            roster.Translate(source.get(), nullptr, &explanation, &stream, B_TRANSLATOR_BITMAP),
            B_BAD_DATA);
        EXPECT_STRNE(explanation.GetString(B_TRANSLATOR_EXT_PROBLEM, ""), "");
        EXPECT_EQ(explanation.GetBool(B_TRANSLATOR_EXT_INCOMPLETE, !isIncomplete), isIncomplete);
    }
}

TEST(RosterTest, AHugeSizeIsAnErrorBeforeAnythingIsDecoded) {
    std::vector<uint8> file = MakePng(5, 4);
    // 60000 by 60000, with the check sum that belongs to it.
    const uint8 size[] = {0, 0, 0xea, 0x60, 0, 0, 0xea, 0x60};
    std::copy(std::begin(size), std::end(size), file.begin() + 16);
    uint32 crc = 0xffffffff;
    for (size_t i = 12; i < 29; i++) {
        crc ^= file[i];
        for (int bit = 0; bit < 8; bit++)
            crc = crc >> 1 ^ (crc & 1 ? 0xedb88320 : 0);
    }
    for (int i = 0; i < 4; i++)
        file[29 + size_t(i)] = uint8(~crc >> (24 - 8 * i));
    BTranslatorRoster roster;
    roster.AddTranslators();
    BBitmapStream stream;
    EXPECT_EQ(roster.Translate(Open(file).get(), nullptr, nullptr, &stream, 'bits'), B_NO_MEMORY);
}

TEST(RosterTest, AsksACallersOwnTranslatorFirst) {
    bool gone = false;
    auto* translator = new OwnTranslator(&gone);
    {
        BTranslatorRoster roster;
        roster.AddTranslators();
        EXPECT_EQ(roster.AddTranslator(nullptr), B_BAD_VALUE);
        ASSERT_EQ(roster.AddTranslator(translator), B_OK);
        EXPECT_EQ(translator->Release(), translator);
        const std::string text = "mine";
        BMemoryIO source(static_cast<const void*>(text.data()), text.size());
        source.Seek(3, SEEK_SET);
        translator_info info;
        ASSERT_EQ(roster.Identify(&source, nullptr, &info), B_OK);
        EXPECT_STREQ(info.name, "My image");
        int32 version = 0;
        EXPECT_EQ(roster.GetTranslatorInfo(info.translator, nullptr, nullptr, &version), B_OK);
        EXPECT_EQ(version, 7);
        BBitmapStream stream;
        EXPECT_EQ(roster.Translate(&source, &info, nullptr, &stream, 'bits'), B_OK);
        EXPECT_NE(Detach(stream), nullptr);
        // Another roster does not know it.
        BTranslatorRoster other;
        EXPECT_EQ(other.Translate(&source, &info, nullptr, &stream, 'bits'), B_NO_TRANSLATOR);
        EXPECT_FALSE(gone);
    }
    EXPECT_TRUE(gone);
}

TEST(RosterTest, ManyThreadsTranslateAtOnce) {
    const std::vector<uint8> file = MakePng(40, 30);
    std::atomic<int> good{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; i++) {
        threads.emplace_back([&, i] {
            for (int round = 0; round < 20; round++) {
                BTranslatorRoster own;
                own.AddTranslators();
                BTranslatorRoster& roster = i % 2 == 0 ? own : *BTranslatorRoster::Default();
                const auto source = Open(file);
                translator_info info;
                BBitmapStream stream;
                if (roster.Identify(source.get(), nullptr, &info) == B_OK &&
                    roster.Translate(source.get(), &info, nullptr, &stream, 'bits') == B_OK)
                    good++;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(good, 80);
}

TEST(RosterTest, AFolderOfAddOnsMayHoldAnything) {
    std::string folder = std::filesystem::temp_directory_path() / "roster-test-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    std::ofstream(folder + "/broken.so") << "not a module";
    std::ofstream(folder + "/jpeg-translator.so") << "nor this";
    mkfifo((folder + "/readme").c_str(), 0666);
    BTranslatorRoster roster;
    EXPECT_EQ(roster.AddTranslators((folder + ":/none:" + folder + "/").c_str()), B_OK);
    translator_id* list = nullptr;
    int32 count = 0;
    ASSERT_EQ(roster.GetAllTranslators(&list, &count), B_OK);
    delete[] list;
    EXPECT_EQ(count, 2);
    const std::vector<uint8> file = MakePng(3, 2);
    translator_info info;
    EXPECT_EQ(roster.Identify(Open(file).get(), nullptr, &info), B_NO_TRANSLATOR);
    std::filesystem::remove_all(folder);
}
