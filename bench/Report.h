#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace bench {

using Clock = std::chrono::steady_clock;

/// Milliseconds since a moment.
double MillisecondsSince(Clock::time_point start);

double Median(std::vector<double> values);

/// Prints the machine's processor, its number of cores and its memory.
void PrintMachine();

/// Prints one result with its limit.
/// @return whether it is within it
bool Judge(const std::string& what, double value, double limit, const std::string& unit);

}  // namespace bench
