#include "kits/locale/Language.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace BPrivate {

namespace {

constexpr char kEnglish[] = "en";
constexpr const char* kVariables[] = {"LANG", "LC_MESSAGES", "LC_ALL", "LANGUAGE"};

/// "de" of "de_AT.UTF-8@euro".
std::string LanguageOfLocale(const std::string& locale) {
    return locale.substr(0, locale.find_first_of("_.@"));
}

bool IsUntranslated(const std::string& locale) {
    const std::string language = LanguageOfLocale(locale);
    return language == "C" || language == "POSIX";
}

std::string ValueOf(const LocaleVariables& variables, const char* name) {
    const auto found = variables.find(name);
    return found != variables.end() ? found->second : std::string();
}

void Take(LocaleVariables& variables, const std::string& name, std::string value) {
    if (std::find(std::begin(kVariables), std::end(kVariables), name) != std::end(kVariables))
        variables[name] = std::move(value);
}

bool IsBlank(char character) {
    return character == ' ' || character == '\t' || character == '\r';
}

std::string_view WithoutBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// The value as a shell would read it; a quote that is not closed ends with the line.
std::string Unquoted(std::string_view text) {
    std::string value;
    char quote = 0;
    for (std::size_t i = 0; i < text.size(); i++) {
        const char character = text[i];
        if (character == '\\' && quote != '\'' && i + 1 < text.size())
            value += text[++i];
        else if (quote == 0 ? character == '"' || character == '\'' : character == quote)
            quote = quote == 0 ? character : '\0';
        else
            value += character;
    }
    return value;
}

}  // namespace

LocaleVariables locale_of_environment() {
    LocaleVariables variables;
    for (const char* name : kVariables) {
        if (const char* value = std::getenv(name))
            variables[name] = value;
    }
    return variables;
}

LocaleVariables locale_of_assignments(const std::vector<std::string>& assignments) {
    LocaleVariables variables;
    for (const std::string& assignment : assignments) {
        const std::size_t equals = assignment.find('=');
        if (equals != std::string::npos)
            Take(variables, assignment.substr(0, equals), assignment.substr(equals + 1));
    }
    return variables;
}

LocaleVariables locale_of_file(std::string_view content) {
    LocaleVariables variables;
    while (!content.empty()) {
        const std::size_t end = std::min(content.find('\n'), content.size());
        const std::string_view line = WithoutBlanks(content.substr(0, end));
        content.remove_prefix(std::min(end + 1, content.size()));
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos || line.front() == '#' || line.front() == ';')
            continue;
        Take(variables, std::string(WithoutBlanks(line.substr(0, equals))),
            Unquoted(WithoutBlanks(line.substr(equals + 1))));
    }
    return variables;
}

std::optional<std::string> language_of(
    const LocaleVariables& variables, const std::vector<std::string>& known) {
    std::string locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        locale = ValueOf(variables, name);
        if (!locale.empty())
            break;
    }
    if (locale.empty())
        return std::nullopt;
    if (IsUntranslated(locale))
        return kEnglish;

    std::string wishes = ValueOf(variables, "LANGUAGE");
    if (wishes.empty())
        wishes = locale;
    for (std::size_t begin = 0; begin <= wishes.size();) {
        const std::size_t end = std::min(wishes.find(':', begin), wishes.size());
        const std::string wish = wishes.substr(begin, end - begin);
        if (IsUntranslated(wish))
            break;
        const std::string language = LanguageOfLocale(wish);
        if (std::find(known.begin(), known.end(), language) != known.end())
            return language;
        begin = end + 1;
    }
    return kEnglish;
}

LanguageChoice::LanguageChoice(LocaleVariables environment, std::vector<std::string> known)
    : fEnvironment(std::move(environment)), fKnown(std::move(known)) {}

std::string LanguageChoice::Language() const {
    for (const LocaleVariables* source : {&fUserFile, &fSystem, &fEnvironment}) {
        if (std::optional<std::string> language = language_of(*source, fKnown))
            return *language;
    }
    return kEnglish;
}

}  // namespace BPrivate
