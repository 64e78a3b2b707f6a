#pragma once

// The program under measurement: it is run by running the benchmark itself once more, which is the
// viewer with a watched display.

#include <string>
#include <vector>

namespace bench {

/// Says why there is nothing to measure, and ends the process.
[[noreturn]] void GiveUp(const char* reason);

/// Runs this program again, to be the viewer of the path.
/// @param what value of BENCH_MEASURE, which tells it what to measure
/// @return the lines it prints; none when it failed
std::vector<std::string> RunSelf(const std::string& what, const std::string& path);

/// Presses a key in the first window: a character, or an arrow key's code.
void SendKey(char key);

}  // namespace bench
