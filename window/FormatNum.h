#pragma once

// Amounts of memory as the image information shows them.

#include <string>

/// The number with at most two decimals and a comma before every third digit of the rest:
/// "1,228,800", "1.17". In single precision: about seven digits are exact.
std::string FormatNum(double value);

/// So many bytes of memory: "1,024 B", "1.17 MB ( 1,228,800 B)".
std::string memory_text(double bytes);
