// Preferences shared between applications: how long it takes from a choice in the common window to
// the new labels in the menus of three other running applications.
//
// This process owns the window; it runs itself for the others, which print when they are done:
//     BENCH_MEASURE=NUMBER bench_sharing

#include <algorithm>
#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Messenger.h>
#include <app/Roster.h>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <kernel/OS.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "bench/Report.h"
#include "examples/BarWindow.h"
#include "framework/MessageCodes.h"
#include "iap/IAPItemAccKeyFormat.h"
#include "iap/IAPItemFlatToolBar.h"
#include "iap/IAPView.h"
#include "iap/IAPWindow.h"
#include "iap/InterAppPrefs.h"
#include "kits/interface/Display.h"

namespace {

constexpr int kOthers = 3;
constexpr int kWarmUp = 10;
constexpr int kChanges = 100;
constexpr double kLimit = 30;

constexpr uint32 kMsgEnd = 'bend';

[[noreturn]] void GiveUp(const char* reason) {
    std::fprintf(stderr, "bench_sharing: %s\n", reason);
    std::_Exit(1);
}

void AddItems(TInterAppPrefs& prefs, const char* signature) {
    (void)prefs.SetAppSignatureRef(signature);
    (void)prefs.AddItem(new TIAPItemAccKeyFormat);
    (void)prefs.AddItem(new TIAPItemFlatToolBar);
}

// #pragma mark - The others

class Follower final : public BApplication {
public:
    Follower(const char* signature, TInterAppPrefs& prefs)
        : BApplication(signature), fPrefs(prefs),
          fWindow(new TBarWindow(BRect(50, 50, 400, 150), prefs)) {
        fWindow->Show();
    }

    void ReadyToRun() override { Tell(); }

    bool QuitRequested() override { return true; }

    void MessageReceived(BMessage* message) override {
        if (message->what == kMsgEnd) {
            (void)PostMessage(B_QUIT_REQUESTED);
            return;
        }
        if (message->what != kMsgSharedItemChanged || fPrefs.SetValue(*message) != B_OK)
            return BApplication::MessageReceived(message);
        (void)BMessenger(fWindow).SendMessage(message);
        Tell();
    }

private:
    /// Prints the time when the window's thread, and then the screen's, have done all so far.
    void Tell() {
        BMessage reply;
        (void)BMessenger(fWindow).SendMessage('echo', &reply);
        (void)BPrivate::TheDisplay().PreferredSize(BPrivate::ButtonState{});
        std::printf("%lld\n", static_cast<long long>(system_time()));
        std::fflush(stdout);
    }

    TInterAppPrefs& fPrefs;
    TBarWindow* fWindow;
};

int Follow(const char* number) {
    const std::string signature = std::string("application/x-vnd.ZELKAN-Follower") + number;
    TInterAppPrefs prefs;
    AddItems(prefs, signature.c_str());
    Follower app(signature.c_str(), prefs);
    app.Run();
    return 0;
}

// #pragma mark - The owner of the window

/// The others, as their outputs.
class Others {
public:
    Others() {
        const std::string self = std::filesystem::read_symlink("/proc/self/exe");
        for (size_t i = 0; i < fOutputs.size(); ++i) {
            const std::string command =
                "BENCH_MEASURE=" + std::to_string(i) + " exec '" + self + "'";
            fOutputs[i] = popen(command.c_str(), "r");
            if (fOutputs[i] == nullptr)
                GiveUp("the other applications do not start");
        }
    }

    ~Others() {
        BMessage end(kMsgEnd);
        (void)be_roster->Broadcast(&end);
        for (FILE* output : fOutputs)
            (void)pclose(output);
    }
    Others(const Others&) = delete;
    Others& operator=(const Others&) = delete;

    /// When the last of them was done.
    bigtime_t Await() {
        bigtime_t last = 0;
        for (FILE* output : fOutputs) {
            char line[64];
            if (std::fgets(line, sizeof(line), output) == nullptr)
                GiveUp("another application has ended");
            last = std::max<bigtime_t>(last, std::atoll(line));
        }
        return last;
    }

private:
    std::array<FILE*, kOthers> fOutputs{};
};

/// The menu of the formats, once it stands in the window.
BMenu* AwaitMenu(BApplication& app, TIAPWindow** window) {
    for (int tries = 0; tries < 1000; ++tries) {
        *window = app.CountWindows() > 0 ? dynamic_cast<TIAPWindow*>(app.WindowAt(0)) : nullptr;
        if (*window != nullptr && (*window)->Lock()) {
            auto* field = dynamic_cast<BMenuField*>((*window)->FindView("AAccelerator Format: "));
            (*window)->Unlock();
            if (field != nullptr)
                return field->Menu();
        }
        snooze(10000);
    }
    GiveUp("the common window does not open");
}

std::vector<double> Measure(BApplication& app, TInterAppPrefs& prefs) {
    Others others;
    (void)others.Await();
    (void)prefs.ShowWindow(BRect(500, 300, 900, 500));
    TIAPWindow* window = nullptr;
    BMenu* menu = AwaitMenu(app, &window);
    std::vector<double> times;
    for (int i = 0; i < kWarmUp + kChanges; ++i) {
        const bigtime_t start = system_time();
        if (!window->Lock())
            GiveUp("the common window has gone");
        (void)menu->ItemAt(i % 2)->Invoke();
        window->Unlock();
        const double time = static_cast<double>(others.Await() - start) / 1000;
        if (i >= kWarmUp)
            times.push_back(time);
    }
    return times;
}

int Own() {
    constexpr char kSignature[] = "application/x-vnd.ZELKAN-Owner";
    TInterAppPrefs prefs;
    AddItems(prefs, kSignature);
    BApplication app(kSignature);
    std::thread hand([&] {
        std::vector<double> times = Measure(app, prefs);
        std::sort(times.begin(), times.end());
        std::printf("from a choice to the labels of %d applications: %.2f to %.2f ms\n", kOthers,
            times.front(), times.back());
        const bool good =
            bench::Judge("a shared preference, median", bench::Median(times), kLimit, "ms");
        const char* folder = std::getenv("XDG_CONFIG_HOME");
        std::filesystem::remove_all(folder);
        std::fflush(stdout);
        std::_Exit(good ? 0 : 1);
    });
    app.Run();
    hand.detach();
    return 1;
}

}  // namespace

int main() {
    if (const char* number = std::getenv("BENCH_MEASURE"); number != nullptr)
        return Follow(number);
    bench::PrintMachine();
    std::string folder =
        (std::filesystem::temp_directory_path() / "lorivane-bench-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr)
        GiveUp("no temporary folder");
    setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
    return Own();
}
