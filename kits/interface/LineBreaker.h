#pragma once

#include <functional>
#include <string>
#include <support/SupportDefs.h>
#include <vector>

namespace BPrivate {

/// One line of a text, as bytes of it.
struct TextLine {
    int32 start = 0;
    int32 end = 0;  ///< of what is shown: without the line end, or the blanks it was broken at

    bool operator==(const TextLine&) const = default;
};

/// The width of a part of the text, in pixels. Never falls when the part grows.
using MeasureText = std::function<float(int32 start, int32 end)>;

/// Breaks UTF-8 text into lines of at most `width` pixels: at line ends (LF, CR or both), behind
/// blanks, beside ideographs, and within a word only where it is wider than a line. Every line has
/// at least one character, so that any width ends. Without a measure only line ends count. At
/// least one line; a text that ends with a line end has an empty last one.
std::vector<TextLine> BreakLines(const std::string& text, float width, const MeasureText& measure);

}  // namespace BPrivate
