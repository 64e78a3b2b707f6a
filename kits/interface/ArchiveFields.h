#pragma once

#include <app/Message.h>
#include <memory>
#include <support/Archivable.h>

namespace BPrivate {

/// The status of an archive to which one field after the other is added: that of the first that
/// failed.
///
///     FirstFailure add(BView::Archive(archive, deep));
///     add(archive->AddString("_label", fLabel.c_str()));
///     return add.Status();
class FirstFailure {
public:
    explicit FirstFailure(status_t status) : fStatus(status) {}

    void operator()(status_t status) {
        if (fStatus == B_OK)
            fStatus = status;
    }
    status_t Status() const { return fStatus; }

private:
    status_t fStatus;
};

/// Adds the archive of the object and of all that it owns.
status_t AddArchiveOf(const BArchivable& object, BMessage* archive, const char* field);

/// The message in the field; null when there is none.
std::unique_ptr<BMessage> ArchivedMessage(const BMessage& archive, const char* field);

/// The object whose archive is in the field; null when it is none of the class.
template <typename Class>
std::unique_ptr<Class> ArchivedObject(const BMessage& archive, const char* field, int32 index = 0) {
    BMessage own;
    if (archive.FindMessage(field, index, &own) != B_OK)
        return nullptr;
    std::unique_ptr<BArchivable> object(instantiate_object(&own));
    auto* const wanted = dynamic_cast<Class*>(object.get());
    if (wanted == nullptr)
        return nullptr;
    (void)object.release();
    return std::unique_ptr<Class>(wanted);
}

}  // namespace BPrivate
