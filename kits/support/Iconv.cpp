#include "kits/support/Iconv.h"

#include <cerrno>

namespace BPrivate {

Iconv::Iconv(const char* encoding) : fConverter(iconv_open("UTF-8", encoding)) {}

Iconv::~Iconv() {
    if (IsValid())
        iconv_close(fConverter);
}

Iconv::Result Iconv::Convert(std::span<const char>& source, std::span<char>& dest) {
    char* from = const_cast<char*>(source.data());  // never written to
    std::size_t fromLeft = source.size();
    char* to = dest.data();
    std::size_t toLeft = dest.size();
    errno = 0;
    const bool failed = iconv(fConverter, &from, &fromLeft, &to, &toLeft) == std::size_t(-1);
    const int error = errno;
    source = source.last(fromLeft);
    dest = dest.last(toLeft);
    if (!failed)
        return kDone;
    switch (error) {
    case E2BIG: return kDestFull;
    case EINVAL: return kCutOff;
    default: return kBadCharacter;
    }
}

}  // namespace BPrivate
