#pragma once

#include <string>
#include <vector>

/// What the words of a command line ask for, as BApplication reads those of its process. A program
/// that has more to say about them than that some are not there reads them itself, before it makes
/// its application.
struct launch_files {
    /// The files and folders that exist, in order, as they were given; for a URL the path it
    /// names, and for a link to a folder the folder.
    std::vector<std::string> paths;
    /// A line each for those that do not, and for options, without its end. A terminal can show it.
    std::vector<std::string> errors;
    /// The first of `errors` that is about an option.
    std::string optionError;
    /// The first of `paths`, as a terminal can show it.
    std::string firstName;
};

/// Sorts the words, of which the first is the program's. A word that begins with '-' is an option,
/// and no option is known; after "--" every word is a file. A file can also be given by a file: URL.
launch_files find_launch_files(const std::vector<std::string>& words);
