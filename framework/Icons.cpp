#include "framework/Icons.h"

#include <app/Application.h>
#include <app/Roster.h>
#include <interface/Bitmap.h>
#include <memory>
#include <storage/Mime.h>

namespace {

void check(status_t status) {
    if (status != B_OK)
        throw TIconError(status);
}

std::unique_ptr<BBitmap> icon_of(const BMimeType& type, icon_size size) {
    const auto last = static_cast<float>(size - 1);
    auto icon = std::make_unique<BBitmap>(BRect(0, 0, last, last), B_RGBA32);
    check(icon->InitCheck());
    check(type.GetIcon(icon.get(), size));
    return icon;
}

}  // namespace

const char* TIconError::what() const noexcept {
    return "the application's icons cannot be read";
}

void get_icons(BBitmap** large, BBitmap** small) {
    app_info info;
    check(be_app != nullptr ? be_app->GetAppInfo(&info) : B_NO_INIT);
    const BMimeType type(info.signature);
    check(type.InitCheck());

    std::unique_ptr<BBitmap> largeIcon = icon_of(type, B_LARGE_ICON);
    *small = icon_of(type, B_MINI_ICON).release();
    *large = largeIcon.release();
}
