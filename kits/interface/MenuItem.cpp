#include <interface/MenuItem.h>

#include <app/Application.h>
#include <app/Message.h>
#include <atomic>
#include <interface/InterfaceDefs.h>
#include <interface/Menu.h>
#include <interface/Window.h>
#include <kernel/OS.h>

#include "kits/interface/ArchiveFields.h"
#include "kits/interface/MenuAccess.h"
#include "kits/interface/MenuPeer.h"

using namespace BPrivate;

namespace {

int32 NextId() {
    static std::atomic<int32> sLastId{0};
    return ++sLastId;
}

/// A key that an archive has as a number; 0 when it cannot be one.
char ArchivedKey(const BMessage& archive, const char* field) {
    const int32 key = archive.GetInt32(field, 0);
    return key > 0 && key < 128 ? static_cast<char>(key) : '\0';
}

}  // namespace

BMenuItem::BMenuItem(const char* label, BMessage* message, char shortcut, uint32 modifiers)
    : BInvoker(message, BMessenger()), fLabel(label != nullptr ? label : ""), fId(NextId()) {
    BMenuItem::SetShortcut(shortcut, modifiers);
}

BMenuItem::BMenuItem(BMenu* submenu, BMessage* message)
    : BMenuItem(submenu != nullptr ? submenu->Name() : nullptr, message) {
    if (submenu == nullptr || !submenu->_IsFree())
        return;
    fSubmenu.reset(submenu);
    submenu->fSuperitem = this;
    if (const BMenuItem* marked = submenu->FindMarked(); marked != nullptr)
        submenu->_Marked(*marked);
}

BMenuItem::BMenuItem(BMessage* archive)
    : BArchivable(archive),
      BInvoker(
          archive != nullptr ? ArchivedMessage(*archive, "_msg").release() : nullptr, BMessenger()),
      fId(NextId()) {
    if (archive == nullptr)
        return;
    fLabel = archive->GetString("_label", "");
    fEnabled = !archive->GetBool("_disable", false);
    fMarked = archive->GetBool("_marked", false);
    fTrigger = ArchivedKey(*archive, "_trig");
    BMenuItem::SetShortcut(
        ArchivedKey(*archive, "_shortcut"), static_cast<uint32>(archive->GetInt32("_mods", 0)));
    auto submenu = ArchivedObject<BMenu>(*archive, "_submenu");
    if (submenu == nullptr || !submenu->_IsFree())
        return;
    submenu->fSuperitem = this;
    fSubmenu = std::move(submenu);
}

BMenuItem::~BMenuItem() {
    if (fMenu != nullptr)
        (void)fMenu->_Take(fMenu->IndexOf(this)).release();
    if (fSubmenu != nullptr)
        fSubmenu->fSuperitem = nullptr;
}

BArchivable* BMenuItem::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BMenuItem") ? new BMenuItem(archive) : nullptr;
}

status_t BMenuItem::Archive(BMessage* archive, bool deep) const {
    FirstFailure add(BArchivable::Archive(archive, deep));
    add(archive->AddString("_label", fLabel.c_str()));
    if (!fEnabled)
        add(archive->AddBool("_disable", true));
    if (fMarked)
        add(archive->AddBool("_marked", true));
    if (fTrigger != 0)
        add(archive->AddInt32("_trig", static_cast<unsigned char>(fTrigger)));
    if (fShortcut != 0) {
        add(archive->AddInt32("_shortcut", static_cast<unsigned char>(fShortcut)));
        add(archive->AddInt32("_mods", static_cast<int32>(fModifiers)));
    }
    if (Message() != nullptr)
        add(archive->AddMessage("_msg", Message()));
    if (deep && fSubmenu != nullptr)
        add(AddArchiveOf(*fSubmenu, archive, "_submenu"));
    return add.Status();
}

void BMenuItem::SetLabel(const char* label) {
    const std::string text = label != nullptr ? label : "";
    if (text == fLabel)
        return;
    fLabel = text;
    if (fMarked && fMenu != nullptr)
        fMenu->_Marked(*this);
    _Changed();
}

status_t BMenuItem::SetMessage(BMessage* message) {
    const status_t status = BInvoker::SetMessage(message);
    // A submenu's title is a command with a message and none without.
    if (fSubmenu != nullptr)
        _Changed();
    return status;
}

void BMenuItem::SetEnabled(bool enabled) {
    if (enabled == fEnabled)
        return;
    fEnabled = enabled;
    _Changed();
}

bool BMenuItem::IsEnabled() const {
    return fEnabled && (fSubmenu == nullptr || fSubmenu->fEnabled) &&
        (fMenu == nullptr || fMenu->IsEnabled());
}

void BMenuItem::SetMarked(bool marked) {
    if (marked == fMarked)
        return;
    fMarked = marked;
    if (marked && fMenu != nullptr)
        fMenu->_Marked(*this);
    _Changed();
}

void BMenuItem::SetTrigger(char trigger) {
    if (trigger == fTrigger)
        return;
    fTrigger = trigger;
    _Changed();
}

void BMenuItem::SetShortcut(char shortcut, uint32 modifiers) {
    const uint32 held = shortcut != 0 ? modifiers | B_COMMAND_KEY : 0;
    if (shortcut == fShortcut && held == fModifiers)
        return;
    fShortcut = shortcut;
    fModifiers = held;
    _Changed();
}

char BMenuItem::Shortcut(uint32* modifiers) const {
    if (modifiers != nullptr)
        *modifiers = fModifiers;
    return fShortcut;
}

status_t BMenuItem::Invoke(BMessage* message) {
    if (!IsEnabled())
        return B_NOT_ALLOWED;
    if (fMenu != nullptr && fMenu->IsRadioMode())
        SetMarked(true);
    const BMessage* original = message != nullptr ? message : Message();
    if (original == nullptr)
        return B_BAD_VALUE;
    BMessage copy(*original);
    for (const char* field : {"when", "source", "index", "be:sender", "be:modifiers"})
        (void)copy.RemoveName(field);
    (void)copy.AddInt64("when", system_time());
    (void)copy.AddPointer("source", this);
    (void)copy.AddInt32("index", fMenu != nullptr ? fMenu->IndexOf(this) : -1);
    (void)copy.AddMessenger("be:sender", be_app_messenger);
    (void)copy.AddInt32("be:modifiers", static_cast<int32>(modifiers()));
    if (Messenger() != BMessenger())
        return BInvoker::Invoke(&copy);
    const MenuPeer* peer = fMenu != nullptr ? MenuAccess::ShownBy(*fMenu) : nullptr;
    const BWindow* window = peer != nullptr ? peer->View().Window() : nullptr;
    if (window == nullptr)
        return B_BAD_VALUE;
    return BMessenger(nullptr, window).SendMessage(&copy, HandlerForReply(), Timeout());
}

void BMenuItem::_Changed() {
    if (fMenu != nullptr)
        fMenu->_Changed();
}

BSeparatorItem::BSeparatorItem() : BMenuItem("", nullptr) {
    BMenuItem::SetEnabled(false);
}

BSeparatorItem::BSeparatorItem(BMessage* archive) : BMenuItem(archive) {
    BMenuItem::SetEnabled(false);
}

BArchivable* BSeparatorItem::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BSeparatorItem") ? new BSeparatorItem(archive)
                                                             : nullptr;
}
