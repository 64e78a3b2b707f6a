#include "window/MRUF.h"

#include <algorithm>
#include <app/AppDefs.h>
#include <interface/InterfaceDefs.h>
#include <interface/Menu.h>
#include <interface/MenuItem.h>
#include <memory>
#include <storage/Entry.h>

#include "framework/Accelerator.h"
#include "framework/FileName.h"
#include "framework/MessageCodes.h"

namespace {

constexpr char kFieldPath[] = "MRUF";

constexpr int32 kLeastMax = 1;
constexpr int32 kMostMax = 20;
constexpr int32 kDigits = 10;
constexpr int32 kLetters = 26;

/// The key of that number: the digits, then the capitals; 0 when there is none.
char key_of(int64 number) {
    if (number < 0 || number >= kDigits + kLetters)
        return 0;
    return static_cast<char>(number < kDigits ? '0' + number : 'A' + (number - kDigits));
}

bool is_digit(char key) {
    return key >= '0' && key <= '9';
}

/// Whether labels of that format show their keys. Where they do, it is the hint that counts.
bool shows_hints(const std::string& format) {
    return format.find('a') != std::string::npos;
}

/// What the user knows the file by. The root folder has no name but its path.
std::string name_of(const std::string& path) {
    const std::string name = extract_file_name(path);
    return name.empty() ? path : name;
}

}  // namespace

TMRUF::TMRUF() : fMessage(B_REFS_RECEIVED) {}

status_t TMRUF::Archive(BMessage* archive) const {
    status_t status = TArchivable::Archive(archive);
    for (auto path = fPaths.rbegin(); path != fPaths.rend(); ++path)
        status |= archive->AddString(kFieldPath, path->c_str());
    return status;
}

status_t TMRUF::Unarchive(const BMessage& archive) {
    (void)TArchivable::Unarchive(archive);
    ClearMRUF();
    const char* path = nullptr;
    for (int32 i = 0; FindString(archive, kFieldPath, i, &path) == B_OK; ++i)
        AddMRUF(path);
    return B_OK;
}

void TMRUF::AddMRUF(const char* path) {
    if (path == nullptr || *path == '\0')
        return;
    // The path may be that of the entry that is moved.
    std::string added = path;
    RemoveMRUF(added.c_str());
    fPaths.push_front(std::move(added));
    DeleteExtraMRUF();
}

std::string TMRUF::RemoveMRUF(int32 index) {
    if (index < 0 || index >= CountMRUFs())
        return {};
    const auto entry = fPaths.begin() + index;
    std::string path = std::move(*entry);
    fPaths.erase(entry);
    return path;
}

void TMRUF::RemoveMRUF(const char* path) {
    (void)RemoveMRUF(FindMRUF(path));
}

void TMRUF::ClearMRUF() {
    fPaths.clear();
}

int32 TMRUF::FindMRUF(const char* path) const {
    if (path == nullptr)
        return -1;
    const auto found = std::ranges::find(fPaths, path);
    return found == fPaths.end() ? -1 : static_cast<int32>(found - fPaths.begin());
}

const char* TMRUF::MRUFAt(int32 index) const {
    return index < 0 || index >= CountMRUFs() ? nullptr
                                              : fPaths[static_cast<size_t>(index)].c_str();
}

void TMRUF::SetMaxMRUF(int32 count) {
    fMax = std::clamp(count, kLeastMax, kMostMax);
    DeleteExtraMRUF();
}

void TMRUF::SetTgtBase(int32 index) {
    fTargetBase = std::max<int32>(index, 0);
}

void TMRUF::SetMessage(const BMessage* message) {
    fMessage = *message;
}

void TMRUF::DeleteExtraMRUF() {
    while (CountMRUFs() > fMax)
        fPaths.pop_back();
}

void TMRUF::GenerateMenu() {
    if (fTargetMenu == nullptr)
        return;
    DeleteItems();
    for (int32 i = 0; i < CountMRUFs(); ++i)
        AddItem(i);
}

void TMRUF::DeleteItems() {
    while (fTargetMenu->CountItems() > fTargetBase) {
        if (dynamic_cast<BSeparatorItem*>(fTargetMenu->ItemAt(fTargetBase)) != nullptr)
            break;
        delete fTargetMenu->RemoveItem(fTargetBase);
    }
}

void TMRUF::AddItem(int32 index) {
    const std::string path = MRUFAt(index);
    const char key = key_of(int64{fTriggerBase} + index);
    std::string label = name_of(path);
    if (key != 0)
        label = merge_accelerator_key(fAccFormat, {key}, label);

    auto message = std::make_unique<BMessage>(fMessage);
    entry_ref ref;
    // A file that is gone, or a path that never led anywhere, still has a name.
    (void)get_ref_for_path(path.c_str(), &ref);
    (void)message->AddRef(kFieldRefs, &ref);

    auto item = std::make_unique<BMenuItem>(label.c_str(), message.release());
    if (!shows_hints(fAccFormat))
        item->SetTrigger(key);
    if (fShowShortcuts && is_digit(key))
        item->SetShortcut(key, B_SHIFT_KEY);
    (void)item->SetTarget(fTargetHandler);
    if (fTargetMenu->AddItem(item.get(), fTargetBase + index))
        (void)item.release();  // the menu's from now on
}
