#pragma once

#include "kits/translation/AddOn.h"
#include <QByteArray>

namespace BPrivate::AddOn {

/// True if the first element of the XML file, which may be compressed, is that of an SVG image.
bool IsSvg(Source& source);

/// The XML text of an SVG file, not compressed. Reading text needs the fonts of a running
/// application of Qt's: B_NOT_SUPPORTED without one. B_BAD_DATA for what is not well-formed or too
/// deeply nested, B_NO_MEMORY for too much of it.
[[nodiscard]] status_t ReadSvg(Source& source, QByteArray* text, Problem* problem);

}  // namespace BPrivate::AddOn
