#include "kits/desktop/ProgramIcon.h"

#include <QImage>
#include <QPixmap>

namespace BPrivate {

namespace {

struct IconResource {
    type_code type;
    const char* name;
    int side;  // in pixels
};

// The platform's own two sizes, and those a desktop shows besides.
constexpr IconResource kIcons[] = {
    {'MICN', "BEOS:M:STD_ICON", 16},
    {'ICON', "BEOS:L:STD_ICON", 32},
    {'ICON', "48", 48},
    {'ICON', "128", 128},
};

}  // namespace

QIcon ProgramIcon(const BResources& resources) {
    constexpr int kBytesPerPixel = 4;
    QIcon icon;
    for (const IconResource& entry : kIcons) {
        size_t size = 0;
        const void* data = resources.LoadResource(entry.type, entry.name, &size);
        if (data == nullptr || size != size_t(entry.side) * size_t(entry.side) * kBytesPerPixel)
            continue;
        // The pixels stay the resource's; the pixmap copies them.
        const QImage image(static_cast<const uchar*>(data), entry.side, entry.side,
            entry.side * kBytesPerPixel, QImage::Format_ARGB32);
        icon.addPixmap(QPixmap::fromImage(image));
    }
    return icon;
}

}  // namespace BPrivate
