#include "tests/kits/bus/Client.h"

#include "tests/kits/bus/Session.h"

#include <chrono>
#include <cstdlib>
#include <utility>

namespace {

constexpr char kPorts[] = "/org/lorivane/Ports";
constexpr char kPortsInterface[] = "org.lorivane.Ports";
constexpr char kApplication[] = "/org/lorivane/Application";
constexpr char kApplicationInterface[] = "org.lorivane.Application";

// In microseconds. An answer may come behind all that was sent before, on a slow machine.
constexpr uint64_t kAnswerPatience = 100'000'000;

}  // namespace

// The bus takes a connection for that of the user that the process is when it is made.
Client::Client(uid_t user) {
    Session::Get();
    const uid_t own = geteuid();
    if (seteuid(user) != 0 || sd_bus_open_user(&fBus) < 0 || seteuid(own) != 0)
        std::abort();
}

Client::~Client() {
    sd_bus_flush_close_unref(fBus);
}

std::string Client::Call(const std::string& owner, const char* path, const char* interface,
    const char* method, const Fill& fill) {
    sd_bus_message *call = nullptr, *answer = nullptr;
    sd_bus_error error{};
    std::string result = "not sent";
    if (sd_bus_message_new_method_call(fBus, &call, owner.c_str(), path, interface, method) >= 0 &&
        fill(call) >= 0) {
        unsigned number = 0;
        if (sd_bus_call(fBus, call, kAnswerPatience, &error, &answer) < 0)
            result = error.name != nullptr ? error.name : "no error";
        else if (sd_bus_message_read_basic(answer, 'u', &number) > 0 ||
            sd_bus_message_read_basic(answer, 'i', &number) > 0 ||
            sd_bus_message_read_basic(answer, 'b', &number) > 0)
            result = std::to_string(number);
    }
    sd_bus_error_free(&error);
    sd_bus_message_unref(answer);
    sd_bus_message_unref(call);
    return result;
}

std::string Client::CallPorts(const std::string& owner, const char* method, const Fill& fill) {
    return Call(owner, kPorts, kPortsInterface, method, fill);
}

std::string Client::CallApplication(
    const std::string& owner, const char* method, const Fill& fill) {
    return Call(owner, kApplication, kApplicationInterface, method, fill);
}

void Client::SendToPorts(
    const std::string& owner, const char* method, const Fill& fill, Answered answered) {
    Send(owner, kPorts, kPortsInterface, method, fill, std::move(answered));
}

void Client::SendToApplication(
    const std::string& owner, const char* method, const Fill& fill, Answered answered) {
    Send(owner, kApplication, kApplicationInterface, method, fill, std::move(answered));
}

void Client::Send(const std::string& owner, const char* path, const char* interface,
    const char* method, const Fill& fill, Answered answered) {
    sd_bus_message* call = nullptr;
    if (sd_bus_message_new_method_call(fBus, &call, owner.c_str(), path, interface, method) >= 0 &&
        fill(call) >= 0) {
        const auto handler = [](sd_bus_message* answer, void* data, sd_bus_error*) {
            unsigned number = 999;
            (void)sd_bus_message_read(answer, "u", &number);
            (*static_cast<Answered*>(data))(number);
            return 0;
        };
        Answered& then = fAnswered.emplace_back(std::move(answered));
        (void)sd_bus_call_async(fBus, nullptr, call, handler, &then, UINT64_MAX);
    }
    sd_bus_message_unref(call);
}

bool Client::AwaitAnswers(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        if (sd_bus_process(fBus, nullptr) == 0)
            sd_bus_wait(fBus, 100000);
    }
    return true;
}

bool Client::ServeApplication(const std::string& name, std::function<int(sd_bus_message*)> answer) {
    fServe = std::move(answer);
    const auto handler = [](sd_bus_message* call, void* data, sd_bus_error*) {
        return static_cast<Client*>(data)->fServe(call);
    };
    return sd_bus_add_object(fBus, nullptr, kApplication, handler, this) >= 0 &&
        sd_bus_request_name(fBus, name.c_str(), 0) > 0;
}

void Client::Broadcast(const Fill& fill) {
    sd_bus_message* signal = nullptr;
    if (sd_bus_message_new_signal(
            fBus, &signal, "/org/lorivane/Roster", "org.lorivane.Roster", "Broadcast") >= 0 &&
        fill(signal) >= 0)
        (void)sd_bus_send(fBus, signal, nullptr);
    sd_bus_message_unref(signal);
}

std::string Client::Introspect(const std::string& owner, const char* path) {
    sd_bus_message* answer = nullptr;
    const char* text = "";
    std::string result;
    if (sd_bus_call_method(fBus, owner.c_str(), path, "org.freedesktop.DBus.Introspectable",
            "Introspect", nullptr, &answer, "") >= 0 &&
        sd_bus_message_read(answer, "s", &text) > 0)
        result = text;
    sd_bus_message_unref(answer);
    return result;
}

void Client::Flush() {
    sd_bus_flush(fBus);
    (void)Call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.Peer", "Ping",
        [](sd_bus_message*) { return 0; });
}
