#include "kits/locale/Catalogue.h"

#include <gtest/gtest.h>

#include <locale/Locale.h>

using BPrivate::Catalogue;
using BPrivate::catalogue_of;

namespace {

constexpr char kSymbolic[] = "@Err_No_Image_Is_Displayed@";

class Catalogues : public testing::Test {
protected:
    ~Catalogues() override { BPrivate::set_catalogue(catalogue_of("en")); }
};

}  // namespace

TEST_F(Catalogues, AreOfTheseLanguages) {
    EXPECT_EQ(BPrivate::known_languages(), (std::vector<std::string>{"de", "en", "ja"}));
}

TEST_F(Catalogues, TheEnglishOneIsThereAtOnce) {
    EXPECT_STREQ(be_locale->GetString(kSymbolic), "No image is displayed.");
    EXPECT_STREQ(be_locale->GetString("Next Image [Space]"), "Next Image [Space]");
}

TEST_F(Catalogues, TranslateTexts) {
    BPrivate::set_catalogue(catalogue_of("de"));
    EXPECT_STREQ(be_locale->GetString("View"), "Ansicht");
    EXPECT_STREQ(be_locale->GetString("Next Image [Space]"),
        "N\xC3\xA4"
        "chstes Bild [Leertaste]");
    BPrivate::set_catalogue(catalogue_of("ja"));
    EXPECT_STREQ(be_locale->GetString("View"), "\xE8\xA1\xA8\xE7\xA4\xBA");
}

TEST_F(Catalogues, AreCompletedByTheEnglishOne) {
    const Catalogue english = catalogue_of("en");
    ASSERT_FALSE(english.empty());
    EXPECT_EQ(catalogue_of("tlh"), english);
    EXPECT_EQ(catalogue_of(""), english);
    for (const char* language : {"de", "ja"}) {
        const Catalogue catalogue = catalogue_of(language);
        for (const auto& [key, text] : english) {
            ASSERT_EQ(catalogue.count(key), 1u) << key;
            EXPECT_NE(catalogue.at(key), text) << key;
        }
    }
}
