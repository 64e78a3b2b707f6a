#include "kits/translation/ImageLimits.h"
#include <algorithm>
#include <climits>
#include <cstdio>
#include <fstream>
#include <interface/Bitmap.h>
#include <limits>
#include <string>
#include <sys/resource.h>

namespace BPrivate {

static constexpr uint64 kUnlimited = std::numeric_limits<uint64>::max();

status_t CheckImageSize(
    uint32 width, uint32 height, uint32 bytesPerPixel, uint64 available, ImageExtent* extent) {
    if (width == 0 || height == 0 || width > kMaxImageSide || height > kMaxImageSide)
        return B_BAD_DATA;
    uint64 row;
    uint64 bytes;
    if (__builtin_mul_overflow(uint64(width), uint64(bytesPerPixel), &row) ||
        __builtin_mul_overflow(row, uint64(height), &bytes))
        return B_NO_MEMORY;
    if (bytes > uint64(INT32_MAX) || bytes > available)
        return B_NO_MEMORY;
    *extent = {int32(row), int32(bytes)};
    return B_OK;
}

// The system's own estimate of what can be had without swapping.
static uint64 SystemMemory() {
    std::ifstream file("/proc/meminfo");
    for (std::string line; std::getline(file, line);) {
        unsigned long long kilobytes;
        if (sscanf(line.c_str(), "MemAvailable: %llu kB", &kilobytes) == 1)
            return uint64(kilobytes) * 1024;
    }
    return kUnlimited;
}

static uint64 NumberIn(const std::string& path, uint64 otherwise) {
    std::ifstream file(path);
    uint64 number;
    return file >> number ? number : otherwise;
}

// What the control groups around this process leave; "max" or a missing file is no limit.
static uint64 ControlGroupMemory() {
    std::ifstream file("/proc/self/cgroup");
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with("0::/"))
            continue;
        uint64 left = kUnlimited;
        for (std::string group = line.substr(3); group.size() > 1; group.resize(group.rfind('/'))) {
            const std::string folder = "/sys/fs/cgroup" + group;
            const uint64 limit = NumberIn(folder + "/memory.max", kUnlimited);
            const uint64 used = NumberIn(folder + "/memory.current", 0);
            if (limit != kUnlimited)
                left = std::min(left, limit > used ? limit - used : 0);
        }
        return left;
    }
    return kUnlimited;
}

static uint64 ProcessMemory() {
    rlimit limit;
    if (getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY)
        return kUnlimited;
    std::ifstream file("/proc/self/statm");
    uint64 pages = 0;
    file >> pages;
    const uint64 used = pages * 4096;
    return limit.rlim_cur > used ? limit.rlim_cur - used : 0;
}

uint64 AvailableImageMemory() {
    const uint64 memory = std::min({SystemMemory(), ControlGroupMemory(), ProcessMemory()});
    return memory / 4 * 3;
}

status_t MakeCheckedBitmap(uint32 width, uint32 height, std::unique_ptr<BBitmap>* bitmap) {
    ImageExtent extent;
    if (status_t status = CheckImageSize(width, height, 4, AvailableImageMemory(), &extent);
        status != B_OK)
        return status;
    auto made =
        std::make_unique<BBitmap>(BRect(0, 0, float(width - 1), float(height - 1)), B_RGBA32);
    if (status_t status = made->InitCheck(); status != B_OK)
        return status;
    *bitmap = std::move(made);
    return B_OK;
}

}  // namespace BPrivate
