#pragma once

// What the process that runs answers on the bus to those that start later.

#include "kits/app/SingleLaunch.h"

#include <app/Message.h>
#include <atomic>
#include <map>
#include <string>
#include <utility>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace BPrivate {

/// What the bus method `Launch` returns.
enum class LaunchResult : uint32 {
    kTaken = 0,
    kEnds = 1,  ///< the process that runs is about to end, and has given up its name
};

/// For the bus's thread only, but for what says otherwise.
class SingleLaunchService {
public:
    static constexpr char kPath[] = "/org/lorivane/Application";
    static constexpr char kInterface[] = "org.lorivane.Application";

    static SingleLaunchService& Get();

    /// Begins to answer for the target, to those who ask for that bus name.
    void Begin(sd_bus* bus, const std::string& name, const BMessenger& target);

    /// Lets the command lines into the target's queue; they wait here until then.
    void Open();

    /// Any thread.
    void SetReady() { fIsReady = true; }

    /// Answers a launch.
    void End(uint64 launch, LaunchResult result);

    // The methods of the bus interface.
    int Launch(sd_bus_message* call);
    int IsReady(sd_bus_message* call);

private:
    /// One who waits until its command line has been taken over.
    struct Waiting {
        sd_bus_message* call;
        size_t size;  // of the command line in memory
    };

    SingleLaunchService() = default;
    void Deliver(const LaunchRequest& request, uint64 launch);

    bool fBegun = false;
    bool fIsOpen = false;
    std::vector<std::pair<LaunchRequest, uint64>> fEarly;
    std::string fName;
    BMessenger fTarget;
    std::atomic<bool> fIsReady = false;
    uint64 fLastLaunch = 0;
    std::map<uint64, Waiting> fLaunches;
    size_t fWaitingBytes = 0;
};

/// The marker of one launch in the application's queue.
class LaunchMarker : public BMessage {
public:
    LaunchMarker(BMessage&& message, uint64 launch);
    ~LaunchMarker() override;

    void SetDispatched() { fDispatched = true; }

private:
    const uint64 fLaunch;
    bool fDispatched = false;
};

}  // namespace BPrivate
