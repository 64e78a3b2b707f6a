#pragma once

// Beyond the platform's interface: what a program tells whoever has started it by hand.

#include <string>

/// Writes the program's name and one line on standard error if that is a terminal, and nothing
/// otherwise. What a terminal would take for a command is written as "\x1b". Any thread.
void print_on_terminal(const std::string& line);
