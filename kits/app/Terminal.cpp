#include <app/Terminal.h>

#include "kits/app/CommandLine.h"

#include <cstdio>
#include <unistd.h>

void print_on_terminal(const std::string& line) {
    if (isatty(STDERR_FILENO) == 0)
        return;
    // In one call, so that lines of several threads do not mix.
    const std::string text =
        BPrivate::ProgramName(BPrivate::CommandLine()) + ": " + BPrivate::Printable(line) + "\n";
    (void)std::fputs(text.c_str(), stderr);
}
