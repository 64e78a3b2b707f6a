#include "kits/locale/Language.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using BPrivate::language_of;
using BPrivate::LanguageChoice;
using BPrivate::locale_of_assignments;
using BPrivate::locale_of_file;
using BPrivate::LocaleVariables;

const std::vector<std::string> kKnown = {"de", "en", "ja"};

struct Case {
    LocaleVariables variables;
    std::optional<std::string> language;
};

TEST(Language, IsWhatTheVariablesAskFor) {
    const std::vector<Case> cases = {
        {{}, std::nullopt},
        {{{"LANG", "de_DE.UTF-8"}}, "de"},
        {{{"LANG", "de_AT.UTF-8@euro"}}, "de"},
        {{{"LANG", "de@euro"}}, "de"},
        {{{"LANG", "de"}}, "de"},
        {{{"LANG", "ja_JP.eucJP"}}, "ja"},
        {{{"LANG", "en_GB.UTF-8"}}, "en"},
        {{{"LANG", "C"}}, "en"},
        {{{"LANG", "C.UTF-8"}}, "en"},
        {{{"LANG", "POSIX"}}, "en"},
        {{{"LANG", "tlh_XX"}}, "en"},
        {{{"LANG", "deutsch"}}, "en"},
        {{{"LANG", "_DE"}}, "en"},
        // The nearer variable wins; an empty one is as if not set.
        {{{"LANG", "de_DE"}, {"LC_MESSAGES", "ja_JP"}}, "ja"},
        {{{"LANG", "de_DE"}, {"LC_MESSAGES", "ja_JP"}, {"LC_ALL", "en_US"}}, "en"},
        {{{"LANG", "de_DE"}, {"LC_ALL", "C"}}, "en"},
        {{{"LANG", "de_DE"}, {"LC_MESSAGES", ""}, {"LC_ALL", ""}}, "de"},
        {{{"LANG", ""}}, std::nullopt},
        // The list's first with a catalogue.
        {{{"LANG", "en_US"}, {"LANGUAGE", "de"}}, "de"},
        {{{"LANG", "en_US"}, {"LANGUAGE", "tlh:ja_JP:de"}}, "ja"},
        {{{"LANG", "de_DE"}, {"LANGUAGE", "tlh:fr"}}, "en"},
        {{{"LANG", "de_DE"}, {"LANGUAGE", ""}}, "de"},
        {{{"LANG", "de_DE"}, {"LANGUAGE", ":::ja"}}, "ja"},
        {{{"LANG", "de_DE"}, {"LANGUAGE", "C:ja"}}, "en"},
        // The list counts for a translated locale only.
        {{{"LANG", "C"}, {"LANGUAGE", "de"}}, "en"},
        {{{"LANG", "C.UTF-8"}, {"LANGUAGE", "de"}}, "en"},
        {{{"LC_ALL", "POSIX"}, {"LANG", "de_DE"}, {"LANGUAGE", "de"}}, "en"},
        {{{"LANGUAGE", "de"}}, std::nullopt},
    };
    for (const Case& test : cases) {
        std::string said;
        for (const auto& [name, value] : test.variables)
            said += name + "=" + value + " ";
        EXPECT_EQ(language_of(test.variables, kKnown), test.language) << said;
    }
}

TEST(Language, VariablesAreReadFromAssignments) {
    EXPECT_EQ(locale_of_assignments({"LANG=de_DE.UTF-8", "LC_TIME=ja_JP", "LC_ALL=", "nothing", "",
                  "=x", "LC_MESSAGES=a=b"}),
        (LocaleVariables{{"LANG", "de_DE.UTF-8"}, {"LC_ALL", ""}, {"LC_MESSAGES", "a=b"}}));
}

struct FileCase {
    const char* content;
    LocaleVariables variables;
};

TEST(Language, VariablesAreReadFromAFile) {
    const FileCase cases[] = {
        {"", {}},
        {"\n\n", {}},
        {"LANG=de_DE.UTF-8", {{"LANG", "de_DE.UTF-8"}}},
        {"LANG=de_DE.UTF-8\n", {{"LANG", "de_DE.UTF-8"}}},
        {"LANG=de_DE.UTF-8\r\nLC_ALL=ja\r\n", {{"LANG", "de_DE.UTF-8"}, {"LC_ALL", "ja"}}},
        {"# LANG=ja_JP\n; LANG=ja_JP\n  LANG = de_DE  \n", {{"LANG", "de_DE"}}},
        {"LANG=\"de_DE.UTF-8\"\nLANGUAGE='de:en'\n",
            {{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "de:en"}}},
        {"LANG=\"de\\\"_\\\\\"\n", {{"LANG", "de\"_\\"}}},
        {"LANG='de\\_'\n", {{"LANG", "de\\_"}}},
        {"LANG=\"de_DE\nLC_ALL=ja\n", {{"LANG", "de_DE"}, {"LC_ALL", "ja"}}},
        {"LANG=\\", {{"LANG", "\\"}}},
        {"LANG=ja\nLANG=de\n", {{"LANG", "de"}}},
        {"LC_TIME=ja\nLANGX=ja\nlang=ja\nLANG\n=de\n", {}},
    };
    for (const FileCase& test : cases)
        EXPECT_EQ(locale_of_file(test.content), test.variables) << test.content;
}

TEST(Language, VariablesAreReadFromTheEnvironment) {
    const char* const before = std::getenv("LANGUAGE");
    const std::string kept = before != nullptr ? before : "";
    setenv("LANGUAGE", "ja:de", 1);
    EXPECT_EQ(BPrivate::locale_of_environment().at("LANGUAGE"), "ja:de");
    unsetenv("LANGUAGE");
    EXPECT_EQ(BPrivate::locale_of_environment().count("LANGUAGE"), 0u);
    if (before != nullptr)
        setenv("LANGUAGE", kept.c_str(), 1);
}

TEST(Language, TheUsersFileWinsOverTheSystemAndThatOverTheEnvironment) {
    LanguageChoice choice({{"LANG", "de_DE"}}, kKnown);
    EXPECT_EQ(choice.Language(), "de");
    choice.SetSystem({{"LANG", "ja_JP"}});
    EXPECT_EQ(choice.Language(), "ja");
    choice.SetUserFile({{"LANG", "en_US"}});
    EXPECT_EQ(choice.Language(), "en");
    choice.SetSystem({{"LANG", "de_DE"}});
    EXPECT_EQ(choice.Language(), "en");
    // The file is deleted, or says nothing of a language.
    choice.SetUserFile({{"LANGUAGE", "ja"}});
    EXPECT_EQ(choice.Language(), "de");
    choice.SetUserFile({});
    choice.SetSystem({});
    EXPECT_EQ(choice.Language(), "de");
    EXPECT_EQ(LanguageChoice({}, kKnown).Language(), "en");
}

}  // namespace
