#include "framework/Help.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <support/Errors.h>

#include "tests/Eventually.h"
#include "tests/framework/TemporaryFolder.h"

namespace {

class HelpTest : public testing::Test {
protected:
    void SetUp() override {
        // A desktop of its own, in which nothing is installed at first.
        setenv("XDG_DATA_HOME", (fFolder.Path() + "/data").c_str(), 1);
        setenv("XDG_DATA_DIRS", (fFolder.Path() + "/none").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (fFolder.Path() + "/config").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", (fFolder.Path() + "/none").c_str(), 1);
        setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + fFolder.Path() + "/no-bus").c_str(), 1);
    }

    std::string Write(const std::string& name, const std::string& text) const {
        const std::string path = fFolder.Path() + "/" + name;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream(path) << text;
        return path;
    }

    TTemporaryFolder fFolder;
};

TEST_F(HelpTest, OpensTheDocument) {
    const std::string reader = Write("reader", "#!/bin/sh\nln -s \"$1\" \"$1.opened\"\n");
    std::filesystem::permissions(reader, std::filesystem::perms::owner_all);
    Write("data/applications/reader.desktop",
        "[Desktop Entry]\nType=Application\nName=Reader\nExec=" + reader +
            " %f\nMimeType=text/plain;\n");
    Write("data/applications/mimeinfo.cache", "[MIME Cache]\ntext/plain=reader.desktop;\n");
    const std::string document = Write("ReadMe_Eng.txt", "Help\n");
    const std::string roundabout = fFolder.Path() + "/data/../ReadMe_Eng.txt";

    EXPECT_EQ(show_help(roundabout.c_str()), B_OK);
    EXPECT_TRUE(eventually([&] { return std::filesystem::is_symlink(document + ".opened"); }));
}

TEST_F(HelpTest, ReturnsTheErrorOfTheLaunch) {
    const std::string document = Write("ReadMe_Eng.txt", "Help\n");
    EXPECT_EQ(show_help(document.c_str()), B_LAUNCH_FAILED_NO_PREFERRED_APP);
    EXPECT_EQ(show_help((document + ".missing").c_str()), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(show_help((fFolder.Path() + "/none/ReadMe_Eng.txt").c_str()), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(show_help(""), B_BAD_VALUE);
    EXPECT_EQ(show_help(nullptr), B_BAD_VALUE);
}

}  // namespace
