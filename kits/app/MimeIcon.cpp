// The icons of types, apart from the types themselves: they need the application and bitmaps.

#include <app/Application.h>
#include <interface/Bitmap.h>
#include <storage/Mime.h>
#include <storage/Resources.h>

namespace {

constexpr type_code kLargeIconType = 'ICON';
constexpr type_code kMiniIconType = 'MICN';
constexpr char kLargeIconName[] = "BEOS:L:STD_ICON";
constexpr char kMiniIconName[] = "BEOS:M:STD_ICON";
constexpr int32 kBytesPerPixel = 4;

}  // namespace

status_t BMimeType::GetIcon(BBitmap* icon, icon_size size) const {
    const auto last = static_cast<float>(size - 1);
    if (fStatus != B_OK)
        return fStatus;
    if (icon == nullptr || icon->InitCheck() != B_OK || icon->Bounds() != BRect(0, 0, last, last))
        return B_BAD_VALUE;
    if (icon->ColorSpace() != B_RGBA32)
        return B_BAD_TYPE;
    if (be_app == nullptr || !(*this == be_app->Signature()))
        return B_ENTRY_NOT_FOUND;

    size_t length = 0;
    const void* pixels = size == B_LARGE_ICON
        ? BApplication::AppResources()->LoadResource(kLargeIconType, kLargeIconName, &length)
        : BApplication::AppResources()->LoadResource(kMiniIconType, kMiniIconName, &length);
    if (pixels == nullptr)
        return B_ENTRY_NOT_FOUND;
    if (length != size_t(size) * size * kBytesPerPixel)
        return B_BAD_DATA;
    return icon->ImportBits(pixels, static_cast<int32>(length), size * kBytesPerPixel, 0, B_RGBA32);
}
