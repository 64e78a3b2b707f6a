#pragma once

#include <iconv.h>
#include <span>
#include <support/SupportDefs.h>

namespace BPrivate {

/// One conversion to UTF-8 by the C library, for the length of a call. Knows no state between
/// characters.
class Iconv {
public:
    explicit Iconv(const char* encoding);
    ~Iconv();
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;

    bool IsValid() const { return fConverter != kNone; }

    /// Converts from the start of `source` to the start of `dest` and makes both begin behind what
    /// was read and written.
    enum Result { kDone, kDestFull, kBadCharacter, kCutOff };
    Result Convert(std::span<const char>& source, std::span<char>& dest);

private:
    static inline const iconv_t kNone = reinterpret_cast<iconv_t>(-1);
    iconv_t fConverter;
};

}  // namespace BPrivate
