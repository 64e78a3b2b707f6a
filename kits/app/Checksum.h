#pragma once

#include <string_view>
#include <support/SupportDefs.h>

namespace BPrivate {

/// The CRC-32 of PNG and gzip (reflected polynomial 0xedb88320), in as many pieces as it takes.
class Checksum {
public:
    void Add(std::string_view bytes);
    uint32 Value() const { return ~fState; }

private:
    uint32 fState = 0xffffffff;
};

}  // namespace BPrivate
