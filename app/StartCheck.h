#pragma once

#include <app/LaunchFiles.h>
#include <string>
#include <vector>

/// What a start has to say in the terminal it was typed in, before anything is opened.
struct StartCheck {
    std::vector<std::string> lines;  ///< for standard error, without their ends
    /// That the program ends with; 0 when it goes on. BApplication then says what is not there.
    int status = 0;
};

/// An option that does not exist, and files none of which are there, are mistakes, and end the
/// program. Of several files only the first is opened, which is said.
StartCheck check_start(const launch_files& files);
