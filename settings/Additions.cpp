#include "settings/Additions.h"

#include "framework/SettingsFile.h"

namespace {

constexpr char kAdditionsFile[] = "Lorivane_Additions.arc";

constexpr char kSmoothScaling[] = "SmSc";

}  // namespace

status_t TAdditions::Archive(BMessage* archive) const {
    status_t status = TArchivable::Archive(archive);
    status |= archive->AddBool(kSmoothScaling, fSmoothScaling);
    return status;
}

status_t TAdditions::Unarchive(const BMessage& archive) {
    status_t status = TArchivable::Unarchive(archive);
    bool smooth = fSmoothScaling;
    status |= FindBool(archive, kSmoothScaling, &smooth);
    fSmoothScaling = smooth;
    return status;
}

status_t TAdditions::LoadFromFile() {
    return load_app_settings(kAdditionsFile, this);
}

status_t TAdditions::SaveToFile() const {
    return save_app_settings(kAdditionsFile, *this);
}
