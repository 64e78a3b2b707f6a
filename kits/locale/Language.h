#pragma once

// Which language the user wants, from the variables that say so: of the environment, or of one of
// the desktop's settings.

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace BPrivate {

/// LANG, LC_MESSAGES, LC_ALL and LANGUAGE, as far as they are set.
using LocaleVariables = std::map<std::string, std::string>;

/// Those of this process's environment.
LocaleVariables locale_of_environment();

/// Those of lines "LANG=de_DE.UTF-8".
LocaleVariables locale_of_assignments(const std::vector<std::string>& assignments);

/// Those of a file locale.conf: assignments, blank lines and comments, with a shell's quotes.
LocaleVariables locale_of_file(std::string_view content);

/// The language the variables ask for, if it is one of the `known`; "en" if it is another.
/// Nothing when no variable names a locale.
std::optional<std::string> language_of(
    const LocaleVariables& variables, const std::vector<std::string>& known);

/// The language out of what several sources say: the user's own file, or else the system's
/// setting since it was heard to change, or else the environment, or else English.
class LanguageChoice {
public:
    LanguageChoice(LocaleVariables environment, std::vector<std::string> known);

    void SetUserFile(LocaleVariables variables) { fUserFile = std::move(variables); }
    void SetSystem(LocaleVariables variables) { fSystem = std::move(variables); }

    std::string Language() const;

private:
    const LocaleVariables fEnvironment;
    const std::vector<std::string> fKnown;
    LocaleVariables fUserFile;
    LocaleVariables fSystem;
};

}  // namespace BPrivate
