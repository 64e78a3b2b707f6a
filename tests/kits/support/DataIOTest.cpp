#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include <support/DataIO.h>

namespace {

constexpr off_t kLastOffset = std::numeric_limits<off_t>::max();

std::string contents(const BMallocIO& io) {
    return {static_cast<const char*>(io.Buffer()), io.BufferLength()};
}

/// Gives and takes one byte at a time, and then an end of its own making.
class Dribble : public BDataIO {
public:
    Dribble(int room, ssize_t end) : fRoom(room), fEnd(end) {}
    ssize_t Read(void* buffer, std::size_t) override {
        if (fRoom-- <= 0)
            return fEnd;
        *static_cast<char*>(buffer) = 'd';
        return 1;
    }
    ssize_t Write(const void*, std::size_t) override { return fRoom-- > 0 ? 1 : fEnd; }

private:
    int fRoom;
    const ssize_t fEnd;
};

/// Has what every class must have, and leaves the rest to the base.
class Fixed : public BPositionIO {
public:
    ssize_t ReadAt(off_t, void*, std::size_t size) override {
        return static_cast<ssize_t>(size / 2);
    }
    ssize_t WriteAt(off_t, const void*, std::size_t) override { return B_IO_ERROR; }
    off_t Seek(off_t position, uint32 mode) override {
        return fPosition = mode == SEEK_END ? 100
            : mode == SEEK_CUR              ? fPosition + position
                                            : position;
    }
    off_t Position() const override { return fPosition; }

private:
    off_t fPosition = 7;
};

}  // namespace

TEST(DataIO, ReadsAndWritesExactly) {
    char buffer[8] = "";
    std::size_t bytes = 99;
    EXPECT_EQ(Dribble(8, 0).ReadExactly(buffer, 7, &bytes), B_OK);
    EXPECT_EQ(bytes, 7u);
    EXPECT_STREQ(buffer, "ddddddd");
    EXPECT_EQ(Dribble(3, 0).ReadExactly(buffer, 7, &bytes), B_IO_ERROR);
    EXPECT_EQ(bytes, 3u);
    EXPECT_EQ(Dribble(3, B_NO_MEMORY).ReadExactly(buffer, 7), B_NO_MEMORY);
    EXPECT_EQ(Dribble(0, 0).ReadExactly(nullptr, 0, &bytes), B_OK);
    EXPECT_EQ(bytes, 0u);
    EXPECT_EQ(Dribble(8, 0).WriteExactly("1234567", 7), B_OK);
    EXPECT_EQ(Dribble(2, B_DEVICE_FULL).WriteExactly("1234567", 7, &bytes), B_DEVICE_FULL);
    EXPECT_EQ(bytes, 2u);
}

TEST(PositionIO, MovesByWhatWasReadAndLeavesItsPositionForTheSize) {
    Fixed io;
    char buffer[8];
    EXPECT_EQ(io.Read(buffer, 8), 4);
    EXPECT_EQ(io.Position(), 11);
    EXPECT_EQ(io.Write(buffer, 8), B_IO_ERROR);
    EXPECT_EQ(io.Position(), 11);
    off_t size = 0;
    EXPECT_EQ(io.GetSize(&size), B_OK);
    EXPECT_EQ(size, 100);
    EXPECT_EQ(io.Position(), 11);
    EXPECT_EQ(io.GetSize(nullptr), B_BAD_VALUE);
    EXPECT_EQ(io.SetSize(5), B_ERROR);
}

TEST(MallocIO, GrowsAsItIsWritten) {
    BMallocIO io;
    EXPECT_EQ(io.Buffer(), nullptr);
    EXPECT_EQ(io.BufferLength(), 0u);
    std::string expected;
    for (int i = 0; i < 2000; i++) {
        const std::string text = std::to_string(i) + ";";
        EXPECT_EQ(io.Write(text.data(), text.size()), static_cast<ssize_t>(text.size()));
        expected += text;
    }
    EXPECT_EQ(contents(io), expected);
    EXPECT_EQ(io.Position(), static_cast<off_t>(expected.size()));
    off_t size = 0;
    EXPECT_EQ(io.GetSize(&size), B_OK);
    EXPECT_EQ(size, static_cast<off_t>(expected.size()));

    std::vector<char> back(expected.size() + 10);
    EXPECT_EQ(io.Seek(0, SEEK_SET), 0);
    EXPECT_EQ(io.Read(back.data(), back.size()), static_cast<ssize_t>(expected.size()));
    EXPECT_EQ(std::string(back.data(), expected.size()), expected);
    EXPECT_EQ(io.Read(back.data(), 1), 0);
}

TEST(MallocIO, FillsTheGapWithZeros) {
    BMallocIO io;
    EXPECT_EQ(io.Write("abc", 3), 3);
    // What was there before it was cut off does not come back.
    EXPECT_EQ(io.SetSize(1), B_OK);
    EXPECT_EQ(io.WriteAt(5, "x", 1), 1);
    EXPECT_EQ(contents(io), std::string("a\0\0\0\0x", 6));
    EXPECT_EQ(io.Position(), 3);
    EXPECT_EQ(io.SetSize(2), B_OK);
    EXPECT_EQ(io.SetSize(4), B_OK);
    EXPECT_EQ(contents(io), std::string("a\0\0\0", 4));
    EXPECT_EQ(io.SetSize(0), B_OK);
    EXPECT_EQ(io.Buffer(), nullptr);
    EXPECT_EQ(io.WriteAt(0, "new", 3), 3);
    EXPECT_EQ(contents(io), "new");
}

TEST(MallocIO, SeeksAnywhereButBeforeItsStart) {
    BMallocIO io;
    EXPECT_EQ(io.Write("0123456789", 10), 10);
    EXPECT_EQ(io.Seek(-3, SEEK_END), 7);
    EXPECT_EQ(io.Seek(-2, SEEK_CUR), 5);
    EXPECT_EQ(io.Seek(100, SEEK_SET), 100);
    char c = 'u';
    EXPECT_EQ(io.Read(&c, 1), 0);
    EXPECT_EQ(c, 'u');
    EXPECT_EQ(io.Position(), 100);
    EXPECT_EQ(io.BufferLength(), 10u);
    EXPECT_EQ(io.Seek(-1, SEEK_SET), B_BAD_VALUE);
    EXPECT_EQ(io.Seek(-101, SEEK_CUR), B_BAD_VALUE);
    EXPECT_EQ(io.Seek(-11, SEEK_END), B_BAD_VALUE);
    EXPECT_EQ(io.Seek(kLastOffset, SEEK_CUR), B_BAD_VALUE);
    EXPECT_EQ(io.Seek(0, 99), B_BAD_VALUE);
    EXPECT_EQ(io.Position(), 100);
    EXPECT_EQ(io.Write("!", 1), 1);
    EXPECT_EQ(io.BufferLength(), 101u);
}

TEST(MallocIO, AnswersBadValuesAndImpossibleSizes) {
    BMallocIO io;
    char buffer[4] = "abc";
    EXPECT_EQ(io.ReadAt(-1, buffer, 1), B_BAD_VALUE);
    EXPECT_EQ(io.WriteAt(-1, buffer, 1), B_BAD_VALUE);
    EXPECT_EQ(io.ReadAt(0, nullptr, 1), B_BAD_VALUE);
    EXPECT_EQ(io.WriteAt(0, nullptr, 1), B_BAD_VALUE);
    EXPECT_EQ(io.WriteAt(50, buffer, 0), 0);
    EXPECT_EQ(io.BufferLength(), 0u);
    EXPECT_EQ(io.SetSize(-1), B_BAD_VALUE);
    EXPECT_EQ(io.GetSize(nullptr), B_BAD_VALUE);
    EXPECT_EQ(io.WriteAt(0, "abc", 3), 3);
    EXPECT_EQ(io.SetSize(kLastOffset), B_NO_MEMORY);
    EXPECT_EQ(io.WriteAt(kLastOffset, buffer, 1), B_NO_MEMORY);
    EXPECT_EQ(io.WriteAt(kLastOffset - 1, buffer, 1), B_NO_MEMORY);
    EXPECT_EQ(io.WriteAt(1, buffer, static_cast<std::size_t>(kLastOffset)), B_NO_MEMORY);
    EXPECT_EQ(contents(io), "abc");
}

TEST(MallocIO, TakesAnyBlockSize) {
    for (const std::size_t block :
        {std::size_t{0}, std::size_t{1}, std::size_t{3}, std::size_t{4096}}) {
        BMallocIO io;
        io.SetBlockSize(block);
        std::string expected;
        for (int i = 0; i < 100; i++) {
            EXPECT_EQ(io.Write("1234567", 7), 7);
            expected += "1234567";
        }
        EXPECT_EQ(contents(io), expected);
    }
}

TEST(MemoryIO, WritesUpToItsEnd) {
    char memory[] = "0123456789";
    BMemoryIO io(memory, 8);
    EXPECT_EQ(io.WriteAt(6, "abcd", 4), 2);
    EXPECT_STREQ(memory, "012345ab89");
    EXPECT_EQ(io.WriteAt(8, "x", 1), 0);
    EXPECT_EQ(io.WriteAt(kLastOffset, "x", 1), 0);
    EXPECT_EQ(io.WriteAt(-1, "x", 1), B_BAD_VALUE);
    EXPECT_EQ(io.WriteAt(0, nullptr, 1), B_BAD_VALUE);
    EXPECT_EQ(io.Write("AB", 2), 2);
    EXPECT_EQ(io.Position(), 2);
    EXPECT_STREQ(memory, "AB2345ab89");
}

TEST(MemoryIO, ReadsWithinItsBounds) {
    const char memory[] = "0123456789";
    BMemoryIO io(static_cast<const void*>(memory), 8);
    const struct {
        off_t position;
        std::size_t size;
        ssize_t result;
    } cases[] = {
        {0, 4, 4},
        {4, 4, 4},
        {5, 4, 3},
        {7, 4, 1},
        {8, 4, 0},
        {9, 4, 0},
        {kLastOffset, 4, 0},
        {-1, 4, B_BAD_VALUE},
        {0, 0, 0},
        {0, SIZE_MAX, 8},
        {3, SIZE_MAX, 5},
    };
    for (const auto& test : cases) {
        char buffer[16] = "";
        EXPECT_EQ(io.ReadAt(test.position, buffer, test.size), test.result);
        if (test.result > 0) {
            EXPECT_EQ(
                std::memcmp(buffer, memory + test.position, static_cast<std::size_t>(test.result)),
                0);
        }
    }
    EXPECT_EQ(io.ReadAt(0, nullptr, 1), B_BAD_VALUE);
    char buffer[16] = "";
    std::size_t bytes = 0;
    EXPECT_EQ(io.ReadAtExactly(4, buffer, 4, &bytes), B_OK);
    EXPECT_STREQ(buffer, "4567");
    EXPECT_EQ(io.ReadAtExactly(5, buffer, 4, &bytes), B_IO_ERROR);
    EXPECT_EQ(bytes, 3u);
}

TEST(MemoryIO, OfConstantMemoryCannotBeWritten) {
    const char memory[] = "constant";
    BMemoryIO io(static_cast<const void*>(memory), sizeof(memory));
    EXPECT_EQ(io.Write("x", 1), B_NOT_ALLOWED);
    EXPECT_EQ(io.WriteAt(100, "x", 1), B_NOT_ALLOWED);
    EXPECT_EQ(io.SetSize(3), B_NOT_ALLOWED);
    EXPECT_EQ(io.WriteAtExactly(0, "x", 1), B_NOT_ALLOWED);
    EXPECT_STREQ(memory, "constant");
}

TEST(MemoryIO, MovesItsEndWithinTheMemory) {
    char memory[] = "0123456789";
    BMemoryIO io(memory, 10);
    EXPECT_EQ(io.SetSize(4), B_OK);
    off_t size = 0;
    EXPECT_EQ(io.GetSize(&size), B_OK);
    EXPECT_EQ(size, 4);
    char buffer[16];
    EXPECT_EQ(io.ReadAt(0, buffer, 16), 4);
    EXPECT_EQ(io.Seek(0, SEEK_END), 4);
    EXPECT_EQ(io.SetSize(11), B_ERROR);
    EXPECT_EQ(io.SetSize(-1), B_BAD_VALUE);
    EXPECT_EQ(io.WriteAt(6, "x", 1), 1);
    EXPECT_EQ(std::string(memory, 10), std::string("0123\0\0x789", 10));
    EXPECT_EQ(io.SetSize(8), B_OK);
    EXPECT_EQ(memory[7], '\0');
    EXPECT_EQ(io.Seek(-9, SEEK_END), B_BAD_VALUE);
    EXPECT_EQ(io.Seek(5, SEEK_END), 13);
}

TEST(MemoryIO, OfNothingIsEmpty) {
    BMemoryIO io(static_cast<void*>(nullptr), 10);
    char c = 'u';
    EXPECT_EQ(io.Read(&c, 1), 0);
    EXPECT_EQ(io.Write(&c, 1), 0);
    off_t size = 5;
    EXPECT_EQ(io.GetSize(&size), B_OK);
    EXPECT_EQ(size, 0);
}

// The sanitizers are to answer the impossible sizes above as the C library does.
extern "C" const char* __asan_default_options() {
    return "allocator_may_return_null=1";
}

extern "C" const char* __tsan_default_options() {
    return "allocator_may_return_null=1";
}
