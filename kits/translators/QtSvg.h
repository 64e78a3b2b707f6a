#pragma once

#include "kits/translation/AddOn.h"
#include <QByteArray>

namespace BPrivate::AddOn {

/// True if the first element of the XML file, which may be compressed, is that of an SVG image.
bool IsSvg(Source& source);

/// The XML text of an SVG file, not compressed: B_BAD_DATA if it cannot be read, B_NO_MEMORY if it
/// is longer than `limit`.
[[nodiscard]] status_t ReadSvgText(
    Source& source, qsizetype limit, QByteArray* text, Problem* problem);

/// The XML text of an SVG file, not compressed, that Qt may be given: a copy that names no file
/// (SvgCopy). Reading text needs the fonts of a running application of Qt's: B_NOT_SUPPORTED
/// without one. B_BAD_DATA for what is not well-formed or too deeply nested, B_NO_MEMORY for too
/// much of it.
[[nodiscard]] status_t ReadSvg(
    Source& source, uint64 memoryBudget, QByteArray* text, Problem* problem);

}  // namespace BPrivate::AddOn
