#include "tests/kits/translators/QtFile.h"
#include <QBuffer>
#include <QColorSpace>
#include <QCoreApplication>
#include <QImageReader>
#include <gtest/gtest.h>
#include <thread>

static constexpr char kAddOn[] = "qt-translator.so";

static Sample Lossless(const std::string& name, const std::string& format, const Bytes& file,
    const Picture& expected) {
    return {"qt_" + name, kAddOn, format, file, expected, 0, false, false};
}

static Sample Written(const QByteArray& qtName, const std::string& format, const QImage& image,
    const QByteArray& subType = {}) {
    const std::string suffix = subType.isEmpty() ? "" : "_" + subType.toStdString();
    return Lossless(qtName.toStdString() + suffix, format, MakeQtFile(image, qtName, subType),
        FromQImage(image));
}

static std::string RunLengthBmp() {
    // Two rows of four pixels, bottom first: 3 of colour 1 and 1 of colour 2; then four as they
    // are.
    const std::string colors("\0\0\0\0\0\0\xff\0\0\xff\0\0\xff\0\0\0", 16);
    const std::string runs("\x03\x01\x01\x02\0\0\0\x04\1\2\3\0\0\1", 14);
    const auto number = [](uint64 value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; i++)
            text += char(value >> (8 * i));
        return text;
    };
    const size_t offset = 14 + 40 + colors.size();
    return "BM" + number(offset + runs.size(), 4) + number(0, 4) + number(offset, 4) +
        number(40, 4) + number(4, 4) + number(2, 4) + number(1, 2) + number(8, 2) + number(1, 4) +
        number(runs.size(), 4) + number(0, 8) + number(4, 4) + number(0, 4) + colors + runs;
}

static Picture RunLengthPicture() {
    const uint32 black = Bgra(0, 0, 0);
    const uint32 red = Bgra(255, 0, 0);
    const uint32 green = Bgra(0, 255, 0);
    const uint32 blue = Bgra(0, 0, 255);
    return {4, 2, {red, green, blue, black, red, red, red, green}};
}

static Bytes MakeTga(const Picture& picture) {
    Bytes file = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, uint8(picture.width), 0,
        uint8(picture.height), 0, 24, 0x20};
    for (const uint32 pixel : picture.pixels)
        file.insert(file.end(), {uint8(pixel), uint8(pixel >> 8), uint8(pixel >> 16)});
    file.insert(file.end(), 8, 0);
    const std::string footer("TRUEVISION-XFILE.", 18);
    file.insert(file.end(), footer.begin(), footer.end());
    return file;
}

static std::string PlainPixmap(const Picture& picture) {
    std::string text = "P3\n# a comment\n" + std::to_string(picture.width) + " " +
        std::to_string(picture.height) + "\n255\n";
    for (const uint32 pixel : picture.pixels)
        text += std::to_string(pixel >> 16 & 0xff) + " " + std::to_string(pixel >> 8 & 0xff) + " " +
            std::to_string(pixel & 0xff) + "\n";
    return text;
}

static const char kDrawing[] =
    "<?xml version=\"1.0\"?>\n<!-- a drawing -->\n"
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"2\">"
    "<rect width=\"4\" height=\"2\" fill=\"#f00\"/></svg>";

std::vector<Sample> QtSamples() {
    const Picture picture = MakePicture(13, 9);
    const QImage color = ToQImage(picture);
    const QImage alpha = ToQImage(MakePicture(13, 9, -1));
    QImage mono = color.convertToFormat(QImage::Format_Mono);
    const QImage gray = color.convertToFormat(QImage::Format_Grayscale8);
    const Picture red{4, 2, std::vector<uint32>(8, Bgra(255, 0, 0))};
    std::vector<Sample> samples = {
        Written("bmp", "BMP image", color.convertToFormat(QImage::Format_RGB32)),
        Written("ppm", "PPM image", color),
        Written("pgm", "PGM image", gray),
        Written("pbm", "PBM image", mono),
        Written("xbm", "XBM image", mono),
        Written("xpm", "XPM image", color.convertToFormat(QImage::Format_RGB32)),
        Written("ico", "Icon", color),
        Lossless("bmp_runs", "BMP image", FromText(RunLengthBmp()), RunLengthPicture()),
        Lossless("gif", "GIF image", MakeGif(13, 9), GifPicture(13, 9)),
        Lossless("gif_frames", "GIF image", MakeGif(13, 9, 2), GifPicture(13, 9)),
        Lossless("ppm_plain", "PPM image", FromText(PlainPixmap(picture)), picture),
        Lossless("tga", "TGA image", MakeTga(picture), picture),
        Lossless("svg", "SVG image", FromText(kDrawing), red),
        Lossless("svgz", "SVG image", FromText(Compressed(kDrawing)), red),
    };
    samples[samples.size() - 1].needsApplication = true;
    samples[samples.size() - 2].needsApplication = true;
    // Where the plug-ins are installed, as the packages list demands.
    for (const auto& [qtName, format] : {std::pair<QByteArray, std::string>("tiff", "TIFF image"),
             {"webp", "WebP image"}, {"icns", "ICNS icon"}}) {
        // TIFF keeps colours multiplied by alpha; icons have certain sizes.
        const QImage image = qtName == "icns" ? ToQImage(MakePicture(16, 16, -1))
            : qtName == "tiff"                ? color
                                              : alpha;
        if (QImageReader::supportedImageFormats().contains(qtName))
            samples.push_back(Written(qtName, format, image));
    }
    return samples;
}

static status_t TryQt(const Bytes& file, Picture* picture = nullptr) {
    Picture own;
    return DecodeFile(LoadAddOn(kAddOn), file, picture != nullptr ? picture : &own);
}

TEST(QtTest, TheFormatsOfThePackagesAreThere) {
    for (const char* format : {"bmp", "gif", "ico", "ppm", "svg", "tga", "tiff", "webp", "xpm"})
        EXPECT_TRUE(QImageReader::supportedImageFormats().contains(format)) << format;
}

TEST(QtTest, TakesNothingForAnImageThatIsNone) {
    const std::string zeros(2000, '\0');
    std::string film = zeros;
    film.replace(3, 13,
        "\x18"
        "ftypmp42\0\0\0\0",
        13);
    std::string font = zeros;
    font[1] = '\x01';
    const struct {
        const char* name;
        Bytes file;
    } kCases[] = {
        {"nothing", {}},
        {"one byte", {0}},
        {"text", FromText("A comment about a picture.\n")},
        {"zeros", FromText(zeros)},
        {"film", FromText(film)},
        {"font", FromText(font)},
        {"JPEG", {0xff, 0xd8, 0xff, 0xe0, 0, 16}},
        {"PNG", FromText("\x89PNG\r\n\x1a\n")},
        {"page", FromText("<?xml version=\"1.0\"?><html><svg/></html>")},
        {"metadata", FromText("<?xpacket begin=''?><x:xmpmeta xmlns:x='adobe:ns:meta/'/>")},
        {"compressed text", FromText(Compressed("A compressed comment"))},
        {"compressed page", FromText(Compressed("<?xml version=\"1.0\"?><html/>"))},
    };
    for (const auto& test : kCases)
        EXPECT_EQ(IdentifyFile(LoadAddOn(kAddOn), test.file), "") << test.name;
}

TEST(QtTest, TurnsThePictureUprightOnce) {
    if (!QImageReader::supportedImageFormats().contains("tiff"))
        GTEST_SKIP() << "Qt's plug-in for TIFF is not installed";
    // Qt's transformations in the order of the orientations 1 to 8.
    using Io = QImageIOHandler;
    static constexpr Io::Transformation kTransformations[] = {Io::TransformationNone,
        Io::TransformationMirror, Io::TransformationRotate180, Io::TransformationFlip,
        Io::TransformationFlipAndRotate90, Io::TransformationRotate90,
        Io::TransformationMirrorAndRotate90, Io::TransformationRotate270};
    const Picture picture = MakePicture(13, 9);
    for (int i = 0; i < 8; i++) {
        Picture decoded;
        ASSERT_EQ(
            TryQt(MakeQtFile(ToQImage(picture), "tiff", {}, kTransformations[i]), &decoded), B_OK);
        EXPECT_EQ(decoded, Upright(picture, i + 1)) << i + 1;
    }
}

TEST(QtTest, ConvertsColorSpaces) {
    if (!QImageReader::supportedImageFormats().contains("tiff"))
        GTEST_SKIP() << "Qt's plug-in for TIFF is not installed";
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(qRgb(128, 128, 128));
    image.setColorSpace(QColorSpace(QColorSpace::SRgbLinear));
    Picture decoded;
    ASSERT_EQ(TryQt(MakeQtFile(image, "tiff"), &decoded), B_OK);
    const Picture light{3, 2, std::vector<uint32>(6, Bgra(188, 188, 188))};
    EXPECT_LE(Difference(decoded, light), 1) << std::hex << decoded.pixels[0];
}

TEST(QtTest, RefusesHugeSizesAtOnce) {
    const struct {
        const char* name;
        std::string file;
    } kCases[] = {
        {"ppm", "P6\n60000 60000\n255\nabc"},
        {"ppm, overflowing", "P6\n2000000000 2000000000\n255\nabc"},
        {"ppm, plain", "P3\n60000 60000\n255\n1 2 3 "},
        {"xbm", "#define a_width 60000\n#define a_height 60000\nstatic char a[] = {\n 0x00 };"},
        {"xpm",
            "/* XPM */\nstatic char * a[] = {\n\"60000 60000 1 1\",\n\"a c #000000\",\n\"a\"};"},
        {"gif", "GIF89a\xff\xff\xff\xff" + std::string(40, 'a')},
        {"bmp", RunLengthBmp().replace(18, 8, "\0\0\0\x10\0\0\0\x10", 8)},
    };
    for (const auto& test : kCases)
        EXPECT_NE(TryQt(FromText(test.file)), B_OK) << test.name;
}

TEST(QtTest, NeedsNoApplicationAndAnyThreadWillDo) {
    if (QCoreApplication::instance() != nullptr)
        GTEST_SKIP() << "another test has made an application; alone this one shows it";
    std::thread([] {
        for (const Sample& sample : QtSamples()) {
            Picture picture;
            const status_t status = TryQt(sample.file, &picture);
            EXPECT_EQ(status, sample.needsApplication ? B_NOT_SUPPORTED : B_OK) << sample;
        }
    }).join();
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
}

TEST(QtTest, DrawingsWithTextAreDrawnOnAnyThread) {
    EnsureApplication();
    const std::string drawing =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"60\" height=\"20\">"
        "<text x=\"1\" y=\"15\">words</text></svg>";
    std::thread([&] { EXPECT_EQ(TryQt(FromText(drawing)), B_OK); }).join();
}

TEST(QtTest, RefusesDrawingsThatMultiplyThemselves) {
    EnsureApplication();
    const std::string begin =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" "
        "xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
        "width=\"4\" height=\"4\">";
    const auto use = [](int id) { return "<use xlink:href=\"#n" + std::to_string(id) + "\"/>"; };
    const auto doubling = [&](int levels) {
        std::string drawing = begin + "<rect id=\"n0\" width=\"1\" height=\"1\"/>";
        for (int i = 1; i <= levels; i++)
            drawing += "<g id=\"n" + std::to_string(i) + "\">" + use(i - 1) + use(i - 1) + "</g>";
        return drawing + "</svg>";
    };
    EXPECT_EQ(TryQt(FromText(doubling(8))), B_OK);
    EXPECT_EQ(TryQt(FromText(doubling(40))), B_BAD_DATA);
    // Hidden behind an id that two elements have.
    std::string twice = doubling(40);
    twice.insert(begin.size(), "<g id=\"n20\"/>");
    EXPECT_EQ(TryQt(FromText(twice)), B_BAD_DATA);
    EXPECT_EQ(TryQt(FromText(
                  begin + "<g id=\"n1\">" + use(2) + "</g><g id=\"n2\">" + use(1) + "</g></svg>")),
        B_BAD_DATA);
    // A careless drawing that has one id many times is none of them.
    std::string careless = begin;
    for (int i = 0; i < 3000; i++)
        careless += "<g id=\"n1\"><rect width=\"1\" height=\"1\"/></g>";
    EXPECT_EQ(TryQt(FromText(careless + use(1) + "</svg>")), B_OK);
}

TEST(QtTest, RefusesDrawingsWithoutEnd) {
    EnsureApplication();
    std::string deep = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\">";
    for (int i = 0; i < 100000; i++)
        deep += "<g>";
    EXPECT_EQ(TryQt(FromText(deep)), B_BAD_DATA);
    // Compressed a thousandfold.
    std::string large =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\"><g id='";
    large += std::string(200 * 1024 * 1024, 'a');
    EXPECT_EQ(TryQt(FromText(Compressed(large))), B_NO_MEMORY);
}

// A field that nobody knows, of which the library for TIFF itself complains.
static Bytes MakeTiffWithUnknownField() {
    std::string file("II*\0\x0c\0\0\0\0\x80\xff\x40\x0a\0", 14);
    const auto add = [&file](uint32 tag, uint32 type, uint32 value) {
        for (const auto& [number, bytes] : {std::pair{tag, 2}, {type, 2}, {1U, 4}, {value, 4}}) {
            for (int i = 0; i < bytes; i++)
                file += char(number >> (8 * i));
        }
    };
    constexpr uint32 kShort = 3;
    constexpr uint32 kLong = 4;
    add(256, kShort, 2);   // width
    add(257, kShort, 2);   // height
    add(258, kShort, 8);   // bits of a sample
    add(259, kShort, 1);   // not compressed
    add(262, kShort, 1);   // black is 0
    add(273, kLong, 8);    // the pixels' place
    add(277, kShort, 1);   // samples of a pixel
    add(278, kShort, 2);   // rows of a strip
    add(279, kLong, 4);    // bytes of a strip
    add(60001, kLong, 7);  // unknown
    return FromText(file + std::string(4, '\0'));
}

TEST(QtTest, FilesThatAreOddButSoundAreReadInSilence) {
    // They ask for what is to be absent here.
    unsetenv("QT_LOGGING_RULES");
    unsetenv("QT_LOGGING_CONF");
    EnsureApplication();
    const std::string drawing =
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"60\" height=\"20\">"
        "<rect width=\"9\" height=\"9\" fill=\"url(#none)\"/><image width=\"4\" "
        "height=\"4\"/></svg>";
    testing::internal::CaptureStderr();
    EXPECT_EQ(TryQt(FromText(drawing)), B_OK);
    if (QImageReader::supportedImageFormats().contains("tiff")) {
        EXPECT_EQ(TryQt(MakeTiffWithUnknownField()), B_OK);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");

    // What is said elsewhere is heard.
    testing::internal::CaptureStderr();
    qWarning("heard");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "heard\n");
}
