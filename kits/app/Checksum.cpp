#include "kits/app/Checksum.h"

#include <array>

namespace BPrivate {

namespace {

constexpr std::array<uint32, 256> kTable = [] {
    std::array<uint32, 256> table{};
    for (uint32 i = 0; i < 256; ++i) {
        uint32 remainder = i;
        for (int bit = 0; bit < 8; ++bit)
            remainder = (remainder >> 1) ^ ((remainder & 1) != 0 ? 0xedb88320 : 0);
        table[i] = remainder;
    }
    return table;
}();

}  // namespace

void Checksum::Add(std::string_view bytes) {
    uint32 state = fState;
    for (const char byte : bytes)
        state = kTable[(state ^ uint8(byte)) & 0xff] ^ (state >> 8);
    fState = state;
}

}  // namespace BPrivate
