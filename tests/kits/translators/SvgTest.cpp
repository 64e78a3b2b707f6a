#include "tests/kits/translators/QtFile.h"
#include <QTemporaryDir>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr uint32 kRed = Bgra(255, 0, 0);
constexpr uint32 kGreen = Bgra(0, 255, 0);

/// A drawing of 4 by 2 pixels.
std::string Drawing(const std::string& content, const std::string& before = "") {
    return before +
        "<svg xmlns=\"http://www.w3.org/2000/svg\" "
        "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"4\" height=\"2\">" +
        content + "</svg>";
}

std::string Rectangle(const std::string& attributes) {
    return "<rect width=\"4\" height=\"2\" " + attributes + "/>";
}

/// What is drawn over a green ground.
std::string OnGreen(const std::string& content) {
    return Drawing(Rectangle("fill=\"#0f0\"") + content);
}

std::string Image(const std::string& reference) {
    return "<image width=\"4\" height=\"2\" xlink:href=\"" + reference + "\"/>";
}

std::string Base64(const std::string& data) {
    return QByteArray::fromStdString(data).toBase64().toStdString();
}

std::string DataReference(const std::string& mime, const std::string& data) {
    return "data:" + mime + ";base64," + Base64(data);
}

std::string RedPng() {
    QImage image(4, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    const Bytes file = MakeQtFile(image, "png");
    return {file.begin(), file.end()};
}

}  // namespace

/// Runs in a folder of its own, which files may be named relative to.
class SvgTest : public testing::Test {
protected:
    void SetUp() override {
        EnsureApplication();
        ASSERT_TRUE(fFolder.isValid());
        std::filesystem::current_path(Folder());
    }
    void TearDown() override { std::filesystem::current_path(fBefore); }

    std::string Folder() const { return fFolder.path().toStdString(); }

    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(Folder() + "/" + name, std::ios::binary) << text;
        return Folder() + "/" + name;
    }

    /// The colour of a drawing that has one all over; 0 if it is not shown.
    static uint32 Color(const std::string& drawing) {
        Picture picture;
        BPrivate::AddOn::Problem problem;
        const status_t status =
            DecodeFile(LoadAddOn("qt-translator.so"), FromText(drawing), &picture, &problem);
        EXPECT_EQ(status, B_OK) << problem.text;
        if (status != B_OK)
            return 0;
        const Picture expected{4, 2, std::vector<uint32>(8, picture.pixels[0])};
        EXPECT_EQ(picture, expected);
        return picture.pixels[0];
    }

private:
    const std::filesystem::path fBefore = std::filesystem::current_path();
    QTemporaryDir fFolder;
};

TEST_F(SvgTest, ShowsTheRestOfADrawingThatNamesAFile) {
    const std::string red = Write("red.png", RedPng());
    Write("red.svg", Drawing(Rectangle("fill=\"red\"")));
    Write("red.css", "rect { fill: red }");
    ASSERT_EQ(Color(OnGreen("")), kGreen);
    const std::string references[] = {red, "red.png", "./red.png", "file://" + red, "red.svg",
        " red.png ", "file:red.png", "data:/../red.png", "data:,../red.png"};
    for (const std::string& reference : references) {
        EXPECT_EQ(Color(OnGreen(Image(reference))), kGreen) << reference;
        EXPECT_EQ(Color(OnGreen("<image width='4' height='2' href='" + reference + "'/>")), kGreen)
            << reference;
    }
    EXPECT_EQ(Color(Compressed(OnGreen(Image(red)))), kGreen);
    EXPECT_EQ(Color("<?xml-stylesheet type=\"text/css\" href=\"red.css\"?>" +
                  Drawing(Rectangle("fill=\"#0f0\" class=\"a\""))),
        kGreen);
    EXPECT_EQ(Color("<?xml version=\"1.0\"?><!DOCTYPE svg [<!ENTITY f \"" + red + "\">]>" +
                  OnGreen(Image("&f;"))),
        kGreen);
    // Within an entity the prefix is to be declared once more.
    EXPECT_EQ(Color("<?xml version=\"1.0\"?><!DOCTYPE svg [<!ENTITY f '<image "
                    "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"4\" height=\"2\" "
                    "xlink:href=\"red.png\"/>'>]>" +
                  OnGreen("&f;")),
        kGreen);
}

TEST_F(SvgTest, KeepsWhatADrawingSaysOfItself) {
    const std::string red = Rectangle("fill=\"#f00\"");
    EXPECT_EQ(
        Color(Drawing("<defs><g id=\"a\">" + red + "</g></defs><use xlink:href=\" #a\"/>")), kRed);
    EXPECT_EQ(Color(Drawing("<style>.a { fill: red }</style>" + Rectangle("class=\"a\""))), kRed);
    EXPECT_EQ(Color(Drawing("<style><![CDATA[.a{fill:r]]><!-- - --><![CDATA[ed}]]></style>" +
                  Rectangle("class=\"a\""))),
        kRed);
    EXPECT_EQ(Color(Drawing("<linearGradient id=\"g\"><stop stop-color=\"red\"/>"
                            "</linearGradient><linearGradient id=\"h\" xlink:href=\"#g\"/>" +
                  Rectangle("fill=\"url(#h)\""))),
        kRed);
    EXPECT_EQ(Color("<?xml version=\"1.0\"?><!DOCTYPE svg [<!ENTITY f \"#f00\">]>" +
                  Drawing(Rectangle("fill=\"&f;\""))),
        kRed);
    EXPECT_EQ(Color("<?xml version=\"1.0\"?><s:svg xmlns:s=\"http://www.w3.org/2000/svg\" "
                    "width=\"4\" height=\"2\">"
                    "<s:rect width=\"4\" height=\"2\" style=\"fill:#f00\"/></s:svg>"),
        kRed);
}

TEST_F(SvgTest, LeavesOutStylesOfOtherFiles) {
    EXPECT_EQ(
        Color(Drawing(Rectangle("fill=\"#0f0\"") + Rectangle("fill=\"url(a.svg#b)\""))), kGreen);
    EXPECT_EQ(Color(Drawing(Rectangle("fill=\"url('a.svg#b') #0f0\""))), kGreen);
    EXPECT_EQ(Color(Drawing("<style>@import url(file:///a.css); .a { fill: #0f0 } "
                            "@import \"b.css\";</style>" +
                  Rectangle("class=\"a\""))),
        kGreen);
}

TEST_F(SvgTest, ShowsImagesThatADrawingHolds) {
    EXPECT_EQ(Color(OnGreen(Image(DataReference("image/png", RedPng())))), kRed);
    EXPECT_EQ(Color(OnGreen(Image("\n " + DataReference("image/png", RedPng()) + "\n"))), kRed);
    EXPECT_EQ(Color(OnGreen(Image(DataReference("", RedPng())))), kRed);
    const std::string red = Drawing(Rectangle("fill='#f00'"));
    const QByteArray percents = QByteArray::fromStdString(red).toPercentEncoding();
    EXPECT_EQ(Color(OnGreen(Image("data:image/svg+xml," + percents.toStdString()))), kRed);
    EXPECT_EQ(Color(OnGreen(Image(DataReference("image/svg+xml", red)))), kRed);
    EXPECT_EQ(Color(OnGreen(Image(DataReference("image/svg+xml", Compressed(red))))), kRed);
    EXPECT_EQ(Color(OnGreen(Image(DataReference("image/png", "no image")))), kGreen);
    // The inner drawing is shown, but what it names is not.
    const std::string inner = Drawing(Rectangle("fill='#0f0'") + Image(Write("r.png", RedPng())));
    EXPECT_EQ(
        Color(Drawing(Rectangle("fill=\"red\"") + Image(DataReference("image/svg+xml", inner)))),
        kGreen);
}

TEST_F(SvgTest, ImagesWithinADrawingAreBounded) {
    std::string deep = Drawing(Rectangle("fill=\"#f00\""));
    // Every level makes it longer by more than its own text: these are some hundred kilobytes.
    for (int i = 0; i < 300; ++i)
        deep = Drawing(
            Rectangle("fill=\"#0f0\"") + Image(DataReference("image/svg+xml", Compressed(deep))));
    EXPECT_EQ(Color(deep), kGreen);
    // Each of these would have as many pixels as the memory has room for.
    const std::string wide = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"";
    for (const char* width : {"20000", "1000000000", "99999999999", "-1"}) {
        const std::string large =
            wide + width + "\" height=\"20000\">" + Rectangle("fill='red'") + "</svg>";
        EXPECT_EQ(Color(OnGreen(Image(DataReference("image/svg+xml", large)))), kGreen) << width;
    }
    // More text than any drawing may have.
    std::string text = "<g id='" + std::string(130 * 1024 * 1024, 'a') + "'/>";
    EXPECT_EQ(Color(OnGreen(Image(DataReference("", Compressed(Drawing(text)))))), kGreen);
}

TEST_F(SvgTest, NamesItself) {
    for (const std::string& reference : {Folder() + "/a.svg", std::string("a.svg")}) {
        const std::string drawing = OnGreen(Image(reference));
        Write("a.svg", drawing);
        EXPECT_EQ(Color(drawing), kGreen);
    }
}

TEST_F(SvgTest, TwoNameEachOther) {
    const std::string drawing = OnGreen(Image("b.svg"));
    Write("a.svg", drawing);
    Write("b.svg", OnGreen(Image(Folder() + "/a.svg")));
    EXPECT_EQ(Color(drawing), kGreen);
}

TEST_F(SvgTest, NamesWhatIsOpen) {
    std::string images;
    for (int i = 0; i < 117; ++i)
        images += Image("/proc/self/fd/" + std::to_string(i));
    const std::string path = Write("a.svg", OnGreen(images));
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(descriptor, 0);
    EXPECT_EQ(Color(OnGreen(images)), kGreen);
    EXPECT_EQ(lseek(descriptor, 0, SEEK_CUR), 0);
    close(descriptor);
}

TEST_F(SvgTest, NamesWhatNeverEnds) {
    ASSERT_EQ(mkfifo((Folder() + "/pipe").c_str(), 0600), 0);
    for (const std::string& name : {Folder() + "/pipe", std::string("pipe"),
             std::string("/dev/stdin"), std::string("/dev/zero")}) {
        EXPECT_EQ(Color(OnGreen(Image(name))), kGreen);
        EXPECT_EQ(Color("<?xml-stylesheet type=\"text/css\" href=\"" + name + "\"?>" + OnGreen("")),
            kGreen);
    }
}

TEST_F(SvgTest, MngIsNoImage) {
    const std::string film =
        std::string("\x8aMNG\r\n\x1a\n\0\0\0\x1cMHDR", 16) + std::string(500, '\0');
    EXPECT_EQ(IdentifyFile(LoadAddOn("qt-translator.so"), FromText(film)), "");
    EXPECT_EQ(Color(OnGreen(Image(DataReference("video/x-mng", film)))), kGreen);
}
