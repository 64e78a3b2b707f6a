#include "kits/interface/ArchiveFields.h"

namespace BPrivate {

status_t AddArchiveOf(const BArchivable& object, BMessage* archive, const char* field) {
    BMessage own;
    FirstFailure add(object.Archive(&own, true));
    add(archive->AddMessage(field, &own));
    return add.Status();
}

std::unique_ptr<BMessage> ArchivedMessage(const BMessage& archive, const char* field) {
    auto message = std::make_unique<BMessage>();
    return archive.FindMessage(field, message.get()) == B_OK ? std::move(message) : nullptr;
}

}  // namespace BPrivate
