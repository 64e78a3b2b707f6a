#include "bench/Report.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <thread>
#include <unistd.h>

namespace bench {

double MillisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double Median(std::vector<double> values) {
    if (values.empty())
        return 0;
    auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void PrintMachine() {
    std::string model = "unknown processor";
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);) {
        if (line.starts_with("model name")) {
            model = line.substr(line.find(':') + 2);
            break;
        }
    }
    long pages = sysconf(_SC_PHYS_PAGES), pageSize = sysconf(_SC_PAGESIZE);
    std::printf("machine: %s, %u cores, %.1f GiB\n", model.c_str(),
        std::thread::hardware_concurrency(), double(pages) * double(pageSize) / (1 << 30));
}

bool Judge(const std::string& what, double value, double limit, const std::string& unit) {
    bool good = value <= limit;
    std::printf("%-58s %8.2f %-2s  limit %.2f  %s\n", what.c_str(), value, unit.c_str(), limit,
        good ? "ok" : "ABOVE");
    std::fflush(stdout);
    return good;
}

}  // namespace bench
