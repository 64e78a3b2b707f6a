#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

/// While it lives, the disk is full: a limit on the size of this process's files lets a write end
/// after a few bytes.
class TFullDisk {
public:
    TFullDisk() : fHandler(std::signal(SIGXFSZ, SIG_IGN)) {
        if (getrlimit(RLIMIT_FSIZE, &fBefore) != 0)
            throw std::runtime_error("no limit of the size of files");
        constexpr rlim_t kBytes = 16;
        const rlimit tight{kBytes, fBefore.rlim_max};
        (void)setrlimit(RLIMIT_FSIZE, &tight);
    }
    ~TFullDisk() {
        (void)setrlimit(RLIMIT_FSIZE, &fBefore);
        (void)std::signal(SIGXFSZ, fHandler);
    }
    TFullDisk(const TFullDisk&) = delete;
    TFullDisk& operator=(const TFullDisk&) = delete;

private:
    void (*const fHandler)(int);
    rlimit fBefore{};
};

/// While it lives, nothing can be made or changed in the folder. Since permissions mean nothing to
/// root, the process is an ordinary user for as long.
class TReadOnlyFolder {
public:
    /// @param folder within one that is a test's own
    explicit TReadOnlyFolder(const std::filesystem::path& folder) : fFolder(folder) {
        using std::filesystem::perms;
        constexpr perms kPass = perms::owner_exec | perms::group_exec | perms::others_exec |
            perms::owner_read | perms::group_read | perms::others_read;
        // A test's own folder is closed to others.
        const std::filesystem::path shared = std::filesystem::temp_directory_path();
        for (auto above = folder.parent_path(); above != shared; above = above.parent_path()) {
            if (above == above.parent_path())
                throw std::runtime_error("no folder of a test's own");
            std::filesystem::permissions(above, kPass | perms::owner_write);
        }
        std::filesystem::permissions(folder, kPass);
        constexpr uid_t kNobody = 65534;
        fIsRoot = geteuid() == 0;
        if (fIsRoot && seteuid(kNobody) != 0)
            throw std::runtime_error("root cannot be somebody else here");
    }
    ~TReadOnlyFolder() {
        if (fIsRoot && seteuid(0) != 0)
            ADD_FAILURE() << "not root again";
        std::filesystem::permissions(fFolder, std::filesystem::perms::owner_all);
    }
    TReadOnlyFolder(const TReadOnlyFolder&) = delete;
    TReadOnlyFolder& operator=(const TReadOnlyFolder&) = delete;

private:
    const std::filesystem::path fFolder;
    bool fIsRoot = false;
};
