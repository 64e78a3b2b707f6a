#include "kits/interface/LineBreaker.h"

#include <algorithm>

#include "kits/interface/ShownText.h"

namespace BPrivate {

namespace {

// How much of a paragraph is looked at at a time. A line that is longer has nobody who reads it.
constexpr std::size_t kWindow = 4096;
constexpr std::size_t kLargestWindow = std::size_t{1} << 18;

bool IsTrail(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

bool IsBlank(char byte) {
    return byte == ' ' || byte == '\t';
}

/// How many bytes at the end of the text are a blank, or a mark that nothing is seen of.
std::size_t UnseenAtEnd(std::string_view text) {
    if (IsBlank(text.back()))
        return 1;
    return text.ends_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
}

}  // namespace

bool LineBreaker::Next(TextLine& line) {
    if (fDone)
        return false;
    if (!fInParagraph) {
        fParagraphEnd = std::min(fText.find_first_of("\r\n", fAt), fText.size());
        fInParagraph = true;
    }
    if (fEnds.empty())
        BreakParagraph(fParagraphEnd);
    const std::size_t end = fEnds.front();
    fEnds.pop_front();

    std::size_t shownEnd = end;
    // What is left of blanks belongs to the line they were broken at.
    while (end < fParagraphEnd && shownEnd > fAt) {
        const std::size_t unseen = UnseenAtEnd(std::string_view(fText).substr(fAt, shownEnd - fAt));
        if (unseen == 0)
            break;
        shownEnd -= unseen;
    }
    line = {static_cast<int32>(fAt), static_cast<int32>(shownEnd)};
    fAt = end;
    if (end < fParagraphEnd)
        return true;
    fInParagraph = false;
    fDone = end == fText.size();
    if (!fDone)
        fAt += fText.compare(end, 2, "\r\n") == 0 ? 2 : 1;
    return true;
}

void LineBreaker::BreakParagraph(std::size_t end) {
    if (!fWrap || fAt == end) {
        fEnds.push_back(end);
        return;
    }
    for (std::size_t window = kWindow;; window *= 2) {
        std::size_t windowEnd = std::min(end, fAt + window);
        while (windowEnd < end && IsTrail(fText[windowEnd]) && windowEnd > fAt + window - 4)
            windowEnd--;
        if (BreakWindow(windowEnd, windowEnd == end || window >= kLargestWindow))
            return;
    }
}

bool LineBreaker::BreakWindow(std::size_t end, bool isLast) {
    std::vector<int32> sources;
    const std::string shown = ShownText(std::string_view(fText).substr(fAt, end - fAt), &sources);
    std::vector<int32> ends = TheDisplay().LineEnds(fFont, shown, fWidth);
    if (!isLast) {
        // More of the text might have gone onto the last line, or have kept a word together.
        ends.pop_back();
        if (ends.empty())
            return false;
    }
    std::size_t before = fAt;
    for (const int32 lineEnd : ends) {
        const std::size_t source =
            fAt + static_cast<std::size_t>(sources[static_cast<std::size_t>(lineEnd)]);
        // A tab is broken behind, not within.
        if (source > before)
            fEnds.push_back(source);
        before = std::max(before, source);
    }
    if (isLast && (fEnds.empty() || fEnds.back() != end))
        fEnds.push_back(end);
    return !fEnds.empty();
}

}  // namespace BPrivate
