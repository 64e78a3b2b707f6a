#pragma once

#include <cstdlib>
#include <string>

#include "tests/framework/TemporaryFolder.h"

/// A user's settings directory of a test's own, empty at first.
class TSettingsHome {
public:
    TSettingsHome() { setenv("XDG_CONFIG_HOME", (fFolder / "config").c_str(), 1); }

    /// Where a settings file of the application's lies.
    std::string File(const std::string& name) const {
        return fFolder / ("config/ZELKAN/Lorivane/" + name);
    }
    std::string operator/(const std::string& name) const { return fFolder / name; }

private:
    TTemporaryFolder fFolder;
};
