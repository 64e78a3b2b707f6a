#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

/// A folder of a test's own, removed with all that is in it at the end.
class TTemporaryFolder {
public:
    TTemporaryFolder() {
        std::string path =
            (std::filesystem::temp_directory_path() / ("lorivane-" + std::string(6, 'X'))).string();
        if (mkdtemp(path.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        fPath = path;
    }
    ~TTemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(fPath, ignored);
    }
    TTemporaryFolder(const TTemporaryFolder&) = delete;
    TTemporaryFolder& operator=(const TTemporaryFolder&) = delete;

    std::string Path() const { return fPath; }
    std::string operator/(const std::string& name) const { return fPath + "/" + name; }

private:
    std::string fPath;
};

inline void write_text(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

/// The names of all that is in the folder.
inline std::set<std::string> file_names_in(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

inline std::string read_text(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
