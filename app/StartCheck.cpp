#include "app/StartCheck.h"

namespace {

// As shells and most programs have it for a command line that asks for the impossible.
constexpr int kWrongUse = 2;

}  // namespace

StartCheck check_start(const launch_files& files) {
    if (!files.optionError.empty())
        return {{files.optionError}, kWrongUse};
    if (files.paths.empty() && !files.errors.empty())
        return {files.errors, kWrongUse};
    if (files.paths.size() > 1)
        return {{"lorivane: only the first of " + std::to_string(files.paths.size()) +
            " files is opened: " + files.firstName}};
    return {};
}
