#include <app/Application.h>

#include <app/AppDefs.h>
#include <app/Message.h>
#include <app/MessageRunner.h>
#include <app/Roster.h>
#include <interface/Window.h>

#include "kits/app/LooperRegistry.h"
#include "kits/app/MessageAccess.h"
#include "kits/app/QuitSignals.h"
#include "kits/app/RosterBus.h"
#include "kits/app/SingleLaunch.h"
#include "kits/interface/AlertAnswer.h"
#include "kits/interface/Display.h"

#include <cstdlib>
#include <strings.h>

using BPrivate::LooperCore;
using BPrivate::LooperRegistry;

BApplication* be_app = nullptr;
BMessenger be_app_messenger;

namespace {

// The part of "application/x-vnd.Maker-Name" that tells applications apart.
std::string LeafOf(const char* signature) {
    const std::string text = signature != nullptr ? signature : "";
    return text.substr(text.rfind('/') + 1);
}

bool IsSignature(const std::string& signature) {
    constexpr char kSupertype[] = "application/";
    constexpr size_t kLength = sizeof(kSupertype) - 1;
    return signature.size() > kLength && strncasecmp(signature.c_str(), kSupertype, kLength) == 0;
}

// The running windows, and those that were never run if this thread may have them.
std::vector<std::shared_ptr<LooperCore>> Windows() {
    std::vector<std::shared_ptr<LooperCore>> windows;
    for (const auto& core : LooperRegistry::Get().Loopers()) {
        bool isWindow = core->Window() != nullptr;
        // One that was never run is locked by the thread that made it, for good.
        if (core->Thread() == 0 && core->Lock(0) == B_OK) {
            isWindow = dynamic_cast<BWindow*>(core->Looper()) != nullptr;
            core->TheLock().Unlock();
        }
        if (isWindow)
            windows.push_back(core);
    }
    return windows;
}

}  // namespace

BApplication::BApplication(const char* signature) : BLooper(LeafOf(signature).c_str()) {
    Init(signature);
}

BApplication::BApplication(const char* signature, status_t* error)
    : BLooper(LeafOf(signature).c_str()) {
    Init(signature);
    if (error != nullptr)
        *error = fInitStatus;
}

BApplication::~BApplication() {
    fPulse.reset();
    fCore->Close(true);
    // Those of an application that never ran. One that did has closed its windows then.
    CloseWindows();
    if (be_app == this)
        be_app = nullptr;
}

void BApplication::Init(const char* signature) {
    fDeletedByThread = false;
    fSignature = signature != nullptr ? signature : "";
    if (be_app != nullptr) {
        fInitStatus = B_ALREADY_RUNNING;
        return;
    }
    fInitStatus = IsSignature(fSignature) ? B_OK : B_BAD_VALUE;
    // Before anything is made that a process which only hands its files over has no use for.
    const uint32 launch = BPrivate::launch_flags() & B_LAUNCH_MASK;
    if (fInitStatus == B_OK && launch != B_MULTIPLE_LAUNCH &&
        !BPrivate::begin_single_launch(fSignature, BMessenger(this)))
        std::exit(0);
    // Only this thread may make the display, and the first window may come from any.
    BPrivate::TheDisplay();
    be_app = this;
    be_app_messenger = BMessenger(this);
    BPrivate::AlertAnswer::SetApplicationEnds(false);
}

thread_id BApplication::Run() {
    if (fInitStatus != B_OK)
        return fInitStatus;
    if (Thread() == 0) {
        PostCommandLine();
        BPrivate::open_single_launch();
        BPrivate::join_roster(fSignature, BMessenger(this));
    }
    const BPrivate::QuitSignals signals(BMessenger(this));
    const thread_id thread = BLooper::Run();
    if (thread < 0)
        return thread;
    BPrivate::TheDisplay().Run();
    status_t result;
    wait_for_thread(thread, &result);
    return thread;
}

void BApplication::PostCommandLine() {
    const BPrivate::LaunchRequest request = BPrivate::launch_request_of_command_line();
    BPrivate::report_errors(request);
    for (BMessage& message : BPrivate::launch_messages(request)) {
        BPrivate::MessageAccess::SetSourceRemote(message);
        PostMessage(&message);
    }
    PostMessage(B_READY_TO_RUN);
}

void BApplication::Quit() {
    BPrivate::AlertAnswer::SetApplicationEnds(true);
    const std::shared_ptr<LooperCore> core = fCore;
    core->Close(true);
    if (core->Thread() != 0 && core->Thread() != find_thread(nullptr))
        core->TheLock().UnlockAll();
}

bool BApplication::QuitRequested() {
    for (const auto& core : Windows()) {
        if (core->Lock() != B_OK)
            continue;
        BWindow* window = dynamic_cast<BWindow*>(core->Looper());
        if (!window->QuitRequested()) {
            core->TheLock().Unlock();
            return false;
        }
        window->Quit();
    }
    return true;
}

void BApplication::LoopEnded() {
    CloseWindows();
    // Windows may have had something to tell the others as they closed.
    BPrivate::leave_roster();
    BPrivate::TheDisplay().Quit();
}

void BApplication::CloseWindows() {
    if (be_app != this)
        return;
    BPrivate::AlertAnswer::SetApplicationEnds(true);
    // A window that ends may open another.
    for (auto windows = Windows(); !windows.empty(); windows = Windows()) {
        for (const auto& core : windows) {
            if (core->Lock() == B_OK)
                core->Looper()->Quit();
        }
    }
}

void BApplication::DispatchMessage(BMessage* message, BHandler* handler) {
    if (handler != this) {
        BLooper::DispatchMessage(message, handler);
        return;
    }
    switch (message->what) {
    case B_ARGV_RECEIVED: {
        std::vector<char*> words;
        const char* word;
        for (int32 i = 0; message->FindString("argv", i, &word) == B_OK; ++i)
            words.push_back(const_cast<char*>(word));
        const int32 count = int32(words.size());
        words.push_back(nullptr);
        ArgvReceived(count, words.data());
        break;
    }
    case B_REFS_RECEIVED: RefsReceived(message); break;
    case B_READY_TO_RUN:
        ReadyToRun();
        BPrivate::single_launch_is_ready();
        break;
    case BPrivate::kLaunchMarker: BPrivate::launch_marker_dispatched(*message); break;
    case B_ABOUT_REQUESTED: AboutRequested(); break;
    case B_PULSE: Pulse(); break;
    case B_QUIT_REQUESTED:
        // Whoever waits for an answer keeps his window locked, which is to be asked now.
        BPrivate::AlertAnswer::SetApplicationEnds(true);
        BLooper::DispatchMessage(message, handler);
        BPrivate::AlertAnswer::SetApplicationEnds(fCore->IsDone());
        break;
    default: BLooper::DispatchMessage(message, handler); break;
    }
}

void BApplication::ReadyToRun() {}

void BApplication::RefsReceived(BMessage*) {}

void BApplication::ArgvReceived(int32, char**) {}

void BApplication::AboutRequested() {}

void BApplication::Pulse() {}

void BApplication::SetPulseRate(bigtime_t rate) {
    fPulse.reset();
    const BMessage pulse(B_PULSE);
    if (rate > 0)
        fPulse = std::make_unique<BMessageRunner>(BMessenger(this), &pulse, rate);
}

int32 BApplication::CountWindows() const {
    int32 count = 0;
    while (WindowAt(count) != nullptr)
        ++count;
    return count;
}

BWindow* BApplication::WindowAt(int32 index) const {
    for (const auto& core : LooperRegistry::Get().Loopers()) {
        BWindow* window = core->Window();
        if (window != nullptr && index-- == 0)
            return window;
    }
    return nullptr;
}

int32 BApplication::CountLoopers() const {
    return int32(LooperRegistry::Get().Loopers().size());
}

BLooper* BApplication::LooperAt(int32 index) const {
    const auto loopers = LooperRegistry::Get().Loopers();
    return index >= 0 && size_t(index) < loopers.size() ? loopers[size_t(index)]->Looper()
                                                        : nullptr;
}
