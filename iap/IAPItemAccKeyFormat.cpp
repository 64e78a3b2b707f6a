#include "iap/IAPItemAccKeyFormat.h"

#include "framework/MessageCodes.h"
#include "iap/ConfigurationView.h"
#include "iap/ItemNames.h"

#include <cstring>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <interface/PopUpMenu.h>
#include <locale/Locale.h>

namespace {

// The first byte places the hint: 1 before the label, 2 after it.
constexpr char kDefaultFormat[] = "\2(a)";
constexpr const char* kFormats[] = {kDefaultFormat, "\1a) ", "\1a・", "\1a - "};
constexpr char kNoHint[] = "";

// Any program may broadcast a format, and every label has it. Those above are a tenth of this.
constexpr size_t kMaxFormatLength = 64;

}  // namespace

TIAPItemAccKeyFormat::TIAPItemAccKeyFormat() : TIAPItem(kAccKeyFormatItem) {
    if (LoadString(&fFormat) != B_OK || fFormat.size() > kMaxFormatLength)
        fFormat = kDefaultFormat;
}

status_t TIAPItemAccKeyFormat::MakeConfigurationView(BView** view, bool defaults) {
    auto* menu = new BPopUpMenu(be_locale->GetString("Select..."));
    for (const char* format : kFormats)
        AddMItem(menu, format, defaults);
    menu->AddSeparatorItem();
    AddMItem(menu, kNoHint, defaults);
    *view = make_configuration_view(
        Name(), new BMenuField(kConfigurationControlFrame, "AAccelerator Format: ", "", menu));
    return B_OK;
}

void TIAPItemAccKeyFormat::AddMItem(BMenu* menu, const char* format, bool defaults) const {
    std::string marked;
    (void)GetString(&marked, defaults);
    auto* message = new BMessage;
    (void)GetValue(message, defaults);
    message->what = kMsgSharedControlChanged;
    (void)message->ReplaceString(Name().c_str(), format);
    const char* label = *format == '\0' ? be_locale->GetString("(None)") : format + 1;
    auto* item = new BMenuItem(label, message);
    menu->AddItem(item);
    item->SetMarked(marked == format);
}

status_t TIAPItemAccKeyFormat::GetValue(BMessage* message, bool defaults) const {
    AddDefaultInfo(message);
    message->what = kMsgSharedItemChanged;
    std::string format;
    (void)GetString(&format, defaults);
    return message->AddString(Name().c_str(), format.c_str());
}

status_t TIAPItemAccKeyFormat::SetValue(const BMessage& change) {
    const char* format = nullptr;
    const status_t status = change.FindString(Name().c_str(), &format);
    if (status != B_OK)
        return status;
    if (std::strlen(format) > kMaxFormatLength)
        return B_BAD_VALUE;
    (void)SetString(format);
    const char* application = nullptr;
    const char* own = AppSignatureRef();
    const bool isOwn = own != nullptr && change.FindString(kFieldSharedApp, &application) == B_OK &&
        std::strcmp(application, own) == 0;
    if (isOwn)
        (void)SaveString(format);
    return B_OK;
}

status_t TIAPItemAccKeyFormat::GetString(std::string* value, bool defaults) const {
    const std::lock_guard lock(fLock);
    *value = defaults ? kDefaultFormat : fFormat;
    return B_OK;
}

status_t TIAPItemAccKeyFormat::SetString(const std::string& value) {
    const std::lock_guard lock(fLock);
    fFormat = value;
    return B_OK;
}
