#include <app/Roster.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "kits/app/DocumentOpener.h"
#include "tests/Eventually.h"

namespace fs = std::filesystem;

namespace {

/// A desktop of its own, in the folders and variables by which applications are found.
class LaunchTest : public testing::Test {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "launch-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        fPlace = name;
        for (const char* folder : {"data/applications", "data/mime", "config", "bin"})
            fs::create_directories(fPlace / folder);
        Set("XDG_DATA_HOME", fPlace / "data");
        Set("XDG_DATA_DIRS", fPlace / "none");
        Set("XDG_CONFIG_HOME", fPlace / "config");
        Set("XDG_CONFIG_DIRS", fPlace / "none");
        Set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (fPlace / "no-bus").string());
        Write("data/mime/globs2", "50:application/x-shown:*.shown\n");
    }

    void TearDown() override { fs::remove_all(fPlace); }

    static void Set(const char* variable, const std::string& value) {
        ASSERT_EQ(setenv(variable, value.c_str(), 1), 0);
    }

    fs::path Write(const std::string& name, const std::string& text) const {
        const fs::path path = fPlace / name;
        std::ofstream(path) << text;
        return path;
    }

    /// A program of the desktop's, which may be missing, as what opens documents named *.shown.
    void Install(const std::string& program) const {
        Write("data/applications/viewer.desktop",
            "[Desktop Entry]\nType=Application\nName=Viewer\nExec=" + program +
                " %f\nMimeType=application/x-shown;\n");
        Write("data/applications/mimeinfo.cache",
            "[MIME Cache]\napplication/x-shown=viewer.desktop;\n");
    }

    std::string Program(const std::string& text) const {
        const fs::path path = Write("bin/viewer", text);
        fs::permissions(path, fs::perms::owner_all);
        return path;
    }

    /// A program that writes down what it is given. The last line says that all is written.
    std::string WritingProgram() const {
        return Program("#!/bin/sh\n{ echo \"$1\"; readlink /proc/$$/fd/0; } > '" +
            (fPlace / "opened.part").string() + "'\nmv '" + (fPlace / "opened.part").string() +
            "' '" + (fPlace / "opened").string() + "'\n");
    }

    std::string Opened() const {
        const fs::path path = fPlace / "opened";
        if (!eventually([&] { return fs::exists(path); }))
            return "nothing";
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static status_t Launch(const fs::path& path) {
        entry_ref ref;
        (void)get_ref_for_path(path.c_str(), &ref);
        return BRoster().Launch(&ref);
    }

    fs::path fPlace;
};

TEST_F(LaunchTest, TheApplicationForTheTypeGetsTheDocument) {
    Install(WritingProgram());
    const fs::path document = Write("Help 文書 100% #1.shown", "text");
    team_id team = 7;
    entry_ref ref;
    ASSERT_EQ(get_ref_for_path(document.c_str(), &ref), B_OK);
    EXPECT_EQ(BRoster().Launch(&ref, nullptr, &team), B_OK);
    EXPECT_EQ(team, -1);
    EXPECT_TRUE(Opened().starts_with(document.string() + "\n")) << Opened();
}

TEST_F(LaunchTest, WhatIsStartedIsNoChildAndHasNoTerminal) {
    Install(WritingProgram());
    ASSERT_EQ(Launch(Write("a.shown", "text")), B_OK);
    EXPECT_TRUE(Opened().ends_with("\n/dev/null\n")) << Opened();
    // Neither running nor waiting to be asked for its end.
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(LaunchTest, ALinkLeadsToItsDocument) {
    Install(WritingProgram());
    const fs::path document = Write("a.shown", "text");
    fs::create_symlink(document, fPlace / "link");
    EXPECT_EQ(Launch(fPlace / "link"), B_OK);
    EXPECT_TRUE(Opened().starts_with(document.string() + "\n")) << Opened();
}

TEST_F(LaunchTest, NothingOpensTheType) {
    EXPECT_EQ(Launch(Write("a.shown", "text")), B_LAUNCH_FAILED_NO_PREFERRED_APP);
}

TEST_F(LaunchTest, AnApplicationWithoutItsProgramIsNotInstalled) {
    Install(fPlace / "bin/removed");
    EXPECT_EQ(Launch(Write("a.shown", "text")), B_LAUNCH_FAILED_NO_PREFERRED_APP);
}

TEST_F(LaunchTest, AProgramThatCannotBeExecutedFails) {
    Install(Program("#!/nonexistent/interpreter\n"));
    EXPECT_EQ(Launch(Write("a.shown", "text")), B_LAUNCH_FAILED);
}

TEST_F(LaunchTest, ThereIsNoSuchDocument) {
    Install(WritingProgram());
    EXPECT_EQ(Launch(fPlace / "missing.shown"), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(Launch(fPlace / "no-folder/missing.shown"), B_ENTRY_NOT_FOUND);
    fs::create_symlink("nowhere", fPlace / "dangling.shown");
    EXPECT_EQ(Launch(fPlace / "dangling.shown"), B_ENTRY_NOT_FOUND);
    EXPECT_FALSE(fs::exists(fPlace / "opened"));
}

TEST_F(LaunchTest, NoReferenceIsNoDocument) {
    EXPECT_EQ(BRoster().Launch(nullptr), B_BAD_VALUE);
    const entry_ref empty;
    EXPECT_NE(BRoster().Launch(&empty), B_OK);
}

TEST_F(LaunchTest, ABusThatSaysNothingIsGivenUp) {
    Install(WritingProgram());
    const std::string path = fPlace / "silent";
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof(address.sun_path));
    path.copy(address.sun_path, path.size());
    const int bus = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(bus, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    ASSERT_EQ(listen(bus, 4), 0);
    Set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path);

    const fs::path document = Write("a.shown", "text");
    EXPECT_EQ(
        BPrivate::OpenDocument(document.string(), std::chrono::milliseconds(300)), B_LAUNCH_FAILED);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    close(bus);
}

}  // namespace
