#include <app/Message.h>

#include <app/AppDefs.h>

#include "kits/app/MessageAccess.h"
#include "kits/app/MessageField.h"
#include "kits/app/MessengerAccess.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <utility>

BMessage::BMessage() = default;

BMessage::BMessage(uint32 command) : what(command) {}

BMessage::BMessage(const BMessage& other)
    : what(other.what), fFields(other.fFields), fDelivery(other.fDelivery) {
    fDelivery.sourceWaiting = false;
}

BMessage::BMessage(BMessage&& other) noexcept
    : what(other.what), fFields(std::move(other.fFields)), fDelivery(other.fDelivery) {
    other.fFields.clear();
    other.fDelivery = {};
}

BMessage::~BMessage() {
    if (fDelivery.sourceWaiting)
        SendReply(B_NO_REPLY);
}

BMessage& BMessage::operator=(const BMessage& other) {
    if (this != &other)
        *this = BMessage(other);
    return *this;
}

BMessage& BMessage::operator=(BMessage&& other) noexcept {
    if (this == &other)
        return *this;
    if (fDelivery.sourceWaiting)
        SendReply(B_NO_REPLY);
    what = other.what;
    fFields = std::move(other.fFields);
    fDelivery = other.fDelivery;
    other.fFields.clear();
    other.fDelivery = {};
    return *this;
}

status_t BMessage::GetInfo(
    type_code type, int32 n, char** name, type_code* foundType, int32* count) const {
    if (n < 0)
        return B_BAD_INDEX;
    bool typeSeen = false;
    for (const BPrivate::MessageField& field : fFields) {
        if (type != B_ANY_TYPE && field.type != type)
            continue;
        typeSeen = true;
        if (n-- > 0)
            continue;
        // The platform's signature; whoever writes to the name breaks the message.
        if (name != nullptr)
            *name = const_cast<char*>(field.name.c_str());
        if (foundType != nullptr)
            *foundType = field.type;
        if (count != nullptr)
            *count = int32(field.items.size());
        return B_OK;
    }
    return typeSeen ? B_BAD_INDEX : B_BAD_TYPE;
}

status_t BMessage::GetInfo(const char* name, type_code* type, int32* count) const {
    const BPrivate::MessageField* field = FindField(name);
    if (field == nullptr)
        return name == nullptr ? B_BAD_VALUE : B_NAME_NOT_FOUND;
    if (type != nullptr)
        *type = field->type;
    if (count != nullptr)
        *count = int32(field->items.size());
    return B_OK;
}

status_t BMessage::GetInfo(const char* name, type_code* type, bool* fixedSize) const {
    const status_t status = GetInfo(name, type, static_cast<int32*>(nullptr));
    if (status == B_OK && fixedSize != nullptr)
        *fixedSize = FindField(name)->fixedSize;
    return status;
}

int32 BMessage::CountNames(type_code type) const {
    return int32(std::count_if(fFields.begin(), fFields.end(),
        [type](const auto& field) { return type == B_ANY_TYPE || field.type == type; }));
}

bool BMessage::IsEmpty() const {
    return fFields.empty();
}

bool BMessage::IsSystem() const {
    const char first = char(what >> 24);
    const bool printable = std::isprint(uint8(what >> 16)) != 0 &&
        std::isprint(uint8(what >> 8)) != 0 && std::isprint(uint8(what)) != 0;
    return (first == '_' && printable) || what == B_REPLY || what == B_NO_REPLY ||
        what == B_MESSAGE_NOT_UNDERSTOOD || what == B_SIMPLE_DATA || what == B_MIME_DATA ||
        what == B_ARCHIVED_OBJECT;
}

bool BMessage::IsReply() const {
    return fDelivery.isReply;
}

status_t BMessage::Rename(const char* name, const char* newName) {
    if (!IsFieldName(name) || !IsFieldName(newName))
        return B_BAD_VALUE;
    BPrivate::MessageField* field = FindField(name);
    if (field == nullptr)
        return B_NAME_NOT_FOUND;
    if (FindField(newName) != nullptr)
        return B_NAME_IN_USE;
    field->name = newName;
    return B_OK;
}

status_t BMessage::RemoveData(const char* name, int32 index) {
    if (name == nullptr)
        return B_BAD_VALUE;
    BPrivate::MessageField* field = FindField(name);
    if (field == nullptr)
        return B_NAME_NOT_FOUND;
    if (index < 0 || size_t(index) >= field->items.size())
        return B_BAD_INDEX;
    if (field->items.size() == 1)
        return RemoveName(name);
    field->items.erase(field->items.begin() + index);
    return B_OK;
}

status_t BMessage::RemoveName(const char* name) {
    if (name == nullptr)
        return B_BAD_VALUE;
    const BPrivate::MessageField* field = FindField(name);
    if (field == nullptr)
        return B_NAME_NOT_FOUND;
    fFields.erase(fFields.begin() + (field - fFields.data()));
    return B_OK;
}

status_t BMessage::MakeEmpty() {
    fFields.clear();
    return B_OK;
}

bool BMessage::WasDelivered() const {
    return fDelivery.delivered;
}

bool BMessage::IsSourceRemote() const {
    return fDelivery.remote;
}

bool BMessage::IsSourceWaiting() const {
    return fDelivery.sourceWaiting;
}

BMessenger BMessage::ReturnAddress() const {
    if (!fDelivery.delivered)
        return {};
    return BPrivate::MessengerAccess::OrApplication(fDelivery.replyTo);
}

bool BMessage::WasDropped() const {
    return HasPoint("_drop_point_");
}

BPoint BMessage::DropPoint(BPoint* offset) const {
    if (offset != nullptr)
        *offset = {};
    return GetPoint("_drop_point_", {});
}

status_t BMessage::SendReply(uint32 command, BHandler* replyTo) {
    BMessage reply(command);
    return SendReply(&reply, replyTo);
}

status_t BMessage::SendReply(BMessage* reply, BHandler* replyTo, bigtime_t) {
    if (reply == nullptr)
        return B_BAD_VALUE;
    if (!fDelivery.delivered)
        return B_BAD_REPLY;
    if (fDelivery.replied)
        return B_DUPLICATE_REPLY;
    if (fDelivery.sourceWaiting) {
        fDelivery.sourceWaiting = false;
        fDelivery.replied = true;
    }
    return BPrivate::MessengerAccess::Send(
        ReturnAddress(), *reply, BMessenger(replyTo), {.isReply = true});
}

namespace BPrivate {

size_t MessageAccess::MemoryOf(const BMessage& message) {
    size_t size = sizeof(BMessage);
    for (const MessageField& field : message.fFields) {
        size += sizeof(field) + field.name.size();
        for (const std::string& item : field.items)
            size += sizeof(item) + item.size();
    }
    return size;
}

std::unique_ptr<BMessage> MessageAccess::CopyForDelivery(const BMessage& message,
    const BMessenger& target, const BMessenger& replyTo, bool senderWaits, bool isReply) {
    auto copy = std::make_unique<BMessage>(message);
    copy->fDelivery = {.target = target,
        .replyTo = replyTo,
        .delivered = true,
        .remote = message.fDelivery.remote,
        .sourceWaiting = senderWaits,
        .replied = false,
        .isReply = isReply};
    return copy;
}

}  // namespace BPrivate
