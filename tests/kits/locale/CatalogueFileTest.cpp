#include "kits/locale/CatalogueFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "kits/locale/EmbeddedCatalogues.h"

using BPrivate::Catalogue;
using BPrivate::read_catalogue;
using namespace std::string_literals;

namespace {

const std::string kMagic = "\x3C\xB8\x64\x18\xCA\xEF\x9C\x95\xCD\x21\x1C\xBF\x60\xA1\xBD\xDD"s;

std::string Number(std::size_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift);
    return bytes;
}

std::string Sized(char tag, const std::string& content) {
    return tag + Number(content.size()) + content;
}

std::string Message(const std::string& key, const std::string& utf16) {
    return Sized('\x03', utf16) + Sized('\x08', "") + Sized('\x06', key) +
        Sized('\x07', "Lorivane") + '\x01';
}

std::string File(const std::string& messages) {
    return kMagic + Sized('\xa7', "en") + Sized('\x42', "12345678") + Sized('\x69', messages);
}

}  // namespace

TEST(CatalogueFile, GivesItsTexts) {
    const auto read = read_catalogue(File(Message("A", "\0x"s) +
        Message("B", "\0\xe4\x20\xac\xd8\x3d\xde\x00"s) + Message("left empty", "")));
    EXPECT_EQ(read, (Catalogue{{"A", "x"}, {"B", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"}}));
    EXPECT_EQ(read_catalogue(File("")), Catalogue());
    EXPECT_EQ(read_catalogue(File("\x03\xff\xff\xff\xff\x06\0\0\0\1A\1"s)), Catalogue());
}

TEST(CatalogueFile, IsRefusedWhenItIsBroken) {
    for (const std::string& broken :
        {""s, kMagic, "x" + File(""), kMagic.substr(1), File(Message("", "\0x"s)),  // no key
            File(Message("A", "\0"s)),                      // half a character
            File(Message("A", "\xd8\x3d\0x"s)),             // half a pair
            File(Message("A", "\xd8\x3d"s)),                //
            File(Message("A", "\xde\0"s)),                  //
            File(Message("A", "\0x"s) + "\x02"),            // unknown tag
            File(Message("A", "\0x"s) + "\x06\0\0\0\1B"s),  // no end
            File(Message("A", "\0x"s)) + "\x88\x7f\xff\xff\xff"s})
        EXPECT_EQ(read_catalogue(broken), std::nullopt) << testing::PrintToString(broken);
}

TEST(CatalogueFile, NoPartOfItIsTakenForAllOfIt) {
    const auto german =
        std::find_if(BPrivate::embedded_catalogues().begin(), BPrivate::embedded_catalogues().end(),
            [](const auto& catalogue) { return catalogue.language == "de"s; });
    ASSERT_NE(german, BPrivate::embedded_catalogues().end());
    const auto whole = read_catalogue(german->file);
    ASSERT_TRUE(whole);
    for (std::size_t length = 0; length < german->file.size(); length++) {
        // A copy of that size, so that a sanitizer sees a read beyond it.
        const std::string part(german->file.substr(0, length));
        const auto read = read_catalogue(part);
        EXPECT_TRUE(!read || read == whole) << length;
    }
    // Nor does any changed byte lead it astray.
    for (std::size_t i = 0; i < german->file.size(); i++) {
        std::string damaged(german->file);
        damaged[i] = static_cast<char>(~damaged[i]);
        const auto read = read_catalogue(damaged);
        EXPECT_TRUE(!read || read->size() <= whole->size()) << i;
    }
}
