#include "viewer/NameSort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

std::vector<std::string> Sorted(std::vector<std::string> paths, size_t folderLength) {
    sort_names(paths, folderLength);
    return paths;
}

TEST(SortNames, IsByteOrder) {
    std::vector<std::string> names = {"/a/b.png", "/a/B.png", "/a/a.png", "/a/img9", "/a/img10",
        "/a/img", "/a/\xff", "/a/z", "/a/\xc3\xa4", "/a/line\nfeed", "/a/ "};
    std::vector<std::string> expected = {"/a/ ", "/a/B.png", "/a/a.png", "/a/b.png", "/a/img",
        "/a/img10", "/a/img9", "/a/line\nfeed", "/a/z", "/a/\xc3\xa4", "/a/\xff"};
    EXPECT_EQ(Sorted(names, 3), expected);
}

TEST(SortNames, TakesFewAndEqualNames) {
    EXPECT_EQ(Sorted({}, 3), std::vector<std::string>());
    EXPECT_EQ(Sorted({"/a/x"}, 3), std::vector<std::string>({"/a/x"}));
    EXPECT_EQ(Sorted({"/a/x", "/a/x"}, 3), std::vector<std::string>({"/a/x", "/a/x"}));
}

TEST(SortNames, OrdersAsStringsDo) {
    std::mt19937 random(7);
    const std::string letters("\x01 aAbB\x7f\x80\xff", 9);
    for (int round = 0; round < 200; ++round) {
        std::string prefix = "/folder/" + std::string(random() % 12, 'p');
        std::vector<std::string> paths;
        for (size_t i = 0; i < 60; ++i) {
            std::string path = prefix;
            for (size_t length = random() % 14; length > 0; --length)
                path += letters[random() % letters.size()];
            paths.push_back(path);
        }
        std::vector<std::string> expected = paths;
        std::sort(expected.begin(), expected.end());
        ASSERT_EQ(Sorted(paths, 8), expected);
    }
}

}  // namespace
