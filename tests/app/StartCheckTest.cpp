#include "app/StartCheck.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;

TEST(StartCheck, SaysWhatIsWrongAndWhetherItGoesOn) {
    const Lines missing = {"lorivane: a: none", "lorivane: b: none"};
    const std::string option = "lorivane: unknown option: -x";
    const struct {
        const char* what;
        launch_files files;
        Lines lines;
        int status;
    } cases[] = {
        {"nothing was asked for", {}, {}, 0},
        {"a file", {{"a"}, {}, "", "a"}, {}, 0},
        {"of several the first", {{"a", "b", "c"}, {}, "", "a"},
            {"lorivane: only the first of 3 files is opened: a"}, 0},
        {"nothing is there", {{}, missing, "", ""}, missing, 2},
        {"one is there, and BApplication tells of the others", {{"c"}, missing, "", "c"}, {}, 0},
        {"two are there", {{"c", "d"}, missing, "", "c"},
            {"lorivane: only the first of 2 files is opened: c"}, 0},
        {"an option is wrong, whatever is there", {{"c"}, {option}, option, "c"}, {option}, 2},
        {"an option alone", {{}, {option}, option, ""}, {option}, 2},
        {"one line for an option", {{"c", "d"}, {missing[0], option, option}, option, "c"},
            {option}, 2},
    };
    for (const auto& c : cases) {
        const StartCheck check = check_start(c.files);
        EXPECT_EQ(check.lines, c.lines) << c.what;
        EXPECT_EQ(check.status, c.status) << c.what;
    }
}

}  // namespace
