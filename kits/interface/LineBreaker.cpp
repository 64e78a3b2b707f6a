#include "kits/interface/LineBreaker.h"

#include <algorithm>
#include <string_view>

namespace BPrivate {

namespace {

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

bool IsBlank(char byte) {
    return byte == ' ' || byte == '\t';
}

/// The character at the byte, for telling kinds of characters apart; bad UTF-8 gives any.
char32_t CharacterAt(std::string_view text, int32 at) {
    const auto byte = [&](int32 offset) -> char32_t {
        const auto i = static_cast<std::size_t>(at + offset);
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
    };
    const char32_t first = byte(0);
    if (first < 0xe0)
        return first;
    if (first < 0xf0)
        return ((first & 0x0f) << 12) | ((byte(1) & 0x3f) << 6) | (byte(2) & 0x3f);
    return ((first & 0x07) << 18) | ((byte(1) & 0x3f) << 12) | ((byte(2) & 0x3f) << 6) |
        (byte(3) & 0x3f);
}

/// Scripts without blanks between words: a line may end at any character.
bool IsIdeograph(char32_t c) {
    return (c >= 0x2e80 && c < 0xa4d0) || (c >= 0xac00 && c < 0xd7b0) ||
        (c >= 0xf900 && c < 0xfb00) || (c >= 0xff00 && c < 0xfff0) || (c >= 0x20000 && c < 0x40000);
}

/// Closing marks and small letters, which no line begins with.
bool MayBeginLine(char32_t c) {
    constexpr std::u32string_view kNeverFirst =
        U"、。，．・：；？！ー）］｝〕〉》」』】々"
        U"ぁぃぅぇぉっゃゅょァィゥェォッャュョ";
    return kNeverFirst.find(c) == std::u32string_view::npos;
}

/// Opening marks, which no line ends with.
bool MayEndLine(char32_t c) {
    constexpr std::u32string_view kNeverLast = U"（［｛〔〈《「『【";
    return kNeverLast.find(c) == std::u32string_view::npos;
}

int32 NextCharacter(std::string_view text, int32 at, int32 end) {
    do {
        at++;
    } while (at < end && IsContinuation(text[static_cast<std::size_t>(at)]));
    return at;
}

/// Breaks one paragraph, which has no line ends.
class ParagraphBreaker {
public:
    ParagraphBreaker(
        const std::string& text, int32 start, int32 end, float width, const MeasureText& measure)
        : fText(text), fStart(start), fEnd(end), fWidth(width), fMeasure(measure) {}

    void Break(std::vector<TextLine>& lines) {
        FindPlaces();
        int32 start = fStart;
        do {
            const int32 end = EndOfLine(start);
            // What is left of blanks belongs to the line they were broken at.
            lines.push_back({start, end < fEnd ? WithoutBlanks(start, end) : end});
            start = end;
        } while (start < fEnd);
    }

private:
    /// Where lines may end, the paragraph's end included.
    void FindPlaces() {
        char32_t before = 0;
        for (int32 at = fStart; at < fEnd; at = NextCharacter(fText, at, fEnd)) {
            const char32_t here = CharacterAt(fText, at);
            const bool afterBlank = before == ' ' || before == '\t';
            const bool blank = here == ' ' || here == '\t';
            const bool besideIdeograph = (IsIdeograph(before) || IsIdeograph(here)) &&
                MayBeginLine(here) && MayEndLine(before);
            if (at > fStart && !blank && (afterBlank || besideIdeograph))
                fPlaces.push_back(at);
            before = here;
        }
        fPlaces.push_back(fEnd);
    }

    bool Fits(int32 start, int32 end) const {
        return fMeasure(start, WithoutBlanks(start, end)) <= fWidth;
    }

    int32 WithoutBlanks(int32 start, int32 end) const {
        while (end > start && IsBlank(fText[static_cast<std::size_t>(end - 1)]))
            end--;
        return end;
    }

    int32 EndOfLine(int32 start) const {
        const auto first = std::upper_bound(fPlaces.begin(), fPlaces.end(), start);
        if (first == fPlaces.end())
            return fEnd;
        // Measuring is dear and lines are short beside the paragraph: look ahead in growing steps
        // for a place that is too far, then between.
        auto good = first;
        std::ptrdiff_t step = 1;
        if (!Fits(start, *good))
            return EndWithinWord(start, *good);
        auto bad = fPlaces.end();
        while (fPlaces.end() - good > step) {
            const auto next = good + step;
            if (!Fits(start, *next)) {
                bad = next;
                break;
            }
            good = next;
            step *= 2;
        }
        while (bad - good > 1) {
            const auto middle = good + (bad - good) / 2;
            (Fits(start, *middle) ? good : bad) = middle;
        }
        return *good;
    }

    int32 EndWithinWord(int32 start, int32 end) const {
        std::vector<int32> characters;
        for (int32 at = NextCharacter(fText, start, end); at < end;
             at = NextCharacter(fText, at, end))
            characters.push_back(at);
        if (characters.empty())
            return end;
        const auto tooFar = std::partition_point(characters.begin(), characters.end(),
            [&](int32 at) { return fMeasure(start, at) <= fWidth; });
        return tooFar == characters.begin() ? characters.front() : *(tooFar - 1);
    }

    const std::string& fText;
    const int32 fStart;
    const int32 fEnd;
    const float fWidth;
    const MeasureText& fMeasure;
    std::vector<int32> fPlaces;
};

}  // namespace

std::vector<TextLine> BreakLines(const std::string& text, float width, const MeasureText& measure) {
    std::vector<TextLine> lines;
    std::size_t start = 0;
    while (true) {
        const std::size_t lineEnd = text.find_first_of("\r\n", start);
        const std::size_t end = std::min(lineEnd, text.size());
        const auto from = static_cast<int32>(start);
        const auto to = static_cast<int32>(end);
        if (measure && end > start)
            ParagraphBreaker(text, from, to, width, measure).Break(lines);
        else
            lines.push_back({from, to});
        if (lineEnd == std::string::npos)
            return lines;
        start = text.compare(end, 2, "\r\n") == 0 ? end + 2 : end + 1;
    }
}

}  // namespace BPrivate
