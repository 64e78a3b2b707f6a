#include <support/UTF8.h>

#include <algorithm>
#include <array>
#include <span>
#include <support/Errors.h>

#include "kits/support/Iconv.h"
#include "kits/support/JisReader.h"

namespace BPrivate {

namespace {

/// The C library's names, by conversion.
constexpr std::array kEncodings = {"ISO-8859-1", "ISO-8859-2", "ISO-8859-3", "ISO-8859-4",
    "ISO-8859-5", "ISO-8859-6", "ISO-8859-7", "ISO-8859-8", "ISO-8859-9", "ISO-8859-10",
    "MACINTOSH", "CP932", "EUC-JP", "CP932", "CP1252", "UTF-16BE", "KOI8-R", "CP1251", "CP866"};

/// How many bytes at the start of the text are one character that means nothing.
std::size_t BadLength(uint32 encoding, std::span<const char> text) {
    if (encoding == B_UNICODE_CONVERSION)
        return std::min<std::size_t>(2, text.size());
    return 1;
}

bool Substitute(std::span<char>& dest, char substitute) {
    if (dest.empty())
        return false;
    dest.front() = substitute;
    dest = dest.subspan(1);
    return true;
}

void ConvertBytes(uint32 encoding, Iconv& converter, std::span<const char>& source,
    std::span<char>& dest, char substitute) {
    while (converter.Convert(source, dest) == Iconv::kBadCharacter) {
        if (!Substitute(dest, substitute))
            return;
        source = source.subspan(BadLength(encoding, source));
    }
}

/// One character, or as many as a call of the converter takes at once.
class JisConverter {
public:
    JisConverter(Iconv& converter, int32& state, char substitute)
        : fConverter(converter), fState(state), fSubstitute(substitute) {}

    void Convert(std::span<const char>& source, std::span<char>& dest) {
        while (!source.empty()) {
            if (!ConvertRun(source, dest) && !ConvertCharacter(source, dest))
                return;
        }
    }

private:
    /// False, and nothing was done, when one of the characters needs care.
    bool ConvertRun(std::span<const char>& source, std::span<char>& dest) {
        std::array<char, 512> run;
        std::size_t length = 0;
        std::size_t read = 0;
        JisReader reader(fState);
        while (read < source.size() && length + 2 <= run.size()) {
            const auto character = reader.Next(source.subspan(read));
            if (!character || character->bad)
                return false;
            for (int32 i = 0; i < character->length; i++)
                run[length++] = character->bytes[i];
            read += static_cast<std::size_t>(character->read);
        }
        std::span<const char> bytes(run.data(), length);
        std::span<char> to = dest;
        if (fConverter.Convert(bytes, to) != Iconv::kDone)
            return false;
        dest = to;
        source = source.subspan(read);
        fState = reader.State();
        return true;
    }

    /// False when the source is cut off or the destination is full.
    bool ConvertCharacter(std::span<const char>& source, std::span<char>& dest) {
        JisReader reader(fState);
        const auto character = reader.Next(source);
        if (!character)
            return false;
        std::span<const char> bytes(character->bytes, static_cast<std::size_t>(character->length));
        bool bad = character->bad;
        if (!bad && !bytes.empty()) {
            const Iconv::Result result = fConverter.Convert(bytes, dest);
            if (result == Iconv::kDestFull)
                return false;
            bad = result != Iconv::kDone;
        }
        if (bad) {
            // As many substitutes as it has bytes.
            if (dest.size() < static_cast<std::size_t>(character->read))
                return false;
            for (int32 i = 0; i < character->read; i++)
                Substitute(dest, fSubstitute);
        }
        source = source.subspan(static_cast<std::size_t>(character->read));
        fState = reader.State();
        return true;
    }

    Iconv& fConverter;
    int32& fState;
    const char fSubstitute;
};

}  // namespace

}  // namespace BPrivate

status_t convert_to_utf8(uint32 sourceEncoding, const char* source, int32* sourceLength, char* dest,
    int32* destLength, int32* state, char substitute) {
    using namespace BPrivate;
    if (sourceEncoding >= kEncodings.size() || source == nullptr || sourceLength == nullptr ||
        dest == nullptr || destLength == nullptr || *sourceLength < 0 || *destLength < 0)
        return B_BAD_VALUE;
    Iconv converter(kEncodings[sourceEncoding]);
    if (!converter.IsValid())
        return B_ERROR;

    std::span<const char> from(source, static_cast<std::size_t>(*sourceLength));
    std::span<char> to(dest, static_cast<std::size_t>(*destLength));
    int32 ownState = 0;
    if (sourceEncoding == B_JIS_CONVERSION)
        JisConverter(converter, state != nullptr ? *state : ownState, substitute).Convert(from, to);
    else
        ConvertBytes(sourceEncoding, converter, from, to, substitute);
    *sourceLength -= static_cast<int32>(from.size());
    *destLength -= static_cast<int32>(to.size());
    return B_OK;
}
