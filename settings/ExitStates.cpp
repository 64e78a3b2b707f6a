#include "settings/ExitStates.h"

#include "framework/SettingsFile.h"
#include "framework/Version.h"

namespace {

constexpr char kExitStatesFile[] = "Lorivane_ExitStates.arc";

constexpr char kVersion[] = "_Ver";
constexpr char kWindowFrame[] = "_WFr";

}  // namespace

status_t TExitStates::Archive(BMessage* archive) const {
    status_t status = TArchivable::Archive(archive);
    status |= archive->AddString(kVersion, gAppVer);
    status |= archive->AddRect(kWindowFrame, fWindowFrame);
    return status;
}

status_t TExitStates::Unarchive(const BMessage& archive) {
    status_t status = TArchivable::Unarchive(archive);
    status |= FindString(archive, kVersion, &fVersion);
    status |= FindRect(archive, kWindowFrame, &fWindowFrame);
    return status;
}

status_t TExitStates::LoadFromFile() {
    return load_app_settings(kExitStatesFile, this);
}

status_t TExitStates::SaveToFile() const {
    return save_app_settings(kExitStatesFile, *this);
}
