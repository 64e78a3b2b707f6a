#include "settings/Prefs.h"

#include "framework/SettingsFile.h"

namespace {

constexpr char kPrefsFile[] = "Lorivane_Prefs.arc";

constexpr char kEnableComment[] = "ECmt";
constexpr char kEnablePreload[] = "EPrl";
constexpr char kCommentAlign[] = "CmAl";
constexpr char kCommentEncoding[] = "CmEc";
constexpr char kDisplayOption[] = "DsOp";
constexpr char kCommentFontSize[] = "CmFS";
constexpr char kCommentMargin[] = "CmMg";
constexpr char kCommentPadding[] = "CmPd";
constexpr char ARCNAME_COLS[kPrefColorCount][5] = {"ClBG", "ClCF", "ClCB"};
constexpr char kCommentFontFamily[] = "CmFF";
constexpr char kCommentFileExts[] = "CmFE";

}  // namespace

status_t TPrefs::Archive(BMessage* archive) const {
    status_t status = TArchivable::Archive(archive);
    status |= archive->AddBool(kEnableComment, fEnableComment);
    status |= archive->AddBool(kEnablePreload, fEnablePreload);
    status |= archive->AddInt32(kCommentAlign, fCommentAlign);
    status |= archive->AddInt32(kCommentEncoding, fCommentEncoding);
    status |= archive->AddInt32(kDisplayOption, fDisplayOption);
    status |= archive->AddFloat(kCommentFontSize, fCommentFontSize);
    status |= archive->AddFloat(kCommentMargin, fCommentMargin);
    status |= archive->AddFloat(kCommentPadding, fCommentPadding);
    for (int32 i = 0; i < kPrefColorCount; i++) {
        const rgb_color color = fColors[i];
        const uint8 bytes[] = {color.red, color.green, color.blue, color.alpha};
        status |= archive->AddData(ARCNAME_COLS[i], B_RAW_TYPE, bytes, sizeof(bytes), true);
    }
    status |= archive->AddString(kCommentFontFamily, fCommentFontFamily.Get().c_str());
    for (const std::string& ext : fCommentFileExts.Get())
        status |= archive->AddString(kCommentFileExts, ext.c_str());
    return status;
}

status_t TPrefs::Unarchive(const BMessage& archive) {
    // Each field is written once, with its final value, since other threads may be reading it.
    const auto read = [&](auto find, auto& field) {
        auto value = field.Get();
        const status_t found = find(&value);
        if (found == B_OK)
            field = std::move(value);
        return found;
    };
    const auto read_bool = [&](const char* name, TPrefField<bool>& field) {
        return read([&](bool* value) { return FindBool(archive, name, value); }, field);
    };
    const auto read_int32 = [&](const char* name, TPrefField<int32>& field) {
        return read([&](int32* value) { return FindInt32(archive, name, value); }, field);
    };
    const auto read_float = [&](const char* name, TPrefField<float>& field) {
        return read([&](float* value) { return FindFloat(archive, name, value); }, field);
    };

    status_t status = TArchivable::Unarchive(archive);
    status |= read_bool(kEnableComment, fEnableComment);
    status |= read_bool(kEnablePreload, fEnablePreload);
    status |= read_int32(kCommentAlign, fCommentAlign);
    status |= read_int32(kCommentEncoding, fCommentEncoding);
    status |= read_int32(kDisplayOption, fDisplayOption);
    status |= read_float(kCommentFontSize, fCommentFontSize);
    status |= read_float(kCommentMargin, fCommentMargin);
    status |= read_float(kCommentPadding, fCommentPadding);
    for (int32 i = 0; i < kPrefColorCount; i++) {
        status |=
            read([&](rgb_color* value) { return FindRGBColor(archive, ARCNAME_COLS[i], value); },
                fColors[i]);
    }
    status |=
        read([&](std::string* value) { return FindString(archive, kCommentFontFamily, value); },
            fCommentFontFamily);

    std::vector<std::string> exts;
    std::string ext;
    for (int32 i = 0; FindString(archive, kCommentFileExts, i, &ext) == B_OK; i++)
        exts.push_back(ext);
    fCommentFileExts = std::move(exts);
    return status;
}

status_t TPrefs::LoadFromFile() {
    return load_app_settings(kPrefsFile, this);
}

status_t TPrefs::SaveToFile() const {
    return save_app_settings(kPrefsFile, *this);
}
