#include <algorithm>
#include <map>
#include <utility>

#include "kits/kernel/Port.h"
#include "kits/kernel/Thread.h"

// The port functions of OS.h.

using namespace BPrivate;

namespace {

using PortPtr = std::shared_ptr<Port>;

constexpr size_t kMostPorts = 4096;

// Writes of this process that may be on their way to one port of another process. Who reads that
// port lets a process have only so many.
constexpr int32 kMostOnTheirWay = 16;

/// A port of another process. Guarded by the kernel kit's lock, but for where it is.
struct RemotePort {
    const FoundPort place;
    bool ended = false;
    int32 onTheirWay = 0;
    std::condition_variable change;

    explicit RemotePort(FoundPort found) : place(std::move(found)) {}
};
using RemotePtr = std::shared_ptr<RemotePort>;

struct PortTable {
    std::map<port_id, PortPtr> ports;
    std::map<port_id, RemotePtr> remotes;
    port_id lastId = 0;

    port_id NextId() {
        do {
            lastId = lastId < INT32_MAX ? lastId + 1 : 1;
        } while (ports.contains(lastId) || remotes.contains(lastId));
        return lastId;
    }

    /// Also one that nobody can find yet.
    std::pair<port_id, PortPtr> Named(const std::string& name) const {
        for (const auto& entry : ports) {
            if (entry.second->name == name)
                return entry;
        }
        return {0, nullptr};
    }

    PortPtr Find(port_id id) const {
        const auto found = ports.find(id);
        return found != ports.end() && found->second->isOpen ? found->second : nullptr;
    }

    RemotePtr FindRemote(port_id id) const {
        const auto found = remotes.find(id);
        return found != remotes.end() ? found->second : nullptr;
    }

    /// The id that a port of another process has here.
    port_id IdOf(const FoundPort& place) {
        for (const auto& [id, remote] : remotes) {
            if (remote->place.owner == place.owner && remote->place.port == place.port)
                return id;
        }
        if (remotes.size() >= kMostPorts)
            remotes.erase(remotes.begin());  // the oldest; most likely long gone
        const port_id id = NextId();
        remotes.emplace(id, std::make_shared<RemotePort>(place));
        return id;
    }

    /// What there is to say of an id that is none of this process's ports.
    status_t WhyNot(port_id id) const {
        return remotes.contains(id) ? B_NOT_ALLOWED : B_BAD_PORT_ID;
    }
};

PortTable& the_ports() {
    static PortTable& table = *new PortTable;
    return table;
}

/// How long a call may wait.
struct Patience {
    const bool mayWait;
    const bigtime_t deadline;

    Patience(uint32 flags, bigtime_t timeout)
        : mayWait((flags & B_RELATIVE_TIMEOUT) == 0 || timeout > 0),
          deadline((flags & B_ABSOLUTE_TIMEOUT) != 0  ? timeout
                  : (flags & B_RELATIVE_TIMEOUT) != 0 ? deadline_after(timeout)
                                                      : B_INFINITE_TIMEOUT) {}
};

status_t write_here(
    KernelLock& lock, const PortPtr& port, PortMessage message, const Patience& patience) {
    if (port->isClosed)
        return B_BAD_PORT_ID;
    if (port->Put(message))
        return B_OK;
    if (!patience.mayWait)
        return B_WOULD_BLOCK;

    const auto self = std::make_shared<PortWriter>(std::move(message));
    port->AddWriter(self);
    const status_t status = lock.Wait(self->woken, patience.deadline, B_THREAD_WAITING, -1,
        [&] { return self->outcome != PortWriter::Outcome::kNone; });
    switch (self->outcome) {
    case PortWriter::Outcome::kWritten: return B_OK;
    case PortWriter::Outcome::kRefused: return B_BAD_PORT_ID;
    case PortWriter::Outcome::kNone: break;
    }
    port->RemoveWriter(self.get());
    return status;
}

status_t write_there(port_id id, const RemotePtr& port, int32 code, const void* buffer, size_t size,
    const Patience& patience) {
    {
        KernelLock lock;
        const auto isMyTurn = [&] { return port->ended || port->onTheirWay < kMostOnTheirWay; };
        if (!isMyTurn() && !patience.mayWait)
            return B_WOULD_BLOCK;
        const status_t status =
            lock.Wait(port->change, patience.deadline, B_THREAD_WAITING, -1, isMyTurn);
        if (status != B_OK)
            return status;
        if (port->ended)
            return B_BAD_PORT_ID;
        ++port->onTheirWay;
    }
    const status_t status =
        write_port_elsewhere(port->place, code, buffer, size, patience.mayWait, patience.deadline);
    const KernelLock lock;
    --port->onTheirWay;
    if (status == B_BAD_PORT_ID) {
        port->ended = true;
        the_ports().remotes.erase(id);
    }
    port->change.notify_all();
    return status;
}

status_t write(port_id id, int32 code, const void* buffer, size_t size, const Patience& patience) {
    bool isLocal = false;
    {
        const KernelLock lock;
        isLocal = the_ports().Find(id) != nullptr;
    }
    if (!isLocal) {
        RemotePtr remote;
        {
            const KernelLock lock;
            remote = the_ports().FindRemote(id);
        }
        return remote != nullptr ? write_there(id, remote, code, buffer, size, patience)
                                 : B_BAD_PORT_ID;
    }

    PortMessage message{code, {}};
    try {
        message.payload = Payload::Of(buffer, size);
    } catch (const std::bad_alloc&) {
        return B_NO_MEMORY;
    }
    KernelLock lock;
    const PortPtr port = the_ports().Find(id);
    return port != nullptr ? write_here(lock, port, std::move(message), patience) : B_BAD_PORT_ID;
}

/// Waits until there is a message.
status_t wait_for_message(KernelLock& lock, const PortPtr& port, const Patience& patience) {
    const auto hasChanged = [&] { return !port->IsEmpty() || port->isClosed; };
    if (!hasChanged() && !patience.mayWait)
        return B_WOULD_BLOCK;
    const status_t status =
        lock.Wait(port->change, patience.deadline, B_THREAD_RECEIVING, -1, hasChanged);
    if (status != B_OK)
        return status;
    return port->IsEmpty() || port->isDeleted ? B_BAD_PORT_ID : B_OK;
}

ssize_t read(port_id id, int32* code, void* buffer, size_t size, const Patience& patience) {
    PortMessage message;
    {
        KernelLock lock;
        const PortPtr port = the_ports().Find(id);
        if (port == nullptr)
            return the_ports().WhyNot(id);
        const status_t status = wait_for_message(lock, port, patience);
        if (status != B_OK)
            return status;
        message = port->TakeFirst();
    }
    const size_t count = std::min(size, message.payload.Size());
    const status_t status = message.payload.Read(buffer, count);
    if (status != B_OK)
        return status;
    if (code != nullptr)
        *code = message.code;
    return ssize_t(count);
}

ssize_t size_of_first(port_id id, const Patience& patience) {
    KernelLock lock;
    const PortPtr port = the_ports().Find(id);
    if (port == nullptr)
        return the_ports().WhyNot(id);
    const status_t status = wait_for_message(lock, port, patience);
    return status == B_OK ? ssize_t(port->First().payload.Size()) : ssize_t(status);
}

/// Begins a call that may wait; a killed thread ends in it, before or after.
template <class Call>
auto interruptible(Call call) {
    current_thread();
    end_if_killed();
    const auto result = call();
    if (result == B_INTERRUPTED)
        end_if_killed();
    return result;
}

port_id create(size_t capacity, const std::string& name) {
    const auto port = std::make_shared<Port>(name, capacity);
    port_id id = 0;
    {
        const KernelLock lock;
        PortTable& table = the_ports();
        if (table.Named(name).second != nullptr)
            return B_NAME_IN_USE;
        if (table.ports.size() >= kMostPorts)
            return B_NO_MORE_PORTS;
        // Whoever finds the name on the bus has to find the port behind it.
        id = table.NextId();
        table.ports.emplace(id, port);
    }
    const status_t status = claim_port_name(name);
    const KernelLock lock;
    if (status == B_OK)
        port->isOpen = true;
    else
        the_ports().ports.erase(id);
    return status == B_OK ? id : status;
}

}  // namespace

// #pragma mark - For the bus

port_id BPrivate::local_port_named(const std::string& name) {
    const KernelLock lock;
    const auto [id, port] = the_ports().Named(name);
    return id;
}

OfferResult BPrivate::offer_to_port(
    port_id id, int32 code, Payload payload, bool mayWait, HeldWrite write) {
    PortMessage message{code, std::move(payload)};
    const KernelLock lock;
    const auto found = the_ports().ports.find(id);
    if (found == the_ports().ports.end() || found->second->isClosed)
        return OfferResult::kNoPort;
    Port& port = *found->second;
    if (port.Put(message))
        return OfferResult::kWritten;
    if (!mayWait)
        return OfferResult::kFull;
    port.AddWriter(std::make_shared<PortWriter>(std::move(message), write));
    return OfferResult::kHeld;
}

bool BPrivate::withdraw_from_port(port_id id, HeldWrite write) {
    const KernelLock lock;
    const auto found = the_ports().ports.find(id);
    return found != the_ports().ports.end() && found->second->RemoveHeld(write);
}

// #pragma mark - OS.h

port_id create_port(int32 capacity, const char* name) {
    if (capacity < 1 || name == nullptr || *name == '\0')
        return B_BAD_VALUE;
    return interruptible(
        [&] { return create(size_t(capacity), cut_name(name, B_OS_NAME_LENGTH)); });
}

port_id find_port(const char* name) {
    if (name == nullptr || *name == '\0')
        return B_NAME_NOT_FOUND;
    const std::string wanted = cut_name(name, B_OS_NAME_LENGTH);
    return interruptible([&]() -> port_id {
        {
            const KernelLock lock;
            const auto [id, port] = the_ports().Named(wanted);
            if (port != nullptr)
                return port->isOpen ? id : B_NAME_NOT_FOUND;
        }
        FoundPort found;
        const status_t status = find_port_elsewhere(wanted, found);
        if (status != B_OK)
            return status;
        const KernelLock lock;
        return the_ports().IdOf(found);
    });
}

status_t write_port(port_id port, int32 code, const void* buffer, size_t size) {
    return write_port_etc(port, code, buffer, size, 0, 0);
}

status_t write_port_etc(
    port_id port, int32 code, const void* buffer, size_t size, uint32 flags, bigtime_t timeout) {
    if ((buffer == nullptr && size > 0) || size > kMostPortBytes)
        return B_BAD_VALUE;
    return interruptible([&] { return write(port, code, buffer, size, {flags, timeout}); });
}

ssize_t read_port(port_id port, int32* code, void* buffer, size_t size) {
    return read_port_etc(port, code, buffer, size, 0, 0);
}

ssize_t read_port_etc(
    port_id port, int32* code, void* buffer, size_t size, uint32 flags, bigtime_t timeout) {
    if (buffer == nullptr && size > 0)
        return B_BAD_VALUE;
    return interruptible([&] { return read(port, code, buffer, size, {flags, timeout}); });
}

ssize_t port_buffer_size(port_id port) {
    return port_buffer_size_etc(port, 0, 0);
}

ssize_t port_buffer_size_etc(port_id port, uint32 flags, bigtime_t timeout) {
    return interruptible([&] { return size_of_first(port, {flags, timeout}); });
}

ssize_t port_count(port_id id) {
    const KernelLock lock;
    const PortPtr port = the_ports().Find(id);
    return port != nullptr ? ssize_t(port->CountMessages()) : ssize_t(the_ports().WhyNot(id));
}

status_t close_port(port_id id) {
    const KernelLock lock;
    const PortPtr port = the_ports().Find(id);
    if (port == nullptr)
        return the_ports().WhyNot(id);
    port->Close();
    return B_OK;
}

status_t delete_port(port_id id) {
    PortPtr port;
    {
        const KernelLock lock;
        port = the_ports().Find(id);
        if (port == nullptr)
            return the_ports().WhyNot(id);
        port->isOpen = false;
    }
    // Before anybody is told: who learns that the port is gone may make one of its name at once.
    release_port_name(port->name);
    const KernelLock lock;
    port->Delete();
    the_ports().ports.erase(id);
    return B_OK;
}
