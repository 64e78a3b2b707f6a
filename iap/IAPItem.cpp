#include "iap/IAPItem.h"

#include "framework/MessageCodes.h"
#include "framework/SettingsFile.h"

#include <storage/File.h>

namespace {

// Other programs write these files too. An item's value has a few dozen bytes; a file that is out
// of all proportion is not one, and is not read into memory to find out.
constexpr off_t kMaxFileSize = 64 * 1024;

}  // namespace

TIAPItem::TIAPItem(const std::string& name) : fName(name) {}

TIAPItem::~TIAPItem() = default;

status_t TIAPItem::MakeConfigurationView(BView** /*view*/, bool /*defaults*/) {
    return -1;
}

status_t TIAPItem::GetValue(BMessage* /*message*/, bool /*defaults*/) const {
    return -1;
}

status_t TIAPItem::SetValue(const BMessage& /*change*/) {
    return -1;
}

status_t TIAPItem::GetBool(bool* /*value*/, bool /*defaults*/) const {
    return -1;
}

status_t TIAPItem::SetBool(bool /*value*/) {
    return -1;
}

status_t TIAPItem::GetString(std::string* /*value*/, bool /*defaults*/) const {
    return -1;
}

status_t TIAPItem::SetString(const std::string& /*value*/) {
    return -1;
}

status_t TIAPItem::SetAppSignatureRef(const char* signature) {
    fAppSignature = signature;
    return B_OK;
}

void TIAPItem::AddDefaultInfo(BMessage* message) const {
    AddAppSignature(message);
    (void)message->AddString(kFieldSharedItem, fName.c_str());
}

status_t TIAPItem::Load(BMessage* message) const {
    BEntry entry;
    if (get_settings_entry(kSharedSettingsFolder, FileName().c_str(), &entry) != B_OK)
        return -1;
    BFile file(&entry, B_READ_ONLY);
    off_t size = 0;
    if (file.InitCheck() != B_OK || file.GetSize(&size) != B_OK || size > kMaxFileSize)
        return -1;
    return message->Unflatten(&file) == B_OK ? B_OK : -1;
}

status_t TIAPItem::LoadBool(bool* value) const {
    BMessage message;
    if (Load(&message) == B_OK && message.FindBool(fName.c_str(), value) == B_OK)
        return B_OK;
    return GetBool(value, true);
}

status_t TIAPItem::LoadString(std::string* value) const {
    BMessage message;
    const char* found = nullptr;
    if (Load(&message) != B_OK || message.FindString(fName.c_str(), &found) != B_OK)
        return GetString(value, true);
    *value = found;
    return B_OK;
}

status_t TIAPItem::Save(BMessage message) const {
    AddAppSignature(&message);
    BEntry entry;
    if (get_settings_entry(kSharedSettingsFolder, FileName().c_str(), &entry) != B_OK)
        return -1;
    BFile file(&entry, B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
    if (file.InitCheck() != B_OK)
        return -1;
    // Closing the file puts it in the old one's place, but only syncing tells whether that worked.
    return message.Flatten(&file) == B_OK && file.Sync() == B_OK ? B_OK : -1;
}

status_t TIAPItem::SaveBool(bool value) const {
    BMessage message;
    (void)message.AddBool(fName.c_str(), value);
    return Save(message);
}

status_t TIAPItem::SaveString(const std::string& value) const {
    BMessage message;
    (void)message.AddString(fName.c_str(), value.c_str());
    return Save(message);
}

void TIAPItem::AddAppSignature(BMessage* message) const {
    // An item that stands in no store has none, and its messages lack the field.
    if (const char* signature = fAppSignature; signature != nullptr)
        (void)message->AddString(kFieldSharedApp, signature);
}

std::string TIAPItem::FileName() const {
    return fName + ".arc";
}
