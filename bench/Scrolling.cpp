// The whole program, from outside: what one step of scrolling costs the window's thread in an image
// of 100 megapixels, against one of 2 in the same window.
//
// It runs itself as the viewer for each image, as bench_viewing does:
//     BENCH_MEASURE=5 bench_scrolling FILE  five steps down, five up and so on; prints the
//                                           milliseconds of each

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <interface/InterfaceDefs.h>
#include <mutex>
#include <thread>

#include "bench/Photo.h"
#include "bench/Report.h"
#include "bench/ViewerRun.h"
#include "bench/WatchedDisplay.h"
#include "settings/DisplayOption.h"
#include "settings/ExitStates.h"
#include "settings/Prefs.h"

int lorivane_main(int argc, char** argv);

namespace {

using bench::GiveUp;
using namespace std::chrono_literals;

// Both are larger than the window in both directions. `oneWay` is how many steps, each half a
// window, lie safely between their ends.
struct Subject {
    int width;
    int height;
    int oneWay;
};
constexpr Subject kSmall{1000, 2000, 3};
constexpr Subject kLarge{10000, 10000, 20};
constexpr BRect kWindow(50, 50, 949, 849);

constexpr int kRounds = 3;
constexpr int kSteps = 200;
constexpr double kLimit = 1.2;
constexpr auto kPatience = 120s;

std::mutex gLock;
std::condition_variable gDrawn;
bench::Drawing gLast;
int gDrawings = 0;

// Waits for a drawing that comes after that many.
void AwaitDrawing(int before, const char* otherwise) {
    std::unique_lock lock(gLock);
    if (!gDrawn.wait_for(lock, kPatience, [&] { return gDrawings > before && gLast.centre != 0; }))
        GiveUp(otherwise);
}

// Down the image and back, so that of the large one is seen what no cache still holds. A step at an
// end would be one to another image.
void Scroll(int steps, int oneWay) {
    for (int i = 0; i < steps; ++i) {
        std::unique_lock lock(gLock);
        const bench::Drawing before = gLast;
        const int drawings = gDrawings;
        lock.unlock();
        bench::SendKey(i / oneWay % 2 == 0 ? B_DOWN_ARROW : B_UP_ARROW);
        AwaitDrawing(drawings, "a key does not scroll");
        lock.lock();
        std::printf("%f\n", gLast.threadMilliseconds - before.threadMilliseconds);
    }
}

int ScrollSelf(int argc, char** argv) {
    bench::SetDrawingListener([](const bench::Drawing& drawing) {
        const std::lock_guard lock(gLock);
        gLast = drawing;
        gDrawings++;
        gDrawn.notify_all();
    });
    const int oneWay = std::atoi(std::getenv("BENCH_MEASURE"));
    std::thread hand([oneWay] {
        AwaitDrawing(0, "the picture does not appear");
        Scroll(kSteps, oneWay);
        std::fflush(stdout);
        std::_Exit(0);
    });
    const int status = lorivane_main(argc, argv);
    hand.detach();
    return status;
}

double StepOf(const std::string& photo, const Subject& subject) {
    std::vector<double> steps;
    for (const std::string& line : bench::RunSelf(std::to_string(subject.oneWay), photo))
        steps.push_back(std::stod(line));
    if (steps.size() != kSteps)
        GiveUp("the viewer did not make every step");
    return bench::Median(steps);
}

int Measure(const std::filesystem::path& folder) {
    setenv("XDG_CONFIG_HOME", (folder / "settings").c_str(), 1);
    gPrefs.fDisplayOption = kDontFitAnything;
    gExitStates.fWindowFrame = kWindow;
    if (gPrefs.SaveToFile() != 0 || gExitStates.SaveToFile() != 0)
        GiveUp("the settings could not be written");
    // Each alone in its folder, so that nothing else is decoded meanwhile.
    const auto write = [&](const char* name, const Subject& subject) {
        const std::filesystem::path place = folder / name;
        std::filesystem::create_directory(place);
        std::string photo = (place / "photo.jpg").string();
        if (!bench::WritePhoto(photo, 1, subject.width, subject.height))
            GiveUp("the photographs could not be written");
        return photo;
    };
    const std::string smallPhoto = write("small", kSmall);
    const std::string largePhoto = write("large", kLarge);
    std::vector<double> small, large;
    for (int round = 0; round < kRounds; ++round) {
        small.push_back(StepOf(smallPhoto, kSmall));
        large.push_back(StepOf(largePhoto, kLarge));
    }
    const double two = bench::Median(small);
    const double hundred = bench::Median(large);
    std::printf("a step in 2 megapixels: %.3f ms, in 100: %.3f ms (medians of %d)\n", two, hundred,
        kRounds * kSteps);
    const bool good =
        bench::Judge("scrolling 100 megapixels, against 2", hundred / two, kLimit, "x");
    return good ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (std::getenv("BENCH_MEASURE") != nullptr)
        return ScrollSelf(argc, argv);
    bench::PrintMachine();
    std::string pattern =
        (std::filesystem::temp_directory_path() / "lorivane-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        GiveUp("no temporary folder");
    const int status = Measure(pattern);
    std::filesystem::remove_all(pattern);
    return status;
}
