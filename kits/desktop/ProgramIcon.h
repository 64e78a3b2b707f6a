#pragma once

#include <QIcon>
#include <storage/Resources.h>

namespace BPrivate {

/// The icon that a program's resources hold, in all sizes there are; null when there is none. The
/// data of the resources is square rows of B, G, R, A, alpha not premultiplied.
QIcon ProgramIcon(const BResources& resources);

}  // namespace BPrivate
