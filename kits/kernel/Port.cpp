#include "kits/kernel/Port.h"

#include <algorithm>
#include <utility>

namespace BPrivate {

namespace {

// What a message costs besides its bytes, so that empty ones are not free.
size_t cost_of(const PortMessage& message) {
    return message.payload.Size() + sizeof(PortMessage);
}

void tell(PortWriter& writer, PortWriter::Outcome outcome) {
    writer.outcome = outcome;
    if (writer.held == 0)
        writer.woken.notify_one();
    else
        end_held_write(writer.held,
            outcome == PortWriter::Outcome::kWritten ? PortResult::kWritten : PortResult::kNoPort);
}

}  // namespace

Port::Port(std::string portName, size_t portCapacity)
    : name(std::move(portName)), fCapacity(portCapacity) {}

bool Port::HasRoomFor(const PortMessage& message) const {
    return fMessages.empty() ||
        (fMessages.size() < fCapacity && fBytes + cost_of(message) <= kMostPortBytes);
}

void Port::Add(PortMessage& message) {
    fBytes += cost_of(message);
    fMessages.push_back(std::move(message));
    change.notify_all();
}

bool Port::Put(PortMessage& message) {
    if (!fWriters.empty() || !HasRoomFor(message))
        return false;
    Add(message);
    return true;
}

PortMessage Port::TakeFirst() {
    PortMessage message = std::move(fMessages.front());
    fMessages.pop_front();
    fBytes -= cost_of(message);
    Serve();
    return message;
}

void Port::AddWriter(std::shared_ptr<PortWriter> writer) {
    fWriters.push_back(std::move(writer));
}

void Port::RemoveWriter(const PortWriter* writer) {
    fWriters.remove_if([writer](const auto& other) { return other.get() == writer; });
    // What it had may have been too large for the room that those behind it have.
    Serve();
}

bool Port::RemoveHeld(HeldWrite write) {
    const auto found = std::find_if(fWriters.begin(), fWriters.end(),
        [write](const auto& writer) { return writer->held == write; });
    if (found == fWriters.end())
        return false;
    fWriters.erase(found);
    Serve();
    return true;
}

void Port::Serve() {
    while (!fWriters.empty() && HasRoomFor(fWriters.front()->message)) {
        const std::shared_ptr<PortWriter> first = std::move(fWriters.front());
        fWriters.pop_front();
        Add(first->message);
        tell(*first, PortWriter::Outcome::kWritten);
    }
}

void Port::Close() {
    isClosed = true;
    for (const auto& writer : std::exchange(fWriters, {}))
        tell(*writer, PortWriter::Outcome::kRefused);
    change.notify_all();
}

void Port::Delete() {
    isDeleted = true;
    Close();
}

}  // namespace BPrivate
