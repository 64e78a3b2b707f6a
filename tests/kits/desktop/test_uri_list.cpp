#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "kits/desktop/UriList.h"

using namespace BPrivate;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using namespace std::string_literals;

TEST(UriList, DecodesEachLine) {
    EXPECT_THAT(PathsOfUriList("file:///tmp/a.png\r\nfile:///tmp/b%20c.png\r\n"),
        ElementsAre("/tmp/a.png", "/tmp/b c.png"));
    EXPECT_THAT(PathsOfUriList("file:///a\nfile:///b"), ElementsAre("/a", "/b"));
}

TEST(UriList, KeepsNamesThatAreNoText) {
    EXPECT_THAT(
        PathsOfUriList("file:///%ff%FE/%93%fa.jpg\r\n"), ElementsAre("/\xff\xfe/\x93\xfa.jpg"));
    EXPECT_THAT(PathsOfUriList("file:///\xe3\x81\x82"), ElementsAre("/\xe3\x81\x82"));
}

TEST(UriList, LeavesSignsAlone) {
    EXPECT_THAT(PathsOfUriList("file:///50%25+1#2?3;4&5%0a"), ElementsAre("/50%+1#2?3;4&5\n"));
}

TEST(UriList, TakesOnlyThisHostsFiles) {
    char host[256] = {};
    ASSERT_EQ(gethostname(host, sizeof(host) - 1), 0);
    EXPECT_THAT(PathsOfUriList("file://localhost/a\r\nFILE://LocalHost/b\r\nfile:/c\r\nfile://"s +
                    host + "/d\r\nfile://elsewhere.example/e\r\n"),
        ElementsAre("/a", "/b", "/c", "/d"));
}

TEST(UriList, LeavesOutWhatIsNoFile) {
    EXPECT_THAT(PathsOfUriList("# comment\r\n\r\nhttp://localhost/a\r\nmailto:x\r\nfile:a\r\n"
                               "file:\r\nfile://\r\nfile://localhost\r\n/plain/path\r\nfile"),
        IsEmpty());
    EXPECT_THAT(PathsOfUriList(""), IsEmpty());
}

TEST(UriList, LeavesOutBrokenEscapes) {
    EXPECT_THAT(PathsOfUriList("file:///a%\r\nfile:///a%4\r\nfile:///a%zz\r\nfile:///a%00b\r\n"),
        IsEmpty());
}

TEST(UriList, EndsAtANul) {
    EXPECT_THAT(PathsOfUriList("file:///a\r\n\0"s), ElementsAre("/a"));
    EXPECT_THAT(PathsOfUriList("file:///a\0junk"s), ElementsAre("/a"));
}

}  // namespace
