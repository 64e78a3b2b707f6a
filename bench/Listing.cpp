// Listing and sorting a folder of 100,000 entries, against readdir() and std::sort() of the same
// names.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <storage/Entry.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "bench/Report.h"
#include "viewer/ImageList.h"

namespace {

constexpr int kEntries = 100000;
constexpr int kRuns = 15;
constexpr double kLimit = 1.5;

// A folder as a camera and its user leave it: numbered names, and some of other kinds.
std::filesystem::path MakeFolder() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "lorivane-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        return {};
    std::vector<int> order(kEntries);
    for (int i = 0; i < kEntries; ++i)
        order[static_cast<size_t>(i)] = i;
    std::shuffle(order.begin(), order.end(), std::mt19937(1));
    for (int i : order) {
        char name[64];
        const char* format = i % 10 == 0 ? "Holiday by the sea (%d).png" : "IMG_%06d.JPG";
        std::snprintf(name, sizeof(name), format, i);
        int file = open((std::filesystem::path(pattern) / name).c_str(), O_CREAT | O_WRONLY, 0600);
        if (file < 0)
            return {};
        close(file);
    }
    return pattern;
}

std::vector<std::string> ListByHand(const char* path) {
    std::vector<std::string> names;
    if (DIR* folder = opendir(path)) {
        while (dirent* entry = readdir(folder))
            names.emplace_back(entry->d_name);
        closedir(folder);
    }
    std::sort(names.begin(), names.end());
    return names;
}

class List : public TImageList {
public:
    void Fill(const BEntry& folder) { ListFolder(folder); }
    size_t Entries() const { return Count(); }
    const NameList& AllNames() const { return Names(); }
};

}  // namespace

int main() {
    bench::PrintMachine();
    std::filesystem::path folder = MakeFolder();
    if (folder.empty()) {
        std::fprintf(stderr, "no folder of %d files could be made\n", kEntries);
        return 1;
    }

    std::vector<double> byHand, byList;
    bool same = true;
    for (int run = 0; run < kRuns; ++run) {
        auto start = bench::Clock::now();
        std::vector<std::string> names = ListByHand(folder.c_str());
        byHand.push_back(bench::MillisecondsSince(start));

        List list;
        start = bench::Clock::now();
        list.Fill(BEntry(folder.c_str()));
        byList.push_back(bench::MillisecondsSince(start));

        // readdir() names the folder itself and its parent, too.
        std::erase_if(names, [](const std::string& name) { return name == "." || name == ".."; });
        same = same && list.Entries() == kEntries && names.size() == kEntries &&
            list.AllNames().front().ends_with('/' + names.front()) &&
            list.AllNames().back().ends_with('/' + names.back());
    }
    std::filesystem::remove_all(folder);
    if (!same) {
        std::fprintf(stderr, "the two lists differ\n");
        return 1;
    }

    double hand = bench::Median(byHand), own = bench::Median(byList);
    std::printf("listing %d entries: %.1f ms, by hand %.1f ms (median of %d)\n", kEntries, own,
        hand, kRuns);
    return bench::Judge("listing and sorting, against readdir and sort", own / hand, kLimit, "x")
        ? 0
        : 1;
}
