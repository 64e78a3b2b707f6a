#pragma once

#include <deque>
#include <string>
#include <support/SupportDefs.h>

#include "kits/interface/Display.h"

namespace BPrivate {

/// One line of a text, as bytes of it.
struct TextLine {
    int32 start = 0;
    int32 end = 0;  ///< of what is shown: without the line end, or the blanks it was broken at

    bool operator==(const TextLine&) const = default;
};

/// Breaks a text into lines, one after the other: at its line ends (LF, CR or both) and where the
/// display finds that a line must end. However long the text is, a line costs what is on it.
///
/// The text must stay as it is.
class LineBreaker {
public:
    /// Lines of at most `width` pixels, if they are to be wrapped.
    LineBreaker(const std::string& text, const FontSpec& font, float width, bool wrap)
        : fText(text), fFont(font), fWidth(width), fWrap(wrap) {}

    /// The next line; false when there is none. There is at least one, and a text that ends with a
    /// line end has an empty last one.
    bool Next(TextLine& line);

private:
    void BreakParagraph(std::size_t end);
    bool BreakWindow(std::size_t end, bool isLast);

    const std::string& fText;
    const FontSpec fFont;
    const float fWidth;
    const bool fWrap;
    std::size_t fAt = 0;  // where the next line starts
    std::size_t fParagraphEnd = 0;
    bool fInParagraph = false;
    bool fDone = false;
    std::deque<std::size_t> fEnds;  // of the next lines of the paragraph
};

}  // namespace BPrivate
