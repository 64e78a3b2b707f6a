#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include <locale/Locale.h>

#include "kits/locale/Catalogue.h"

namespace {

class Locale : public testing::Test {
protected:
    ~Locale() override { BPrivate::set_catalogue(BPrivate::catalogue_of("en")); }
};

}  // namespace

TEST_F(Locale, AnswersAMissingEntryWithTheKeyItself) {
    const char* const key = "About %AppName%";
    EXPECT_EQ(be_locale->GetString(key), key);
    BPrivate::set_catalogue({{"Open",
        "\xC3\x96"
        "ffnen"}});
    EXPECT_EQ(be_locale->GetString(key), key);
    EXPECT_STREQ(be_locale->GetString(""), "");
    EXPECT_STREQ(be_locale->GetString(nullptr), "");
}

TEST_F(Locale, AnswersWithTheCatalogueOfTheMoment) {
    BPrivate::set_catalogue({{"Open",
                                 "\xC3\x96"
                                 "ffnen"},
        {"Empty", ""}});
    const char* const german = be_locale->GetString("Open");
    EXPECT_STREQ(german,
        "\xC3\x96"
        "ffnen");
    EXPECT_STREQ(be_locale->GetString("Empty"), "");
    EXPECT_STREQ(be_locale->GetString("open"), "open");

    BPrivate::set_catalogue({{"Open", "Ouvrir"}});
    EXPECT_STREQ(be_locale->GetString("Open"), "Ouvrir");
    EXPECT_STREQ(be_locale->GetString("Empty"), "Empty");
    // Somebody may still be copying the text.
    EXPECT_STREQ(german,
        "\xC3\x96"
        "ffnen");
}

TEST_F(Locale, IsExchangedWhileOthersRead) {
    std::atomic<bool> stop{false};
    std::vector<std::thread> readers;
    std::atomic<int> wrong{0};
    for (int i = 0; i < 3; i++) {
        readers.emplace_back([&] {
            while (!stop) {
                const std::string text = be_locale->GetString("Open");
                if (text != "Open" && text != "Ouvrir" && text != "Apri")
                    wrong++;
            }
        });
    }
    for (int i = 0; i < 300; i++) {
        BPrivate::set_catalogue({{"Open", "Ouvrir"}});
        BPrivate::set_catalogue({{"Open", "Apri"}});
        BPrivate::set_catalogue({});
    }
    stop = true;
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_EQ(wrong, 0);
}
