#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

/// A test with an empty folder of its own, removed afterwards.
class TemporaryFolder : public testing::Test {
protected:
    void SetUp() override {
        std::string name = std::filesystem::temp_directory_path() / "storage-test-XXXXXX";
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        fFolder = std::filesystem::canonical(name);
    }

    void TearDown() override {
        std::error_code ignored;
        std::filesystem::remove_all(fFolder, ignored);
    }

    const std::string& Folder() const { return fFolder; }
    std::string Place(const std::string& name) const { return fFolder + "/" + name; }

    std::string MakeFile(const std::string& name, const std::string& contents = "") const {
        std::ofstream(Place(name), std::ios::binary) << contents;
        return Place(name);
    }

    static std::string Contents(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    size_t EntryCount() const {
        const std::filesystem::directory_iterator walk(fFolder);
        return size_t(std::distance(begin(walk), end(walk)));
    }

private:
    std::string fFolder;
};
