#include "window/FormatNum.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(FormatNum, WritesAtMostTwoDecimals) {
    EXPECT_EQ(FormatNum(0), "0");
    EXPECT_EQ(FormatNum(7), "7");
    EXPECT_EQ(FormatNum(100), "100");
    EXPECT_EQ(FormatNum(1.5), "1.5");
    EXPECT_EQ(FormatNum(1.171875), "1.17");
    EXPECT_EQ(FormatNum(0.05), "0.05");
    EXPECT_EQ(FormatNum(0.001), "0");
    EXPECT_EQ(FormatNum(10.1), "10.1");
}

TEST(FormatNum, SeparatesThousands) {
    EXPECT_EQ(FormatNum(999), "999");
    EXPECT_EQ(FormatNum(1000), "1,000");
    EXPECT_EQ(FormatNum(1024), "1,024");
    EXPECT_EQ(FormatNum(12345.5), "12,345.5");
    EXPECT_EQ(FormatNum(100000), "100,000");
    EXPECT_EQ(FormatNum(1228800), "1,228,800");
}

// Beyond 24 bits a single-precision number has no odd values left.
TEST(FormatNum, HasSinglePrecision) {
    EXPECT_EQ(FormatNum(16777217), "16,777,216");
    EXPECT_EQ(FormatNum(123456789), "123,456,792");
    EXPECT_EQ(FormatNum(4e9), "4,000,000,000");
    EXPECT_EQ(FormatNum(1e12), "999,999,995,904");
}

TEST(FormatNum, SurvivesWhatIsNoNumber) {
    EXPECT_EQ(FormatNum(std::numeric_limits<double>::infinity()).find(','), std::string::npos);
    EXPECT_EQ(FormatNum(std::numeric_limits<double>::quiet_NaN()).find(','), std::string::npos);
    EXPECT_EQ(FormatNum(1e300).find(','), std::string::npos);  // no float is that large
}

TEST(MemoryText, ChangesItsUnitAboveItsFirstNumber) {
    EXPECT_EQ(memory_text(0), "0 B");
    EXPECT_EQ(memory_text(4), "4 B");
    EXPECT_EQ(memory_text(1024), "1,024 B");
    EXPECT_EQ(memory_text(1025), "1 KB ( 1,025 B)");
    EXPECT_EQ(memory_text(1536), "1.5 KB ( 1,536 B)");
    EXPECT_EQ(memory_text(1048576), "1,024 KB ( 1,048,576 B)");
    EXPECT_EQ(memory_text(1048577), "1 MB ( 1,048,577 B)");
    EXPECT_EQ(memory_text(1228800), "1.17 MB ( 1,228,800 B)");
    EXPECT_EQ(memory_text(1610612736), "1,536 MB ( 1,610,612,736 B)");
    EXPECT_EQ(memory_text(123456789), "117.74 MB ( 123,456,792 B)");
}

}  // namespace
