#include <translation/TranslatorRoster.h>

#include "kits/storage/ProgramPlaces.h"
#include "kits/translation/AddOnTranslator.h"
#include <algorithm>
#include <cstring>
#include <mutex>
#include <new>
#include <storage/Path.h>
#include <string>
#include <support/DataIO.h>

using BPrivate::AddOnModule;
using BPrivate::AddOnTranslator;

namespace {

struct ReleaseTranslator {
    void operator()(BTranslator* translator) const { translator->Release(); }
};
using TranslatorHandle = std::unique_ptr<BTranslator, ReleaseTranslator>;

struct Member {
    translator_id id;
    TranslatorHandle translator;

    Member Copy() const { return {id, TranslatorHandle(translator->Acquire())}; }
};

// Every thread that loads a picture makes a roster, so the disk is looked at once.
const std::vector<AddOnModule*>& DefaultModules() {
    static const auto& modules = *new const std::vector<AddOnModule*>(
        AddOnModule::In(BPrivate::FindOfProgram("add-ons/translators")));
    return modules;
}

}  // namespace

class BTranslatorRoster::Implementation {
public:
    status_t Add(const std::vector<AddOnModule*>& modules) {
        const std::lock_guard lock(fMutex);
        for (AddOnModule* module : modules) {
            if (std::none_of(fMembers.begin(), fMembers.end(),
                    [&](const Member& member) { return member.id == module->Id(); }))
                fMembers.push_back({module->Id(), TranslatorHandle(new AddOnTranslator(*module))});
        }
        return modules.empty() ? B_ENTRY_NOT_FOUND : B_OK;
    }

    void AddFirst(BTranslator* translator) {
        const std::lock_guard lock(fMutex);
        fMembers.insert(fMembers.begin(),
            {BPrivate::NextTranslatorId(), TranslatorHandle(translator->Acquire())});
    }

    // The members as they are now, so that none is called under the lock.
    std::vector<Member> Members() {
        const std::lock_guard lock(fMutex);
        std::vector<Member> copy;
        for (const Member& member : fMembers)
            copy.push_back(member.Copy());
        return copy;
    }

    TranslatorHandle Find(translator_id id) {
        const std::lock_guard lock(fMutex);
        for (const Member& member : fMembers) {
            if (member.id == id)
                return member.Copy().translator;
        }
        return nullptr;
    }

private:
    std::mutex fMutex;
    std::vector<Member> fMembers;
};

BTranslatorRoster::BTranslatorRoster() : fImplementation(std::make_unique<Implementation>()) {}

BTranslatorRoster::~BTranslatorRoster() = default;

BTranslatorRoster* BTranslatorRoster::Default() {
    static BTranslatorRoster& roster = []() -> BTranslatorRoster& {
        auto* made = new BTranslatorRoster;
        made->AddTranslators();
        return *made;
    }();
    return &roster;
}

status_t BTranslatorRoster::AddTranslators(const char* path) {
    if (path == nullptr)
        return fImplementation->Add(DefaultModules());
    std::vector<AddOnModule*> modules;
    const std::string folders = path;
    for (size_t at = 0; at < folders.size();) {
        const size_t end = std::min(folders.find(':', at), folders.size());
        // One folder is one, however it is spelled.
        const BPath folder(folders.substr(at, end - at).c_str(), nullptr, true);
        if (folder.InitCheck() == B_OK) {
            const std::vector<AddOnModule*> found = AddOnModule::In(folder.Path());
            modules.insert(modules.end(), found.begin(), found.end());
        }
        at = end + 1;
    }
    return fImplementation->Add(modules);
}

status_t BTranslatorRoster::AddTranslator(BTranslator* translator) {
    if (translator == nullptr)
        return B_BAD_VALUE;
    fImplementation->AddFirst(translator);
    return B_OK;
}

status_t BTranslatorRoster::Identify(BPositionIO* source, BMessage* ioExtension,
    translator_info* outInfo, uint32 hintType, const char* hintMIME, uint32 wantType) {
    if (outInfo == nullptr)
        return B_BAD_VALUE;
    *outInfo = {};
    if (source == nullptr)
        return B_BAD_VALUE;
    // A folder, or a file that cannot be read, need not be asked about.
    uint8 first;
    if (const ssize_t read = source->ReadAt(0, &first, 1); read <= 0)
        return read < 0 ? status_t(read) : B_NO_TRANSLATOR;
    for (const Member& member : fImplementation->Members()) {
        if (const off_t start = source->Seek(0, SEEK_SET); start != 0)
            return start < 0 ? status_t(start) : B_ERROR;
        translator_info info;
        try {
            const status_t status =
                member.translator->Identify(source, nullptr, ioExtension, &info, wantType);
            if (status != B_OK)
                continue;
        } catch (const std::bad_alloc&) {
            return B_NO_MEMORY;
        }
        if ((hintType != 0 && info.type != hintType) ||
            (hintMIME != nullptr && strcmp(info.MIME, hintMIME) != 0))
            continue;
        info.translator = member.id;
        *outInfo = info;
        source->Seek(0, SEEK_SET);
        return B_OK;
    }
    source->Seek(0, SEEK_SET);
    return B_NO_TRANSLATOR;
}

status_t BTranslatorRoster::Translate(BPositionIO* source, const translator_info* info,
    BMessage* ioExtension, BPositionIO* destination, uint32 wantOutType, uint32 hintType,
    const char* hintMIME) {
    if (source == nullptr || destination == nullptr)
        return B_BAD_VALUE;
    if (wantOutType == 0)
        wantOutType = B_TRANSLATOR_BITMAP;
    translator_info identified;
    if (info == nullptr) {
        if (status_t status =
                Identify(source, ioExtension, &identified, hintType, hintMIME, wantOutType);
            status != B_OK)
            return status;
        info = &identified;
    }
    const TranslatorHandle translator = fImplementation->Find(info->translator);
    if (!translator)
        return B_NO_TRANSLATOR;
    if (const off_t start = source->Seek(0, SEEK_SET); start != 0)
        return start < 0 ? status_t(start) : B_ERROR;
    try {
        return translator->Translate(source, info, ioExtension, wantOutType, destination);
    } catch (const std::bad_alloc&) {
        return B_NO_MEMORY;
    }
}

status_t BTranslatorRoster::GetAllTranslators(translator_id** outList, int32* outCount) {
    if (outList == nullptr || outCount == nullptr)
        return B_BAD_VALUE;
    const std::vector<Member> members = fImplementation->Members();
    auto list = std::make_unique<translator_id[]>(members.size());
    for (size_t i = 0; i < members.size(); i++)
        list[i] = members[i].id;
    *outList = list.release();
    *outCount = int32(members.size());
    return B_OK;
}

status_t BTranslatorRoster::GetTranslatorInfo(
    translator_id id, const char** outName, const char** outInfo, int32* outVersion) {
    const TranslatorHandle translator = fImplementation->Find(id);
    if (!translator)
        return B_NO_TRANSLATOR;
    if (outName != nullptr)
        *outName = translator->TranslatorName();
    if (outInfo != nullptr)
        *outInfo = translator->TranslatorInfo();
    if (outVersion != nullptr)
        *outVersion = translator->TranslatorVersion();
    return B_OK;
}
