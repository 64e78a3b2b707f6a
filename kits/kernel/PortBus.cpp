#include "kits/kernel/PortBus.h"

#include <atomic>
#include <utility>

#include <systemd/sd-bus.h>

#include "kits/kernel/Bus.h"
#include "kits/kernel/PortService.h"
#include "kits/kernel/Thread.h"

// The side of this process that finds ports and writes to them, and takes names for its own.

namespace BPrivate {

namespace {

// The longest wait for an answer that the bus gives itself, and that another process gives
// without waiting for anything. Longer than that, it has been stopped.
constexpr bigtime_t kBusTimeout = 5000000;
constexpr bigtime_t kReleaseTimeout = 1000000;

// How long after its time a message still may be put into a port that had room all along, and
// how long after that the answer is waited for.
constexpr bigtime_t kOnItsWay = 1000000;

// Flag of `RequestName`: rather no name than to wait for it.
constexpr uint32_t kDoNotQueue = 4;
constexpr uint32_t kPrimaryOwner = 1;
constexpr uint32_t kAlreadyOwner = 4;

std::string bus_name_of(const std::string& port) {
    return "org.lorivane.Port." + bus_name_part(port);
}

status_t claim_status(sd_bus_message* answer) {
    uint32_t result = 0;
    if (answer == nullptr)
        return B_OK;  // the bus has gone, and the port is this process's alone
    if (sd_bus_message_is_method_error(answer, nullptr) != 0 ||
        sd_bus_message_read(answer, "u", &result) <= 0)
        return B_NO_MORE_PORTS;
    return result == kPrimaryOwner || result == kAlreadyOwner ? B_OK : B_NAME_IN_USE;
}

void request_name(sd_bus* bus, const std::string& name, Bus::Answer then) {
    sd_bus_message* call = nullptr;
    if (bus == nullptr ||
        sd_bus_message_new_method_call(bus, &call, "org.freedesktop.DBus", "/org/freedesktop/DBus",
            "org.freedesktop.DBus", "RequestName") < 0)
        return then(nullptr);
    if (sd_bus_message_append(call, "su", name.c_str(), kDoNotQueue) >= 0)
        Bus::Get().Call(call, B_INFINITE_TIMEOUT, std::move(then));
    else
        then(nullptr);
    sd_bus_message_unref(call);
}

/// A call to a port's process. Nobody is started for it.
sd_bus_message* new_port_call(sd_bus* bus, const std::string& owner, const char* method) {
    sd_bus_message* call = nullptr;
    if (bus == nullptr ||
        sd_bus_message_new_method_call(
            bus, &call, owner.c_str(), PortService::kPath, PortService::kInterface, method) < 0)
        return nullptr;
    sd_bus_message_set_auto_start(call, 0);
    return call;
}

void ask_for_port(sd_bus* bus, const std::string& name, const BusQuestionPtr& question) {
    sd_bus_message* const call = new_port_call(bus, bus_name_of(name), "Open");
    if (call == nullptr)
        return answer_question(*question, B_NAME_NOT_FOUND);
    const auto then = [question](sd_bus_message* answer) {
        int32_t port = 0;
        const char* const sender = answer != nullptr ? sd_bus_message_get_sender(answer) : nullptr;
        if (sender == nullptr || sd_bus_message_read(answer, "i", &port) <= 0 || port <= 0 ||
            !PortService::IsTrusted(sender))
            return answer_question(*question, B_NAME_NOT_FOUND);
        answer_question(*question, B_OK, sender, port);
    };
    if (sd_bus_message_append(call, "s", name.c_str()) >= 0)
        Bus::Get().Call(call, kBusTimeout, then);
    else
        then(nullptr);
    sd_bus_message_unref(call);
}

status_t write_status(sd_bus_message* answer, bool mayWait) {
    uint32_t result = 0;
    if (answer == nullptr)
        return B_BAD_PORT_ID;
    if (const sd_bus_error* error = sd_bus_message_get_error(answer)) {
        if (sd_bus_error_has_name(error, SD_BUS_ERROR_ACCESS_DENIED) != 0)
            return B_NOT_ALLOWED;
        if (sd_bus_error_has_name(error, SD_BUS_ERROR_LIMITS_EXCEEDED) != 0)
            return B_NO_MEMORY;
        return B_BAD_PORT_ID;
    }
    if (sd_bus_message_read(answer, "u", &result) <= 0)
        return B_BAD_PORT_ID;
    switch (PortResult(result)) {
    case PortResult::kWritten: return B_OK;
    case PortResult::kFull: return mayWait ? B_TIMED_OUT : B_WOULD_BLOCK;
    case PortResult::kTooLate: return B_TIMED_OUT;
    case PortResult::kNoMemory: return B_NO_MEMORY;
    case PortResult::kBadMessage: return B_BAD_VALUE;
    case PortResult::kNoPort: break;
    }
    return B_BAD_PORT_ID;
}

/// A write as it goes over the bus.
struct PortWrite {
    FoundPort port;
    uint32 serial;
    int32 code;
    uint64 waitUntil;
    uint64 goodUntil;
    Payload payload;
};

void send_write(sd_bus* bus, const PortWrite& write, const BusQuestionPtr& question) {
    sd_bus_message* const call = new_port_call(bus, write.port.owner, "Write");
    if (call == nullptr)
        return answer_question(*question, B_BAD_PORT_ID);
    const bool mayWait = write.waitUntil > 0;
    const auto then = [question, mayWait](sd_bus_message* answer) {
        answer_question(*question, write_status(answer, mayWait));
    };
    if (sd_bus_message_append(call, "iuitt", write.port.port, write.serial, write.code,
            write.waitUntil, write.goodUntil) >= 0 &&
        write.payload.AppendTo(call))
        Bus::Get().Call(call, B_INFINITE_TIMEOUT, then);
    else
        answer_question(*question, B_NO_MEMORY);
    sd_bus_message_unref(call);
}

/// Takes a write back whose answer nobody waits for any more.
void send_withdrawal(sd_bus* bus, const FoundPort& port, uint32 serial) {
    sd_bus_message* const call = new_port_call(bus, port.owner, "Withdraw");
    if (call == nullptr)
        return;
    sd_bus_message_set_expect_reply(call, 0);
    if (sd_bus_message_append(call, "iu", port.port, serial) >= 0)
        (void)sd_bus_send(bus, call, nullptr);
    sd_bus_message_unref(call);
}

}  // namespace

status_t claim_port_name(const std::string& name) {
    const auto question = std::make_shared<BusQuestion>();
    Bus::Get().Post([name, question](sd_bus* bus) {
        PortService::Get().Begin(bus);
        request_name(bus, bus_name_of(name), [question](sd_bus_message* answer) {
            answer_question(*question, claim_status(answer));
        });
    });
    const status_t status = await_answer(*question, system_time() + kBusTimeout);
    if (status == B_INTERRUPTED)
        release_port_name(name);
    // A bus that does not answer is none, until it does.
    return status == B_TIMED_OUT ? B_OK : status;
}

void release_port_name(const std::string& name) {
    const auto question = std::make_shared<BusQuestion>();
    Bus::Get().Post([name, question](sd_bus*) {
        Bus::Get().CallBus("ReleaseName", bus_name_of(name).c_str(),
            [question](sd_bus_message*) { answer_question(*question, B_OK); });
    });
    KernelLock lock;
    lock.WaitRegardless(
        question->change, system_time() + kReleaseTimeout, [&] { return question->answered; });
}

status_t find_port_elsewhere(const std::string& name, FoundPort& found) {
    const auto question = std::make_shared<BusQuestion>();
    Bus::Get().Post([name, question](sd_bus* bus) { ask_for_port(bus, name, question); });
    const status_t status = await_answer(*question, system_time() + kBusTimeout);
    if (status != B_OK)
        return status == B_INTERRUPTED ? status : B_NAME_NOT_FOUND;
    const KernelLock lock;
    found = {question->sender, question->value};
    return B_OK;
}

status_t write_port_elsewhere(const FoundPort& port, int32 code, const void* buffer, size_t size,
    bool mayWait, bigtime_t deadline) {
    static std::atomic<uint32> lastSerial = 0;
    const auto write =
        std::make_shared<PortWrite>(PortWrite{port, ++lastSerial, code, 0, UINT64_MAX, {}});
    const status_t made = Payload::ForBus(buffer, size, write->payload);
    if (made != B_OK)
        return made;

    bigtime_t patience = B_INFINITE_TIMEOUT;
    if (mayWait)
        write->waitUntil =
            deadline == B_INFINITE_TIMEOUT ? UINT64_MAX : uint64(max_c<bigtime_t>(deadline, 1));
    if (!mayWait || deadline != B_INFINITE_TIMEOUT) {
        // Its process may have been stopped. It must not find, when it goes on, what has been
        // given up here.
        const bigtime_t now = system_time();
        const bigtime_t last = mayWait ? max_c(deadline, now) : now;
        if (last < INT64_MAX - 2 * kOnItsWay) {
            write->goodUntil = uint64(last + kOnItsWay);
            patience = last + 2 * kOnItsWay;
        }
    }

    const auto question = std::make_shared<BusQuestion>();
    Bus::Get().Post([write, question](sd_bus* bus) { send_write(bus, *write, question); });
    const status_t status = await_answer(*question, patience);
    const bool isAnswered = [&] {
        const KernelLock lock;
        return question->answered;
    }();
    if (!isAnswered) {
        Bus::Get().Post([write](sd_bus* bus) { send_withdrawal(bus, write->port, write->serial); });
        return status == B_TIMED_OUT && !mayWait ? B_WOULD_BLOCK : status;
    }
    return status;
}

}  // namespace BPrivate
