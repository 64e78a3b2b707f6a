// The whole program, from outside: how long it takes to show a photograph of 12 megapixels, and to
// step onto a neighbour that it has decoded ahead.
//
// It runs itself as the viewer for each measurement. What to measure comes in the environment,
// since the arguments are the viewer's:
//     BENCH_MEASURE=first bench_viewing FILE    prints the time to the first drawing
//     BENCH_MEASURE=steps bench_viewing FOLDER  steps through it and prints one line a step

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <interface/InterfaceDefs.h>
#include <mutex>
#include <sstream>
#include <thread>
#include <unistd.h>

#include "bench/Photo.h"
#include "bench/Report.h"
#include "bench/ViewerRun.h"
#include "bench/WatchedDisplay.h"

int lorivane_main(int argc, char** argv);

namespace {

using bench::GiveUp;
using bench::RunSelf;
using bench::SendKey;
using namespace std::chrono_literals;

constexpr int kPhotos = 6;
constexpr int kStarts = 9;
constexpr double kFirstLimit = 2.0;
constexpr int kStepRuns = 3;
constexpr double kStepLimit = 10.0;
constexpr double kCommentLimit = 5.0;
constexpr auto kPatience = 60s;

// What the window's thread has drawn, for the thread that measures.
std::mutex gLock;
std::condition_variable gDrawn;
bench::Drawing gLast;

// The first drawing whose middle is not the black of the empty window.
int First(int argc, char** argv, bench::Clock::time_point start) {
    bench::SetDrawingListener([start](const bench::Drawing& drawing) {
        if (drawing.centre == 0)
            return;
        double time = std::chrono::duration<double, std::milli>(drawing.finished - start).count();
        std::printf("%f\n", time);
        std::fflush(stdout);
        std::_Exit(0);
    });
    return lorivane_main(argc, argv);
}

bool IsLoading() {
    std::error_code error;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task", error)) {
        std::string name;
        std::getline(std::ifstream(task.path() / "comm"), name);
        if (name.starts_with("LoadThread_"))
            return true;
    }
    return false;
}

// Whether a thread waits for something, by the kernel's word.
bool IsAsleep(int thread) {
    std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/stat");
    std::string line;
    std::getline(file, line);
    size_t end = line.rfind(')');
    return end != std::string::npos && end + 2 < line.size() && line[end + 2] == 'S';
}

// Until the loaders have ended and the window has nothing left to do.
void AwaitRest() {
    auto end = bench::Clock::now() + kPatience;
    int window;
    {
        std::lock_guard lock(gLock);
        window = gLast.thread;
    }
    for (int quiet = 0; quiet < 20;) {
        quiet = !IsLoading() && IsAsleep(window) ? quiet + 1 : 0;
        if (bench::Clock::now() > end)
            GiveUp("the viewer does not come to rest");
        std::this_thread::sleep_for(2ms);
    }
}

// One key, and the drawing that ends what it started.
void MakeStep(char key) {
    AwaitRest();
    std::unique_lock lock(gLock);
    bench::Drawing before = gLast;
    lock.unlock();
    auto start = bench::Clock::now();
    SendKey(key);
    lock.lock();
    if (!gDrawn.wait_for(lock, kPatience, [&] { return gLast.centre != before.centre; }))
        GiveUp("a key shows no other picture");
    std::chrono::duration<double, std::milli> time = gLast.finished - start;
    std::printf("%f %f\n", time.count(), gLast.threadMilliseconds - before.threadMilliseconds);
    std::fflush(stdout);
}

int Steps(int argc, char** argv) {
    bench::SetDrawingListener([](const bench::Drawing& drawing) {
        std::lock_guard lock(gLock);
        gLast = drawing;
        gDrawn.notify_all();
    });
    std::thread hand([] {
        std::unique_lock lock(gLock);
        if (!gDrawn.wait_for(lock, kPatience, [] { return gLast.centre != 0; }))
            GiveUp("the first picture does not appear");
        lock.unlock();
        for (int round = 0; round < 3; ++round) {
            for (int i = 1; i < kPhotos; ++i)
                MakeStep(' ');
            for (int i = 1; i < kPhotos; ++i)
                MakeStep(B_BACKSPACE);
        }
        std::_Exit(0);
    });
    int status = lorivane_main(argc, argv);
    hand.detach();
    return status;
}

// The photographs again, each with a comment of about 2 kB.
std::filesystem::path MakeCommented(const std::filesystem::path& photos) {
    std::filesystem::path folder = photos.parent_path() / "commented";
    std::filesystem::copy(photos, folder);
    std::string text;
    while (text.size() < 2000)
        text += "A line as one writes it below a photograph, 日本語も少し。\n";
    for (int i = 0; i < kPhotos; ++i)
        std::ofstream(folder / ("photo" + std::to_string(i) + ".txt")) << text;
    return folder;
}

struct Step {
    double time = 0;  // milliseconds, as all here
    double threadTime = 0;
};

void AddSteps(const std::filesystem::path& folder, std::vector<Step>& steps) {
    std::vector<std::string> lines = RunSelf("steps", folder.string());
    if (lines.size() != 3 * 2 * (kPhotos - 1))
        GiveUp("the viewer did not make every step");
    for (const std::string& line : lines) {
        Step step;
        std::istringstream(line) >> step.time >> step.threadTime;
        steps.push_back(step);
    }
}

int Measure(const std::filesystem::path& folder) {
    std::filesystem::path photos = folder / "photos";
    std::filesystem::create_directory(photos);
    for (int i = 0; i < kPhotos; ++i) {
        if (!bench::WritePhoto((photos / ("photo" + std::to_string(i) + ".jpg")).string(), i))
            GiveUp("the photographs could not be written");
    }
    std::filesystem::path comments = MakeCommented(photos);
    setenv("XDG_CONFIG_HOME", (folder / "settings").c_str(), 1);

    std::string photo = (photos / "photo0.jpg").string();
    std::vector<double> decodings, starts, steps, threads;
    // In turn, so that whatever else the machine does slows both.
    for (int i = 0; i < kStarts; ++i) {
        decodings.push_back(bench::DecodeAlone(photo));
        std::vector<std::string> lines = RunSelf("first", photo);
        if (lines.size() != 1)
            GiveUp("the viewer did not show the photograph");
        starts.push_back(std::stod(lines.front()));
    }
    double decoding = bench::Median(decodings);
    double first = bench::Median(starts);

    std::vector<Step> plain, commented;
    for (int i = 0; i < kStepRuns; ++i) {
        AddSteps(photos, plain);
        AddSteps(comments, commented);
    }
    for (const Step& step : plain) {
        steps.push_back(step.time);
        threads.push_back(step.threadTime);
    }
    std::vector<double> withComments;
    for (const Step& step : commented)
        withComments.push_back(step.time);
    double busiest = *std::max_element(threads.begin(), threads.end());

    std::printf("decoding 12 megapixels alone: %.1f ms (median of %d)\n", decoding, kStarts);
    std::printf("main to first drawing: %.1f ms (median of %d)\n", first, kStarts);
    std::printf("steps: median %.2f ms, longest %.2f ms (of %zu)\n", bench::Median(steps),
        *std::max_element(steps.begin(), steps.end()), steps.size());
    bool good = bench::Judge(
        "start to first drawing, against decoding alone", first / decoding, kFirstLimit, "x");
    good &= bench::Judge("the same with a comment of 2 kB, longer by",
        bench::Median(withComments) - bench::Median(steps), kCommentLimit, "ms");
    good &= bench::Judge(
        "key to finished drawing of a cached neighbour", bench::Median(steps), kStepLimit, "ms");
    // Were one decoded there, a step would cost the window's thread a whole decoding.
    good &= bench::Judge(
        "busiest step of the window's thread, against decoding", busiest / decoding, 0.5, "x");
    return good ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    auto start = bench::Clock::now();
    const char* measure = std::getenv("BENCH_MEASURE");
    if (measure != nullptr && std::strcmp(measure, "first") == 0)
        return First(argc, argv, start);
    if (measure != nullptr && std::strcmp(measure, "steps") == 0)
        return Steps(argc, argv);

    bench::PrintMachine();
    std::string pattern =
        (std::filesystem::temp_directory_path() / "lorivane-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        GiveUp("no temporary folder");
    int status = Measure(pattern);
    std::filesystem::remove_all(pattern);
    return status;
}
