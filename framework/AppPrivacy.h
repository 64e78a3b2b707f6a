#pragma once

#include <string>

/// Where the running program lies. Filled once at start-up, before there are other threads.
class TAppPrivacy {
public:
    /// @param path the program's own path as it was started; links are followed.
    void AnalyzeExePath(const char* path);

    /// The executable's folder, without a trailing "/".
    std::string ExePath() const { return fExePath; }
    /// The executable's leaf name.
    std::string ExeName() const { return fExeName; }

private:
    std::string fExePath;
    std::string fExeName;
};

extern TAppPrivacy gAppPrivacy;
