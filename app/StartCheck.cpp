#include "app/StartCheck.h"

namespace {

// As shells and most programs have it for a command line that asks for the impossible.
constexpr int kWrongUse = 2;

// Raw as every text for the terminal, which is English: the others are keys of the catalogues.
constexpr char kOnlyTheFirst[] = R"(lorivane: only the first of )";
constexpr char kIsOpened[] = R"( files is opened: )";

}  // namespace

StartCheck check_start(const launch_files& files) {
    if (!files.optionError.empty())
        return {{files.optionError}, kWrongUse};
    if (files.paths.empty() && !files.errors.empty())
        return {files.errors, kWrongUse};
    if (files.paths.size() > 1)
        return {{kOnlyTheFirst + std::to_string(files.paths.size()) + kIsOpened + files.firstName}};
    return {};
}
