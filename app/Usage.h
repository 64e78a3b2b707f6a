#pragma once

#include <string>
#include <vector>

/// What a command line asks the program to print instead of opening a window: the text of the
/// first --help, -h or --version before a "--", with its line ends; empty when there is neither.
/// The first word is the program's.
std::string text_asked_for(const std::vector<std::string>& words);
