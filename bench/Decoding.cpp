// Decoding 1 MB of Shift-JIS, against calling iconv() on the same bytes.

#include <cstdio>
#include <iconv.h>
#include <string>
#include <vector>

#include "bench/Report.h"
#include "comment/CommentText.h"
#include "settings/Prefs.h"

namespace {

constexpr int kRuns = 25;
constexpr double kLimit = 1 / 0.8;

/// Prose with kana, kanji, Latin letters and line ends.
std::string Text() {
    const std::string line = "\x8b\x9e\x93\x73\x81\x41\x97\x92\x8e\x52\x82\xcc\x92\x7c\x97\xd1\x82"
                             "\xc9\x82\xc4\x81\x42 photo 123 \xca\xdd\xb6\xb8\r\n";
    std::string text;
    while (text.size() < 1'000'000)
        text += line;
    return text;
}

std::string ByHand(const std::string& text) {
    std::string result(2 * text.size() + 1, '\0');
    iconv_t converter = iconv_open("UTF-8", "CP932");
    char* from = const_cast<char*>(text.data());
    size_t fromLeft = text.size();
    char* to = result.data();
    size_t toLeft = result.size();
    iconv(converter, &from, &fromLeft, &to, &toLeft);
    iconv_close(converter);
    result.resize(result.size() - toLeft);
    return result;
}

}  // namespace

int main() {
    bench::PrintMachine();
    const std::string text = Text();
    std::vector<double> byHand, own;
    bool same = true;
    for (int run = 0; run < kRuns; ++run) {
        auto start = bench::Clock::now();
        const std::string meant = ByHand(text);
        byHand.push_back(bench::MillisecondsSince(start));

        start = bench::Clock::now();
        const std::string made = comment_to_utf8(text, kEncodingShiftJIS);
        own.push_back(bench::MillisecondsSince(start));
        same = same && made == meant && !made.empty();
    }
    if (!same) {
        std::fprintf(stderr, "the two texts differ\n");
        return 1;
    }
    const double hand = bench::Median(byHand), ours = bench::Median(own);
    std::printf("decoding 1 MB of Shift-JIS: %.2f ms, by hand %.2f ms (median of %d)\n", ours, hand,
        kRuns);
    return bench::Judge("decoding Shift-JIS, against iconv", ours / hand, kLimit, "x") ? 0 : 1;
}
