#pragma once

#include <app/Message.h>
#include <filesystem>
#include <storage/File.h>
#include <string>

#include "tests/framework/SettingsHome.h"

/// The shared settings files of a user of a test's own; there are none at first.
class TSharedFiles {
public:
    std::string PathOf(const std::string& item) const {
        return fHome / ("config/ZELKAN/Shared/" + item + ".arc");
    }
    bool Has(const std::string& item) const { return std::filesystem::exists(PathOf(item)); }

    void Write(const std::string& item, const BMessage& message) const {
        MakeFolder();
        BFile file(PathOf(item).c_str(), B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
        if (message.Flatten(&file) != B_OK)
            throw std::runtime_error("cannot write " + item);
    }
    void WriteText(const std::string& item, const std::string& bytes) const {
        MakeFolder();
        write_text(PathOf(item), bytes);
    }
    /// Empty, with a `what` of its own, when there is no such file or it is no message.
    BMessage Read(const std::string& item) const {
        BMessage message('none');
        BFile file(PathOf(item).c_str(), B_READ_ONLY);
        (void)message.Unflatten(&file);
        return message;
    }

    /// Makes the folder, which the first save would make otherwise.
    void MakeFolder() const {
        std::filesystem::create_directories(std::filesystem::path(PathOf("any")).parent_path());
    }

private:
    TSettingsHome fHome;
};

constexpr char kOwnApp[] = "application/x-vnd.ZELKAN-Own";
constexpr char kOtherApp[] = "application/x-vnd.ZELKAN-Other";
